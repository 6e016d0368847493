"""The program with its parts where an installation has them, away from the build tree."""

import os
import shutil
import unittest

from probe import LINK, ProbeTest
from processes import wait_until
from session import binary


class InstalledTest(ProbeTest):
    def setUp(self):
        super().setUp()
        self.prefix = os.path.join(self.session.folder, "installed")
        self.install("kelmar-widgets", "bin")

    def install(self, name, folder):
        path = os.path.join(self.prefix, folder)
        os.makedirs(path)
        shutil.copy(binary(name), path)

    def start_widgets(self):
        self.probe.start_widgets(program=os.path.join(self.prefix, "bin", "kelmar-widgets"))

    def test_link_is_opened(self):
        self.install("kelmar-widgets-gio.so", "libexec/kelmar-widgets")
        self.start_widgets()
        self.probe.click(LINK)
        wait_until(lambda: self.session.opened_urls() == ["probe://linked"],
                   "the link to be opened")

    def test_installation_without_what_opens_links_says_so_and_goes_on(self):
        self.start_widgets()
        self.probe.click(LINK)
        module = os.path.join(self.prefix, "libexec/kelmar-widgets/kelmar-widgets-gio.so")
        wait_until(lambda: f"probe://linked is not opened: {module}, which opens URLs, cannot be "
                   "loaded" in self.session.processes.log_of("kelmar-widgets"), "the complaint")
        self.install("kelmar-widgets-gio.so", "libexec/kelmar-widgets")
        self.probe.click(LINK)
        wait_until(lambda: self.session.opened_urls() == ["probe://linked"],
                   "the link to be opened")


if __name__ == "__main__":
    unittest.main()
