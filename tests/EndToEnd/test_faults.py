"""An extension that is not as it should be: the widgets come as soon as it is."""

import os
import subprocess

from probe import ProbeTest
from processes import GIVE_UP_TIME, wait_for_sleep, wait_until
from session import make_program

NAME = "com.kelmarplanner.Widgets"
BLUE = (0, 0, 255)
BABBLE = """#!/bin/sh
while echo nonsense && echo trouble >&2; do :; done
"""


class FaultTest(ProbeTest):
    def launch(self, *arguments):
        return self.session.processes.start(
            "kelmar-widgets", self.probe.command(*arguments), self.session.environment)

    def log(self):
        return self.session.processes.log_of("kelmar-widgets")

    def wait_for_widget(self):
        wait_until(lambda: self.session.windows_named("Probe")
                   and self.probe.background() == BLUE, "the widget")


class OfferTest(FaultTest):
    def reload_all(self):
        subprocess.run(["gdbus", "call", "--session", "--dest", NAME, "--object-path",
                        "/com/kelmarplanner/Widgets", "--method", NAME + ".ReloadAllTimelines"],
                       env=self.session.environment, check=True, stdout=subprocess.DEVNULL)

    def test_extension_that_offers_nothing_at_first_is_asked_again(self):
        self.probe.offer()
        self.launch()
        wait_until(lambda: "probe-extension: offers no widgets; not started again before 2 s"
                   in self.log(), "its second failure")
        self.probe.offer("Probe")
        self.wait_for_widget()

    def test_widget_that_comes_to_be_offered_comes_to_the_desktop(self):
        for occasion in (self.probe.replace_program, self.reload_all, self.probe.tell_of_change):
            with self.subTest(occasion.__name__):
                self.probe.offer("Other")
                process = self.launch("--add", "Probe:large")
                wait_until(lambda: 'offers no widget "Probe"' in self.log(), "the complaint")
                # Nothing is on the desktop that would be reloaded, and the extension has ended.
                wait_for_sleep(process.pid)
                self.assertEqual(self.session.windows_named("Probe"), [])
                self.probe.offer("Other", "Probe")
                occasion()
                self.wait_for_widget()
                self.session.processes.end(process)


class BabbleTest(FaultTest):
    def test_babbling_extension_does_not_fill_the_log_with_every_start(self):
        make_program(os.path.join(self.probe.folder, "probe-extension"), BABBLE)
        self.launch()
        wait_until(lambda: "made too many mistakes; not started again before 4 s" in self.log(),
                   "its third failure")
        lines = self.log().splitlines()
        nonsense = [line for line in lines if "that is no message" in line]
        self.assertEqual(len(nonsense), 20)
        self.assertIn("more like it is left out", nonsense[-1])
        # How much of this is read depends on when it is killed for the other.
        trouble = [line for line in lines if line.startswith("probe-extension: trouble")]
        self.assertLessEqual(len(trouble), 20)


class KeyFileTest(FaultTest):
    def test_key_file_that_is_no_regular_file_is_refused_in_one_line(self):
        os.remove(self.probe.key_file)
        os.mkfifo(self.probe.key_file)
        self.assertEqual(self.launch().wait(GIVE_UP_TIME), 1)
        self.assertEqual(self.log(), f"{self.probe.key_file}: not a regular file\n")
