"""Holds the manual pages to their format and to what the programs say of themselves."""

import re
import sys
import unittest

from places import PACKAGING, run
from usage import all_options, commands

PROGRAMS = ("kelmar-widgets", "kelmar-widgetctl", "kelmar-planner-demo")


def page(program):
    return PACKAGING / "man" / f"{program}.1"


def shown(program):
    """The page as a terminal shows it, without bold and underlined."""
    return re.sub(".\b", "", run("mandoc", "-T", "utf8", page(program)))


class ManualPages(unittest.TestCase):
    def test_every_page_is_well_formed(self):
        pages = sorted((PACKAGING / "man").iterdir())
        self.assertEqual(len(pages), 4)
        for path in pages:
            self.assertEqual(run("mandoc", "-T", "lint", "-W", "warning", path), "")

    def test_pages_and_help_name_the_same_options(self):
        for program in PROGRAMS:
            self.assertEqual(set(re.findall(r"--[a-z][a-z-]*", shown(program))),
                             all_options(program), program)

    def test_page_and_help_name_the_same_commands(self):
        described = re.findall(r"^\.It Cm (\w+)", page("kelmar-widgetctl").read_text(),
                               re.MULTILINE)
        self.assertEqual(described, sorted(commands("kelmar-widgetctl")))


if __name__ == "__main__":
    sys.exit(unittest.main())
