"""Due Today on a desktop without a session bus, as a bare window manager's is."""

import os
import unittest

import planner
from planner import FIRST_TICK, UNDO, DueToday, PlannerFolder, item, snapshot
from processes import wait_until
from session import Session

MAGENTA = (255, 0, 255)
CYAN = (0, 255, 255)

# A planner that is told over the bus only: there is no other way to open something with it.
BUS_ENTRY = """[Desktop Entry]
Type=Application
Name=Planner on the Bus
DBusActivatable=true
MimeType=x-scheme-handler/kelmarplanner;
"""


class TickWithoutBusTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start(without={"bus"})
        self.assertNotIn("DBUS_SESSION_BUS_ADDRESS", self.session.environment)
        self.assertEqual(os.listdir(self.session.environment["XDG_RUNTIME_DIR"]), [])
        self.folder = PlannerFolder(self.session)
        self.folder.publish(snapshot(today=[item("a", "Essay", "#FF00FF"),
                                            item("b", "Worksheet", "#00FFFF")]))
        self.widget = DueToday(self.session)

    def press_tick_and_undo(self):
        """Both are shown, whatever becomes of the planner's URL."""
        self.widget.start()
        self.widget.wait_for_color(MAGENTA)
        self.widget.click(FIRST_TICK)
        wait_until(self.widget.has_undo, "the undo bar")
        self.widget.wait_for_color(CYAN)
        self.assertFalse(self.widget.shows_color(MAGENTA))
        self.assertEqual(self.folder.ticks(), [planner.tick_name("a")])
        self.widget.click(UNDO)
        self.widget.wait_for_color(MAGENTA)
        self.assertEqual(self.folder.ticks(), [])

    def lines_about(self, url):
        return [line for line in self.session.processes.log_of("kelmar-widgets").splitlines()
                if url in line]

    def test_tick_is_shown_and_told_to_the_planner(self):
        self.session.register_recording_planner()
        self.press_tick_and_undo()
        wait_until(lambda: self.session.opened_urls() == ["kelmarplanner://ticked",
                                                          "kelmarplanner://untick/a"],
                   "the planner to be told")
        self.assertEqual(self.lines_about("kelmarplanner://"), [])

    def test_tick_is_shown_where_nothing_opens_the_planners_addresses(self):
        self.press_tick_and_undo()
        wait_until(lambda: self.lines_about("kelmarplanner://untick/a"), "the complaint")
        line, = self.lines_about("kelmarplanner://ticked")
        self.assertIn("no application is registered to open kelmarplanner: URLs", line)

    def test_tick_is_shown_where_the_planner_could_only_be_told_over_the_bus(self):
        self.session.write_in_home(".local/share/applications/com.example.Planner.desktop",
                                   BUS_ENTRY)
        self.session.write_in_home(
            ".config/mimeapps.list", "[Default Applications]\n"
            "x-scheme-handler/kelmarplanner=com.example.Planner.desktop\n")
        self.press_tick_and_undo()
        wait_until(lambda: self.lines_about("kelmarplanner://untick/a"), "the complaint")
        line, = self.lines_about("kelmarplanner://ticked")
        self.assertIn("com.example.Planner.desktop can be reached over the session bus only, and "
                      "there is none", line)


if __name__ == "__main__":
    unittest.main()
