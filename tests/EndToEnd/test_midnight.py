"""Midnight comes while a widget is on the desktop: the real programs with another clock before them
(libfaketime), which is as far from midnight as a start takes."""

import datetime
import json
import subprocess
import time
import unittest
import zoneinfo

from planner import DueToday, PlannerFolder, item, snapshot
from processes import wait_until
from rendering import rendered
from session import Session, binary, is_sanitized

ZONE = "Europe/Berlin"
SECONDS_BEFORE_MIDNIGHT = 25
OTHER_CLOCK = "/usr/$LIB/faketime/libfaketime.so.1"  # The dynamic linker knows what $LIB is.
# Without the corners, which nothing blends on this desktop.
INSIDE = (12, 12, 340, 358)


class MidnightTest(unittest.TestCase):
    def setUp(self):
        if is_sanitized():
            self.skipTest("the address sanitizer and the other clock both want to be loaded first")
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        self.session.environment["TZ"] = ZONE
        self.widget = DueToday(self.session)
        here = datetime.datetime.now(zoneinfo.ZoneInfo(ZONE))
        self.midnight = datetime.datetime.combine(
            here.date() + datetime.timedelta(days=1), datetime.time(), here.tzinfo).timestamp()

    def start_with_other_clock(self):
        self.ahead = round(self.midnight - time.time()) - SECONDS_BEFORE_MIDNIGHT
        real = dict(self.session.environment)
        self.session.environment.update(
            LD_PRELOAD=f"{real['LD_PRELOAD']} {OTHER_CLOCK}", FAKETIME=f"{self.ahead:+d}",
            FAKETIME_DONT_FAKE_MONOTONIC="1", FAKETIME_DISABLE_SHM="1")
        self.widget.start()
        self.session.environment = real

    def picture_at(self, now):
        return rendered(self.session, "DueToday", "large", now).part(*INSIDE)

    def wait_for(self, expected, what):
        wait_until(lambda: self.widget.picture().part(*INSIDE).differing_pixels(
            expected, tolerance=16) == 0, what)

    def last_reload(self):
        answer = subprocess.run([binary("kelmar-widgetctl"), "explain", "DueToday", "--json"],
                                env=self.session.environment, check=True, stdout=subprocess.PIPE)
        return json.loads(answer.stdout)[0]["widgets"][0]["lastReload"]

    def test_list_of_the_new_day_comes_by_itself_at_midnight(self):
        to_midnight = self.midnight - time.time()
        PlannerFolder(self.session).publish(snapshot(
            today=[item("a", "Essay", "#FF00FF", due_in=to_midnight + 3600)],
            upcoming=[item("b", "Worksheet", "#00FFFF", due_in=to_midnight + 50_000)]))
        before = self.picture_at(self.midnight - 1)
        after = self.picture_at(self.midnight + 1)
        self.assertGreater(before.differing_pixels(after, tolerance=16), 100)

        self.start_with_other_clock()
        self.wait_for(before, "the list of the old day")
        self.wait_for(after, "the list of the new day")
        self.assertGreaterEqual(time.time() + self.ahead, self.midnight)
        self.assertEqual(self.last_reload()["cause"], "placed")


if __name__ == "__main__":
    unittest.main()
