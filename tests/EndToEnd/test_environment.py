"""The variables of the program's environment: its threads read them, and the planner inherits them."""

import os
import unittest

from probe import LINK, ProbeTest
from processes import wait_until

# Set by the shell and by whoever opens an address, and the languages in which we look for our texts.
ADDED = {"_", "PWD", "OLDPWD", "SHLVL", "DESKTOP_STARTUP_ID", "GIO_LAUNCHED_DESKTOP_FILE",
         "GIO_LAUNCHED_DESKTOP_FILE_PID", "LANGUAGE"}


class EnvironmentTest(ProbeTest):
    def test_environment_stays_as_it_is_once_there_are_threads(self):
        environment = self.session.environment
        guard = os.environ["KELMAR_ENVIRONMENT_GUARD"]
        environment["LD_PRELOAD"] = f"{environment['LD_PRELOAD']} {guard}"
        environment.pop("LANGUAGE", None)
        self.probe.start_widgets()
        self.assertNotIn("was set beside other threads",
                         self.session.processes.log_of("kelmar-widgets"))

    def test_planner_finds_the_environment_of_the_session(self):
        environment = self.session.environment
        environment["QT_XCB_NO_MITSHM"] = "0"
        self.session.register_recording_planner("probe")
        self.probe.start_widgets()
        self.probe.click(LINK)
        wait_until(lambda: self.session.opened_urls(), "the link")
        found = self.session.environment_of_planner()
        differences = {name for name in environment.keys() | found.keys()
                       if environment.get(name) != found.get(name)}
        self.assertEqual(differences - ADDED, set())


if __name__ == "__main__":
    unittest.main()
