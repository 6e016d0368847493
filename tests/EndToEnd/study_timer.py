"""Where things stand in the Study Timer widget, medium, from its top left corner."""

from processes import wait_until
from rendering import rendered
from session import binary

SIZE = (364, 170)
# The capsules at the trailing side: 112 wide, 28 high and 6 apart.
FIRST_BUTTON = (292, 30)
SECOND_BUTTON = (292, 64)
THIRD_BUTTON = (292, 98)
# Between the clock and the buttons: nothing to press but the widget itself.
BESIDE_BUTTONS = (100, 140)
# Left, top, width and height.
BUTTONS = (236, 16, 112, 96)
CLOCK = (16, 32, 200, 40)
# The corners differ from the command line's: on this desktop nothing blends them.
INSIDE = (12, 12, 340, 146)


class StudyTimer:
    def __init__(self, session, title="Study Timer"):
        self._session = session
        self._title = title
        self._menus = 0

    def start(self, *arguments):
        process = self._session.processes.start(
            "kelmar-widgets",
            [binary("kelmar-widgets"), "--add", "StudyTimer:medium", *arguments],
            self._session.environment)
        wait_until(lambda: self.shows_files(BUTTONS), "the widget's content")
        return process

    def place(self):
        return self._session.wait_for_window(self._title).geometry[:2]

    def click(self, place, button=1):
        x, y = self.place()
        self._session.click(x + place[0], y + place[1], button)
        if button == 1:
            self._session.move_pointer(0, 0)

    def open_menu(self):
        # Never twice at the same place: the second click of a double click opens no menu.
        self._menus += 1
        self.click((BESIDE_BUTTONS[0] + 12 * (self._menus % 2), BESIDE_BUTTONS[1]), button=3)
        self._session.wait_for_menu()

    def picture(self):
        return self._session.picture_of(self._title, (0, 0, *SIZE))

    def shows_files(self, area, now=None):
        """Whether a part of it looks as the command line draws it from the planner's files."""
        expected = rendered(self._session, "StudyTimer", "medium", now)
        return self.picture().part(*area).differing_pixels(
            expected.part(*area), tolerance=16) == 0

    def wait_for_files(self, area=INSIDE, now=None):
        wait_until(lambda: self.shows_files(area, now), "the picture that the command line draws")

    def wait_for_ticking(self):
        """Until the clock has been seen to move by itself twice."""
        shown = self.picture().part(*CLOCK)
        for _ in range(2):
            before = shown

            def has_moved():
                nonlocal shown
                shown = self.picture().part(*CLOCK)
                return shown != before
            wait_until(has_moved, "the clock to move")
