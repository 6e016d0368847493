"""Sessions that lack what most have: the widgets say in one line each what a person loses, and go on."""

import os
import socket
import subprocess
import unittest

from picture import Picture
from probe import BUTTON, LINK, Probe
from processes import GIVE_UP_TIME, wait_until
from session import Session, binary, make_program

NO_BUS = "There is no session bus: "
SILENT_BUS = "The session bus at unix:path={} does not answer: "
NO_COMPOSITOR = "There is no compositor: "
NO_FONT = "No font is installed that has letters: "
NO_PORTAL = "There is no settings portal: "
# Qt's own words.
NO_RUNTIME_FOLDER = "QStandardPaths: XDG_RUNTIME_DIR not set"
NO_TRAY = "There is no system tray: "
NO_WINDOW_MANAGER = "There is no window manager: "
NOT_SAVED = "The arrangement could not be saved in /dev/null/"

# Starts a program with its standard error declared to be the journal.
TO_THE_JOURNAL = """#!/bin/sh
JOURNAL_STREAM=$(stat -L -c %d:%i /proc/self/fd/2)
export JOURNAL_STREAM
exec "$@"
"""

FONT_CONFIGURATION = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig><dir>{folder}</dir><cachedir>{folder}/cache</cachedir></fontconfig>
"""


class BareSessionTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)

    def start(self, without=(), **variables):
        """A session and the probe's widget in it; a variable that is None is unset."""
        self.session.start(without)
        self.session.register_recording_planner("probe")
        for name, value in variables.items():
            if value is None:
                self.session.environment.pop(name)
            else:
                self.session.environment[name] = value
        self.probe = Probe(self.session)
        self.process = self.probe.start_widgets()

    def assert_works(self):
        """Content comes, actions run, links open, and it ends as it should."""
        wait_until(lambda: self.probe.background() == (0, 0, 255), "the content")
        self.probe.click(BUTTON)
        wait_until(lambda: self.session.opened_urls() == ["probe://performed/Press"],
                   "the action and its address")
        self.probe.click(LINK)
        wait_until(lambda: self.session.opened_urls()[1:] == ["probe://linked"], "the link")

    def assert_says(self, *beginnings):
        """These lines and no others, in any order; what fails again may be said again."""
        def said():
            return set(self.session.processes.log_of("kelmar-widgets").splitlines())

        wait_until(lambda: len(said()) >= len(beginnings), f"{beginnings} after {said()}")
        self.assertEqual(self.session.processes.end(self.process), 0)
        lines = said()
        self.assertEqual(len(lines), len(beginnings), lines)
        for beginning in beginnings:
            self.assertEqual(sum(line.startswith(beginning) for line in lines), 1,
                             (beginning, lines))

    def test_without_compositor_portal_and_tray(self):
        self.start()
        self.assert_works()
        self.assert_says(NO_COMPOSITOR, NO_PORTAL, NO_TRAY)

    def test_without_session_bus(self):
        self.start(without={"bus"})
        self.assert_works()
        self.assert_says(NO_COMPOSITOR, NO_BUS, NO_TRAY)

    def test_with_the_address_of_a_bus_that_is_gone(self):
        self.start(without={"bus"}, DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent/bus")
        self.assert_works()
        self.assert_says(NO_COMPOSITOR, NO_BUS, NO_TRAY)

    def test_with_a_bus_that_takes_connections_and_never_answers(self):
        path, silent = self.silent_socket()
        self.start(without={"bus"}, DBUS_SESSION_BUS_ADDRESS="unix:path=" + path)
        self.assert_works()
        self.assert_says(NO_COMPOSITOR, NO_BUS, NO_TRAY, SILENT_BUS.format(path))
        silent.settimeout(0)
        silent.accept()
        with self.assertRaises(BlockingIOError, msg="it was asked more than once"):
            silent.accept()

    def test_end_is_a_clean_one_while_the_start_waits_for_something(self):
        self.session.start(without={"bus"})
        path, silent = self.silent_socket()
        process = self.session.processes.start(
            "kelmar-widgets", [binary("kelmar-widgets")],
            {**self.session.environment, "DBUS_SESSION_BUS_ADDRESS": "unix:path=" + path})
        silent.settimeout(GIVE_UP_TIME)
        connection, _ = silent.accept()
        self.addCleanup(connection.close)
        self.assertEqual(self.session.processes.end(process), 0)
        self.assertEqual(self.session.processes.log_of("kelmar-widgets"), "")

    def test_tool_does_not_wait_for_a_bus_that_never_answers(self):
        self.session.start(without={"bus"})
        path, _ = self.silent_socket()
        tool = subprocess.run(
            [binary("kelmar-widgetctl"), "explain"], check=False, capture_output=True, text=True,
            env={**self.session.environment, "DBUS_SESSION_BUS_ADDRESS": "unix:path=" + path},
            timeout=GIVE_UP_TIME)
        self.assertEqual(tool.returncode, 1)
        self.assertEqual(tool.stderr, "kelmar-widgetctl: the session bus at unix:path="
                                      f"{path} does not answer\n")

    def test_without_window_manager(self):
        self.start(without={"window manager"})
        self.assert_works()
        self.assert_says(NO_COMPOSITOR, NO_PORTAL, NO_TRAY, NO_WINDOW_MANAGER)

    def test_without_anything_but_a_display(self):
        # Qt then makes a folder of its own where temporary files go.
        self.start(without={"bus", "window manager"}, XDG_RUNTIME_DIR=None,
                   TMPDIR=self.session.folder)
        self.assert_works()
        self.assert_says(NO_COMPOSITOR, NO_BUS, NO_RUNTIME_FOLDER, NO_TRAY, NO_WINDOW_MANAGER)

    def test_where_nothing_can_be_written(self):
        # Not even root can make folders in there. The planner stays where links find it.
        self.start(XDG_CONFIG_HOME="/dev/null/config", XDG_CACHE_HOME="/dev/null/cache",
                   HOME="/dev/null/home", XDG_CONFIG_DIRS=self.session.path_in_home(".config"))
        self.assert_works()
        self.assert_says(NO_COMPOSITOR, NO_PORTAL, NO_TRAY, NOT_SAVED)

    def test_with_a_single_font_texts_are_still_drawn(self):
        self.start(FONTCONFIG_FILE=self.single_font())
        self.assert_works()
        self.assert_says(NO_COMPOSITOR, NO_PORTAL, NO_TRAY)
        # The widget's sentence is set in the font that is there: it looks as it always does.
        single = self.sentence()
        del self.session.environment["FONTCONFIG_FILE"]
        self.assertGreater(single.count((255, 255, 255), tolerance=16), 0)
        self.assertEqual(single.differing_pixels(self.sentence(), tolerance=16), 0)

    def test_without_any_font_the_rest_is_still_drawn(self):
        self.start(FONTCONFIG_FILE=self.fonts())
        self.assert_works()
        self.assert_says(NO_COMPOSITOR, NO_FONT, NO_PORTAL, NO_TRAY)

    def test_journal_is_given_the_level_of_every_line(self):
        launcher = os.path.join(self.session.folder, "to-the-journal")
        make_program(launcher, TO_THE_JOURNAL)
        self.session.start()
        del self.session.environment["DISPLAY"]
        self.process = self.session.processes.start(
            "kelmar-widgets", [launcher, binary("kelmar-widgets")], self.session.environment)
        self.assertEqual(self.process.wait(GIVE_UP_TIME), 1)
        self.assertEqual(self.session.processes.log_of("kelmar-widgets"),
                         "<3>There is no X display to put widgets on.\n")

    def silent_socket(self):
        """Its path and the socket, where connections wait to be accepted."""
        path = os.path.join(self.session.folder, "silent")
        silent = socket.socket(socket.AF_UNIX)
        self.addCleanup(silent.close)
        silent.bind(path)
        silent.listen()
        return path, silent

    def sentence(self):
        """That of a widget without a planner."""
        path = os.path.join(self.session.folder, "widget.png")
        subprocess.run([binary("kelmar-widgetctl"), "render", "Streak", "--family", "medium",
                        "--home", self.session.home, "-o", path], check=True,
                       env={**self.session.environment, "QT_QPA_PLATFORM": "offscreen"})
        return Picture.of_file(path).part(20, 92, 324, 20)

    def single_font(self):
        found = subprocess.run(["fc-match", "--format", "%{file}", "Inter"], check=True,
                               stdout=subprocess.PIPE, text=True).stdout
        path = self.fonts()
        os.symlink(found, os.path.join(os.path.dirname(path), "fonts", os.path.basename(found)))
        return path

    def fonts(self):
        """A configuration with a folder of fonts that is empty."""
        folder = os.path.join(self.session.folder, "fonts")
        os.mkdir(folder)
        path = os.path.join(self.session.folder, "fonts.conf")
        with open(path, "w", encoding="utf-8") as file:
            file.write(FONT_CONFIGURATION.format(folder=folder))
        return path


if __name__ == "__main__":
    unittest.main()
