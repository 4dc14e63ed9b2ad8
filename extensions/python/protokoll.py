#!/usr/bin/python3
"""Beispiel und Vorlage einer Erweiterung für Lorelin: schreibt jeden Aufruf in ein Protokoll.

Keine der Methoden darf fehlen: das beendet den Aufruf auch für die weiteren Erweiterungen. Braucht die
Debian-Pakete python3-dbus und python3-gi. "protokoll.py --install" macht sie dem Sitzungsbus bekannt;
danach in Lorelin unter "Extras", "Erweiterungen verwalten" mit ihrem Namen hinzufügen.
"""
import os
import sys
import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

NAME = "org.lorelin.example.Protokoll"
DATA = os.environ.get("XDG_DATA_HOME") or os.path.expanduser("~/.local/share")
LOG = os.environ.get("PROTOKOLL") or os.path.join(DATA, "lorelin-protokoll.txt")

def note(*words):
    with open(LOG, "a", encoding="utf-8") as log:
        log.write(" ".join(words) + "\n")

class Extension(dbus.service.Object):
    @dbus.service.method(NAME)
    def Startup(self, *path):  # ohne Pfad: Lorelin startet; mit Pfad: ein Dokument wird geöffnet
        note("Open" if path else "Startup", *path)
    @dbus.service.method(NAME)
    def Close(self):
        note("Close")
    @dbus.service.method(NAME)
    def NewFile(self):
        note("NewFile")
    @dbus.service.method(NAME)
    def SaveFile(self, path):
        note("SaveFile", path)
    @dbus.service.method(NAME)
    def Export(self, path):
        note("Export", path)
    @dbus.service.method(NAME)
    def TaskScript(self, script):
        note("TaskScript", script)
    @dbus.service.method(NAME)
    def FilterText(self, text):  # was sie zurückgibt, wird vorgelesen
        note("FilterText", text)
        return text

if "--install" in sys.argv:
    services = os.path.join(DATA, "dbus-1", "services")
    os.makedirs(services, exist_ok=True)
    with open(os.path.join(services, NAME + ".service"), "w", encoding="utf-8") as service:
        service.write(f"[D-BUS Service]\nName={NAME}\nExec={sys.executable} {os.path.abspath(__file__)}\n")
else:
    DBusGMainLoop(set_as_default=True)
    owner = dbus.service.BusName(NAME, dbus.SessionBus())
    Extension(owner, "/" + NAME.replace(".", "/"))
    GLib.MainLoop().run()
