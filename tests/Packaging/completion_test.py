"""Presses Tab, as it were: asks bash what it would complete."""

import json
import sys
import tempfile
import unittest

from places import BIN, PACKAGING, run
from usage import commands, options

ASK = """
source "$1"; shift
COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
"$(complete -p "$1" | sed 's/.*-F \\([^ ]*\\).*/\\1/')"
[ ${#COMPREPLY[@]} -eq 0 ] || printf '%s\\n' "${COMPREPLY[@]}"
"""


def completed(*words, **surroundings):
    """What the last word, begun or empty, may become."""
    answer = run("bash", "--norc", "-c", ASK, "bash", PACKAGING / "completion" / words[0], *words,
                 **surroundings)
    return set(answer.split())


def kinds():
    return {widget["kind"] for widget in json.loads(run(BIN / "kelmar-widgetctl", "--json", "list"))
            if widget["families"]}


class Completion(unittest.TestCase):
    def test_widgets_completes_the_options_of_its_help(self):
        self.assertEqual(completed("kelmar-widgets", ""), options("kelmar-widgets"))

    def test_widgetctl_completes_the_commands_and_options_of_its_help(self):
        self.assertEqual(completed("kelmar-widgetctl", ""),
                         options("kelmar-widgetctl") | set(commands("kelmar-widgetctl")))

    def test_widgetctl_completes_the_options_of_every_command(self):
        common = options("kelmar-widgetctl") - {"--version"}
        for command in commands("kelmar-widgetctl"):
            self.assertEqual(completed("kelmar-widgetctl", "--now", "0", command, "--"),
                             common | options("kelmar-widgetctl", command), command)

    def test_kinds_are_those_that_the_widgets_have(self):
        for command in ("timeline", "snapshot", "placeholder", "view", "render", "reload", "explain"):
            offered = {word for word in completed("kelmar-widgetctl", command, "")
                       if not word.startswith("-")}
            self.assertEqual(offered, kinds(), command)
        self.assertEqual(completed("kelmar-widgets", "--add", ""),
                         {kind + ":" for kind in kinds()})

    def test_values_are_those_that_the_programs_take(self):
        for option in ("--family", "--mode", "--scheme"):
            values = completed("kelmar-widgetctl", option, "")
            self.assertGreaterEqual(len(values), 2)
            for value in values:
                run(BIN / "kelmar-widgetctl", option, value, "list")
        for option in ("--mode", "--scheme"):
            self.assertEqual(completed("kelmar-widgets", option, ""),
                             completed("kelmar-widgetctl", option, ""))
        self.assertEqual(completed("kelmar-widgets", "--add", "Streak", ":"),
                         completed("kelmar-widgetctl", "--family", ""))
        self.assertEqual(completed("kelmar-widgets", "--add", "Streak", ":", "sm"), {"small"})

    def test_begun_word_keeps_what_fits_it(self):
        self.assertEqual(completed("kelmar-widgetctl", "pl"), {"placeholder"})
        self.assertEqual(completed("kelmar-widgets", "--sc"), {"--scheme"})

    def test_files_are_completed_where_files_are_meant(self):
        with tempfile.TemporaryDirectory() as folder:
            open(folder + "/due.png", "w", encoding="ascii").close()
            for words in (("kelmar-widgetctl", "render", "DueToday", "-o", "d"),
                          ("kelmar-widgetctl", "check", "d"),
                          ("kelmar-widgets", "--picture", "d")):
                self.assertEqual(completed(*words, cwd=folder), {"due.png"}, words)


if __name__ == "__main__":
    sys.exit(unittest.main())
