"""Due Today from the planner's file to the desktop and back, with a planner that only records."""

import os
import time
import unittest

import planner
from planner import FIRST_TICK, FIRST_TITLE, UNDO, DueToday, PlannerFolder, item, snapshot
from processes import kill_children_of, wait_until
from session import Session

MAGENTA = (255, 0, 255)
CYAN = (0, 255, 255)
LIME = (0, 255, 0)

ESSAY = "history/essay 1"


def essay():
    return item(ESSAY, "Essay: The fall of Constantinople", "#FF00FF")


def worksheet():
    return item("calculus/2", "Worksheet", "#00FFFF")


class DueTodayTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.session.register_recording_planner()
        self.folder = PlannerFolder(self.session)
        self.widget = DueToday(self.session)


class TickTest(DueTodayTest):
    def setUp(self):
        super().setUp()
        self.folder.publish(snapshot(today=[essay(), worksheet()]))
        self.widget.start()
        self.widget.wait_for_color(MAGENTA)
        self.widget.wait_for_color(CYAN)
        self.assertFalse(self.widget.has_undo())

    def press_first_tick(self):
        self.widget.click(FIRST_TICK)
        wait_until(self.widget.has_undo, "the undo bar")

    def test_pressed_tick_is_written_told_to_the_planner_and_shown_for_ten_seconds(self):
        pressed = time.time()
        self.press_first_tick()
        self.widget.wait_for_color(CYAN)
        self.assertFalse(self.widget.shows_color(MAGENTA))

        self.assertEqual(self.folder.ticks(), [planner.tick_name(ESSAY)])
        note = self.folder.note(planner.tick_name(ESSAY))
        self.assertEqual(note["title"], "Essay: The fall of Constantinople")
        seconds_to_2001 = 978_307_200
        ticked = note["at"] + seconds_to_2001
        self.assertTrue(pressed - 1 <= ticked <= time.time(), note)
        wait_until(lambda: self.session.opened_urls() == ["kelmarplanner://ticked"],
                   "the planner to be told")

        wait_until(lambda: not self.widget.has_undo(), "the undo bar to go")
        self.assertGreaterEqual(time.time() - ticked, 10)
        self.assertFalse(self.widget.shows_color(MAGENTA))

    def test_undo_brings_the_item_back(self):
        self.press_first_tick()
        self.widget.click(UNDO)
        self.widget.wait_for_color(MAGENTA)
        self.assertFalse(self.widget.has_undo())
        self.assertEqual(self.folder.ticks(), [])
        wait_until(lambda: self.session.opened_urls() == [
            "kelmarplanner://ticked", "kelmarplanner://untick/history%2Fessay%201"],
            "the planner to be told")

    def test_press_on_a_row_opens_its_assignment_and_ticks_nothing(self):
        self.widget.click(FIRST_TITLE)
        wait_until(lambda: self.session.opened_urls() == [
            "kelmarplanner://assignment/history/essay%201"], "the assignment to be opened")
        self.assertEqual(self.folder.ticks(), [])
        self.assertTrue(self.widget.shows_color(MAGENTA))

    def test_tick_that_cannot_be_written_changes_nothing(self):
        ticked = self.session.path_in_home(planner.TICKED)
        os.rename(ticked, ticked + " away")
        self.widget.click(FIRST_TICK)
        self.session.settle()
        self.assertTrue(self.widget.shows_color(MAGENTA))
        self.assertFalse(self.widget.has_undo())
        self.assertEqual(self.session.opened_urls(), [])


class SnapshotTest(DueTodayTest):
    def test_rewritten_snapshot_is_shown_at_once(self):
        self.folder.publish(snapshot(today=[essay()]))
        self.widget.start()
        self.folder.publish(snapshot(today=[item("new", "New work", "#00FF00")]))
        self.widget.wait_for_color(LIME)
        self.assertFalse(self.widget.shows_color(MAGENTA))

    def test_snapshot_that_appears_later_is_shown(self):
        self.widget.start()
        self.folder.publish(snapshot(today=[essay()]))
        self.widget.wait_for_color(MAGENTA)

    def test_killed_extension_comes_back_for_the_next_change(self):
        self.folder.publish(snapshot(today=[essay()]))
        host = self.widget.start()
        self.folder.publish(snapshot(today=[worksheet()]))
        kill_children_of(host.pid)
        self.widget.wait_for_color(CYAN)
        self.folder.publish(snapshot(today=[essay()]))
        self.widget.wait_for_color(MAGENTA)


class SentenceTest(DueTodayTest):
    """What stands in the widget where there is nothing to list."""

    def test_signed_out_missing_and_unreadable_snapshots_show_the_same_sentence(self):
        self.folder.publish(snapshot(today=[essay()], signed_in=False))
        self.widget.start()
        self.widget.wait_for_files()
        signed_out = self.widget.picture()
        self.assertFalse(self.widget.shows_color(MAGENTA))

        self.folder.publish(snapshot(today=[essay()]))
        self.widget.wait_for_color(MAGENTA)
        os.remove(self.session.path_in_home(planner.SNAPSHOT))
        wait_until(lambda: self.widget.looks_like(signed_out), "the sentence without a file")

        self.folder.publish(snapshot(today=[essay()]))
        self.widget.wait_for_color(MAGENTA)
        self.folder.publish_text('{"signedIn": true}')
        wait_until(lambda: self.widget.looks_like(signed_out), "the sentence for a bad file")

    def test_list_looks_as_the_command_line_draws_it(self):
        self.folder.publish(snapshot(today=[essay(), worksheet()]))
        self.widget.start()
        self.widget.wait_for_files()

    def test_empty_day_looks_as_the_command_line_draws_it(self):
        self.folder.publish(snapshot())
        self.widget.start()
        self.widget.wait_for_files()


if __name__ == "__main__":
    unittest.main()
