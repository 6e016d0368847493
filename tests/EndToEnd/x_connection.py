"""A connection to an X server, spoken over its own socket (X Window System Protocol, version 11).

The libraries' way to meet an error is to end the program, and a program started for every question
would see a window go between two of its answers. Here errors are exceptions, and the server can be
made to answer several questions with nothing happening in between.
"""

import contextlib
import socket
import struct

# Requests, by their number in the protocol.
CREATE_WINDOW = 1
GET_WINDOW_ATTRIBUTES = 3
GET_GEOMETRY = 14
QUERY_TREE = 15
INTERN_ATOM = 16
CHANGE_PROPERTY = 18
GET_PROPERTY = 20
GET_SELECTION_OWNER = 23
SEND_EVENT = 25
GRAB_KEYBOARD = 31
GRAB_SERVER = 36
UNGRAB_SERVER = 37
GET_IMAGE = 73
QUERY_EXTENSION = 98

ERROR, REPLY = 0, 1
HEADER_SIZE = 32


def request(number, detail=0, body=b""):
    body += bytes(-len(body) % 4)
    return struct.pack("<BBH", number, detail, 1 + len(body) // 4) + body


class XError(Exception):
    """What the server calls an error: mostly that a window is gone."""


class XConnection:
    """Little-endian. The server must let everybody of this machine in. `events` are those that have
    come before the last answer."""

    def __init__(self, display):
        self._socket = socket.socket(socket.AF_UNIX)
        self._waits = 0
        self.events = []
        # The abstract one: the file of this name may be removed by an earlier server's end.
        self._socket.connect("\0/tmp/.X11-unix/X" + display.lstrip(":"))
        self._socket.sendall(struct.pack("<BxHHHHxx", ord("l"), 11, 0, 0, 0))
        accepted, length = struct.unpack("<Bxxx2xH", self._read(8))
        setup = self._read(4 * length)
        if accepted != 1:
            raise XError("the X server lets nobody in")
        self._next_id, = struct.unpack_from("<I", setup, 4)
        vendor_length, format_count = struct.unpack_from("<H3xB", setup, 16)
        first_screen = 32 + (vendor_length + 3) // 4 * 4 + 8 * format_count
        self.root, = struct.unpack_from("<I", setup, first_screen)

    def close(self):
        self._socket.close()

    def send(self, *requests):
        """Requests without answers."""
        self._socket.sendall(b"".join(requests))

    def ask(self, *requests):
        """The answers to requests, all sent before the first is awaited."""
        self.send(*requests)
        return [self._answer() for _ in requests]

    def new_id(self):
        self._next_id += 1
        return self._next_id

    @contextlib.contextmanager
    def others_waiting(self):
        """Meanwhile the server does nothing for anybody else."""
        if not self._waits:
            self.send(request(GRAB_SERVER))
        self._waits += 1
        try:
            yield
        finally:
            self._waits -= 1
            if not self._waits:
                self.send(request(UNGRAB_SERVER))

    def _answer(self):
        while True:
            header = self._read(HEADER_SIZE)
            if header[0] == ERROR:
                raise XError(f"error {header[1]} after request {header[10]}")
            if header[0] == REPLY:
                length, = struct.unpack_from("<I", header, 4)
                return header + self._read(4 * length)
            self.events.append(header)

    def _read(self, size):
        data = bytearray()
        while len(data) < size:
            part = self._socket.recv(min(size - len(data), 1 << 20))
            if not part:
                raise XError("the X server has gone")
            data += part
        return bytes(data)
