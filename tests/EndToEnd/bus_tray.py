"""A tray on the session bus, as desktops have one in their panel: programs put their icons into it
(org.kde.StatusNotifierWatcher) and it shows their menus (com.canonical.dbusmenu).

Run as a program it is the tray; it does what it reads, one JSON value a line:

    "show"           begins to show what is put into it
    "items"          answers with the addresses of the icons
    "open"           tells the last icon's program that its menu opens, and answers with the menu
    "read"           answers with the menu as it is now
    "tooltip"        answers with what the icon says when the pointer rests on it
    ["press", id]    presses an entry
"""

from bus_double import BusDouble, obey
from processes import wait_until

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
PROPERTIES = "org.freedesktop.DBus.Properties"


class BusTray(BusDouble):
    """The tray as a test sees it."""

    def __init__(self, session):
        super().__init__(session, __file__)

    def show(self):
        self.ask("show")

    def items(self):
        return self.ask("items")

    def wait_for_icon(self):
        wait_until(self.items, "an icon in the tray")

    def open(self):
        """The menu's entries when it has just opened."""
        return self.ask("open")

    def read(self):
        return self.ask("read")

    def tooltip(self):
        return self.ask("tooltip")

    def press(self, entry):
        self.ask(["press", entry["id"]])


def serve():
    import dbus
    import dbus.mainloop.glib
    import dbus.service

    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()

    class Watcher(dbus.service.Object):
        def __init__(self):
            super().__init__(bus, "/StatusNotifierWatcher")
            self.items = []
            self.is_shown = False

        @dbus.service.method(WATCHER, in_signature="s", sender_keyword="sender")
        def RegisterStatusNotifierItem(self, service, sender=None):
            known = service if not service.startswith("/") else sender
            self.items.append(known)

        @dbus.service.method(PROPERTIES, in_signature="ss", out_signature="v")
        def Get(self, _interface, name):
            return self.GetAll(WATCHER)[name]

        @dbus.service.method(PROPERTIES, in_signature="s", out_signature="a{sv}")
        def GetAll(self, _interface):
            return {"IsStatusNotifierHostRegistered": self.is_shown, "ProtocolVersion": dbus.Int32(0),
                    "RegisteredStatusNotifierItems": dbus.Array(self.items, signature="s")}

        @dbus.service.signal(WATCHER)
        def StatusNotifierHostRegistered(self):
            self.is_shown = True

        @dbus.service.method(dbus.INTROSPECTABLE_IFACE, out_signature="s",
                             path_keyword="path", connection_keyword="connection")
        def Introspect(self, path, connection):
            # The bindings know methods and signals only.
            described = super().Introspect(path, connection)
            interface = f'<interface name="{WATCHER}">'
            return described.replace(interface, interface + "".join(
                f'<property name="{name}" type="{signature}" access="read"/>'
                for name, signature in (("IsStatusNotifierHostRegistered", "b"),
                                        ("ProtocolVersion", "i"),
                                        ("RegisteredStatusNotifierItems", "as"))))

    watcher = Watcher()
    name = dbus.service.BusName(WATCHER, bus, do_not_queue=True)

    def item_property(key):
        item = bus.get_object(watcher.items[-1], "/StatusNotifierItem", introspect=False)
        return item.Get(ITEM, key, dbus_interface=PROPERTIES)

    def menu():
        path = item_property("Menu")
        return dbus.Interface(bus.get_object(watcher.items[-1], path, introspect=False), MENU)

    def entries():
        _revision, (_id, _properties, children) = menu().GetLayout(0, -1, dbus.Array(
            [], signature="s"))
        return [entry(int(child[0]), child[1]) for child in children]

    def entry(identifier, properties):
        return {"id": identifier,
                "label": str(properties.get("label", "")),
                "separator": properties.get("type") == "separator",
                "enabled": bool(properties.get("enabled", True)),
                "toggle": str(properties.get("toggle-type", "")),
                "checked": int(properties.get("toggle-state", 0)) == 1,
                "icon": bytes(properties.get("icon-data", b"")).hex()}

    def answer(command):
        if command == "show":
            return watcher.StatusNotifierHostRegistered()
        if command == "items":
            return watcher.items
        if command == "open":
            menu().AboutToShow(0)
            return entries()
        if command == "read":
            return entries()
        if command == "tooltip":
            _icon, _pixmaps, title, text = item_property("ToolTip")
            return str(title) or str(text)
        _press, identifier = command
        menu().Event(dbus.Int32(identifier), "clicked", dbus.String("", variant_level=1),
                     dbus.UInt32(0))
        return None

    obey(answer)
    del name


if __name__ == "__main__":
    serve()
