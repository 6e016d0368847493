"""The study timer's control: a toggle in the tray, of either kind, and in the widgets' menus."""

import time
import unittest

from bus_tray import BusTray
from processes import (GIVE_UP_TIME, children_of, context_switches, wait_for_sleep,
                       wait_until)
from session import Session
from stand_in import StandIn
from study_timer import BUTTONS, FIRST_BUTTON, StudyTimer


class ControlTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.planner = StandIn(self.session)
        self.planner.start()
        self.widget = StudyTimer(self.session)

    def start_widgets(self, *arguments):
        self.process = self.widget.start(*arguments)

    def log_lines(self, words):
        return [line for line in self.session.processes.log_of("kelmar-widgets").splitlines()
                if words in line]


class WidgetMenuTest(ControlTest):
    def flip(self):
        """Presses the first entry of the widget's own menu."""
        self.widget.open_menu()
        self.session.choose_in_menu("Down", "Return")

    def test_toggle_starts_and_pauses_the_timer(self):
        self.start_widgets()
        self.flip()
        self.planner.wait_for_timer(state="running")
        self.widget.wait_for_files(BUTTONS)
        self.flip()
        self.planner.wait_for_timer(state="paused")
        self.widget.wait_for_files()
        self.flip()
        self.planner.wait_for_timer(state="running")

    def test_older_system_has_no_toggle_there(self):
        self.start_widgets("--system-version", "25.9.9")
        self.flip()
        # The first entry is the small size now.
        wait_until(lambda: [geometry[2:] for geometry in self.session.geometries_of("Study Timer")]
                   == [(170, 170)], "the small widget")
        self.assertEqual(self.planner.timer()["state"], "ready")

    def test_missing_tray_is_said_once(self):
        self.start_widgets()
        wait_until(lambda: self.log_lines("tray"), "a line in the log")
        self.session.settle()
        self.assertEqual(len(self.log_lines("tray")), 1)


class BusTrayTest(ControlTest):
    def setUp(self):
        super().setUp()
        self.tray = BusTray(self.session)

    def start_both(self, *arguments):
        self.tray.start()
        self.tray.show()
        self.start_widgets(*arguments)
        self.tray.wait_for_icon()

    def labels(self):
        return [entry["label"] for entry in self.tray.read() if not entry["separator"]]

    def wait_for_toggle(self, beginning):
        def is_there():
            toggle = self.tray.read()[0]
            return toggle["label"].startswith(beginning) and toggle
        return wait_until(is_there, f"an entry \"{beginning}...\"")

    def test_toggle_shows_the_timer_and_flips_it(self):
        self.start_both()
        ready = self.wait_for_toggle("Study Timer: Start · 25 min")
        self.assertEqual((ready["toggle"], ready["checked"], ready["enabled"]),
                         ("checkmark", False, True))
        self.assertNotEqual(ready["icon"], "")

        self.tray.press(self.tray.open()[0])
        self.planner.wait_for_timer(state="running")
        running = self.wait_for_toggle("Study Timer: Until ")
        self.assertTrue(running["checked"])
        self.assertNotIn(running["icon"], ("", ready["icon"]))
        self.assertEqual(self.tray.tooltip(), running["label"])
        self.widget.wait_for_files(BUTTONS)

        self.tray.press(self.tray.open()[0])
        self.planner.wait_for_timer(state="paused")
        paused = self.wait_for_toggle("Study Timer: Paused · ")
        self.assertEqual((paused["checked"], paused["icon"]), (False, ready["icon"]))
        self.widget.wait_for_files()

    def test_press_in_the_widget_is_seen_in_the_tray(self):
        self.start_both()
        self.wait_for_toggle("Study Timer: Start")
        self.widget.click(FIRST_BUTTON)
        self.wait_for_toggle("Study Timer: Until ")
        self.assertEqual(self.planner.timer()["state"], "running")

    def test_last_entry_ends_the_program(self):
        self.start_both()
        self.tray.press(self.tray.open()[-1])
        self.assertEqual(self.process.wait(GIVE_UP_TIME), 0)

    def test_older_system_has_no_toggle_there(self):
        self.start_both("--system-version", "25.9.9")
        self.assertEqual(self.labels(),
                         ["Add widgets…", "Use widgets by keyboard", "Quit"])

    def test_texts_are_in_the_users_language(self):
        self.session.environment["LC_ALL"] = "de_DE.UTF-8"
        self.widget = StudyTimer(self.session, "Lerntimer")
        self.start_both()
        self.wait_for_toggle("Lerntimer: Start · 25 Min.")
        self.assertEqual(self.labels()[-1], "Beenden")

    def test_icon_appears_in_a_tray_that_comes_later_or_starts_anew(self):
        self.start_widgets()
        wait_until(lambda: self.log_lines("tray"), "a line in the log")
        for _ in range(2):
            self.tray.start()
            self.session.settle()
            self.tray.show()
            self.tray.wait_for_icon()
            self.wait_for_toggle("Study Timer: Start")
            self.tray.end()
        self.assertEqual(len(self.log_lines("tray")), 1)

    def test_icon_in_the_tray_wakes_nobody(self):
        self.start_both()
        self.wait_for_toggle("Study Timer: Start")
        wait_until(lambda: not children_of(self.process.pid), "the extension to go")
        wait_for_sleep(self.process.pid)
        before = context_switches(self.process.pid)
        time.sleep(3)
        self.assertEqual(context_switches(self.process.pid), before)


class WindowTrayTest(ControlTest):
    """A tray that takes an icon's window in, as small panels do."""

    def start_tray(self):
        self.session.processes.start(
            "trayer", ["trayer", "--edge", "bottom", "--align", "right", "--widthtype", "request"],
            self.session.environment)
        wait_until(lambda: self.session.has_selection_owner("_NET_SYSTEM_TRAY_S0"), "the tray")

    def icon(self):
        """The middle of the icon, once it is in the tray."""
        def place():
            return [(window.x + window.width // 2, window.y + window.height // 2)
                    for window in self.session.screen.windows()
                    if window.program == "kelmar-widgets"
                    and window.width < 48 and window.height < 48]
        return wait_until(place, "an icon in the tray")[0]

    def flip(self, button):
        self.session.click(*self.icon(), button)
        self.session.wait_for_menu()
        self.session.choose_in_menu("Down", "Return")

    def check_toggle(self):
        self.flip(3)
        self.planner.wait_for_timer(state="running")
        self.widget.wait_for_files(BUTTONS)
        self.flip(1)
        self.planner.wait_for_timer(state="paused")
        self.widget.wait_for_files()

    def test_either_button_opens_the_menu_whose_toggle_drives_the_timer(self):
        self.start_tray()
        self.start_widgets()
        self.check_toggle()
        self.assertEqual(self.log_lines("tray"), [])

    def test_tray_that_comes_later_gets_the_icon(self):
        self.start_widgets()
        wait_until(lambda: self.log_lines("tray"), "a line in the log")
        self.start_tray()
        self.check_toggle()


if __name__ == "__main__":
    unittest.main()
