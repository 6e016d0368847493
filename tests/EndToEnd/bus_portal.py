"""A settings portal on the session bus (org.freedesktop.portal.Settings), which tells programs what
the desktop prefers and when that changes.

Run as a program it is the portal; it does what it reads, one JSON value a line:

    ["set", namespace, key, signature, value]    gives a setting a value, and says so to all
"""

from bus_double import BusDouble, obey

PORTAL = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
APPEARANCE = "org.freedesktop.appearance"
INTERFACE = "org.gnome.desktop.interface"

# What the portal calls the schemes.
SCHEMES = {"none": 0, "dark": 1, "light": 2}


class BusPortal(BusDouble):
    """The portal as a test sees it."""

    def __init__(self, session):
        super().__init__(session, __file__)

    def set_scheme(self, scheme):
        self.set_setting(APPEARANCE, "color-scheme", "u", SCHEMES[scheme])

    def set_accent(self, red, green, blue):
        self.set_setting(APPEARANCE, "accent-color", "(ddd)", [red, green, blue])

    def set_reduced_motion(self, is_reduced):
        self.set_setting(APPEARANCE, "reduced-motion", "u", int(is_reduced))

    def set_font(self, description):
        """As GNOME writes it: "Noto Sans 11"."""
        self.set_setting(INTERFACE, "font-name", "s", description)

    def set_text_scale(self, scale):
        self.set_setting(INTERFACE, "text-scaling-factor", "d", scale)

    def set_setting(self, namespace, key, signature, value):
        """The signature is that of D-Bus."""
        self.ask(["set", namespace, key, signature, value])


def serve():
    import dbus
    import dbus.mainloop.glib
    import dbus.service

    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()

    class Portal(dbus.service.Object):
        def __init__(self):
            super().__init__(bus, PATH)
            self.settings = {}

        @dbus.service.method(SETTINGS, in_signature="as", out_signature="a{sa{sv}}")
        def ReadAll(self, wanted):
            return {name: values for name, values in self.settings.items() if name in wanted}

        @dbus.service.signal(SETTINGS, signature="ssv")
        def SettingChanged(self, _namespace, _key, _value):
            pass

    types = {"u": dbus.UInt32, "d": dbus.Double, "s": dbus.String,
             "(ddd)": lambda value: dbus.Struct(map(dbus.Double, value), signature="ddd")}

    def typed(signature, value):
        return types[signature](value)

    def answer(command):
        _set, namespace, key, signature, value = command
        portal.settings.setdefault(namespace, {})[key] = typed(signature, value)
        portal.SettingChanged(namespace, key, typed(signature, value))

    portal = Portal()
    name = dbus.service.BusName(PORTAL, bus, do_not_queue=True)
    obey(answer)
    del name


if __name__ == "__main__":
    serve()
