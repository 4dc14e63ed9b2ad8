#!/usr/bin/python3
"""An extension that behaves as told: difficult.py NAME KIND."""
import os
import sys
import time

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

name, kind = sys.argv[1:]
DBusGMainLoop(set_as_default=True)


SIGNATURES = {"number": ("i", 7), "bytes": ("ay", [120]), "nothing": ("", None)}


class Extension(dbus.service.Object):
    if kind in SIGNATURES:

        @dbus.service.method(name, in_signature="s", out_signature=SIGNATURES[kind][0])
        def FilterText(self, text):
            return SIGNATURES[kind][1]

    elif kind != "lacks":

        @dbus.service.method(name, in_signature="s", out_signature="s")
        def FilterText(self, text):
            if kind == "raises":
                raise ValueError("kaputt")
            if kind == "dies":
                os._exit(1)
            if kind == "sleeps":
                time.sleep(15)
            if kind == "huge":
                return "x" * (17 << 20)
            return text + "+" + kind

    @dbus.service.method(name)
    def Close(self):
        pass


owner = dbus.service.BusName(name, dbus.SessionBus())
Extension(owner, "/" + name.replace(".", "/"))
GLib.MainLoop().run()
