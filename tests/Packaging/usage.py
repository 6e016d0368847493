"""What the programs say of themselves when asked for help."""

import re

from places import BIN, run


def options(program, *command):
    """The long options that a program, or one of its commands, lists."""
    text = run(BIN / program, *command, "--help")
    found = set(re.findall(r"^ +(?:-\w,)?(--[a-z][a-z-]*)", text, re.MULTILINE))
    assert "--help" in found, text
    return found


def commands(program):
    """The commands that a program lists, in their order."""
    text = run(BIN / program, "--help")
    return re.findall(r"^  (\w+)", text.partition("Subcommands:")[2], re.MULTILINE)


def all_options(program):
    return options(program).union(*(options(program, command) for command in commands(program)))
