"""Programs that stand in on the session bus for what a desktop has there. Each is run by itself: it
does what it reads, one JSON value a line, and prints an answer for each.

The bindings for the bus are packages of the system, whose interpreter need not be the first one
found; so only what such a program itself runs may ask for them.
"""

import json
import os
import subprocess
import sys

SYSTEM_PYTHON = "/usr/bin/python3"


class BusDouble:
    """Such a program as a test sees it."""

    def __init__(self, session, source):
        self._session = session
        self._source = os.path.abspath(source)
        self._name = os.path.basename(source).removesuffix(".py").replace("_", "-")
        self._process = None

    def start(self):
        self._process = self._session.processes.start(
            self._name, [SYSTEM_PYTHON, self._source],
            {**self._session.environment, "PYTHONDONTWRITEBYTECODE": "1"},
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1)
        if self._process.stdout.readline() != "ready\n":
            raise AssertionError(f"{self._name} did not start: "
                                 + self._session.processes.log_of(self._name))

    def end(self):
        self._session.processes.end(self._process)

    def ask(self, command):
        self._process.stdin.write(json.dumps(command) + "\n")
        line = self._process.stdout.readline()
        if not line:
            raise AssertionError(f"{self._name} has ended: "
                                 + self._session.processes.log_of(self._name))
        return json.loads(line)


def obey(answer):
    """In such a program: answers commands until there are no more. An answer that cannot be given
    ends the program, whose log then says why."""
    from gi.repository import GLib

    loop = GLib.MainLoop()
    failure = []

    def take(_stream, _condition):
        line = sys.stdin.readline()
        try:
            if line:
                print(json.dumps(answer(json.loads(line))), flush=True)
                return True
        except Exception as error:  # Whatever it is, GLib would go on without an answer.
            failure.append(error)
        loop.quit()
        return False

    GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN | GLib.IO_HUP, take)
    print("ready", flush=True)
    loop.run()
    if failure:
        raise failure[0]
