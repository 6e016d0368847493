"""Runs kelmar-widgetctl as a person or a script would, and holds what it prints, how it ends and what
it leaves on disk."""

import base64
import json
import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(os.environ["KELMAR_BIN"]) / "kelmar-widgetctl"
NOW = 1760036400  # 2025-10-09 15:00 in New York, a Thursday
PLANNER = "Library/Application Support/Kelmar Planner"


def item(identity, due, **others):
    return {"id": identity, "title": f"Title {identity}", "className": "Biology",
            "classColor": "#10B981", "due": due, "hasTime": True, **others}


def snapshot(**others):
    return {"updated": NOW, "signedIn": True, "today": [item("a/1", NOW + 3600)],
            "upcoming": [item("b", NOW + 86400)], **others}


class Home:
    """A home folder with a planner in it."""

    def __init__(self, content=None):
        self.folder = tempfile.TemporaryDirectory()
        self.path = pathlib.Path(self.folder.name)
        self.ticked = self.path / PLANNER / "Ticked"
        self.ticked.mkdir(parents=True)
        self.file = self.path / PLANNER / "widget.json"
        if content is not None:
            self.file.write_text(content if isinstance(content, str) else json.dumps(content))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.folder.cleanup()


def run(*words, home=None, now=NOW):
    command = [str(TOOL), "--time-zone", "America/New_York", "--locale", "en_US"]
    if now is not None:
        command += ["--now", str(now)]
    if home is not None:
        command += ["--home", str(home.path)]
    return subprocess.run([*command, *map(str, words)], capture_output=True, text=True,
                          check=False)


def answer(*words, **surroundings):
    result = run("--json", *words, **surroundings)
    assert result.returncode == 0, result.stderr
    return json.loads(result.stdout)


def file_name(prefix, identity):
    encoded = base64.urlsafe_b64encode(identity.encode()).decode().rstrip("=")
    return prefix + encoded


class List(unittest.TestCase):
    def test_names_the_bundle_in_gallery_order(self):
        listed = answer("list")
        self.assertEqual([entry["kind"] for entry in listed],
                         ["DueToday", "Schedule", "StudyTimer", "Streak", "StudyTimerControl"])
        self.assertEqual(listed[0], {
            "kind": "DueToday", "displayName": "Due Today",
            "description": "What's still to do today, and what's next, from Kelmar Planner.",
            "families": ["systemSmall", "systemMedium", "systemLarge"]})
        self.assertEqual(listed[4]["families"], [])

    def test_leaves_the_control_out_on_older_systems(self):
        self.assertEqual(len(answer("list", "--system-version", "25.9.9")), 4)
        self.assertEqual(len(answer("list", "--system-version", "26.0")), 5)


class Timeline(unittest.TestCase):
    def test_gives_every_entry_with_its_data_undo_and_view(self):
        with Home(snapshot()) as home:
            timeline = answer("timeline", "DueToday", home=home)
        self.assertEqual([entry["date"] for entry in timeline["entries"]],
                         [NOW, NOW + 9 * 3600, NOW + 33 * 3600])
        self.assertEqual(timeline["policy"], {"after": NOW + 33 * 3600})
        for entry in timeline["entries"]:
            self.assertEqual(list(entry), ["date", "data", "undo", "view"])
            self.assertIsNone(entry["undo"])
        self.assertEqual(timeline["entries"][0]["data"], snapshot())
        self.assertEqual([i["id"] for i in timeline["entries"][1]["data"]["today"]], ["a/1", "b"])

    def test_carries_a_fresh_tick_in_seconds_since_1970(self):
        with Home(snapshot()) as home:
            run("perform", "TickOffIntent", "id=a/1", "name=Essay", "--print-urls", home=home)
            timeline = answer("timeline", "DueToday", home=home, now=NOW + 4)
        self.assertEqual(timeline["entries"][0]["undo"],
                         {"id": "a/1", "title": "Essay", "at": NOW})
        self.assertEqual(timeline["entries"][1]["date"], NOW + 10)
        self.assertEqual(timeline["entries"][0]["data"]["today"], [])

    def test_without_a_snapshot_has_no_data(self):
        with Home() as home:
            for entry in answer("timeline", "DueToday", home=home)["entries"]:
                self.assertIsNone(entry["data"])

    def test_only_due_today_speaks_of_undo(self):
        with Home(snapshot()) as home:
            for kind in ("Schedule", "StudyTimer", "Streak"):
                for entry in answer("timeline", kind, home=home)["entries"]:
                    self.assertNotIn("undo", entry)

    def test_never_uses_a_sample_but_a_snapshot_preview_does(self):
        with Home() as home:
            self.assertIsNone(answer("snapshot", "DueToday", home=home)["data"])
            self.assertIsNotNone(
                answer("snapshot", "DueToday", "--preview", home=home)["data"])
            self.assertIsNotNone(answer("placeholder", "DueToday", home=home)["data"])
            self.assertIsNone(
                answer("timeline", "DueToday", "--preview", home=home)["entries"][0]["data"])

    def test_prints_something_to_read_without_json(self):
        with Home(snapshot()) as home:
            text = run("timeline", "DueToday", home=home).stdout
        self.assertIn("2025-10-09T19:00:00Z", text)
        self.assertIn("reloads after 2025-10-11T04:00:00Z", text)


class View(unittest.TestCase):
    def test_is_the_first_entry_of_the_timeline(self):
        with Home(snapshot()) as home:
            view = answer("view", "DueToday", "--family", "medium", home=home)
            timeline = answer("timeline", "DueToday", "--family", "medium", home=home)
        self.assertEqual(view, timeline["entries"][0]["view"])
        self.assertEqual(view["background"], {"style": "tertiaryFill"})

    def test_takes_iso_8601_with_an_offset_as_the_moment(self):
        with Home(snapshot()) as home:
            named = answer("view", "DueToday", home=home, now="2025-10-09T15:00:00-04:00")
            self.assertEqual(named, answer("view", "DueToday", home=home))

    def test_options_may_stand_before_or_behind_the_command(self):
        with Home(snapshot()) as home:
            before = run("--json", "--family", "large", "view", "DueToday", home=home)
            behind = run("view", "DueToday", "--family", "large", "--json", home=home)
        self.assertEqual(before.stdout, behind.stdout)
        self.assertEqual(before.returncode, 0)

    def test_speaks_the_language_of_the_locale(self):
        with Home() as home:
            german = run("view", "DueToday", "--locale", "de_DE", home=home).stdout
            english = run("view", "DueToday", home=home).stdout
        self.assertIn("Open Kelmar Planner and sign in to see what’s due.", english)
        self.assertNotIn("sign in", german)
        self.assertIn("Kelmar Planner", german)


class Perform(unittest.TestCase):
    def test_ticks_off_and_prints_the_url(self):
        with Home(snapshot()) as home:
            result = run("perform", "TickOffIntent", "id=a/1", "name=Essay", "--print-urls",
                         home=home)
            self.assertEqual((result.returncode, result.stdout),
                             (0, "kelmarplanner://ticked\n"))
            note = json.loads((home.ticked / file_name("tick-", "a/1")).read_text())
            self.assertEqual(note, {"title": "Essay", "at": NOW - 978307200})

            result = run("perform", "UndoTickIntent", "id=a/1", "--print-urls", home=home)
            self.assertEqual(result.stdout, "kelmarplanner://untick/a%2F1\n")
            self.assertEqual(list(home.ticked.iterdir()), [])

    def test_drives_the_timer(self):
        for words, url in ((("TimerRunIntent", "run=true"), "timer/on"),
                           (("TimerRunIntent", "run=false"), "timer/off"),
                           (("TimerControlIntent", "value=false"), "timer/off"),
                           (("TimerPresetIntent", "minutes=25"), "timer/start?mins=25"),
                           (("TimerPresetIntent", "minutes=-5"), "timer/start?mins=-5")):
            with Home() as home:
                result = run("perform", *words, "--print-urls", home=home)
            self.assertEqual(result.stdout, f"kelmarplanner://{url}\n", words)

    def test_a_tick_that_cannot_be_written_fails_and_sends_nothing(self):
        with Home(snapshot()) as home:
            home.ticked.rmdir()
            missing = run("perform", "TickOffIntent", "id=a", "name=b", "--print-urls", home=home)
            self.assertEqual((missing.returncode, missing.stdout), (1, ""))
            self.assertEqual(len(missing.stderr.splitlines()), 1)
            self.assertFalse(home.ticked.exists())
        with Home(snapshot()) as home:
            long = run("perform", "TickOffIntent", f"id={'x' * 300}", "name=b", "--print-urls",
                       home=home)
            self.assertEqual((long.returncode, long.stdout), (1, ""))

    def test_what_is_no_action_is_a_usage_error(self):
        for words in (("Explode",), ("TickOffIntent", "id=x"), ("UndoTickIntent", "id=x", "y=z"),
                      ("TimerRunIntent", "run=maybe"), ("TimerPresetIntent", "minutes=2.5")):
            with Home() as home:
                result = run("perform", *words, "--print-urls", home=home)
            self.assertEqual((result.returncode, result.stdout), (2, ""), words)
            self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)


class Check(unittest.TestCase):
    def check(self, content):
        with Home(content) as home:
            result = run("check", home=home)
            parsed = run("check", "--json", home=home)
        self.assertEqual(result.returncode, parsed.returncode)
        return result, json.loads(parsed.stdout)

    def test_a_readable_snapshot_passes(self):
        result, parsed = self.check(snapshot())
        self.assertEqual(result.returncode, 0)
        self.assertIn("readable", result.stdout)
        self.assertTrue(parsed["readable"])

    def test_names_the_place_what_stood_there_and_what_was_expected(self):
        missing = snapshot()
        del missing["upcoming"][0]["hasTime"]
        wrong = snapshot(today=[item("x", "2025-03-07")])
        fraction = snapshot(streak={"count": 3.5, "best": 1, "lastDate": "", "hist": {},
                                    "freezeNext": ""})
        nothing = snapshot(signedIn=None)
        for content, path in ((missing, "$.upcoming[0].hasTime"), (wrong, "$.today[0].due"),
                              (fraction, "$.streak.count"), (nothing, "$.signedIn"),
                              ({}, "$.updated"), ([], "$"), ("", "$"), ("{} {}", "$"),
                              ('{"updated": 1e999}', "$.updated")):
            result, parsed = self.check(content)
            self.assertEqual(result.returncode, 1, content)
            self.assertEqual(len(result.stdout.splitlines()), 1, result.stdout)
            self.assertFalse(parsed["readable"])
            if path != "$":
                self.assertEqual(parsed["path"], path)
            self.assertIn(parsed["path"], result.stdout)
            self.assertIn(parsed["found"], result.stdout)
            self.assertIn(parsed["expected"], result.stdout)
            self.assertTrue(parsed["found"] and parsed["expected"], parsed)

    def test_takes_any_file_by_name(self):
        with Home(snapshot()) as home:
            named = run("check", home.file, now=None)
            self.assertEqual(named.returncode, 0)
            absent = run("check", home.path / "nothing.json", now=None)
        self.assertEqual((absent.returncode, absent.stdout), (1, ""))
        self.assertEqual(len(absent.stderr.splitlines()), 1)

    def test_a_fifo_is_unreadable_and_blocks_nobody(self):
        with Home() as home:
            os.mkfifo(home.file)
            self.assertEqual(run("check", home=home).returncode, 1)
            self.assertIn("sign in", run("view", "DueToday", home=home).stdout)


class Control(unittest.TestCase):
    def test_says_what_the_control_shows(self):
        with Home() as home:
            value = answer("control", home=home)
            self.assertEqual((value["running"], value["text"]), (False, "Sign in"))
            preview = answer("control", "--preview", home=home)
            self.assertEqual((preview["running"], preview["text"], preview["symbol"]),
                             (False, "Start", "timer"))

    def test_says_until_when_a_session_runs(self):
        timer = {"state": "running", "ringing": False, "total": 1500, "secsLeft": 600,
                 "endAt": NOW + 600, "isBreak": False, "className": "Biology",
                 "classColor": "#10B981", "sessionTitle": "", "presets": []}
        with Home(snapshot(timer=timer)) as home:
            self.assertEqual(answer("control", home=home),
                             {"running": True, "text": "Until 3:10\u202fPM", "symbol": "pause.fill"})
            self.assertEqual(run("control", home=home).stdout,
                             "Until 3:10\u202fPM (on, pause.fill)\n")

    def test_a_length_that_no_clock_can_show_is_a_fatal_fault(self):
        timer = {"state": "paused", "ringing": False, "total": 1500, "secsLeft": 2 ** 63,
                 "isBreak": False, "className": "", "classColor": "", "sessionTitle": "",
                 "presets": []}
        with Home(snapshot(timer=timer)) as home:
            for words in (("control",), ("view", "StudyTimer")):
                result = run(*words, home=home)
                self.assertEqual((result.returncode, result.stdout), (70, ""), words)
                self.assertEqual(len(result.stderr.splitlines()), 1, (words, result.stderr))
            # Whatever does not have to show it goes on.
            self.assertEqual(run("view", "Streak", home=home).returncode, 0)


class Pictures(unittest.TestCase):
    def size(self, path):
        header = path.read_bytes()[:24]
        self.assertEqual(header[:8], b"\x89PNG\r\n\x1a\n")
        return struct.unpack(">II", header[16:24])

    def test_render_draws_the_widget_at_its_size_times_the_scale(self):
        for family, scale, expected in (("small", 1, (170, 170)), ("medium", 2, (728, 340)),
                                        ("large", 1.5, (546, 573))):
            with Home(snapshot()) as home:
                picture = home.path / "picture.png"
                result = run("render", "DueToday", "--family", family, "--scale", scale,
                             "-o", picture, home=home)
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertEqual(self.size(picture), expected)

    def test_gallery_draws_everything_on_one_sheet(self):
        with Home() as home:
            sheet = home.path / "sheet.png"
            self.assertEqual(run("gallery", "-o", sheet, home=home).returncode, 0)
            width, height = self.size(sheet)
        self.assertGreater(width, 3 * 554)
        self.assertGreater(height, 2 * 1500)

    def test_a_picture_that_cannot_be_written_fails_in_one_line(self):
        with Home() as home:
            result = run("render", "DueToday", "-o", home.path / "no" / "where.png", home=home)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(len(result.stderr.splitlines()), 1)


class Usage(unittest.TestCase):
    def test_what_makes_no_sense_ends_with_2_and_one_line(self):
        for words in ((), ("dance",), ("view",), ("view", "Weather"), ("view", "DueToday", "x"),
                      ("view", "DueToday", "--family", "huge"),
                      ("view", "Streak", "--family", "large"),
                      ("view", "DueToday", "--now", "2025-10-09T15:00:00"),
                      ("view", "DueToday", "--time-zone", "Mars/Olympus"),
                      ("view", "DueToday", "--scale", "0"),
                      ("view", "DueToday", "--scheme", "mauve"), ("render", "DueToday")):
            result = run(*words, now=None)
            self.assertEqual((result.returncode, result.stdout), (2, ""), words)
            self.assertEqual(len(result.stderr.splitlines()), 1, (words, result.stderr))

    def test_help_is_no_error(self):
        result = run("--help")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        for command in ("list", "timeline", "snapshot", "placeholder", "view", "render",
                        "gallery", "control", "perform", "check"):
            self.assertIn(command, result.stdout)


if __name__ == "__main__":
    sys.exit(unittest.main())
