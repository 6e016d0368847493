"""Starts that nobody has asked for: by a message to the widgets on the bus."""

import pathlib
import subprocess
import unittest

import session
from session import Session

NAME = "com.kelmarplanner.Widgets"
SERVICE = pathlib.Path(__file__).resolve().parents[2] / "packaging" / (NAME + ".service.in")


class ActivationTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.session.make_startable(
            SERVICE.read_text(encoding="utf-8").replace("@bindir@", session.BIN_FOLDER))

    def ask_for_a_reload(self):
        return subprocess.run(
            ["gdbus", "call", "--session", "--dest", NAME, "--object-path",
             "/com/kelmarplanner/Widgets", "--method", NAME + ".ReloadAllTimelines"],
            env=self.session.environment, check=False, capture_output=True, text=True)

    def test_message_puts_no_widgets_before_those_who_have_none(self):
        answer = self.ask_for_a_reload()
        self.assertNotEqual(answer.returncode, 0)
        # At once, not when the bus has lost patience.
        self.assertIn("exited with status 1", answer.stderr)


if __name__ == "__main__":
    unittest.main()
