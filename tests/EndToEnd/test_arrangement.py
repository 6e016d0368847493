"""Arranging widgets by hand on a real X server: the gallery, dragging, removal and its undoing, the
lock, and screens that come and go."""

import json
import os
import unittest

from probe import SMALL_BESIDE_ALL, Probe
from processes import GIVE_UP_TIME, wait_until
from session import SCREEN_SIZE, Session

BLUE = (0, 0, 255)
ARRANGEMENT = ".config/kelmar-widgets/arrangement.json"
FIRST_PLACE = (SCREEN_SIZE[0] - 16 - 364, 16)

# What the menu of the probe's widgets lists, in its order.
SIZES = ("Small", "Medium", "Large")
BEFORE_REMOVE = SIZES
BEFORE_GALLERY = (*SIZES, "Remove widget")
BEFORE_LOCK = (*BEFORE_GALLERY, "Add widgets…")
# The keyboard passes over what cannot be chosen.
BEFORE_LOCK_WHEN_LOCKED = ("Add widgets…",)

# Of a widget in its first place, where the gallery in the middle of the screen does not reach.
FAR_RIGHT = (340, 120)

# The middle of the small tile, from the corner of the gallery's inside: the first one.
SMALL_TILE = (33 + 85, 270)


class ArrangementTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.probe = Probe(self.session)

    def widgets(self):
        """x, y, width and height of every widget."""
        return self.session.geometries_of("Probe")

    def wait_for_widgets(self, *geometries):
        wait_until(lambda: self.widgets() == sorted(geometries),
                   f"widgets at {geometries}, not {self.widgets()}")

    def open_gallery(self):
        self.probe.open_menu(FAR_RIGHT)
        self.probe.choose(*BEFORE_GALLERY)
        return self.gallery()

    def gallery(self):
        """The gallery when it has the keyboard and shows its previews."""
        window = self.session.wait_for_window("Add widgets").id
        wait_until(lambda: self.session.picture_of("Add widgets", (*SMALL_TILE, 1, 1))
                   .pixel(0, 0) == BLUE, "the small preview")
        wait_until(lambda: self.session.active_window() == window,
                   "the gallery to have the keyboard")
        return window

    def tile(self, gallery):
        x, y = self.session.geometry_of(gallery)[:2]
        return x + SMALL_TILE[0], y + SMALL_TILE[1]

    def remove(self, field=SMALL_BESIDE_ALL):
        before = len(self.widgets())
        self.probe.open_menu(field)
        self.probe.choose(*BEFORE_REMOVE)
        bar = self.session.wait_for_window("Probe removed").id
        wait_until(lambda: len(self.widgets()) == before - 1, "the widget to go")
        return bar

    def kept(self):
        try:
            with open(self.session.path_in_home(ARRANGEMENT), encoding="utf-8") as file:
                return json.load(file)
        except FileNotFoundError:
            return {}

    def end(self, process):
        self.assertEqual(self.session.processes.end(process), 0)


class GalleryTest(ArrangementTest):
    def test_click_in_the_gallery_places_a_widget_that_a_restart_finds_again(self):
        process = self.probe.start_widgets()
        gallery = self.open_gallery()
        self.session.click(*self.tile(gallery))
        first = (*FIRST_PLACE, 364, 382)
        second = (SCREEN_SIZE[0] - 16 - 170, 416, 170, 170)
        self.wait_for_widgets(first, second)
        self.end(process)
        self.probe.start_widgets()
        self.wait_for_widgets(first, second)

    def test_widget_is_dragged_from_the_gallery_to_its_place(self):
        self.probe.start_widgets()
        gallery = self.open_gallery()
        x, y, width, height = self.session.geometry_of(gallery)
        # Held in the middle of the tile, dropped near the left margin and beyond the lower edge.
        self.session.drag(self.tile(gallery), (16 + 85 + 4, SCREEN_SIZE[1] - 2))
        self.wait_for_widgets((*FIRST_PLACE, 364, 382), (16, SCREEN_SIZE[1] - 170, 170, 170))
        self.assertEqual(self.session.geometry_of(gallery), (x, y, width, height))

    def test_several_of_a_kind_find_places_of_their_own(self):
        self.probe.start_widgets()
        gallery = self.open_gallery()
        for count in (2, 3, 4):
            self.session.click(*self.tile(gallery))
            wait_until(lambda: len(self.widgets()) == count, f"{count} widgets")
        for index, (x, y, width, height) in enumerate(self.widgets()):
            for other in self.widgets()[index + 1:]:
                self.assertFalse(x < other[0] + other[2] and other[0] < x + width
                                 and y < other[1] + other[3] and other[1] < y + height)

    def test_keyboard_alone_places_a_widget_and_closes_the_gallery(self):
        self.probe.start_widgets()
        self.open_gallery()
        self.session.press_keys("Tab", "Return")
        wait_until(lambda: len(self.widgets()) == 2, "a second widget")
        self.assertIn(170, [widget[3] for widget in self.widgets()])
        self.session.press_keys("Escape")
        wait_until(lambda: not self.session.windows_named("Add widgets"), "the gallery's end")

    def test_second_wish_for_the_gallery_finds_the_open_one(self):
        self.probe.start_widgets()
        gallery = self.open_gallery()
        self.session.open_plain_window(100, 100, 900, 600)
        self.open_gallery()
        self.assertEqual(self.session.windows_named("Add widgets"), [gallery])


class RemovalTest(ArrangementTest):
    def test_undo_brings_the_widget_back_to_its_place(self):
        process = self.probe.start_widgets()
        bar = self.remove()
        self.assertEqual(self.widgets(), [])
        x, y, width, height = self.session.geometry_of(bar)
        self.assertEqual((x + width // 2, y + height // 2),
                         (FIRST_PLACE[0] + 182, FIRST_PLACE[1] + 191))
        self.session.click(x + width - 30, y + height // 2)
        self.wait_for_widgets((*FIRST_PLACE, 364, 382))
        wait_until(lambda: not self.session.windows_named("Probe removed"), "the bar's end")
        self.end(process)
        self.probe.start_widgets()
        self.wait_for_widgets((*FIRST_PLACE, 364, 382))

    def test_bar_neither_takes_the_keyboard_nor_covers_other_windows(self):
        self.probe.start_widgets()
        self.session.open_plain_window(20, 20, 200, 100)
        owner = self.session.active_window()
        bar = self.remove()
        self.assertEqual(self.session.active_window(), owner)
        states = self.session.property_of(bar, "_NET_WM_STATE")
        for state in ("BELOW", "SKIP_TASKBAR", "SKIP_PAGER"):
            self.assertIn("_NET_WM_STATE_" + state, states)

    def test_keyboard_undoes_when_the_bar_has_it(self):
        self.probe.start_widgets()
        bar = self.remove()
        self.session.press_keys_on(bar, "Return")
        self.wait_for_widgets((*FIRST_PLACE, 364, 382))

    def test_removed_widget_stays_away_after_a_restart(self):
        process = self.probe.start_widgets("--add", "Probe:small", "--add", "Probe:medium")
        self.remove()
        left = self.widgets()
        self.assertEqual(len(left), 1)
        self.end(process)
        self.probe.start_widgets()
        self.session.settle()
        self.assertEqual(self.widgets(), left)

    def test_menu_undoes_a_removal_after_the_bar_has_gone(self):
        self.probe.start_widgets("--add", "Probe:small", "--add", "Probe:medium")
        before = self.widgets()
        bar = self.remove()
        self.session.press_keys_on(bar, "Escape")
        wait_until(lambda: not self.session.windows_named("Probe removed"), "the bar's end")
        self.probe.open_menu()
        self.probe.choose(*SIZES, "Remove widget")
        self.wait_for_widgets(*before)

    def test_desktop_whose_last_widget_nobody_wants_back_ends_and_begins_with_the_gallery(self):
        process = self.probe.start_widgets()
        bar = self.remove()
        self.assertIsNone(process.poll())
        self.session.move_pointer(0, 0)
        self.assertEqual(process.wait(GIVE_UP_TIME), 0)
        self.assertEqual(self.kept()["widgets"], [])
        self.session.processes.start("kelmar-widgets", self.probe.command(),
                                     self.session.environment)
        gallery = self.gallery()
        self.session.click(*self.tile(gallery))
        wait_until(lambda: len(self.widgets()) == 1, "the widget")
        self.session.press_keys("Escape")
        self.session.settle()
        self.assertEqual(len(self.widgets()), 1)
        self.assertNotEqual(bar, gallery)

    def test_empty_desktop_stays_as_long_as_its_gallery_is_open(self):
        process = self.probe.start_widgets()
        self.open_gallery()
        bar = self.remove(FAR_RIGHT)
        self.session.press_keys_on(bar, "Escape")
        self.session.settle()
        self.assertIsNone(process.poll())
        self.session.press_keys_on(self.session.wait_for_window("Add widgets").id, "Escape")
        self.assertEqual(process.wait(GIVE_UP_TIME), 0)


class LockTest(ArrangementTest):
    def lock(self):
        self.probe.open_menu()
        self.probe.choose(*BEFORE_LOCK)
        wait_until(lambda: self.kept().get("locked"), "the lock to be kept")

    def drag_widget(self):
        x, y = self.probe.place()
        self.session.drag((x + 100, y + 200), (x - 200, y + 300))

    def test_locked_widget_can_neither_be_dragged_nor_removed_nor_resized(self):
        process = self.probe.start_widgets()
        self.lock()
        place = (*FIRST_PLACE, 364, 382)
        for _ in range(2):
            self.drag_widget()
            self.session.settle()
            self.probe.open_menu()
            self.probe.choose()  # the first that can be chosen
            self.gallery()
            self.assertEqual(self.widgets(), [place])
            self.end(process)
            process = self.probe.start_widgets()

    def test_unlocked_widget_can_be_dragged_again(self):
        self.probe.start_widgets()
        self.lock()
        self.probe.open_menu()
        self.probe.choose(*BEFORE_LOCK_WHEN_LOCKED)
        wait_until(lambda: self.kept()["locked"] is False, "the lock to be gone")
        self.drag_widget()
        self.wait_for_widgets((600, 120, 364, 382))


class ScreensTest(ArrangementTest):
    LEFT = (640, 800, 0, 0)
    RIGHT = (640, 800, 640, 0)

    def test_widget_of_a_screen_that_goes_is_shown_elsewhere_and_returns_with_it(self):
        self.session.set_monitors(LEFT=self.LEFT, RIGHT=self.RIGHT)
        process = self.probe.start_widgets()
        left = (640 - 16 - 364, 16, 364, 382)
        self.wait_for_widgets(left)
        self.session.drag((left[0] + 100, 200), (left[0] + 100 + 640, 200))
        right = (1280 - 16 - 364, 16, 364, 382)
        self.wait_for_widgets(right)
        kept = self.kept()
        self.session.set_monitors(LEFT=self.LEFT)
        self.wait_for_widgets((640 - 16 - 364, 16, 364, 382))
        self.session.set_monitors(LEFT=self.LEFT, RIGHT=self.RIGHT)
        self.wait_for_widgets(right)
        self.assertEqual(self.kept(), kept)
        self.end(process)
        self.probe.start_widgets()
        self.wait_for_widgets(right)

    def test_widget_is_found_on_its_screen_when_that_comes_after_the_start(self):
        self.session.set_monitors(LEFT=self.LEFT, RIGHT=self.RIGHT)
        process = self.probe.start_widgets()
        self.session.drag((360, 200), (360 + 640, 200))
        right = (1280 - 16 - 364, 16, 364, 382)
        self.wait_for_widgets(right)
        self.end(process)
        self.session.set_monitors(LEFT=self.LEFT)
        self.probe.start_widgets()
        self.wait_for_widgets((640 - 16 - 364, 16, 364, 382))
        self.session.set_monitors(LEFT=self.LEFT, RIGHT=self.RIGHT)
        self.wait_for_widgets(right)

    def test_widget_is_clamped_to_a_smaller_screen_and_restored_with_the_larger(self):
        self.session.set_monitors(LEFT=self.LEFT, RIGHT=self.RIGHT)
        self.probe.start_widgets()
        self.session.drag((360, 200), (360, 200 + 300))
        self.wait_for_widgets((260, 320, 364, 382))
        self.session.set_monitors(LEFT=(500, 600, 0, 0), RIGHT=self.RIGHT)
        self.wait_for_widgets((500 - 364, 600 - 382, 364, 382))
        self.session.set_monitors(LEFT=self.LEFT, RIGHT=self.RIGHT)
        self.wait_for_widgets((260, 320, 364, 382))


class ScaledDragTest(ArrangementTest):
    def check_drag(self, factor):
        self.session.environment["QT_SCALE_FACTOR"] = str(factor)
        self.probe.start_widgets("--add", "Probe:small")
        # The lower margin attracts, which does not lie on the grid.
        margin = (int(SCREEN_SIZE[1] / factor) - 170 - 16) * factor
        x, y = self.probe.place()
        grip = (x + 20, y + 150)
        self.session.drag(grip, (grip[0], grip[1] + round(margin + 5 * factor) - y))
        wait_until(lambda: abs(self.probe.place()[1] - margin) <= 1, f"a widget at {margin}")
        self.assertEqual(self.probe.place()[0], x)

    def test_edges_attract_at_a_scale_of_one_and_a_half(self):
        self.check_drag(1.5)

    def test_edges_attract_at_a_scale_of_two(self):
        self.check_drag(2)


class TroubleTest(ArrangementTest):
    def test_folder_that_cannot_be_written_is_said_and_the_desktop_goes_on(self):
        os.makedirs(self.session.path_in_home(".config"), exist_ok=True)
        self.session.write_in_home(".config/kelmar-widgets", "a file in the folder's place")
        process = self.probe.start_widgets()
        x, y = self.probe.place()
        self.session.drag((x + 100, y + 200), (x - 200, y + 300))
        wait_until(lambda: self.probe.place() == (600, 120), "the widget to lie where it was left")
        self.end(process)
        log = self.session.processes.log_of("kelmar-widgets").splitlines()
        self.assertEqual(sum("could not be saved" in line for line in log), 1, log)


if __name__ == "__main__":
    unittest.main()
