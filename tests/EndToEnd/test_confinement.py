"""The real extension in its confinement: it does all that it has to, and no more. No display is
needed."""

import datetime
import json
import os
import re
import subprocess
import time
import unittest
import zoneinfo

from planner import PlannerFolder, item, snapshot, tick_name
from processes import GIVE_UP_TIME
from session import Session, binary, is_sanitized

EX_SOFTWARE, EX_TEMPFAIL = 70, 75
MEMORY_LIMIT = 512 << 20


class Extension:
    """A running extension, spoken to line by line."""

    def __init__(self, test, session, **environment):
        self._errors = open(os.path.join(session.folder, "errors"), "w+b")
        self._process = subprocess.Popen(
            [binary("kelmar-widgets-extension")], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=self._errors,
            env={"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "TZ": "Europe/Berlin",
                 "ASAN_OPTIONS": "verify_asan_link_order=0:detect_leaks=0",
                 **session.account_environment(), **environment})
        self._last_id = 0
        self.widgets = self.ask("initialize", protocol=1, systemVersion="26.0.0")["widgets"]
        test.addCleanup(self.end)

    def ask(self, method, **parameters):
        """The result of a request; what it asks to be opened on the way is opened."""
        self._last_id += 1
        self.send({"id": self._last_id, "method": method, "params": parameters})
        while True:
            message = self.receive()
            if message.get("method") == "app/open":
                self.send({"id": message["id"], "result": {}})
            else:
                assert message["id"] == self._last_id, message
                assert "result" in message, message
                return message["result"]

    def timeline(self, kind="DueToday", family="systemLarge"):
        return self.ask("widget/timeline", kind=kind, environment={"family": family},
                        isPreview=False)

    def send(self, message):
        self._process.stdin.write(json.dumps({"jsonrpc": "2.0", **message}).encode() + b"\n")
        self._process.stdin.flush()

    def receive(self):
        line = self._process.stdout.readline()
        if not line:
            raise EOFError(self.said())
        return json.loads(line)

    def said(self):
        """What it said on standard error, but for what this kernel lacks."""
        self._errors.seek(0)
        lines = self._errors.read().decode().splitlines()
        return "".join(line + "\n" for line in lines if "not confined in full" not in line)

    def status(self, name, file="status"):
        """What the kernel says of it."""
        with open(f"/proc/{self._process.pid}/{file}", encoding="ascii") as status:
            return re.search(rf"^{name}:?\s+(\S+)", status.read(), re.MULTILINE).group(1)

    def end(self):
        if not self._process.stdin.closed:
            self._process.stdin.close()
        status = self._process.wait(GIVE_UP_TIME)
        self._process.stdout.close()
        self._errors.close()
        return status


def texts(view):
    """Every text of an archived view."""
    if isinstance(view, dict):
        own = [view["text"]] if view.get("type") == "text" else []
        return own + [text for value in view.values() for text in texts(value)]
    if isinstance(view, list):
        return [text for value in view for text in texts(value)]
    return []


class Confinement(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)

    def start(self, **environment):
        return Extension(self, self.session, **environment)

    def test_is_in_force_before_the_first_line_is_read(self):
        extension = self.start()
        self.assertEqual(extension.status("NoNewPrivs"), "1")
        self.assertEqual(extension.status("Seccomp"), "2")
        self.assertEqual(extension.status("Max core file size", "limits"), "0")
        self.assertEqual(extension.status("Max file size", "limits"), str(16 << 20))
        if not is_sanitized():
            self.assertEqual(extension.status("Max address space", "limits"), str(MEMORY_LIMIT))

    def test_every_widget_answers_every_request(self):
        PlannerFolder(self.session).publish(snapshot(today=[item("a", "Read", "#EC4899")]))
        extension = self.start()
        asked = 0
        for widget in extension.widgets:
            for family in widget["families"]:
                for method in ("placeholder", "snapshot", "timeline"):
                    extension.ask("widget/" + method, kind=widget["kind"],
                                  environment={"family": family}, isPreview=False)
                    asked += 1
        self.assertGreater(asked, 20)
        self.assertEqual(extension.said(), "")

    def test_ticks_are_written_and_taken_back(self):
        planner = PlannerFolder(self.session)
        planner.publish(snapshot(today=[item("a/b", "Read", "#EC4899")]))
        extension = self.start()
        extension.ask("intent/perform", intent={"name": "TickOffIntent",
                                                "parameters": {"id": "a/b", "name": "Read"}})
        self.assertEqual(planner.ticks(), [tick_name("a/b")])
        self.assertEqual(planner.note(tick_name("a/b"))["title"], "Read")
        extension.ask("intent/perform", intent={"name": "UndoTickIntent",
                                                "parameters": {"id": "a/b"}})
        self.assertEqual(planner.ticks(), [])
        self.assertEqual(extension.said(), "")

    def test_dates_are_those_of_any_time_zone(self):
        planner = PlannerFolder(self.session)
        for zone in ("Asia/Tokyo", "America/New_York", "Africa/Cairo", "Pacific/Chatham"):
            there = datetime.datetime.now(zoneinfo.ZoneInfo(zone))
            # The day's last second, so that it is not overdue at whatever time this runs.
            due = there.replace(hour=23, minute=59, second=59).timestamp()
            planner.publish(snapshot(
                today=[item("a", "Read", "#EC4899", due_in=due - time.time())]))
            for name in (zone, ":" + zone):
                shown = " ".join(texts(self.start(TZ=name).timeline()["entries"][0]["view"]))
                self.assertIn("11:59", shown, name)

    def test_words_are_those_of_the_language(self):
        PlannerFolder(self.session).publish(snapshot(today=[item("a", "Read", "#EC4899")]))
        for language, words in (("de_DE", "heute fällig"), ("ar_EG", "مستحق اليوم")):
            self.assertIn(words, texts(self.start(LANG=language + ".UTF-8").timeline()))

    def test_a_folder_that_is_made_later_is_seen_by_the_next_process(self):
        extension = self.start()
        extension.timeline()
        PlannerFolder(self.session).publish(snapshot(today=[item("a", "Read", "#EC4899")]))
        with self.assertRaises(EOFError):
            extension.timeline()
        self.assertIn("the planner's folder was made or replaced", extension.said())
        self.assertEqual(extension.end(), EX_TEMPFAIL)
        self.assertIn("Read", texts(self.start().timeline()))

    def test_a_snapshot_that_takes_too_much_memory_ends_it_with_a_word(self):
        if is_sanitized():
            self.skipTest("the address sanitizer needs an address space without limit")
        entry = json.dumps(item("a", "Read", "#EC4899"))
        items = ",".join([entry] * 1_000_000)
        PlannerFolder(self.session).publish_text(
            f'{{"updated":{time.time()},"signedIn":true,"upcoming":[],"today":[{items}]}}')
        extension = self.start()
        with self.assertRaises(EOFError):
            extension.timeline()
        self.assertIn("there is not enough memory within its limit", extension.said())
        self.assertEqual(extension.end(), EX_SOFTWARE)


if __name__ == "__main__":
    unittest.main()
