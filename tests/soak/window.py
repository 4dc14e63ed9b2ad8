"""The running program as its user and its session see it."""
import os
import pathlib
import signal
import subprocess
import threading
import time

from gi.repository import Gio, GLib

PLAYER = ("org.mpris.MediaPlayer2.lorelin", "/org/mpris/MediaPlayer2")


class Failure(Exception):
    pass


def within(seconds, condition):
    end = time.monotonic() + seconds
    while not (result := condition()):
        if time.monotonic() > end:
            return result
        time.sleep(0.05)
    return result


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


class Answers(threading.Thread):
    """Asks the window's own loop all the time, and keeps how long it took to answer."""

    def __init__(self):
        super().__init__(daemon=True)
        address = os.environ["DBUS_SESSION_BUS_ADDRESS"]
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self.lock = threading.Lock()
        self.longest = 0.0
        self.all = []
        self.since = None  # when the question was asked that has no answer yet
        self.counted = False
        self.turns = 0  # how often that changed
        self.ended = False

    def ask(self):
        begin = time.monotonic()
        with self.lock:
            self.since = begin
            turn = self.turns
        try:
            self.bus.call_sync(*PLAYER, "org.freedesktop.DBus.Properties", "Get",
                               GLib.Variant("(ss)", ("org.mpris.MediaPlayer2.Player", "PlaybackStatus")), None,
                               Gio.DBusCallFlags.NO_AUTO_START, 60000, None)
        except GLib.Error:
            with self.lock:
                self.since = None
            return False
        with self.lock:
            took = time.monotonic() - begin
            self.since = None
            if self.counted and turn == self.turns:
                self.longest = max(self.longest, took)
                self.all.append(took)
        return True

    def run(self):
        while not self.ended:
            self.ask()
            time.sleep(0.05)

    def count(self, counted):
        """From now on answers count, or no longer."""
        with self.lock:
            self.counted = counted
            self.turns += 1
            self.longest = 0.0
            self.since = None

    def take_longest(self):
        with self.lock:
            waiting = time.monotonic() - self.since if self.since and self.counted else 0.0
            longest, self.longest = max(self.longest, waiting), 0.0
            return longest


class Window:
    def __init__(self, program, log):
        self.log = open(log, "ab")
        self.process = subprocess.Popen([program], stdout=self.log, stderr=self.log)
        self.number = within(60, lambda: self.find())
        if not self.number:
            raise Failure("the window does not appear")

    def find(self):
        found = output("xdotool", "search", "--onlyvisible", "--name", "Lorelin$").split()
        return found[-1] if found else None

    @property
    def pid(self):
        return self.process.pid

    def alive(self):
        return self.process.poll() is None

    def title(self):
        return output("xdotool", "getwindowname", self.number).strip()

    def active(self):
        return output("xdotool", "getactivewindow").strip()

    def keys(self, *names):
        subprocess.run(["xdotool", "windowactivate", "--sync", self.number, "key", "--delay", "30", *names],
                       check=False, timeout=60)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "8", text], check=False, timeout=60)

    def dialog(self):
        """The box in front of the window, if there is one."""
        active = self.active()
        return active if active and active != self.number else None

    def answer(self, key, text):
        """Opens a dialog by its key and answers it; False when there was none."""
        self.keys(key)
        if not within(30, self.dialog):
            return False
        time.sleep(1)
        subprocess.run(["xdotool", "key", "ctrl+a"], check=False)
        subprocess.run(["xdotool", "type", "--delay", "20", text], check=False, timeout=60)
        time.sleep(0.5)
        subprocess.run(["xdotool", "key", "Return"], check=False)
        return True

    def close_boxes(self):
        """Leaves what is open in front of the window; how their titles are."""
        titles = []
        for _ in range(8):
            box = self.dialog()
            if not box:
                return titles
            titles.append(output("xdotool", "getwindowname", box).strip())
            if shots := os.environ.get("LORELIN_SHOTS"):
                subprocess.run(["xwd", "-root", "-silent", "-out", f"{shots}/box.xwd"], check=False)
            subprocess.run(["xdotool", "key", "--window", box, "Escape"], check=False)
            subprocess.run(["xdotool", "key", "Escape"], check=False)
            within(2, lambda gone=box: self.dialog() != gone)
        raise Failure(f"boxes that stay: {titles}")

    def status(self):
        return output("playerctl", "-p", "lorelin", "status").strip()

    def send(self, number):
        os.kill(self.pid, number)


def processes():
    """Number, parent, name and state of all."""
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            text = (folder / "stat").read_text()
        except OSError:
            continue
        name, rest = text[text.index("(") + 1:text.rindex(")")], text[text.rindex(")") + 2:].split()
        yield int(folder.name), int(rest[1]), name, rest[0]


def below(pid):
    """The processes that descend from it: number, name, state."""
    everybody = list(processes())
    found, wanted = [], {pid}
    while wanted:
        new = [(number, name, state) for number, parent, name, state in everybody if parent in wanted]
        found += new
        wanted = {number for number, _, _ in new}
    return found


def named(pid, name):
    return [number for number, its, state in below(pid) if its == name[:15] and state != "Z"]


def kill_all(numbers, how=signal.SIGKILL):
    for number in numbers:
        try:
            os.kill(number, how)
        except ProcessLookupError:
            pass


def descriptors(pid):
    return len(os.listdir(f"/proc/{pid}/fd"))


def memory(pid):
    """What it has in memory, in MB, without what is shared with files."""
    for line in pathlib.Path(f"/proc/{pid}/status").read_text().splitlines():
        if line.startswith("RssAnon:"):
            return int(line.split()[1]) / 1024
    return 0.0
