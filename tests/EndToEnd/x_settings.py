"""The settings that a desktop's daemon gives X programs (freedesktop.org, XSETTINGS)."""

import struct

from x_connection import CREATE_WINDOW, INTERN_ATOM, SEND_EVENT, XConnection, request

CHANGE_PROPERTY = 18
SET_SELECTION_OWNER = 22
CLIENT_MESSAGE = 33
STRUCTURE_NOTIFY = 0x20000
INPUT_ONLY = 2
NOW = 0
NUMBER = 0  # the type of a setting
RESOLUTION = b"Xft/DPI"
DOT = 1024


class XSettings:
    """The daemon of a display, with one setting."""

    def __init__(self, display, resolution):
        self._connection = XConnection(display)
        self._serial = 0
        self._window = self._connection.new_id()
        root = self._connection.root
        self._connection.send(request(CREATE_WINDOW, 0, struct.pack(
            "<IIhhHHHHII", self._window, root, 0, 0, 1, 1, 0, INPUT_ONLY, 0, 0)))
        self.set_resolution(resolution)
        selection = self._atom("_XSETTINGS_S0")
        self._connection.send(
            request(SET_SELECTION_OWNER, 0,
                    struct.pack("<III", self._window, selection, NOW)),
            request(SEND_EVENT, 0, struct.pack(
                "<IIBBxxIIIII8x", root, STRUCTURE_NOTIFY, CLIENT_MESSAGE, 32, root,
                self._atom("MANAGER"), NOW, selection, self._window)))

    def close(self):
        self._connection.close()

    def set_resolution(self, dots_per_inch):
        self._serial += 1
        settings = (struct.pack("<BxxxII", 0, self._serial, 1)
                    + struct.pack("<BxH", NUMBER, len(RESOLUTION)) + RESOLUTION
                    + bytes(-len(RESOLUTION) % 4)
                    + struct.pack("<Ii", self._serial, dots_per_inch * DOT))
        name = self._atom("_XSETTINGS_SETTINGS")
        self._connection.send(request(CHANGE_PROPERTY, 0, struct.pack(
            "<IIIBxxxI", self._window, name, name, 8, len(settings)) + settings))

    def _atom(self, name):
        answer, = self._connection.ask(request(
            INTERN_ATOM, 0, struct.pack("<Hxx", len(name)) + name.encode()))
        return struct.unpack_from("<I", answer, 8)[0]
