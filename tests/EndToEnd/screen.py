"""What is on an X server's screen: its windows and its pixels, both of the same instant."""

import contextlib
import dataclasses
import struct

from picture import Picture
from x_connection import (CHANGE_PROPERTY, CREATE_WINDOW, GET_GEOMETRY, GET_IMAGE, GET_PROPERTY,
                          GET_SELECTION_OWNER, GET_WINDOW_ATTRIBUTES, GRAB_KEYBOARD, INTERN_ATOM,
                          QUERY_EXTENSION, QUERY_TREE, SEND_EVENT, XConnection, request)

VIEWABLE = 2
ANY_TYPE = 0
ATOM_TYPE = 4
LONGEST_PROPERTY = 1024
INPUT_ONLY = 2
ASYNCHRONOUS = 1
ALREADY_GRABBED = 1
CLIENT_MESSAGE = 33
TO_THE_WINDOW_MANAGER = 0x180000  # SubstructureRedirect and SubstructureNotify
Z_PIXMAP = 2
ALL_PLANES = 0xFFFFFFFF
REPLACE = 0
# Of the extension that tells what is drawn.
DAMAGE_QUERY_VERSION, DAMAGE_CREATE = 0, 1
DAMAGE_VERSION = (1, 1)
EVERY_DRAWING = 0

PROPERTIES = ("_NET_WM_NAME", "WM_NAME", "WM_CLASS")


@dataclasses.dataclass(frozen=True)
class Window:
    """One that is mapped, with all in which it stands. Its place is the screen's."""

    id: int
    name: str
    program: str
    x: int
    y: int
    width: int
    height: int
    is_popup: bool  # The window manager has no say in it, as with menus and tooltips.

    @property
    def geometry(self):
        return self.x, self.y, self.width, self.height


class Screen:
    def __init__(self, display):
        self._connection = XConnection(display)
        self._atoms = {}
        self._unseen = self._make_unseen_window()

    def close(self):
        self._connection.close()

    @contextlib.contextmanager
    def standing_still(self):
        """Meanwhile no window comes, goes or moves, and none is drawn in."""
        with self._connection.others_waiting():
            yield

    def windows(self):
        """Those that are mapped, from back to front where they are siblings."""
        found = []
        with self.standing_still():
            level = [(self._connection.root, 0, 0)]
            while level:
                children = self._visible_children(level)
                found.extend(children)
                level = [(window.id, window.x, window.y) for window in children]
        return found

    def picture(self, x, y, width, height):
        answer, = self._connection.ask(request(GET_IMAGE, Z_PIXMAP, struct.pack(
            "<IhhHHI", self._connection.root, x, y, width, height, ALL_PLANES)))
        return Picture(width, height, answer[32:32 + 4 * width * height])

    def size(self):
        answer, = self._connection.ask(about(GET_GEOMETRY, self._connection.root))
        return struct.unpack_from("<HH", answer, 16)

    def count_drawings(self, window, x, y):
        """Begins to count how often a point of a window is drawn; returns how to ask for it."""
        answer, = self._connection.ask(request(QUERY_EXTENSION, 0, struct.pack("<Hxx", 6)
                                               + b"DAMAGE"))
        is_there, extension, event = struct.unpack_from("<BBB", answer, 8)
        if not is_there:
            raise AssertionError("the X server does not tell what is drawn")
        self._connection.ask(request(extension, DAMAGE_QUERY_VERSION,
                                     struct.pack("<II", *DAMAGE_VERSION)))
        counter = self._connection.new_id()
        self._connection.send(request(extension, DAMAGE_CREATE, struct.pack(
            "<IIBxxx", counter, window, EVERY_DRAWING)))

        def total():
            self.size()  # Whatever was drawn before this is answered has been told of then.
            areas = (struct.unpack_from("<8xI4xhhHH", seen) for seen in self._connection.events
                     if seen[0] & 0x7F == event)
            return sum(counted == counter and 0 <= x - left < width and 0 <= y - top < height
                       for counted, left, top, width, height in areas)
        # The window as it is counts as drawn.
        before = total()
        return lambda: total() - before

    def selection_owner(self, name):
        """The window of the program that holds a selection, or None."""
        answer, = self._connection.ask(about(GET_SELECTION_OWNER, self._atom(name)))
        return struct.unpack_from("<I", answer, 8)[0] or None

    def number_on_root(self, name):
        """The first number in a property of the root window, or None."""
        answer, = self._connection.ask(self._property(self._connection.root, name))
        value = value_of(answer)
        return struct.unpack_from("<I", value)[0] if len(value) >= 4 else None

    def has_responsive_window_manager(self):
        """Whether a window manager has answered a message sent before; sends another one.

        Such a message asks how wide a window's frame would be (Extended Window Manager Hints,
        _NET_REQUEST_FRAME_EXTENTS).
        """
        window, root = self._unseen, self._connection.root
        self._connection.send(request(SEND_EVENT, 0, struct.pack(
            "<IIBBxxII20x", root, TO_THE_WINDOW_MANAGER, CLIENT_MESSAGE, 32, window,
            self._atom("_NET_REQUEST_FRAME_EXTENTS"))))
        answer, = self._connection.ask(self._property(window, "_NET_FRAME_EXTENTS"))
        return bool(value_of(answer))

    def change_what_the_window_manager_understands(self, add=(), remove=()):
        """Programs that start from now on take it at its word. Hints by their names in EWMH."""
        root, supported = self._connection.root, self._atom("_NET_SUPPORTED")
        answer, = self._connection.ask(self._property(root, "_NET_SUPPORTED"))
        hints = {hint for hint, in struct.iter_unpack("<I", value_of(answer))}
        hints |= {self._atom(name) for name in add}
        hints -= {self._atom(name) for name in remove}
        self._connection.send(request(CHANGE_PROPERTY, REPLACE, struct.pack(
            f"<IIIBxxxI{len(hints)}I", root, supported, ATOM_TYPE, 32, len(hints), *hints)))

    def name_the_window_manager(self, name):
        """For programs that start from now on."""
        window = self.number_on_root("_NET_SUPPORTING_WM_CHECK")
        text = name.encode()
        self._connection.send(request(CHANGE_PROPERTY, REPLACE, struct.pack(
            "<IIIBxxxI", window, self._atom("_NET_WM_NAME"), self._atom("UTF8_STRING"), 8,
            len(text)) + text))

    def show_desktop(self, on):
        """As the key that puts all windows aside, or back, does (Extended Window Manager Hints)."""
        root = self._connection.root
        self._connection.send(request(SEND_EVENT, 0, struct.pack(
            "<IIBBxxIII16x", root, TO_THE_WINDOW_MANAGER, CLIENT_MESSAGE, 32, root,
            self._atom("_NET_SHOWING_DESKTOP"), on)))

    def is_keyboard_taken(self):
        """Whether a program has all keys sent to it, wherever the keyboard belongs, as menus do.

        Asked by wanting the same for a window that is not shown, which cannot be had: an attempt
        that succeeds would be noticed by others.
        """
        answer, = self._connection.ask(request(GRAB_KEYBOARD, 0, struct.pack(
            "<IIBBxx", self._unseen, 0, ASYNCHRONOUS, ASYNCHRONOUS)))
        return answer[1] == ALREADY_GRABBED

    def _visible_children(self, parents):
        """Of windows and where they are, all asked for at once."""
        trees = self._connection.ask(*(about(QUERY_TREE, window) for window, _x, _y in parents))
        children = [(child, x, y) for (_window, x, y), tree in zip(parents, trees)
                    for child in struct.unpack_from(f"<{number(tree, 16)}I", tree, 32)]
        answers = iter(self._connection.ask(*(
            question for child, _x, _y in children
            for question in (about(GET_WINDOW_ATTRIBUTES, child), about(GET_GEOMETRY, child),
                             *(self._property(child, name) for name in PROPERTIES)))))
        return [described(child, x, y, geometry, attributes, *map(value_of, properties))
                for (child, x, y), attributes, geometry, *properties
                in zip(children, *[answers] * (2 + len(PROPERTIES)))
                if attributes[26] == VIEWABLE]

    def _property(self, window, name):
        return request(GET_PROPERTY, 0, struct.pack("<IIIII", window, self._atom(name), ANY_TYPE,
                                                    0, LONGEST_PROPERTY))

    def _atom(self, name):
        if name not in self._atoms:
            answer, = self._connection.ask(request(
                INTERN_ATOM, 0, struct.pack("<Hxx", len(name)) + name.encode()))
            self._atoms[name], = struct.unpack_from("<I", answer, 8)
        return self._atoms[name]

    def _make_unseen_window(self):
        window = self._connection.new_id()
        self._connection.send(request(CREATE_WINDOW, 0, struct.pack(
            "<IIhhHHHHII", window, self._connection.root, 0, 0, 1, 1, 0, INPUT_ONLY, 0, 0)))
        return window


def about(question, what):
    """A request whose only content is one number."""
    return request(question, 0, struct.pack("<I", what))


def number(answer, offset):
    return struct.unpack_from("<H", answer, offset)[0]


def value_of(answer):
    """Of a property, empty for one that is not there."""
    length, = struct.unpack_from("<I", answer, 16)
    return answer[32:32 + length * answer[1] // 8]


def described(window, left, top, geometry, attributes, name, old_name, program):
    x, y, width, height, border = struct.unpack_from("<hhHHH", geometry, 12)
    words = program.split(b"\0")
    return Window(window, (name or old_name).decode(errors="replace"),
                  words[1].decode() if len(words) > 1 else "",
                  left + x + border, top + y + border, width, height, bool(attributes[27]))
