"""Completes the programs' command lines in every shell that is served, and compares what comes with
what the programs say of themselves."""

import json
import sys
import tempfile
import unittest

import shells
from places import BIN, run
from usage import commands, options

OF_A_KIND = ("timeline", "snapshot", "placeholder", "view", "render", "reload", "explain")


def kinds():
    return {widget["kind"] for widget in json.loads(run(BIN / "kelmar-widgetctl", "--json", "list"))
            if widget["families"]}


class Completion:
    """What holds in all of them; `completed` tells what the last word, begun or empty, may become."""

    def words_after(self, *words):
        return {word for word in self.completed(*words, "") if not word.startswith("-")}

    def options_after(self, *words):
        return {word for word in self.completed(*words, "--") if word.startswith("--")}

    def test_widgets_completes_the_options_of_its_help(self):
        self.assertEqual(self.options_after("kelmar-widgets"), options("kelmar-widgets"))

    def test_widgetctl_completes_the_commands_and_options_of_its_help(self):
        self.assertEqual(self.options_after("kelmar-widgetctl"), options("kelmar-widgetctl"))
        self.assertEqual(self.words_after("kelmar-widgetctl"), set(commands("kelmar-widgetctl")))

    def test_widgetctl_completes_the_options_of_every_command(self):
        common = options("kelmar-widgetctl") - {"--version"}
        for command in commands("kelmar-widgetctl"):
            # An option that has been given need not be offered again.
            self.assertEqual(
                self.options_after("kelmar-widgetctl", "--now", "0", command) | {"--now"},
                common | options("kelmar-widgetctl", command), command)

    def test_kinds_are_those_that_the_widgets_have(self):
        for command in OF_A_KIND:
            self.assertEqual(self.words_after("kelmar-widgetctl", command), kinds(), command)
        self.assertEqual({word.partition(":")[0]
                          for word in self.words_after("kelmar-widgets", "--add")}, kinds())

    def test_values_are_those_that_the_programs_take(self):
        for option in ("--family", "--mode", "--scheme"):
            values = self.words_after("kelmar-widgetctl", option)
            self.assertGreaterEqual(len(values), 2)
            for value in values:
                run(BIN / "kelmar-widgetctl", option, value, "list")
        for option in ("--mode", "--scheme"):
            self.assertEqual(self.words_after("kelmar-widgets", option),
                             self.words_after("kelmar-widgetctl", option))

    def test_widget_that_is_added_has_one_of_the_sizes(self):
        self.assertEqual(self.sizes_after("Streak:"),
                         self.words_after("kelmar-widgetctl", "--family"))
        self.assertEqual(self.sizes_after("Streak:sm"), {"small"})

    def sizes_after(self, begun):
        return {word.rpartition(":")[2]
                for word in self.completed("kelmar-widgets", "--add", begun)}

    def test_begun_word_keeps_what_fits_it(self):
        self.assertEqual(self.completed("kelmar-widgetctl", "pl"), {"placeholder"})
        self.assertEqual(self.completed("kelmar-widgets", "--sc"), {"--scheme"})

    def test_files_are_completed_where_files_are_meant(self):
        with tempfile.TemporaryDirectory() as folder:
            open(folder + "/due.png", "w", encoding="ascii").close()
            for words in (("kelmar-widgetctl", "render", "DueToday", "-o", "d"),
                          ("kelmar-widgetctl", "check", "d"),
                          ("kelmar-widgets", "--picture", "d")):
                self.assertEqual(self.completed(*words, cwd=folder), {"due.png"}, words)


class Bash(Completion, unittest.TestCase):
    completed = staticmethod(shells.bash)

    def sizes_after(self, begun):
        # Bash takes a colon for a word of its own.
        kind, _colon, size = begun.partition(":")
        words = (kind, ":", size) if size else (kind, ":")
        return self.completed("kelmar-widgets", "--add", *words)


class Zsh(Completion, unittest.TestCase):
    completed = staticmethod(shells.zsh)


class Fish(Completion, unittest.TestCase):
    completed = staticmethod(shells.fish)


if __name__ == "__main__":
    sys.exit(unittest.main())
