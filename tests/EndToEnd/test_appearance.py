"""What the desktop prefers, told by a settings portal while the widgets are on the desktop."""

import os
import signal
import unittest

from bus_portal import APPEARANCE, BusPortal
from planner import DueToday, PlannerFolder, item, snapshot
from probe import BETWEEN_FIELDS, ProbeTest
from processes import wait_until
from session import Session

# Inside the card, where nothing is listed.
ON_THE_CARD = (180, 260)

LIGHT_CARD = (0xFB, 0xFB, 0xFD)
# How much of the accent there is in a light card.
ACCENT_IN_CARD = 0.07

MAGENTA = (255, 0, 255)
LIME = (0, 255, 0)


class AppearanceTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.portal = BusPortal(self.session)
        self.portal.start()
        self.folder = PlannerFolder(self.session)
        self.folder.publish(snapshot(today=[item("a", "Essay", "#FF00FF")]))
        self.widget = DueToday(self.session)

    def card(self):
        return self.widget.picture().pixel(*ON_THE_CARD)


class SchemeTest(AppearanceTest):
    def test_widget_follows_the_desktop_to_the_dark_and_back(self):
        self.portal.set_scheme("light")
        self.widget.start()
        self.widget.wait_for_files("--scheme", "light")
        light = self.card()
        self.portal.set_scheme("dark")
        self.widget.wait_for_files("--scheme", "dark")
        self.assertGreater(min(light) - max(self.card()), 150)
        self.portal.set_scheme("light")
        self.widget.wait_for_files("--scheme", "light")
        self.assertEqual(self.card(), light)

    def test_value_of_the_wrong_type_is_told_and_the_scheme_stays(self):
        self.portal.set_scheme("dark")
        self.widget.start()
        self.widget.wait_for_files("--scheme", "dark")
        self.portal.set_setting(APPEARANCE, "color-scheme", "s", "light")
        wait_until(lambda: "color-scheme is \"light\" of the type \"s\" where a number is expected"
                   in self.session.processes.log_of("kelmar-widgets"), "the complaint")
        self.widget.wait_for_files("--scheme", "dark")
        self.portal.set_scheme("light")
        self.widget.wait_for_files("--scheme", "light")

    def test_scheme_that_was_chosen_at_the_start_stays(self):
        self.portal.set_scheme("light")
        self.widget.start("--scheme", "dark")
        self.widget.wait_for_files("--scheme", "dark")
        self.portal.set_scheme("none")
        self.portal.set_scheme("light")
        self.session.settle()
        self.widget.wait_for_files("--scheme", "dark")


class AccentTest(AppearanceTest):
    def wait_for_card(self, *accent):
        expected = [(1 - ACCENT_IN_CARD) * LIGHT_CARD[i] + ACCENT_IN_CARD * 255 * accent[i]
                    for i in range(3)]
        wait_until(lambda: all(abs(self.card()[i] - expected[i]) <= 2 for i in range(3)),
                   f"a card with the accent {accent}")

    def reddish_pixels(self):
        """How many pixels are far more red than blue."""
        picture = self.widget.picture()
        return sum(red - blue > 80 for red, _green, blue in
                   (picture.pixel(x, y) for y in range(16, 120) for x in range(16, 348)))

    def test_accented_widget_follows_the_desktops_accent(self):
        self.portal.set_scheme("light")
        self.portal.set_accent(1, 0, 0)
        self.widget.launch("--mode", "accented")
        self.wait_for_card(1, 0, 0)
        wait_until(lambda: self.reddish_pixels() > 100, "content in the accent colour")
        self.portal.set_accent(0, 0, 1)
        self.wait_for_card(0, 0, 1)
        self.assertEqual(self.reddish_pixels(), 0)
        self.portal.set_accent(1, 0, 0)
        self.wait_for_card(1, 0, 0)
        self.assertGreater(self.reddish_pixels(), 100)

    def test_widget_in_its_own_colours_has_none_of_the_accent(self):
        self.portal.set_scheme("light")
        self.portal.set_accent(1, 0, 0)
        self.widget.start()
        self.widget.wait_for_files("--scheme", "light")
        self.portal.set_accent(0, 0, 1)
        # The messages come in their order, so this one tells that the other has come.
        self.portal.set_scheme("dark")
        self.widget.wait_for_files("--scheme", "dark")


class MotionTest(AppearanceTest):
    def set_reduced_motion(self, is_reduced, scheme):
        """The scheme is told afterwards and can be seen: then the other has arrived as well."""
        self.portal.set_reduced_motion(is_reduced)
        self.portal.set_scheme(scheme)
        self.widget.wait_for_files("--scheme", scheme)

    def drawings_of_change(self, color):
        """How often the widget is drawn until it shows another list for good."""
        window = self.session.wait_for_window("Due Today").id
        count = self.session.screen.count_drawings(window, *ON_THE_CARD)
        self.folder.publish(snapshot(today=[item("b", "Worksheet", "#%02X%02X%02X" % color)]))
        self.widget.wait_for_color(color)
        self.session.settle()
        return count()

    def test_new_content_fades_in_unless_stillness_is_asked_for(self):
        self.portal.set_scheme("light")
        self.widget.start()
        self.set_reduced_motion(True, "dark")
        self.assertEqual(self.drawings_of_change(LIME), 1)
        self.set_reduced_motion(False, "light")
        self.assertGreater(self.drawings_of_change(MAGENTA), 3)
        self.set_reduced_motion(True, "dark")
        self.assertEqual(self.drawings_of_change(LIME), 1)


class ResolutionTest(AppearanceTest):
    def wait_for_scheme(self, scheme):
        self.portal.set_scheme(scheme)
        wait_until(lambda: (min(self.card()) > 200) == (scheme == "light"), f"a {scheme} card")

    def test_text_scale_that_the_resolution_holds_is_not_counted_twice(self):
        self.session.set_resource("Xft.dpi", 120)
        self.widget.start()
        self.wait_for_scheme("light")
        self.session.settle()
        by_resolution_alone = self.widget.picture()
        self.portal.set_text_scale(120 / 96)
        # The messages come in their order, so the text scale has come when the scheme has.
        self.wait_for_scheme("dark")
        self.wait_for_scheme("light")
        wait_until(lambda: self.widget.looks_like(by_resolution_alone), "the same texts")


class LargeTextTest(ProbeTest):
    """Beside the widgets' own texts, whose size their pictures show."""

    def setUp(self):
        super().setUp()
        self.portal = BusPortal(self.session)
        self.portal.start()

    def popup(self):
        """The width and height of what the program has put over everything, or None."""
        return next((window.geometry[2:] for window in self.session.screen.windows()
                     if window.is_popup and window.program == "kelmar-widgets"), None)

    def menu(self):
        self.probe.open_menu()
        size = self.popup()
        self.session.choose_in_menu("Escape")
        return size

    def tooltip(self):
        size = wait_until(self.rest_pointer, "a tooltip")
        self.session.move_pointer(0, 0)
        wait_until(lambda: self.popup() is None, "the tooltip to go")
        return size

    def rest_pointer(self):
        """What shows when the pointer has come to rest on the widget, if anything does."""
        x, y = self.probe.place()
        self.session.move_pointer(x + BETWEEN_FIELDS[0], y + BETWEEN_FIELDS[1] - 2)
        self.session.move_pointer(x + BETWEEN_FIELDS[0], y + BETWEEN_FIELDS[1])
        try:
            return wait_until(self.popup, "a tooltip", seconds=3)
        except AssertionError:
            return None

    def outdate_content(self):
        program = os.path.join(self.probe.folder, "probe-extension")
        os.rename(program, program + ".away")
        try:
            os.kill(self.probe.process_id(), signal.SIGKILL)
        except ProcessLookupError:
            pass  # It had been sent away already, being idle.
        self.probe.tell_of_change()
        wait_until(lambda: "probe-extension" in self.session.processes.log_of("kelmar-widgets"),
                   "a line in the log")

    def test_menus_follow_a_change_of_the_text_scale(self):
        self.probe.start_widgets()
        _, usual = self.menu()
        self.portal.set_text_scale(2)
        wait_until(lambda: self.menu()[1] > 1.6 * usual, "a menu of large texts")

    def test_tooltips_follow_a_change_of_the_text_scale_and_font(self):
        self.probe.start_widgets()
        self.outdate_content()
        _, usual = self.tooltip()
        self.portal.set_text_scale(2)
        self.portal.set_font("DejaVu Sans 20")
        wait_until(lambda: self.tooltip()[1] > 3 * usual, "a tooltip of large texts")


if __name__ == "__main__":
    unittest.main()
