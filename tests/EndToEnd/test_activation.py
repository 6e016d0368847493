"""Starts that nobody has asked for: by a message to the widgets on the bus, and at login."""

import pathlib
import subprocess
import unittest

import session
from planner import DueToday
from processes import GIVE_UP_TIME, wait_until
from session import Session, binary

NAME = "com.kelmarplanner.Widgets"
SERVICE = pathlib.Path(__file__).resolve().parents[2] / "packaging" / (NAME + ".service.in")


class ActivationTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.session.make_startable(
            SERVICE.read_text(encoding="utf-8").replace("@bindir@", session.BIN_FOLDER))

    def put_a_widget_on_the_desktop(self):
        self.session.processes.end(DueToday(self.session).start())
        wait_until(lambda: not self.session.windows_named("Due Today"), "the widget to go")

    def ask_for_a_reload(self):
        return subprocess.run(
            ["gdbus", "call", "--session", "--timeout", f"{GIVE_UP_TIME:.0f}", "--dest", NAME,
             "--object-path", "/com/kelmarplanner/Widgets",
             "--method", NAME + ".ReloadAllTimelines"],
            env=self.session.environment, check=False, capture_output=True, text=True)

    def test_message_brings_the_widgets_back_to_those_who_have_some(self):
        self.put_a_widget_on_the_desktop()
        answer = self.ask_for_a_reload()
        self.assertEqual(answer.returncode, 0, answer.stderr)
        wait_until(lambda: self.session.windows_named("Due Today"), "the widget")

    def test_message_puts_no_widgets_before_those_who_have_none(self):
        answer = self.ask_for_a_reload()
        self.assertNotEqual(answer.returncode, 0)
        # At once, not when the bus has lost patience.
        self.assertIn("exited with status 1", answer.stderr)

    def test_start_at_login_leaves_the_desktop_to_a_host_that_was_quicker(self):
        self.put_a_widget_on_the_desktop()
        self.assertEqual(self.ask_for_a_reload().returncode, 0)
        second = subprocess.run([binary("kelmar-widgets"), "--if-arranged"],
                                env=self.session.environment, check=False, timeout=GIVE_UP_TIME,
                                capture_output=True, text=True)
        self.assertEqual((second.returncode, second.stdout, second.stderr), (0, "", ""))


if __name__ == "__main__":
    unittest.main()
