"""The variables of the program's environment, which its threads read."""

import os
import unittest

from probe import ProbeTest


class EnvironmentTest(ProbeTest):
    def test_environment_stays_as_it_is_once_there_are_threads(self):
        environment = self.session.environment
        guard = os.environ["KELMAR_ENVIRONMENT_GUARD"]
        environment["LD_PRELOAD"] = f"{environment['LD_PRELOAD']} {guard}"
        environment.pop("LANGUAGE", None)
        self.probe.start_widgets()
        self.assertNotIn("was set beside other threads",
                         self.session.processes.log_of("kelmar-widgets"))


if __name__ == "__main__":
    unittest.main()
