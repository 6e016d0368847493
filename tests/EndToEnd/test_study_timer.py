"""The study timer on the desktop: driven by presses, with the stand-in planner keeping it, and
running out by itself."""

import time
import unittest

from planner import PlannerFolder, snapshot
from processes import wait_until
from session import Session
from stand_in import StandIn
from study_timer import (BUTTONS, FIRST_BUTTON, SECOND_BUTTON, THIRD_BUTTON, INSIDE,
                         StudyTimer)


class StudyTimerTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.widget = StudyTimer(self.session)


class PressTest(StudyTimerTest):
    def setUp(self):
        super().setUp()
        self.planner = StandIn(self.session)
        self.process = self.planner.start()

    def test_start_pause_and_resume_reach_the_planner_and_come_back(self):
        self.widget.start()
        self.assertEqual(self.planner.timer()["state"], "ready")
        self.widget.wait_for_files()

        pressed = time.time()
        self.widget.click(FIRST_BUTTON)
        running = self.planner.wait_for_timer(state="running")
        self.assert_was_begun_since(pressed, running["endAt"] - running["total"])
        self.widget.wait_for_files(BUTTONS)
        self.widget.wait_for_ticking()

        self.widget.click(FIRST_BUTTON)
        paused = self.planner.wait_for_timer(state="paused")
        self.assertLess(paused["secsLeft"], paused["total"])
        self.widget.wait_for_files()

        pressed = time.time()
        self.widget.click(FIRST_BUTTON)
        resumed = self.planner.wait_for_timer(state="running")
        self.assert_was_begun_since(pressed, resumed["endAt"] - paused["secsLeft"])
        self.widget.wait_for_files(BUTTONS)
        self.widget.wait_for_ticking()

    def assert_was_begun_since(self, pressed, begun):
        """What is left is kept in whole seconds."""
        self.assertTrue(pressed - 1 <= begun <= time.time() + 1, (pressed, begun, time.time()))

    def check_preset(self, button, minutes):
        self.widget.start()
        self.assertEqual(self.planner.timer()["total"], 25 * 60)
        self.widget.click(button)
        self.planner.wait_for_timer(state="running", total=minutes * 60)
        self.widget.wait_for_files(BUTTONS)
        self.widget.wait_for_ticking()

    def test_first_preset_starts_a_session_of_its_length(self):
        self.check_preset(SECOND_BUTTON, 50)

    def test_second_preset_starts_a_session_of_its_length(self):
        self.check_preset(THIRD_BUTTON, 15)

    def test_stopped_alarm_makes_a_break_ready(self):
        def run_out(state):
            state["timer"].update(phase="running", secsLeft=60, endAt=time.time() - 5)

        self.session.processes.end(self.process)
        self.planner.change_state(run_out)
        self.planner.start()
        self.planner.wait_for_timer(ringing=True)
        self.widget.start()
        self.widget.wait_for_files()

        self.widget.click(FIRST_BUTTON)
        self.planner.wait_for_timer(ringing=False, state="ready", isBreak=True)
        self.widget.wait_for_files()

    def test_press_beside_the_buttons_shows_the_planner(self):
        self.widget.start()
        self.widget.click((100, 140))
        wait_until(lambda: self.session.windows_of_class("kelmar-planner-demo"),
                   "the planner's window")
        self.assertEqual(self.planner.timer()["state"], "ready")


class RunOutTest(StudyTimerTest):
    """Here nobody rewrites the snapshot: whatever changes changes by itself."""

    def setUp(self):
        super().setUp()
        self.folder = PlannerFolder(self.session)

    @staticmethod
    def session_of(seconds):
        return {**snapshot(), "timer": {
            "state": "running", "ringing": False, "total": 3600, "secsLeft": 0,
            "endAt": time.time() + seconds, "isBreak": False, "className": "Biology",
            "classColor": "#10B981", "sessionTitle": "Cells", "presets": [25, 50, 15]}}

    def test_session_that_runs_out_turns_to_the_alarm_by_itself(self):
        self.session.register_recording_planner()
        self.folder.publish(self.session_of(3600))
        self.widget.start()
        self.widget.wait_for_ticking()
        running = self.widget.picture()
        self.folder.publish(self.session_of(10))
        published = self.folder.published()
        end = published["timer"]["endAt"]

        self.widget.wait_for_files(INSIDE, now=end + 1)
        self.assertEqual(self.folder.published(), published)
        self.assertGreaterEqual(time.time(), end)
        self.assertNotEqual(self.widget.picture().part(*BUTTONS), running.part(*BUTTONS))
        self.assertEqual(self.session.opened_urls(), [])


if __name__ == "__main__":
    unittest.main()
