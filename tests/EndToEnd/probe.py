"""Puts the probe extension beside a session and asks what it was asked."""

import json
import os
import sys
import unittest

from processes import wait_until
from session import Session, binary, make_program

# The fields' middles, from a widget's top left corner.
BUTTON = (36, 36)
TOGGLE = (96, 36)
LINK = (156, 36)
BETWEEN_FIELDS = (62, 36)  # In all families, whose margins differ.
BESIDE_ALL = (100, 180)
SMALL_BESIDE_ALL = (100, 120)
# What changes by itself, when it is shown: left, top, width and height.
COUNTDOWN = (16, 76, 120, 24)
BAR = (16, 116, 332, 12)

KEY_FILE = """[Extension]
Exec=probe-extension
UrlScheme=probe
ReloadOnChange=probe-content;
"""


class Probe:
    def __init__(self, session):
        self._session = session
        self._requests_before_start = 0
        self._menus = 0
        self._color = (0, 0, 255)
        self.folder = os.path.join(session.folder, "probe")
        os.mkdir(self.folder)
        source = os.path.join(os.path.dirname(os.path.abspath(__file__)), "probe_extension.py")
        with open(source, encoding="utf-8") as file:
            make_program(os.path.join(self.folder, "probe-extension"),
                         f"#!{sys.executable}\n" + file.read())
        self.key_file = os.path.join(self.folder, "probe.extension")
        with open(self.key_file, "w", encoding="utf-8") as file:
            file.write(KEY_FILE)

    def start_widgets(self, *arguments, program=None):
        """Starts the program, another one than that which was built if it is named, and waits for its widget's content, or that of each that is added;
        returns the process."""
        self._requests_before_start = len(self.requests("widget/timeline"))
        process = self._session.processes.start("kelmar-widgets",
                                                self.command(*arguments, program=program),
                                                self._session.environment)
        count = max(1, arguments.count("--add"))
        wait_until(lambda: self._widgets_with_content() >= count,
                   f"the content of the probe's windows: {count}")
        return process

    def _widgets_with_content(self):
        scale = float(self._session.environment.get("QT_SCALE_FACTOR", 1))
        x, y = (round(scale * length) for length in BETWEEN_FIELDS)
        screen = self._session.screen
        with screen.standing_still():
            return sum(screen.picture(window.x + x, window.y + y, 1, 1).count(self._color) > 0
                       for window in screen.windows() if window.name == "Probe")

    def command(self, *arguments, program=None):
        return [program or binary("kelmar-widgets"), "--extension", self.key_file, *arguments]

    def window(self):
        return self._session.wait_for_window("Probe").id

    def geometry(self):
        """x, y, width and height of its window on the screen."""
        return self._session.wait_for_window("Probe").geometry

    def place(self):
        """The top left corner of its window."""
        return self.geometry()[:2]

    def open_menu(self, field=SMALL_BESIDE_ALL):
        """The context menu of its window, as it is once the extension has said what it offers."""
        wait_until(lambda: len(self.requests("widget/timeline")) > self._requests_before_start,
                   "the extension")
        # Never twice at the same place: the second click of a double click opens no menu.
        self._menus += 1
        self.click((field[0] + 12 * (self._menus % 2), field[1]), button=3)
        self._session.wait_for_menu()

    def choose(self, *words_before):
        """Goes down the open menu past these entries, of which each can be chosen, to the next."""
        self._session.choose_in_menu(*["Down"] * (len(words_before) + 1), "Return")

    def click(self, field, button=1):
        place = self.place()
        self._session.click(place[0] + field[0], place[1] + field[1], button)

    def set_color(self, red, green, blue):
        """Shown by the next timeline."""
        self._color = tuple(round(255 * component) for component in (red, green, blue))
        with open(os.path.join(self.folder, "color"), "w", encoding="ascii") as file:
            file.write(f"{red} {green} {blue}")

    def show_live_things(self, *things):
        """From the next timeline on: "countdown", "bar" (of a minute), "slow bar" (of a day)."""
        with open(os.path.join(self.folder, "live"), "w", encoding="ascii") as file:
            file.write("\n".join(things))

    def offer(self, *kinds):
        """From the next introduction on; at first it is "Probe" alone."""
        with open(os.path.join(self.folder, "offered"), "w", encoding="ascii") as file:
            file.write("\n".join(kinds))

    def replace_program(self):
        """As an update does: a new file that is renamed over the old one."""
        program = os.path.join(self.folder, "probe-extension")
        with open(program, encoding="utf-8") as file:
            make_program(program + ".new", file.read() + "# updated\n")
        os.replace(program + ".new", program)

    def tell_of_change(self):
        """Touches the file that the key file names."""
        self._session.write_in_home("probe-content", "changed")

    def requests(self, method):
        """The parameters of all requests of one method, in their order."""
        try:
            with open(os.path.join(self.folder, "requests"), encoding="utf-8") as file:
                messages = [json.loads(line) for line in file if line.endswith("\n")]
        except FileNotFoundError:
            return []
        return [message["params"] for message in messages if message["method"] == method]

    def process_id(self):
        with open(os.path.join(self.folder, "pid"), encoding="ascii") as file:
            return int(file.read())

    def part(self, area):
        """What is now seen of a part of its window."""
        return self._session.picture_of("Probe", area)

    def background(self, field=BESIDE_ALL):
        """The colour now seen beside the fields."""
        return self.part((*field, 1, 1)).pixel(0, 0)


class ProbeTest(unittest.TestCase):
    """With the probe's extension in a session of its own."""

    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.session.register_recording_planner("probe")
        self.probe = Probe(self.session)
