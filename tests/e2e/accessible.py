"""Walks through the running window by AT-SPI, as a screen reader does, and works it by keys."""
import subprocess
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

warnings.filterwarnings("ignore", category=DeprecationWarning)
FOCUSED, FOCUSABLE = Atspi.StateType.FOCUSED, Atspi.StateType.FOCUSABLE
SHOWING, SENSITIVE = Atspi.StateType.SHOWING, Atspi.StateType.SENSITIVE
failures = 0
said = []  # what notifications told when they appeared


def check(name, fulfilled):
    global failures
    print(("ok: " if fulfilled else "FAILED: ") + name, flush=True)
    failures += not fulfilled
    return fulfilled


def within(seconds, condition):
    end = time.monotonic() + seconds
    while True:
        while GLib.MainContext.default().iteration(False):
            pass
        result = condition()
        if result or time.monotonic() > end:
            return result
        time.sleep(0.02)


def on_showing(event):
    if event.detail1 and event.source.get_role() == Atspi.Role.NOTIFICATION:
        said.append(event.source.get_name())


def everything(node, depth=25):
    """All that is to be seen below the node, itself first."""
    try:
        if node is None:
            return
        if node.get_state_set().contains(SHOWING):  # those between a window and its page never do
            yield node
        children = [node.get_child_at_index(i) for i in range(node.get_child_count())]
    except GLib.Error:  # it has gone meanwhile
        return
    for child in children:
        if depth:
            yield from everything(child, depth - 1)


def find(node, role, name=None):
    for each in everything(node):
        try:
            if each.get_role_name() == role and name in (None, each.get_name()):
                return each
        except GLib.Error:
            pass
    return None


def window(title, role=None):
    """The window with this title, once it is there."""
    def look():
        for i in range(application.get_child_count()):
            each = application.get_child_at_index(i)
            if each and each.get_name() == title and each.get_state_set().contains(SHOWING):
                return each
        return None
    found = within(10, look)
    if role:
        check(f"„{title}“ is there as a {role}", found and found.get_role_name() == role)
    return found


def gone(title):
    return within(10, lambda: not any(
        application.get_child_at_index(i).get_name() == title
        and application.get_child_at_index(i).get_state_set().contains(SHOWING)
        for i in range(application.get_child_count())))


def activate(title):
    """Puts the window to the front by way of the window manager, and waits until it is there."""
    subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title, "windowactivate", "--sync"], check=False)


def keys(*names):
    subprocess.run(["xdotool", "key", "--delay", "60", *names], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)


def labels(node, kind):
    return [relation.get_target(i).get_name() for relation in node.get_relation_set()
            if relation.get_relation_type() == kind for i in range(relation.get_n_targets())]


def standing_alone(node):
    """The texts of a window that name no control: what a screen reader says when it opens."""
    return [each.get_name() for each in everything(node)
            if each.get_role_name() == "label" and not labels(each, Atspi.RelationType.LABEL_FOR)]


def check_names(where, node):
    nameless = [each.get_role_name() for each in everything(node)
                if each.get_state_set().contains(FOCUSABLE) and each.get_state_set().contains(SENSITIVE)
                and each.get_role_name() not in ("scroll pane", "viewport", "document web", "frame", "filler", "panel")
                and not each.get_name() and not labels(each, Atspi.RelationType.LABELLED_BY)]
    check(f"everything in {where} has a name {nameless or ''}", not nameless)


def find_application():
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        each = desktop.get_child_at_index(i)
        if each and each.get_name() == "lorelin" and each.get_child_count():
            return each
    return None


listener = Atspi.EventListener.new(on_showing)
listener.register("object:state-changed:showing")
process = subprocess.Popen([sys.argv[1] + "/lorelin"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
application = within(30, find_application)
if not check("the program is on the bus", application):
    process.kill()
    sys.exit(1)
main = within(10, lambda: find(application, "frame", "Lorelin"))

bar = within(10, lambda: find(main, "status bar", "Statusleiste"))
check("the status bar is one", bar)
check("it tells the number of characters", bar and find(bar, "label", "0 Zeichen."))
check("the toolbar has its name", find(main, "tool bar", "Werkzeugleiste"))
check("no heading of the task pane names an item", "Lorelin" in standing_alone(main) and "Tasks" in standing_alone(main))
check_names("the window", main)

page = within(10, lambda: find(main, "document web"))
check("the page is there", page)
keys("F1")
check("F1 shows the help", within(10, lambda: find(main, "document web", "Hilfe zu Lorelin")))
check("and puts the focus into its contents, which have their heading's name", within(10, lambda: (
    lambda contents: contents and contents.get_state_set().contains(FOCUSED))(find(main, "landmark", "Hilfe"))))
check("what joins the page to the window does not look greyed", within(10, lambda: (
    lambda view: view and view.get_child_at_index(0).get_state_set().contains(SENSITIVE))(find(main, "viewport", "Seite"))))

keys("ctrl+1")
check("the document has the focus", within(10, lambda: (lambda text: text and text.get_state_set().contains(FOCUSED))(
    find(main, "text", "Dokument"))))
type_text("Guten Tag.")
check("the number of characters follows", within(10, lambda: find(bar, "label", "10 Zeichen.")))
check_names("the window with the text", main)
keys("ctrl+a")
check("other programs can ask what is selected in it", within(10, lambda: subprocess.run(
    [sys.argv[1] + "/selectionDriver"], capture_output=True, text=True, check=False).stdout == "Guten Tag.\n"))
keys("ctrl+End")

keys("ctrl+e")
box = window("Fehler", "alert")
check("a new status is told", within(5, lambda: any(text.startswith("Exportiere ") for text in said)))
check("the box tells what is wrong", box and any(text.startswith("Bitte lassen Sie sich") for text in standing_alone(box)))
check("and shows its icon", box and (find(box, "icon") or find(box, "image")))
keys("Return")
check("the box closes", gone("Fehler"))
check("the focus is in the document again", within(10, lambda: find(main, "text", "Dokument").get_state_set().contains(FOCUSED)))

said.clear()
keys("F5")
check("the end of the rendering and that of the reading are told", within(
    30, lambda: said.count("Der Text wurde vollständig vorgelesen.") == 2))

keys("alt+a")
menu = within(5, lambda: find(main, "menu", "Aktion"))
check("Alt and a letter open a menu", within(5, lambda: find(menu, "menu item", "Auswahl vorlesen")))
stop = find(menu, "menu item", "Stop")
check("Stop is greyed while nothing speaks", stop and not stop.get_state_set().contains(SENSITIVE))
keys("Escape", "Escape")

keys("ctrl+f")
search = window("Suchen", "dialog")
type_text("fehlt")
keys("Return")
check("what is not found is told", within(5, lambda: "Nicht gefunden." in said))
check_names("the search", search)
keys("Escape")
gone("Suchen")

for key, title in (("t", "Stimme wählen"), ("l", "Sprachlautstärke"), ("g", "Geschwindigkeit"), ("h", "Stimmenhelligkeit")):
    keys("ctrl+shift+" + key)
    check_names(title, window(title, "dialog"))
    keys("Escape")
    check(f"„{title}“ closes", gone(title))

keys("alt+x")
within(5, lambda: find(find(main, "menu", "Extras"), "menu item", "Einstellungen"))
keys("Return")
settings = window("Einstellungen", "dialog")
check_names("the settings", settings)


def selected_pages():
    return [each.get_name() for each in everything(settings) if each.get_role_name() == "page tab"
            and each.get_state_set().contains(Atspi.StateType.SELECTED)]


check("the settings tell which page is shown", settings and selected_pages() == ["Diverses"])
keys("Tab", "space")
check("and when it is another one", within(5, lambda: selected_pages() == ["Taskscripts"]))
keys("Escape")
gone("Einstellungen")
activate("Lorelin$")

find(main, "push button", "Taskscript erstellen").get_action_iface().do_action(0)
editor = window("Taskscript Editor", "frame")
activate("^Taskscript Editor$")
check_names("the script editor", editor)
keys("F2")
picker = window("Befehl hinzufügen", "dialog")
if picker:
    fields = [each for each in everything(picker) if each.get_role_name() in ("text", "combo box")]
    named = [(each.get_name(), labels(each, Atspi.RelationType.LABELLED_BY)) for each in fields]
    check(f"its fields have labels of their own {named}", [name for name, _ in named] == ["Befehl", "1. Parameter", "2. Parameter"]
          and all(label == [name + ":"] for name, label in named[1:]))
keys("Escape")
gone("Befehl hinzufügen")
activate("^Taskscript Editor$")
keys("ctrl+w")
check("the script editor closes", gone("Taskscript Editor"))
activate("Lorelin$")

keys("ctrl+q")
window("Frage", "alert")
keys("alt+n")
survey = window("Umfrage", "dialog")
check("the survey's question is read", survey and any(
    text.startswith("Würden Sie uns 2 Minuten") for text in standing_alone(survey)))
activate("^Umfrage$")
keys("Escape")
if not within(5, lambda: process.poll() is not None):
    keys("Escape")  # the window manager may have been late with the dialog's focus
check("the program ends", within(30, lambda: process.poll() is not None))
if process.poll() is None:
    process.kill()
print(f"{failures} failures")
sys.exit(failures > 0)
