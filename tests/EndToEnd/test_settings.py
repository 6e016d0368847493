"""The machine's time zone and locale change while the widgets are on the desktop. The machine is a
private view of /etc, so only root can play it."""

import datetime
import json
import os
import subprocess
import unittest
import zoneinfo

from planner import DueToday, PlannerFolder, item, snapshot
from processes import wait_until
from session import Session, binary

IN_A_VIEW_OF_ITS_OWN = ["unshare", "--mount", "sh", "-c",
                        'mount --bind "$0" /etc && exec "$@"']


def next_midnight(zone):
    now = datetime.datetime.now(zoneinfo.ZoneInfo(zone))
    tomorrow = now.date() + datetime.timedelta(days=1)
    return datetime.datetime.combine(tomorrow, datetime.time(), now.tzinfo).timestamp()


@unittest.skipUnless(os.geteuid() == 0, "needs root for a private view of /etc")
class SettingsTest(unittest.TestCase):
    def setUp(self):
        self.session = Session()
        self.addCleanup(self.session.end)
        self.session.start()
        del self.session.environment["TZ"]
        self.etc = os.path.join(self.session.folder, "etc")
        subprocess.run(["cp", "-a", "/etc", self.etc], check=True)
        PlannerFolder(self.session).publish(snapshot(today=[item("a", "Essay", "#FF00FF")]))

    def start(self):
        process = self.session.processes.start(
            "kelmar-widgets", [*IN_A_VIEW_OF_ITS_OWN, self.etc, binary("kelmar-widgets"),
                               "--add", "DueToday:large"], self.session.environment)
        wait_until(lambda: self.explain() and self.widget()["content"] == "timeline",
                   "the widget's content")
        return process

    def explain(self):
        result = subprocess.run([binary("kelmar-widgetctl"), "explain", "DueToday", "--json"],
                                env=self.session.environment, check=False, capture_output=True,
                                text=True)
        return json.loads(result.stdout)[0] if result.returncode == 0 else None

    def widget(self):
        return self.explain()["widgets"][0]

    def set_zone(self, zone):
        link = os.path.join(self.etc, "localtime")
        os.symlink("/usr/share/zoneinfo/" + zone, link + ".new")
        os.replace(link + ".new", link)

    def set_locale(self, locale):
        path = os.path.join(self.etc, "default", "locale")
        with open(path + ".new", "w", encoding="ascii") as file:
            file.write(f"LANG={locale}\n")
        os.replace(path + ".new", path)


class TimeZoneTest(SettingsTest):
    def test_midnight_moves_with_the_machine(self):
        self.set_zone("America/New_York")
        self.start()
        self.assertEqual(self.widget()["nextEntry"], next_midnight("America/New_York"))
        for zone in ("Pacific/Auckland", "Asia/Kolkata"):
            self.set_zone(zone)
            wait_until(lambda zone=zone: self.widget()["nextEntry"] == next_midnight(zone),
                       "the midnight of " + zone)
            self.assertEqual(self.widget()["lastReload"]["cause"], "timeZoneChanged")

    def test_session_with_a_zone_of_its_own_stays_there(self):
        self.session.environment["TZ"] = "America/New_York"
        self.start()
        self.set_zone("Pacific/Auckland")
        self.session.settle()
        self.assertEqual(self.widget()["nextEntry"], next_midnight("America/New_York"))
        self.assertEqual(self.widget()["lastReload"]["cause"], "placed")


class RuleTest(unittest.TestCase):
    """TZ says how far the clocks are from Greenwich, and perhaps when they change, but no name."""

    def start(self, rule):
        session = Session()
        self.addCleanup(session.end)
        session.start()
        session.environment["TZ"] = rule
        PlannerFolder(session).publish(snapshot(today=[item("a", "Essay", "#FF00FF")]))
        DueToday(session).start()
        answer = subprocess.run([binary("kelmar-widgetctl"), "explain", "DueToday", "--json"],
                                env=session.environment, check=True, stdout=subprocess.PIPE)
        self.next_entry = json.loads(answer.stdout)[0]["widgets"][0]["nextEntry"]
        return [line for line in session.processes.log_of("kelmar-widgets").splitlines()
                if "TZ" in line]

    @staticmethod
    def midnight(rule):
        """As every other program of the desktop has it."""
        return float(subprocess.run(["date", "-d", "tomorrow 0:00", "+%s"], env={"TZ": rule},
                                    check=True, stdout=subprocess.PIPE).stdout)

    def test_day_ends_when_the_rule_says(self):
        for rule in ("NIGHT+17:28", "CET-1CEST,M3.5.0,M10.5.0/3"):
            with self.subTest(rule):
                self.assertEqual(self.start(rule), [])
                self.assertEqual(self.next_entry, self.midnight(rule))

    def test_daylight_saving_time_that_is_not_understood_is_told(self):
        rule = "IST-2IDT,M3.4.4/26,M10.5.0"
        self.assertEqual(self.start(rule), [
            f'kelmar-widgets-extension: TZ is "{rule}", whose daylight saving time is not '
            "understood: UTC+02:00 is used all year"])
        self.assertEqual(self.next_entry, self.midnight("IST-2"))


class LocaleTest(SettingsTest):
    def test_widgets_speak_the_language_that_the_machine_is_set_to(self):
        self.set_locale("de_DE.UTF-8")
        self.session.environment["LANG"] = "de_DE.UTF-8"
        self.start()
        german = self.explain()["displayName"]
        self.assertNotEqual(german, "Due Today")
        self.set_locale("en_US.UTF-8")
        wait_until(lambda: self.explain()["displayName"] == "Due Today", "the English name")
        wait_until(lambda: self.session.windows_named("Due Today"), "the window's English title")
        self.assertEqual(self.widget()["lastReload"]["cause"], "localeChanged")
        self.set_locale("de_DE.UTF-8")
        wait_until(lambda: self.explain()["displayName"] == german, "the German name")

    def test_session_with_a_locale_of_its_own_keeps_it(self):
        self.set_locale("de_DE.UTF-8")
        self.session.environment["LANG"] = "en_US.UTF-8"
        self.start()
        self.set_locale("ar_EG.UTF-8")
        wait_until(lambda: self.widget()["lastReload"]["cause"] == "localeChanged", "the reload")
        self.assertEqual(self.explain()["displayName"], "Due Today")


if __name__ == "__main__":
    unittest.main()
