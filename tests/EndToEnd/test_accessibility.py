"""The four widgets as a screen reader and a keyboard meet them, with the stand-in for the planner."""

import json
import os
import subprocess
import unittest

import planner
from probe import Probe
from processes import wait_until
from session import Session, binary

# The system's own interpreter, for which its packages of Python modules are made.
READER = ["/usr/bin/python3",
          os.path.join(os.path.dirname(os.path.abspath(__file__)), "screen_reader.py")]
WIDGETS = ("Due Today", "Schedule", "Study Timer", "Streak")
FIRST_DUE = "Mark Essay: The fall of Constantinople done"


class ReaderTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.session.start_accessibility_bus()

    def read(self, *words):
        result = subprocess.run([*READER, *words], env=self.session.environment, check=False,
                                capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stdout

    def windows(self):
        """All that can be read, in one piece."""
        def tree():
            result = subprocess.run([*READER, "tree"], env=self.session.environment, check=False,
                                    capture_output=True, text=True)
            # Not on the bus yet, or another content came while it was read.
            return result.stdout if result.returncode == 0 else None
        return {window["name"]: window
                for window in json.loads(wait_until(tree, "the program on the bus"))}

    def items(self, widget):
        return self.windows().get(widget, {}).get("children", [])

    def item(self, widget, name, role=None):
        """What has this name in a widget, or None."""
        return next((item for item in self.items(widget)
                     if item["name"] == name and role in (None, item["role"])), None)

    def focused(self):
        """The widget and the name of what has the keyboard."""
        return [(window["name"], item["name"]) for window in self.windows().values()
                for item in window["children"] if "focused" in item["states"]]

    def listen(self):
        listener = self.session.processes.start("listener", [*READER, "listen"],
                                                self.session.environment)
        wait_until(lambda: "listening" in self.session.processes.log_of("listener"),
                   "a listener")
        return listener

    def heard(self):
        return [line.split("\t")
                for line in self.session.processes.log_of("listener").splitlines()[1:]]


class FourWidgetsTest(ReaderTest):
    def setUp(self):
        super().setUp()
        subprocess.run([binary("kelmar-planner-demo"), "--register"],
                       env=self.session.environment, check=True, stdout=subprocess.DEVNULL)
        self.session.processes.start("kelmar-planner-demo",
                                     [binary("kelmar-planner-demo"), "--background"],
                                     self.session.environment)
        wait_until(lambda: os.path.exists(self.session.path_in_home(planner.SNAPSHOT)),
                   "the planner's snapshot")
        self.session.processes.start(
            "kelmar-widgets",
            [binary("kelmar-widgets"), *(word for kind in ("DueToday", "Schedule", "StudyTimer",
                                                           "Streak")
                                         for word in ("--add", kind + ":medium"))],
            self.session.environment)
        # Placeholders are not read out, so these come with the first real entries.
        wait_until(lambda: all(self.items(widget) for widget in WIDGETS), "four widgets to read")


class TreeTest(FourWidgetsTest):
    def names_by_role(self, widget):
        by_role = {}
        for item in self.items(widget):
            by_role.setdefault(item["role"], []).append(item["name"])
        return by_role

    def test_windows_bear_the_widgets_names_and_stand_where_they_are_seen(self):
        windows = self.windows()
        self.assertEqual(sorted(windows), sorted(WIDGETS))
        for name, window in windows.items():
            x11 = self.session.windows_named(name)[0]
            self.assertEqual(tuple(window["place"]), self.session.geometry_of(x11))

    def test_everything_lies_in_its_window_and_has_a_name(self):
        for window in self.windows().values():
            left, top, width, height = window["place"]
            for item in window["children"]:
                with self.subTest(widget=window["name"], item=item["name"], role=item["role"]):
                    self.assertTrue(item["name"])
                    self.assertIn("showing", item["states"])
                    x, y, item_width, item_height = item["place"]
                    self.assertTrue(left <= x and x + item_width <= left + width)
                    self.assertTrue(top <= y and y + item_height <= top + height)

    def test_what_can_be_pressed_can_have_the_keyboard_and_texts_can_neither(self):
        for window in self.windows().values():
            for item in window["children"]:
                with self.subTest(widget=window["name"], item=item["name"]):
                    can_be_pressed = item["role"] in ("link", "push button", "check box")
                    self.assertEqual("focusable" in item["states"], can_be_pressed)
                    self.assertEqual(item["actions"][:1] in (["Press"], ["Toggle"]),
                                     can_be_pressed)

    def test_due_today_reads_its_header_and_a_button_and_a_link_for_each_item(self):
        names = self.names_by_role("Due Today")
        self.assertIn("due today", names["label"])
        self.assertEqual(names["push button"][0], FIRST_DUE)
        self.assertEqual(len(names["push button"]), len(names["link"]))
        self.assertTrue(names["link"][0].startswith("Essay: The fall of Constantinople, "))

    def test_schedule_reads_its_day_and_a_link_for_each_block(self):
        names = self.names_by_role("Schedule")
        # Once the last block of today is over, it shows the next day.
        self.assertTrue({"Today", "Tomorrow"} & set(names["label"]), names["label"])
        self.assertTrue(names["link"])

    def test_study_timer_reads_its_time_its_buttons_and_how_full_its_bar_is(self):
        names = self.names_by_role("Study Timer")
        self.assertEqual(names["link"], ["Study Timer"])
        self.assertIn("25:00", names["label"])
        self.assertIn("Ready to focus", names["label"])
        self.assertIn("Start", names["push button"])
        bar = self.item("Study Timer", "Study Timer", "progress bar")
        self.assertEqual(bar["value"], [0, 0, 1])

    def test_streak_is_a_link_and_reads_its_count(self):
        names = self.names_by_role("Streak")
        self.assertEqual(names["link"], ["Streak"])
        self.assertIn("day streak", names["label"])


class ActionTest(FourWidgetsTest):
    def test_pressed_tick_takes_the_item_away(self):
        self.read("act", "Due Today", FIRST_DUE, "Press")
        wait_until(lambda: self.item("Due Today", FIRST_DUE) is None, "the item to go")
        wait_until(lambda: self.item("Due Today", "Undo"), "the undo bar")
        self.read("act", "Due Today", "Undo", "Press")
        wait_until(lambda: self.item("Due Today", FIRST_DUE), "the item to come back")

    def test_started_timer_reads_what_is_left(self):
        self.read("act", "Study Timer", "Start", "Press")
        wait_until(lambda: self.item("Study Timer", "Pause", "push button"), "the running timer")
        wait_until(lambda: any(item["name"].startswith("24:") for item in
                               self.items("Study Timer")), "the time that is left")
        bar = self.item("Study Timer", "Study Timer", "progress bar")
        self.assertTrue(0.9 < bar["value"][1] < 1, bar)

    def test_pressed_link_shows_the_assignment_in_the_planner(self):
        link = next(item for item in self.items("Due Today") if item["role"] == "link")
        self.read("act", "Due Today", link["name"], "Press")
        wait_until(lambda: self.session.windows_of_class("kelmar-planner-demo"),
                   "the planner's window")


class ToggleTest(ReaderTest):
    def test_flipped_toggle_says_so_and_is_told_of(self):
        self.session.register_recording_planner("probe")
        Probe(self.session).start_widgets()
        toggle = wait_until(lambda: self.item("Probe", "Flip Probe", "check box"), "the toggle")
        self.assertIn("checked", toggle["states"])
        self.assertEqual(toggle["actions"][0], "Toggle")
        self.listen()
        self.read("act", "Probe", "Flip Probe", "Toggle")
        wait_until(lambda: ["object:state-changed:checked", "0", "Flip Probe"] in self.heard(),
                   "the news of the toggle")
        self.assertNotIn("checked", self.item("Probe", "Flip Probe")["states"])


class KeyboardTest(FourWidgetsTest):
    def setUp(self):
        super().setUp()
        self.session.open_plain_window(20, 20, 200, 100)
        self.owner = self.session.active_window()

    def press(self, *keys):
        self.session.press_keys(*keys)

    def take_keyboard(self, widget, name):
        self.read("focus", widget, name)
        wait_until(lambda: self.focused() == [(widget, name)], "the keyboard to come")

    def test_tab_reaches_everything_of_every_widget_once_and_begins_anew(self):
        expected = [(widget, item["name"]) for widget in WIDGETS for item in self.items(widget)
                    if "focusable" in item["states"]]
        self.take_keyboard(*expected[0])
        reached = [expected[0]]
        for target in [*expected[1:], expected[0]]:
            self.press("Tab")
            wait_until(lambda: self.focused() == [target], f"the keyboard at {target}")
            reached.append(target)
        self.press("shift+Tab")
        wait_until(lambda: self.focused() == [expected[-1]], "the keyboard at the last one")

    def test_space_presses_and_the_keyboard_stays_where_it_was(self):
        self.take_keyboard("Study Timer", "Start")
        self.press("space")
        wait_until(lambda: self.focused() == [("Study Timer", "Pause")], "the running timer")
        self.press("Return")
        wait_until(lambda: self.focused() == [("Study Timer", "Resume")], "the paused timer")

    def test_listener_hears_where_the_keyboard_goes(self):
        self.listen()
        self.take_keyboard("Study Timer", "Start")
        self.press("Tab")
        wait_until(lambda: ["object:state-changed:focused", "1", "50 min"] in self.heard(),
                   "the news of the keyboard")

    def test_escape_gives_the_keyboard_back_to_the_window_that_had_it(self):
        self.take_keyboard("Study Timer", "Start")
        self.press("Escape")
        wait_until(lambda: not self.focused(), "the keyboard to go")
        wait_until(lambda: self.session.keyboard_owner() == self.owner,
                   "the keyboard at the other window")

    def test_menu_key_opens_the_widgets_menu(self):
        self.take_keyboard("Study Timer", "Start")
        self.press("Menu")
        wait_until(lambda: self.session.windows_of_class("kelmar-widgets")
                   and len(self.session.windows_of_class("kelmar-widgets")) > len(WIDGETS),
                   "the menu")


if __name__ == "__main__":
    unittest.main()
