"""file_manager.py LOG: a file manager on the session's bus, which writes the files it is to show to LOG, a line each."""

import pathlib
import sys

from gi.repository import Gio, GLib

NAME = "org.freedesktop.FileManager1"
INTERFACE = Gio.DBusNodeInfo.new_for_xml(f"""<node><interface name="{NAME}"><method name="ShowItems">
  <arg type="as" direction="in"/><arg type="s" direction="in"/></method></interface></node>""").interfaces[0]


def main(log):
    def show(*call):
        *_, arguments, invocation = call
        with log.open("a", encoding="utf-8") as lines:
            lines.writelines(f"{uri}\n" for uri in arguments.unpack()[0])
        invocation.return_value(None)

    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    bus.register_object("/org/freedesktop/FileManager1", INTERFACE, show, None, None)
    Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, lambda *_: log.touch(), None)
    GLib.MainLoop().run()


main(pathlib.Path(sys.argv[1]))
