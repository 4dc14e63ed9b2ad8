"""soak.py MINUTES [SEED]: see tools/soak."""
import os
import pathlib
import random
import shutil
import signal
import statistics
import stat
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(__file__))
from server import Server
from window import Answers, Failure, Window, below, descriptors, kill_all, memory, named, output, within

TOP = pathlib.Path(__file__).resolve().parents[2]
BIN = pathlib.Path(os.environ["LORELIN_BIN"])
LIMIT = float(os.environ.get("LORELIN_SOAK_LIMIT", "250"))
MINUTES = int(sys.argv[1])
SEED = int(sys.argv[2]) if len(sys.argv) > 2 and sys.argv[2] else random.randrange(10**6)
DOCUMENTS = ("ebenen.epub", "formen.docx", "gedicht.docx", "ebenen.odt", "ebenen.fb2", "ebenen.html", "formen.md", "ebenen.pdf")
MOST_DESCRIPTORS = 12  # more than after the first steps
MOST_MEMORY = 60  # MB more, at the end, than after the first third
REST = 120  # seconds in which engines are not started again that ended too often
PATIENCE = 60  # seconds that anything may take on a busy machine


class Soak:
    def __init__(self, folder):
        self.folder = folder
        self.home = folder / "lorelin"
        self.random = random.Random(SEED)
        self.words = 0
        self.typed = None  # what stands in a text that is nowhere but in the window
        self.figures = []  # descriptors and memory after each step
        self.answers_of = {}
        self.full = False
        self.prepare()

    # Around the program

    def prepare(self):
        for name in ("lorelin", "tmp", "texts", "runtime", "sounds"):
            (self.folder / name).mkdir(mode=0o700, exist_ok=True)
        self.can_fill = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64m,mode=0700", "soak", str(self.home)],
                                       check=False, capture_output=True).returncode == 0
        os.environ.update(LORELIN_HOME=str(self.home), TMPDIR=str(self.folder / "tmp"), no_proxy="*", NO_PROXY="*",
                          HOME=str(self.folder), XDG_CONFIG_HOME=str(self.folder / "config"),
                          XDG_DATA_HOME=str(self.folder / "data"), XDG_STATE_HOME=str(self.folder / "state"),
                          XDG_CACHE_HOME=str(self.folder / "cache"), PULSE_SERVER=f"unix:{self.folder}/runtime/klang")
        for name in ("http_proxy", "https_proxy", "HTTP_PROXY", "HTTPS_PROXY", "ALL_PROXY", "all_proxy"):
            os.environ.pop(name, None)
        self.sound = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
             f"--load=module-native-protocol-unix auth-anonymous=1 socket={self.folder}/runtime/klang",
             "--load=module-null-sink sink_name=stille"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if not within(20, (self.folder / "runtime/klang").exists):
            raise Failure("there is no sound server")
        self.server = Server()
        texts = self.folder / "texts"
        sentence = "Das ist der Satz mit der Nummer {}, und er ist nicht kurz.\n"
        (texts / "kurz.txt").write_text("".join(sentence.format(i) for i in range(30)), encoding="utf-8")
        (texts / "lang.txt").write_text("".join(sentence.format(i) for i in range(20000)), encoding="utf-8")
        for name in DOCUMENTS:
            shutil.copy(TOP / "tests/import/corpus" / name, texts / name)
        settings = r"HKCU\Software\VB and VBA Program Settings\Lorelin\Settings"
        for key, value in (("Survey", "false"), ("ShowPauseMsg", "False")):
            subprocess.run([BIN / "lorelin-cli", "reg", "add", settings, key, value], check=True, stdout=subprocess.DEVNULL)
        self.start()

    def start(self):
        self.window = Window(str(BIN / "lorelin"), self.folder / "printed")
        self.answers = Answers()
        if not within(PATIENCE, self.answers.ask):
            raise Failure("the window does not answer on the session bus")
        self.answers.start()
        self.window.keys("ctrl+1")

    # The steps. Each leaves the window as it can be worked with, whatever happened.

    def open_text(self, name=None):
        name = name or self.random.choice(("kurz.txt", "lang.txt", *DOCUMENTS))
        self.window.keys("Escape")
        if not self.window.answer(self.opening(name), str(self.folder / "texts" / name)):
            raise Failure("no dialog for opening")
        if not within(PATIENCE, lambda: name in self.window.title()):
            raise Failure(f"{name} was not opened: {self.window.title()}, {self.window.close_boxes()}")
        self.typed = None
        return name

    @staticmethod
    def opening(name):
        return "ctrl+o" if name.endswith(".txt") else "ctrl+shift+o"

    def open_and_end_importer(self):
        name = self.random.choice(DOCUMENTS)
        self.window.keys("Escape")
        self.window.answer(self.opening(name), str(self.folder / "texts" / name))
        ended = within(2, lambda: named(self.window.pid, "lorelin-import"))
        kill_all(ended or [])
        within(3, lambda: name in self.window.title() or self.window.dialog())
        self.typed = None
        return f"{name}, {'ended' if ended else 'too fast to be ended'}, {self.window.close_boxes()}"

    def read(self):
        self.window.keys("F5")
        within(5, lambda: self.window.status() == "Playing")
        time.sleep(self.random.uniform(0.5, 3))
        return self.window.status()

    def skip(self):
        self.window.keys("F5")
        keys = [self.random.choice(("ctrl+F9", "ctrl+F11", "ctrl+F8", "ctrl+F10")) for _ in range(6)]
        for key in keys:
            self.window.keys(key)
        return " ".join(keys)

    def pause(self):
        for action in ("play", "pause", "play", "stop"):
            output("playerctl", "-p", "lorelin", action)
            time.sleep(0.3)
        return "by the bus"

    def edit(self):
        self.words += 1
        self.typed = f"Wort{SEED}x{self.words}"
        self.window.keys("Escape", "ctrl+1", "ctrl+End")
        time.sleep(0.3)
        self.window.type(f" {self.typed}.")
        self.expect_safe()
        return self.typed

    def expect_safe(self):
        if self.typed and not within(PATIENCE, lambda: self.is_safe(self.typed)):
            raise Failure(f"{self.typed} is nowhere on the disk")

    def is_safe(self, word):
        for file in (self.home / "recovery").glob("*.rtf"):
            try:
                if self.holds(file, word):
                    return True
            except OSError:
                pass
        return False

    @staticmethod
    def holds(file, word):
        # The file's own line ends mean nothing, and may stand within a word.
        return word in file.read_text(errors="replace").replace("\n", "")

    def undo(self):
        self.window.keys("Escape", "ctrl+1", "ctrl+End")
        self.window.type(" Weg damit.")
        self.window.keys(*["ctrl+z"] * 4, *["ctrl+y"] * 2, *["ctrl+z"] * 2)
        self.typed = None
        return "and again"

    def save(self):
        # Another beginning each time: the dialog completes names that it knows.
        target = self.folder / "texts" / f"{self.words}gespeichert.rtf"
        self.edit()
        word = self.typed
        if not self.window.answer("ctrl+s", str(target)):
            raise Failure("no dialog for saving")
        if not within(PATIENCE, lambda: target.exists() and self.holds(target, word)):
            there = sorted(path.name for path in target.parent.iterdir())
            raise Failure(f"{target.name} does not hold {word}: {self.window.close_boxes()}, {self.window.title()}, {there}")
        self.typed = None
        return target.name

    def export(self):
        self.new()
        self.window.type("Das wird eine Tondatei.")
        if not within(REST + PATIENCE, self.renders):
            raise Failure(f"nothing is read any more: {self.window.close_boxes()}")
        target = self.folder / "sounds" / f"{len(self.figures)}ton.wav"
        if not self.window.answer("ctrl+e", str(target)):
            raise Failure("no dialog for the sound file")
        if not within(PATIENCE, target.exists):
            raise Failure(f"{target.name} was not written: {self.window.close_boxes()}")
        return f"{target.stat().st_size} bytes"

    def renders(self):
        """Asked for again and again: an engine that was stopped while it had nothing to do is missed only when it is to
        speak, and those that end too often are left alone for a while."""
        self.window.keys("F5")
        within(5, lambda: self.window.status() == "Playing")
        within(PATIENCE, lambda: self.window.status() != "Playing")
        return within(5, lambda: any((self.home / "temp").glob("*.wav")))

    def new(self):
        self.window.keys("Escape", "ctrl+n")
        # An empty text is not asked about and stays what it is.
        if within(3, self.window.dialog):
            time.sleep(0.5)
            subprocess.run(["xdotool", "key", "alt+n"], check=False)
            if not within(PATIENCE, lambda: self.window.title() == "Lorelin"):
                raise Failure(f"no new text: {self.window.title()} {self.window.close_boxes()}")
        self.window.keys("ctrl+1")
        self.typed = None
        return self.window.title()

    def end_engine(self):
        self.window.keys("F5")
        time.sleep(self.random.uniform(0, 1.5))
        engines = named(self.window.pid, "lorelin-engine")
        hang = self.random.random() < 0.3
        kill_all(engines[:1] if self.random.random() < 0.5 else engines, signal.SIGSTOP if hang else signal.SIGKILL)
        if not within(15, lambda: len(named(self.window.pid, "lorelin-engine")) == 2 and not self.stopped()):
            return "one rests, or is given up until two minutes have passed"
        return "stopped" if hang else "killed"

    def stopped(self):
        return [number for number, name, state in below(self.window.pid) if name == "lorelin-engine" and state == "T"]

    def fill_disk(self):
        if not self.can_fill:
            return "not possible here"
        filler = self.home / "voll"
        with open(filler, "wb", buffering=0) as file:
            try:
                while True:
                    file.write(bytes(1 << 20))
            except OSError:
                pass
        self.words += 1
        self.typed = f"Wort{SEED}x{self.words}"
        self.window.keys("Escape", "ctrl+1", "ctrl+End")
        self.window.type(f" {self.typed}.")
        self.window.keys("F5")
        time.sleep(4)
        boxes = self.window.close_boxes()
        filler.unlink()
        self.expect_safe()
        return f"{boxes}, {self.typed} is safe"

    def address(self):
        mode = self.random.choice(("serves", "hangs", "breaks off"))
        self.server.mode = mode
        self.window.keys("Escape")
        if not self.window.answer("ctrl+l", f"http://127.0.0.1:{self.server.server_port}/a.html"):
            raise Failure("no dialog for the address")
        there = within(PATIENCE if mode == "serves" else 3, lambda: "Neues vom Frosch" in self.window.title())
        if mode == "serves" and not there:
            raise Failure(f"the page was not opened: {self.window.title()} {self.window.close_boxes()}")
        self.typed = None
        return f"{mode}, {self.window.close_boxes()}"

    def suspend(self):
        everybody = [self.window.pid, *(number for number, _, _ in below(self.window.pid))]
        self.answers.count(False)
        kill_all(everybody, signal.SIGSTOP)
        seconds = self.random.uniform(1, 5)
        time.sleep(seconds)
        kill_all(everybody, signal.SIGCONT)
        within(10, self.answers.ask)
        self.answers.count(True)
        return f"{seconds:.1f} s"

    def end_and_start(self):
        word = self.edit()
        self.answers.ended = True
        left = [number for number, _, _ in below(self.window.pid)]
        kill_all([self.window.pid])
        self.window.process.wait()
        # A process that end_engine stopped cannot see that nobody is there any more.
        kill_all(left, signal.SIGCONT)
        self.start()
        if not within(PATIENCE, lambda: self.is_safe(word)):
            raise Failure(f"{word} is lost after a kill")
        self.typed = None
        self.figures.append(None)
        return f"{word} is still there"

    # After each step

    def settle(self, name):
        if not self.window.alive():
            raise Failure(f"the program has ended with {self.window.process.returncode}")
        boxes = self.window.close_boxes()
        self.window.keys("Escape")
        within(5, lambda: self.window.status() == "Stopped")
        if not self.answers.ask():
            raise Failure("the window does not answer")
        longest = 1000 * self.answers.take_longest()
        self.answers_of.setdefault(name, []).append(longest)
        if not within(PATIENCE, lambda: not self.left_over()):
            raise Failure(f"processes are left over: {self.left_over()}")
        self.figures.append((descriptors(self.window.pid), memory(self.window.pid)))
        return longest, boxes

    def left_over(self):
        own = below(self.window.pid)
        engines = [number for number, name, state in own if name == "lorelin-engine" and state != "Z"]
        return ([each for each in own if each[2] == "Z" or each[1] == "lorelin-import"[:15]] +
                ([("engines", engines)] if len(engines) > 2 else []))

    def last_run(self):
        since = max((i for i, figure in enumerate(self.figures) if figure is None), default=-1) + 1
        return self.figures[since:]

    def check_growth(self):
        run = self.last_run()
        third = len(run) // 3
        if third < 4:
            return "too few steps since the last start to tell growth"
        first, last = run[third // 2:third + 1], run[-third:]
        opened = [statistics.median(figure[0] for figure in part) for part in (first, last)]
        used = [statistics.median(figure[1] for figure in part) for part in (first, last)]
        if opened[1] - opened[0] > MOST_DESCRIPTORS:
            raise Failure(f"descriptors grow from {opened[0]} to {opened[1]}")
        if used[1] - used[0] > MOST_MEMORY:
            raise Failure(f"memory grows from {used[0]:.0f} to {used[1]:.0f} MB")
        return f"descriptors {opened[0]:.0f} to {opened[1]:.0f}, memory {used[0]:.0f} to {used[1]:.0f} MB"

    def check_end(self):
        self.answers.count(False)
        self.window.keys("Escape", "ctrl+q")
        within(3, lambda: not self.window.alive() or self.window.dialog())
        if self.window.alive():
            self.window.send(signal.SIGTERM)
        if not within(PATIENCE, lambda: not self.window.alive()):
            raise Failure("the program does not end")
        if self.window.process.returncode != 0:
            raise Failure(f"the program ends with {self.window.process.returncode}")
        if not within(PATIENCE, lambda: not self.of_this_run()):
            raise Failure(f"processes are left: {self.of_this_run()}")
        wrong = [str(path.relative_to(self.folder)) for path in self.own_files() if self.is_open_to_others(path)]
        if wrong:
            raise Failure(f"others could read {wrong}")
        left = [*(self.home / "temp").glob("*"), *self.home.rglob(".lorelin-*"), *(self.home / "cache").glob("run-*"),
                *(path for path in (self.folder / "tmp").iterdir() if not path.name.startswith(("pulse-", "dbus-")))]
        if left:
            raise Failure(f"files are left: {left}")

    def own_files(self):
        return [self.home, *(path for path in self.home.rglob("*") if path.relative_to(self.home).parts[0] not in ("hypertext", "scripts"))]

    @staticmethod
    def is_open_to_others(path):
        status = path.lstat()
        # In a closed folder nobody else comes to what is in it.
        return not stat.S_ISLNK(status.st_mode) and status.st_mode & 0o077 and path.parent.stat().st_mode & 0o077

    def of_this_run(self):
        found = []
        for folder in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                mark = f"LORELIN_HOME={self.home}".encode() in (folder / "environ").read_bytes().split(b"\0")
                name = (folder / "comm").read_text().strip()
            except OSError:
                continue
            if mark and name.startswith("lorelin"):
                found.append((folder.name, name))
        return found

    # The whole

    def run(self):
        plan = {self.open_text: 4, self.open_and_end_importer: 2, self.read: 4, self.skip: 3, self.pause: 2, self.edit: 4,
                self.undo: 2, self.save: 2, self.export: 2, self.new: 2, self.end_engine: 2, self.fill_disk: 2,
                self.address: 3, self.suspend: 2, self.end_and_start: 0.3}
        print(f"seed {SEED}, {MINUTES} min, limit {LIMIT:.0f} ms, {'with' if self.can_fill else 'without'} a disk to fill", flush=True)
        end = time.monotonic() + 60 * MINUTES
        slow = []
        while time.monotonic() < end:
            step = self.random.choices(list(plan), plan.values())[0]
            name = step.__name__
            # A step that starts the program anew says so here already, in case that fails.
            print(f"{len(self.figures):4} {name:22}", end="", flush=True)
            self.answers.count(True)
            told = step()
            longest, boxes = self.settle(name)
            opened, used = self.figures[-1]
            print(f" {longest:5.0f} ms {opened:4} fd {used:4.0f} MB  {told}{f', left {boxes}' if boxes else ''}", flush=True)
            if longest > LIMIT:
                slow.append((name, round(longest)))
        growth = self.check_growth()
        self.check_end()
        self.tell(growth, slow)
        if slow:
            raise Failure(f"slower than {LIMIT:.0f} ms: {slow}")

    def tell(self, growth, slow):
        for name, longest in sorted(self.answers_of.items()):
            print(f"  {name:22} {len(longest):3} times, longest answer median {statistics.median(longest):.0f} ms,"
                  f" at most {max(longest):.0f} ms")
        print(f"  {growth}; {len(slow)} steps slower than {LIMIT:.0f} ms")

    def finish(self):
        kill_all([self.window.pid] if hasattr(self, "window") and self.window.alive() else [])
        self.sound.terminate()
        self.server.ended.set()
        if self.can_fill:
            subprocess.run(["umount", "-l", str(self.home)], check=False)


def main():
    with tempfile.TemporaryDirectory(prefix="soak") as folder:
        soak = None
        try:
            soak = Soak(pathlib.Path(folder))
            soak.run()
            print("nothing was wrong")
            return 0
        except Failure as failure:
            print(f"\nFAILED with seed {SEED}: {failure}")
            if shots := os.environ.get("LORELIN_SHOTS"):
                subprocess.run(["xwd", "-root", "-silent", "-out", f"{shots}/soak.xwd"], check=False)
            for name in ("printed", "lorelin/lorelin.log"):
                file = pathlib.Path(folder) / name
                if file.exists():
                    print(f"--- {name}\n" + "\n".join(file.read_text(errors="replace").splitlines()[-20:]))
            return 1
        finally:
            if soak:
                soak.finish()


sys.exit(main())
