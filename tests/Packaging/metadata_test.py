"""Holds what desktops and software centres read to the tools that judge it."""

import configparser
import pathlib
import shutil
import sys
import tempfile
import unittest
import xml.etree.ElementTree

from places import APP_ID, BUILD, PACKAGING, run

LANGUAGES = ("de", "ar")
ENTRIES = (f"{APP_ID}.desktop", f"{APP_ID}.autostart", "kelmar-planner-demo.desktop")


def entry(name):
    parser = configparser.ConfigParser(interpolation=None, delimiters=("=",))
    parser.optionxform = str
    parser.read(PACKAGING / name, encoding="utf-8")
    return parser["Desktop Entry"]


class DesktopEntries(unittest.TestCase):
    def test_every_entry_is_valid(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ENTRIES:
                # The validator goes by the ending.
                copy = pathlib.Path(folder, pathlib.Path(name).stem + ".desktop")
                shutil.copy(PACKAGING / name, copy)
                self.assertEqual(run("desktop-file-validate", copy), "", name)

    def test_texts_for_people_are_translated(self):
        for name in ENTRIES:
            values = entry(name)
            for key in ("Name", "GenericName", "Comment", "Keywords"):
                for language in LANGUAGES if key in values else ():
                    self.assertIn(f"{key}[{language}]", values, name)

    def test_widgets_start_at_login_only_for_those_who_have_some(self):
        self.assertEqual(entry(f"{APP_ID}.autostart")["Exec"], "kelmar-widgets --if-arranged")

    def test_being_installed_does_not_take_the_planners_urls(self):
        for name in ENTRIES:
            self.assertNotIn("MimeType", entry(name), name)


class Metainfo(unittest.TestCase):
    def test_is_valid(self):
        run("appstreamcli", "validate", "--no-net", PACKAGING / f"{APP_ID}.metainfo.xml")

    def test_names_the_version_that_is_built(self):
        cache = (BUILD / "CMakeCache.txt").read_text(encoding="utf-8")
        releases = xml.etree.ElementTree.parse(PACKAGING / f"{APP_ID}.metainfo.xml")
        newest = releases.find("releases/release").get("version")
        self.assertIn(f"\nCMAKE_PROJECT_VERSION:STATIC={newest}\n", cache)
        change_log = (PACKAGING / "debian/changelog").read_text(encoding="utf-8")
        self.assertTrue(change_log.startswith(f"kelmar-planner-widgets ({newest}) "))


if __name__ == "__main__":
    sys.exit(unittest.main())
