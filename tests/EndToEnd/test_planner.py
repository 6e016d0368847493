"""Due Today together with the stand-in for the planner."""

import os
import unittest

import planner
from planner import FIRST_TICK, FIRST_TITLE, UNDO, DueToday, tick_name
from processes import wait_until
from session import Session
from stand_in import StandIn


class PlannerTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.planner = StandIn(self.session)
        self.planner.start()
        self.widget = DueToday(self.session)
        self.widget.start()
        self.first = self.due()[0]

    def due(self):
        """The ids that the widget lists first, as the planner has published them."""
        data = self.planner.snapshot()
        return [entry["id"] for entry in data["today"] or data["upcoming"]]

    def tick_files(self):
        return os.listdir(self.session.path_in_home(planner.TICKED))

    def test_planner_takes_a_tick_over_while_the_widget_still_offers_to_undo_it(self):
        self.widget.click(FIRST_TICK)
        wait_until(lambda: self.first not in self.due(), "the planner to take the tick over")
        wait_until(self.widget.has_undo, "the undo bar")
        self.assertEqual(self.tick_files(), [tick_name(self.first, "done-")])

    def test_planner_takes_a_tick_back_after_undo(self):
        self.widget.wait_for_files()
        before = self.widget.picture()
        self.widget.click(FIRST_TICK)
        wait_until(lambda: self.first not in self.due(), "the planner to take the tick over")
        wait_until(self.widget.has_undo, "the undo bar")
        self.widget.click(UNDO)
        wait_until(lambda: self.first in self.due(), "the planner to take the tick back")
        wait_until(lambda: not self.tick_files(), "the tick's files to go")
        wait_until(lambda: self.widget.looks_like(before), "the item to be back at its place")

    def test_press_on_a_row_shows_the_assignment_in_the_planner(self):
        self.widget.click(FIRST_TITLE)
        wait_until(lambda: self.session.windows_of_class("kelmar-planner-demo"),
                   "the planner's window")


if __name__ == "__main__":
    unittest.main()
