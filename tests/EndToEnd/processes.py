"""Starting programs for a test, and ending them for certain."""

import os
import signal
import subprocess
import time

# After this a test gives up, in seconds: far beyond what anything takes on a busy machine.
GIVE_UP_TIME = 60.0


class Processes:
    """The programs of one test, each in a process group of its own so that whatever it starts
    itself (a window manager's helpers, a widget extension) ends with it."""

    def __init__(self, log_folder):
        self._log_folder = log_folder
        self._running = []

    def start(self, name, command, environment, **options):
        log = open(os.path.join(self._log_folder, name + ".log"), "ab")
        with log:
            process = subprocess.Popen(command, env=environment, stderr=log,
                                       start_new_session=True,
                                       **{"stdin": subprocess.DEVNULL, "stdout": log, **options})
        self._running.append(process)
        return process

    def log_of(self, name):
        path = os.path.join(self._log_folder, name + ".log")
        with open(path, encoding="utf-8", errors="replace") as log:
            return log.read()

    def logs(self):
        """What every program has said, with its name before it."""
        for name in sorted(os.listdir(self._log_folder)):
            said = self.log_of(name.removesuffix(".log"))
            if said:
                yield f"{name}:\n{said}"

    def end(self, process, first_signal=signal.SIGTERM):
        """Ends a program and its group; returns its exit status."""
        if process.poll() is None:
            process.send_signal(first_signal)
            try:
                process.wait(GIVE_UP_TIME)
            except subprocess.TimeoutExpired:
                pass
        self._kill_group(process)
        process.wait(GIVE_UP_TIME)
        for stream in (process.stdin, process.stdout):
            if stream:
                stream.close()
        if process in self._running:
            self._running.remove(process)
        return process.returncode

    def end_all(self):
        for process in reversed(list(self._running)):
            self.end(process)

    @staticmethod
    def _kill_group(process):
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass


def children_of(pid):
    """The direct children of a process."""
    with open(f"/proc/{pid}/task/{pid}/children", encoding="ascii") as children:
        return [int(child) for child in children.read().split()]


def loads(pid, library):
    """Whether a process has a library in its memory."""
    with open(f"/proc/{pid}/maps", encoding="utf-8") as maps:
        return library in maps.read()


def switches_by_thread(pid):
    """How often each thread of a process has been given the processor."""
    switches = {}
    for thread in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{thread}/status", encoding="ascii") as status:
            switches[thread] = sum(int(line.split()[1]) for line in status
                                   if line.startswith("voluntary_ctxt_switches"))
    return switches


def context_switches(pid):
    """How often a process has been given the processor, over all its threads."""
    return sum(switches_by_thread(pid).values())


def wait_for_sleep(pid, seconds=3):
    """Until a process has slept for some seconds: what was going on in it is over then, such as a
    timer that would have killed an extension."""
    def has_slept():
        before = context_switches(pid)
        time.sleep(seconds)
        return context_switches(pid) == before
    wait_until(has_slept, f"process {pid} to come to rest")


def kill_children_of(pid):
    """Those that have not ended by themselves in the meantime."""
    for child in children_of(pid):
        try:
            os.kill(child, signal.SIGKILL)
        except ProcessLookupError:
            pass


def wait_until(condition, what, seconds=GIVE_UP_TIME):
    """Polls until the condition holds and returns what it gave; fails with `what` otherwise."""
    deadline = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {seconds:g} seconds in vain: {what}")
        time.sleep(0.05)
