"""A planner's folder written by the test, and where things stand in the Due Today widget."""

import base64
import json
import os
import time

from processes import wait_until
from rendering import rendered
from session import binary

FOLDER = "Library/Application Support/Kelmar Planner"
SNAPSHOT = FOLDER + "/widget.json"
TICKED = FOLDER + "/Ticked"

ACCENT = (79, 70, 229)

# In the large widget, from its top left corner: the header is 34 points high under a margin of 16,
# rows are 36 high with at most 16 between them, so this is inside the first tick however many
# rows there are.
FIRST_TICK = (26, 76)
FIRST_TITLE = (120, 72)
# The bar of 22 points at the bottom, "Undo" at its trailing end.
UNDO = (330, 356)
UNDO_AREA = (300, 340, 52, 30)


def item(identifier, title, color, due_in=3600.0, class_name="Biology"):
    return {"id": identifier, "title": title, "className": class_name, "classColor": color,
            "due": time.time() + due_in, "hasTime": True}


def snapshot(today=(), upcoming=(), signed_in=True):
    return {"updated": time.time(), "signedIn": signed_in, "today": list(today),
            "upcoming": list(upcoming)}


def tick_name(identifier, prefix="tick-"):
    encoded = base64.urlsafe_b64encode(identifier.encode("utf-8")).decode("ascii")
    return prefix + encoded.rstrip("=")


class PlannerFolder:
    def __init__(self, session):
        self._session = session
        os.makedirs(session.path_in_home(TICKED))

    def publish(self, data):
        self._session.write_in_home(SNAPSHOT, json.dumps(data))

    def published(self):
        with open(self._session.path_in_home(SNAPSHOT), encoding="utf-8") as file:
            return json.load(file)

    def publish_text(self, text):
        self._session.write_in_home(SNAPSHOT, text)

    def ticks(self):
        return sorted(os.listdir(self._session.path_in_home(TICKED)))

    def note(self, name):
        with open(self._session.path_in_home(TICKED, name), encoding="utf-8") as file:
            return json.load(file)


class DueToday:
    """The widget on the desktop, large."""

    def __init__(self, session):
        self._session = session

    def launch(self, *arguments):
        return self._session.processes.start(
            "kelmar-widgets", [binary("kelmar-widgets"), "--add", "DueToday:large", *arguments],
            self._session.environment)

    def start(self, *arguments):
        process = self.launch(*arguments)
        # The placeholder is redacted, so this comes with the first real entry.
        wait_until(lambda: self.picture().count(ACCENT) > 0, "the widget's content")
        return process

    def click(self, place):
        x, y = self.place()
        self._session.click(x + place[0], y + place[1])
        self._session.move_pointer(0, 0)

    def place(self):
        return self._session.wait_for_window("Due Today").geometry[:2]

    def picture(self):
        return self._session.picture_of("Due Today", (0, 0, 364, 382))

    def wait_for_color(self, color):
        wait_until(lambda: self.shows_color(color), f"a row with the colour {color}")

    def wait_for_files(self, *options):
        """Until it looks as the command line draws it, with these options, from the planner's
        files."""
        # The corners differ: on this desktop nothing blends them.
        inside = (12, 12, 340, 358)
        wait_until(lambda: self.picture().part(*inside).differing_pixels(
            rendered(self._session, "DueToday", "large", options=options).part(*inside),
            tolerance=16) == 0,
            "the picture that the command line draws")

    def looks_like(self, picture):
        # Rounding at the edge depends on the parts in which a window happens to be drawn.
        return self.picture().differing_pixels(picture, tolerance=3) == 0

    def shows_color(self, color):
        """Whether a row has this class colour: its bar is 3 points wide and at least 24 high."""
        return self.picture().count(color) >= 3 * 20

    def has_undo(self):
        return self.picture().part(*UNDO_AREA).count(ACCENT, tolerance=40) >= 20
