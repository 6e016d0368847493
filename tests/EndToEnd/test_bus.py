"""The running host on a real session bus: reloads, explanations and second starts."""

import json
import os
import pathlib
import re
import signal
import subprocess
import unittest
import xml.etree.ElementTree as xml

from bus_double import SYSTEM_PYTHON
from planner import DueToday, PlannerFolder, item, snapshot
from probe import Probe
from processes import GIVE_UP_TIME, children_of, wait_until
from session import Session, binary

NAME = "com.kelmarplanner.Widgets"
PATH = "/com/kelmarplanner/Widgets"
CONTRACT = pathlib.Path(__file__).resolve().parents[2] / "packaging" / (NAME + ".xml")
# Sends one message again and again, and leaves when all are on their way.
FLOOD = """
import sys
import dbus
name, path, method, count = sys.argv[1:]
bus = dbus.SessionBus()
for _ in range(int(count)):
    message = dbus.lowlevel.MethodCallMessage(name, path, name, method)
    message.set_no_reply(True)
    bus.send_message(message)
bus.flush()
"""
BLUE = (0, 0, 255)
ORANGE = (255, 128, 0)


# An instance as it is found just after a crash: it still has the name, and never answers.
DYING_FIRST = """
import os, sys
import dbus, dbus.mainloop.glib, dbus.service
from gi.repository import GLib
name, path = sys.argv[1:]
dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
bus = dbus.SessionBus()
class First(dbus.service.Object):
    @dbus.service.method(name)
    def ShowGallery(self):
        print("is asked", file=sys.stderr, flush=True)
        os._exit(0)
first = First(bus, path)
held = dbus.service.BusName(name, bus, do_not_queue=True)
print("holds the name", file=sys.stderr, flush=True)
GLib.MainLoop().run()
"""


class BusTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()

    def control(self, *words):
        return subprocess.run([binary("kelmar-widgetctl"), *words], check=False,
                              env=self.session.environment, capture_output=True, text=True)

    def explain(self, kind):
        result = self.control("explain", kind, "--json")
        self.assertEqual(result.returncode, 0, result.stderr)
        return json.loads(result.stdout)[0]

    def call(self, method, *arguments, interface=NAME):
        return subprocess.run(
            ["gdbus", "call", "--session", "--dest", NAME, "--object-path", PATH, "--method",
             f"{interface}.{method}", *arguments],
            env=self.session.environment, check=False, capture_output=True, text=True)


class ProbeOnBusTest(BusTest):
    def setUp(self):
        super().setUp()
        self.session.register_recording_planner("probe")
        self.probe = Probe(self.session)
        self.process = self.probe.start_widgets()
        self.wait_for_background(BLUE)

    def wait_for_background(self, color):
        wait_until(lambda: self.probe.background() == color, f"the background {color}")

    def test_reload_that_another_program_asks_for_shows_the_new_content(self):
        for color, ask in (((1, 0.5, 0), lambda: self.call("ReloadTimelines", "Probe")),
                           ((0, 0, 1), lambda: self.call("ReloadAllTimelines")),
                           ((1, 0.5, 0), lambda: self.control("reload", "Probe")),
                           ((0, 0, 1), lambda: self.control("reload"))):
            self.probe.set_color(*color)
            answer = ask()
            self.assertEqual(answer.returncode, 0, answer.stderr)
            self.wait_for_background(BLUE if color[2] else ORANGE)

    def test_reload_of_what_nobody_offers_is_refused_with_what_there_is(self):
        answer = self.call("ReloadTimelines", "Sun")
        self.assertIn(NAME + ".Error.UnknownKind", answer.stderr)
        self.assertIn('There is no widget "Sun"; there are Probe', answer.stderr)
        tool = self.control("reload", "Sun")
        self.assertEqual(tool.returncode, 2)
        self.assertIn('There is no widget "Sun"', tool.stderr)

    def test_flood_of_reloads_neither_stops_the_host_nor_loses_the_last_one(self):
        before = len(self.probe.requests("widget/timeline"))
        # One program sends them all, so that they come as fast as the bus lets them.
        subprocess.run([SYSTEM_PYTHON, "-c", FLOOD, NAME, PATH, "ReloadAllTimelines", "300"],
                       env=self.session.environment, check=True)
        self.probe.set_color(1, 0.5, 0)
        self.assertEqual(self.call("ReloadAllTimelines").returncode, 0)
        self.wait_for_background(ORANGE)
        self.assertLess(len(self.probe.requests("widget/timeline")) - before, 150)
        self.assertIsNone(self.process.poll())

    def test_list_says_where_the_widget_is(self):
        answer = self.call("ListWidgets")
        self.assertEqual(answer.returncode, 0, answer.stderr)
        x, y = self.probe.place()
        for entry in ("'kind': <'Probe'>", "'family': <'large'>", "'screen': <'screen'>",
                      "'shown': <true>", "'content': <'timeline'>"):
            self.assertIn(entry, answer.stdout)
        place = [int(re.search(f"'{axis}': <(-?[0-9]+)>", answer.stdout)[1]) for axis in "xy"]
        self.assertEqual(place, [x, y])
        self.assertEqual(self.control("explain").stderr, "")

    def test_second_start_shows_the_gallery_of_the_first_and_ends_well(self):
        second = subprocess.run(self.probe.command(), env=self.session.environment, timeout=GIVE_UP_TIME,
                                check=False, capture_output=True, text=True)
        self.assertEqual(second.returncode, 0, second.stderr)
        self.assertIn("on the desktop already", second.stderr)
        self.assertIsNone(self.process.poll())
        self.assertEqual(len(self.session.windows_named("Probe")), 1)
        wait_until(lambda: self.session.windows_named("Add widgets"), "the gallery")

    def test_place_of_a_first_that_dies_while_it_is_asked_is_taken(self):
        self.session.processes.end(self.process)
        self.session.processes.start(
            "dying-first", [SYSTEM_PYTHON, "-c", DYING_FIRST, NAME, PATH],
            self.session.environment)
        wait_until(lambda: "holds the name" in self.session.processes.log_of("dying-first"),
                   "the name to be taken")
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.assertIn("is asked", self.session.processes.log_of("dying-first"))
        self.assertEqual(self.call("ReloadAllTimelines").returncode, 0)

    def test_name_is_free_again_when_the_first_has_ended(self):
        self.session.processes.end(self.process)
        self.probe.start_widgets()
        self.wait_for_background(BLUE)
        self.assertEqual(self.call("ReloadAllTimelines").returncode, 0)

    def test_name_is_free_while_the_first_still_waits_for_its_extension(self):
        self.assertEqual(self.call("ReloadAllTimelines").returncode, 0)
        extension, = children_of(self.process.pid)
        os.kill(extension, signal.SIGSTOP)
        self.process.send_signal(signal.SIGTERM)
        wait_until(lambda: not self.session.windows_named("Probe"), "the first's widgets to go")
        self.assertIsNone(self.process.poll())
        self.probe.start_widgets()

    def test_extension_that_does_not_explain_itself_is_not_called_healthy(self):
        explanation = self.explain("Probe")
        self.assertIn("noFindings", explanation)
        self.assertNotIn("findings", explanation)

    def test_interface_is_the_one_in_the_contract(self):
        answer = subprocess.run(
            ["gdbus", "introspect", "--session", "--dest", NAME, "--object-path", PATH, "--xml"],
            env=self.session.environment, check=True, capture_output=True, text=True)
        self.assertEqual(self.methods_in(answer.stdout), self.methods_in(CONTRACT.read_text()))
        self.assertEqual(len(self.methods_in(answer.stdout)), 5)

    def methods_in(self, text):
        """The types that go in and come out, by method."""
        text = text[text.index("<node"):]
        interface = next(each for each in xml.fromstring(text).iter("interface")
                         if each.get("name") == NAME)
        return {method.get("name"): {direction: [each.get("type") for each in method.iter("arg")
                                                 if each.get("direction", "in") == direction]
                                     for direction in ("in", "out")}
                for method in interface.iter("method")}


class ExplainTest(BusTest):
    def setUp(self):
        super().setUp()
        self.folder = PlannerFolder(self.session)
        self.folder.publish(snapshot(today=[item("a", "Essay", "#FF00FF")]))
        self.widget = DueToday(self.session)
        self.widget.start()

    def test_entry_its_successor_and_the_last_reload_are_told(self):
        explanation = self.explain("DueToday")
        self.assertEqual(explanation["displayName"], "Due Today")
        self.assertEqual(explanation["findings"], [])
        widget, = explanation["widgets"]
        self.assertEqual((widget["family"], widget["content"]), ("large", "timeline"))
        self.assertEqual((widget["entryIndex"], widget["entryCount"]), (0, 3))
        self.assertLess(widget["entryDate"], widget["nextEntry"])
        self.assertLess(widget["nextEntry"], widget["nextReload"])
        reload = widget["lastReload"]
        self.assertEqual((reload["cause"], reload["outcome"], reload["reason"]),
                         ("placed", "taken", ""))
        self.assertGreater(reload["duration"], 0)

    def test_changed_file_is_the_cause_and_an_unreadable_one_is_explained(self):
        self.folder.publish_text('{"updated": 1, "signedIn": "yes", "today": [], "upcoming": []}')
        wait_until(lambda: self.explain("DueToday")["widgets"][0]["lastReload"]["cause"]
                   == "fileChanged", "the reload after the change")
        finding, = self.explain("DueToday")["findings"]
        self.assertIn("$.signedIn", finding)
        self.assertIn("true or false", finding)
        os.remove(self.session.path_in_home(
            "Library/Application Support/Kelmar Planner/widget.json"))
        wait_until(lambda: "No such file" in self.explain("DueToday")["findings"][0],
                   "the missing file")

    def test_person_gets_sentences(self):
        text = self.control("explain").stdout
        self.assertIn('DueToday ("Due Today")\n  large: shows entry 1 of 3, dated 20', text)
        self.assertRegex(text, r"next entry   20\d\d-")
        self.assertRegex(text, r"last reload  20.*, because it was put on the desktop; taken after")


class WithoutHostTest(BusTest):
    def test_tool_says_what_to_do_where_no_host_runs(self):
        for words in (["reload"], ["reload", "DueToday"], ["explain"], ["explain", "DueToday"]):
            result = self.control(*words)
            self.assertEqual(result.returncode, 1)
            self.assertEqual(result.stderr, "kelmar-widgetctl: kelmar-widgets does not run in this "
                                            "session; start it first\n")
            self.assertEqual(result.stdout, "")

    def test_tool_says_that_there_is_no_session_bus(self):
        del self.session.environment["DBUS_SESSION_BUS_ADDRESS"]
        result = self.control("explain")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(len(result.stderr.splitlines()), 1)
        self.assertIn("no session bus", result.stderr)


class WithoutBusTest(BusTest):
    def test_two_hosts_stand_side_by_side_where_there_is_no_session_bus(self):
        del self.session.environment["DBUS_SESSION_BUS_ADDRESS"]
        self.session.register_recording_planner("probe")
        probe = Probe(self.session)
        first = probe.start_widgets()
        wait_until(lambda: probe.background() == BLUE, "the first one's content")
        self.session.processes.start("second", probe.command(), self.session.environment)
        wait_until(lambda: len(self.session.windows_named("Probe")) == 2, "the second's window")
        self.assertIsNone(first.poll())
        self.assertIn("nobody can ask for a reload",
                      self.session.processes.log_of("kelmar-widgets"))


if __name__ == "__main__":
    unittest.main()
