#!/usr/bin/env python3
"""The whole program on a desktop, beside a bare Qt program with four plain windows, the same with
nothing but texts in them, and four windows of conky, all in one run: start, memory, wakeups, from a
press to the new picture, and what is left of memory after many reloads, galleries and days.

Usage: desktop_bench.py BUILD_FOLDER [SECONDS]; SECONDS is how long wakeups are counted, 60 if absent.
"""

import ctypes
import json
import mmap
import os
import signal
import statistics
import subprocess
import sys
import time
from types import SimpleNamespace

HERE = os.path.dirname(os.path.abspath(__file__))
BUILD = os.path.abspath(sys.argv[1])
SECONDS = float(sys.argv[2]) if len(sys.argv) > 2 else 60.0
os.environ["KELMAR_BIN"] = os.path.join(BUILD, "bin")
sys.path.insert(0, os.path.join(HERE, "..", "tests", "EndToEnd"))

from planner import FIRST_TICK, DueToday, PlannerFolder, item, snapshot  # noqa: E402
from processes import children_of, switches_by_thread, wait_until  # noqa: E402
from session import SCREEN_SIZE, Session, binary  # noqa: E402

STARTS = 15
PRESSES = 40
DAYS = 30
MONTH_SECONDS = 60
WIDGET_HEIGHT = 170

# Colours that nothing else on the screen has, one for each widget.
DUE_COLOR = "#d0104f"
BLOCK_COLOR = "#12a0c8"
TIMER_COLOR = "#7a1fd0"
PLAIN_COLORS = ["#d01050", "#12a0c9", "#7a1fd1", "#ff9502"]

CONKY_CONFIGURATION = """
conky.config = {{
    alignment = 'top_left', gap_x = {x}, gap_y = {y},
    minimum_width = 364, minimum_height = 170, maximum_width = 364,
    own_window = true, own_window_type = 'desktop', own_window_argb_visual = false,
    own_window_transparent = false, own_window_colour = '{color}',
    own_window_hints = 'undecorated,below,sticky,skip_taskbar,skip_pager',
    double_buffer = true, update_interval = {interval}, use_xft = true, font = 'Inter:size=12',
}}
conky.text = [[{text}]]
"""
CONKY_TEXTS = ["Due Today\n2 due\nChapter 3 questions\nLab report", "Schedule\nAP Biology\nHistory",
               "Study Timer\n{clock}\nBiology", "Streak\n12 days"]


class Pointer:
    """Presses through XTest from within this process: a program started for each press would take
    longer than what is measured."""

    def __init__(self, display):
        self._xlib = ctypes.CDLL("libX11.so.6")
        self._xtest = ctypes.CDLL("libXtst.so.6")
        self._xlib.XOpenDisplay.restype = ctypes.c_void_p
        self._display = ctypes.c_void_p(self._xlib.XOpenDisplay(display.encode()))

    def move(self, x, y):
        self._xtest.XTestFakeMotionEvent(self._display, -1, x, y, ctypes.c_ulong(0))
        self._xlib.XFlush(self._display)

    def click(self):
        for pressed in (1, 0):
            self._xtest.XTestFakeButtonEvent(self._display, 1, pressed, ctypes.c_ulong(0))
        self._xlib.XFlush(self._display)


def bytes_of(color):
    return bytes(int(color[start:start + 2], 16) for start in (5, 3, 1))


class Framebuffer:
    """The screen's pixels as the X server keeps them, so that looking costs the server nothing.
    Looking over all of them takes milliseconds of processor time, which would be missing where the
    time of others is measured: whoever measures looks at the few that matter."""

    def __init__(self, folder):
        file = open(os.path.join(folder, "Xvfb_screen0"), "rb")
        with file:
            self._memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)

    def place_of(self, color):
        """Where the colour first comes, or -1."""
        return self._memory.find(bytes_of(color))

    def shows(self, color):
        return self.place_of(color) >= 0

    def shows_at(self, place, color):
        return self._memory[place:place + 3] == bytes_of(color)

    def rows(self, first, count):
        """The pixels of some rows of the screen."""
        width, height = SCREEN_SIZE
        header = len(self._memory) - width * height * 4
        start = header + first * width * 4
        return self._memory[start:start + count * width * 4]


def start_session():
    session = Session()
    framebuffer_folder = os.path.join(session.folder, "framebuffer")
    os.mkdir(framebuffer_folder)
    session.x_server_options = ["-fbdir", framebuffer_folder]
    session.start()
    return session, Framebuffer(framebuffer_folder)


def publish(planner, running):
    """Something to show in every widget, in its own colour."""
    now = time.time()
    block = {"kind": "period", "start": now - 600, "end": now + 7200, "title": "AP Biology",
             "color": BLOCK_COLOR, "done": False, "assignmentId": ""}
    timer = {"state": "running" if running else "ready", "ringing": False, "total": 7200,
             "secsLeft": 7000, "isBreak": False, "className": "Biology",
             "classColor": TIMER_COLOR, "sessionTitle": "", "presets": [25, 50, 15],
             **({"endAt": now + 7000} if running else {})}
    data = snapshot(today=[item(f"item-{number}", f"Chapter {number} questions", DUE_COLOR)
                           for number in range(2)])
    data.update(schedule=[{"day": now, "labels": [], "blocks": [block]}], timer=timer,
                streak={"count": 12, "best": 21, "lastDate": time.strftime("%Y-%m-%d"), "hist": {},
                        "freezeNext": ""})
    planner.publish(data)


class Host:
    name = "kelmar-widgets"
    colors = [DUE_COLOR, BLOCK_COLOR, TIMER_COLOR]

    @staticmethod
    def start(session, interval=None, text=None):
        del interval, text
        return [session.processes.start("kelmar-widgets", [binary("kelmar-widgets")],
                                        session.environment)]


class Bare:
    name = "bare Qt program"
    colors = PLAIN_COLORS
    options = []

    @classmethod
    def start(cls, session, interval=None, text=None):
        del interval, text
        return [session.processes.start(
            "bare", [os.path.join(BUILD, "bench", "bare_desktop"), *cls.options, *PLAIN_COLORS],
            session.environment)]


class BareWithTexts(Bare):
    """How much of what widgets cost is their texts: the fonts, and Qt's way to them."""

    name = "bare Qt program with texts"
    options = ["--texts"]


class Conky:
    name = "conky, four windows"
    colors = PLAIN_COLORS

    @staticmethod
    def start(session, interval=3600, text="25:00"):
        processes = []
        for number, color in enumerate(PLAIN_COLORS):
            path = session.path_in_home(f"conky-{number}")
            with open(path, "w", encoding="utf-8") as file:
                file.write(CONKY_CONFIGURATION.format(
                    x=20 + number % 2 * 384, y=20 + number // 2 * 190, color=color[1:],
                    interval=interval,
                    text=CONKY_TEXTS[number].replace("{clock}", text)))
            processes.append(session.processes.start(f"conky-{number}", ["conky", "-c", path],
                                                     session.environment))
        return processes


def end(session, processes):
    for process in processes:
        session.processes.end(process)


def forget_arrangement(session):
    """So that every start is the first one, with one widget of every kind."""
    path = session.path_in_home(".config", "kelmar-widgets", "arrangement.json")
    if os.path.exists(path):
        os.remove(path)


def wait_for_colors(screen, colors, seconds=20.0):
    deadline = time.perf_counter() + seconds
    while not all(screen.shows(color) for color in colors):
        if time.perf_counter() > deadline:
            raise AssertionError(f"not on the screen: {[c for c in colors if not screen.shows(c)]}")
        time.sleep(0.01)


def wait_for_no_colors(screen, colors):
    wait_until(lambda: not any(screen.shows(color) for color in colors), "a bare screen")


def places_of_colors(session, screen, program):
    """Where a program's windows are known by their colours; they come to lie there every time."""
    forget_arrangement(session)
    wait_for_no_colors(screen, program.colors)
    processes = program.start(session)
    wait_for_colors(screen, program.colors)
    wait_until_idle(processes)
    places = {color: screen.place_of(color) for color in program.colors}
    end(session, processes)
    return places


def start_time(session, screen, program, places):
    """Milliseconds from the start of the programs until every window has been painted."""
    forget_arrangement(session)
    wait_for_no_colors(screen, program.colors)
    before = time.perf_counter()
    processes = program.start(session)
    while not all(screen.shows_at(place, color) for color, place in places.items()):
        if time.perf_counter() > before + 20:
            raise AssertionError(f"{program.name} has not painted all its windows")
        time.sleep(0.0002)
    taken = 1000 * (time.perf_counter() - before)
    end(session, processes)
    return taken


def memory(processes):
    """Kilobytes resident, proportional, private, and of no file, of all processes together."""
    sums = {"Rss": 0, "Pss": 0, "Private": 0, "Anonymous": 0}
    for process in processes:
        with open(f"/proc/{process.pid}/smaps_rollup", encoding="ascii") as file:
            for line in file:
                key = line.split(":")[0].split("_")[0]
                if key in sums and line.split(":")[0] in ("Rss", "Pss", "Private_Clean",
                                                          "Private_Dirty", "Anonymous"):
                    sums[key] += int(line.split()[1])
    return sums


def wakeups(processes):
    """Of the threads that were there all the time: one that ends takes its count with it."""
    before = [switches_by_thread(process.pid) for process in processes]
    time.sleep(SECONDS)
    return sum(count - earlier[thread]
               for process, earlier in zip(processes, before)
               for thread, count in switches_by_thread(process.pid).items() if thread in earlier)


def wait_until_idle(processes):
    """The extension goes after two idle seconds; what its going leaves behind passes as well."""
    wait_until(lambda: not any(children_of(process.pid) for process in processes), "idleness", 30)
    time.sleep(3)


def percentile(values, share):
    return sorted(values)[min(len(values) - 1, int(share * len(values)))]


def row(name, *figures):
    print(f"  {name:<34}" + "".join(f"{figure:>16}" for figure in figures), flush=True)


def measure_start(session, screen):
    print(f"Start to four painted windows, median of {STARTS}, ms")
    times = {Host: [], Bare: [], BareWithTexts: [], Conky: []}
    places = {program: places_of_colors(session, screen, program) for program in times}
    for _ in range(STARTS):
        for program, taken in times.items():
            taken.append(start_time(session, screen, program, places[program]))
    bare = statistics.median(times[Bare])
    for program, taken in times.items():
        median = statistics.median(taken)
        row(program.name, f"{median:.0f}", f"{median / bare:.2f} x bare")


def measure_memory(session, screen):
    print("Memory at rest, MB: resident, proportional, private, of no file")
    bare = None
    for program in (Bare, BareWithTexts, Host, Conky):
        forget_arrangement(session)
        processes = program.start(session)
        wait_for_colors(screen, program.colors)
        wait_until_idle(processes)
        sums = memory(processes)
        bare = bare or sums
        row(program.name, *(f"{sums[key] / 1024:.1f} ({sums[key] / bare[key]:.2f} x)"
                            for key in sums))
        end(session, processes)
        wait_for_no_colors(screen, program.colors)


def measure_wakeups(session, screen, planner):
    print(f"Wakeups in {SECONDS:.0f} s")
    for name, running in (("kelmar-widgets, nothing running", False),
                          ("kelmar-widgets, a countdown", True)):
        publish(planner, running)
        forget_arrangement(session)
        processes = Host.start(session)
        wait_for_colors(screen, Host.colors)
        wait_until_idle(processes)
        row(name, wakeups(processes))
        end(session, processes)
        wait_for_no_colors(screen, Host.colors)
    processes = Conky.start(session, interval=1, text="${time %M:%S}")
    wait_for_colors(screen, Conky.colors)
    time.sleep(3)
    row("conky, the same texts once a second", wakeups(processes))
    end(session, processes)


def press_times(session, screen, pointer, planner, name, pause):
    """Milliseconds from the end of a press on a tick until the screen shows some of what follows,
    the extension having been left alone for `pause` seconds before each."""
    colors = [f"#{0x20 + number:02x}f0{0x90 + number:02x}" for number in range(PRESSES)]
    planner.publish(snapshot(today=[item(f"{name}-{number}", f"Chapter {number}", color)
                                    for number, color in enumerate(colors)]))
    forget_arrangement(session)
    widget = DueToday(session)
    process = widget.start()
    x, y = widget.place()
    pointer.move(x + FIRST_TICK[0], y + FIRST_TICK[1])
    times = []
    for color in colors:
        wait_for_colors(screen, [color])
        time.sleep(pause)
        pixels = screen.rows(y, WIDGET_HEIGHT)
        before = time.perf_counter()
        pointer.click()
        while screen.rows(y, WIDGET_HEIGHT) == pixels:
            if time.perf_counter() > before + 5:
                raise AssertionError("the press has not been answered")
            time.sleep(0.0002)
        times.append(1000 * (time.perf_counter() - before))
        wait_until(lambda: not screen.shows(color), "the row to have gone")
    pointer.move(0, 0)
    end(session, [process])
    wait_for_no_colors(screen, colors)
    return times


def measure_presses(session, screen, planner):
    print(f"From a press on a tick to the new picture, {PRESSES} presses, ms")
    pointer = Pointer(session.environment["DISPLAY"])

    def measure(name, pause):
        times = press_times(session, screen, pointer, planner, name, pause)
        row(name, f"median {statistics.median(times):.1f}", f"p95 {percentile(times, 0.95):.1f}")

    measure("without a program for the link", 0.5)
    session.register_recording_planner()
    measure("with its start", 0.5)
    measure("with the extension's start as well", 3.0)


def call(session, method):
    subprocess.run(["dbus-send", "--session", "--print-reply", "--dest=com.kelmarplanner.Widgets",
                    "/com/kelmarplanner/Widgets", "com.kelmarplanner.Widgets." + method],
                   env=session.environment, check=True, stdout=subprocess.DEVNULL)


def open_and_close_gallery(session):
    call(session, "ShowGallery")
    window = wait_until(lambda: session.windows_named("Add widgets"), "the gallery")[0]
    session.press_keys_on(window, "Escape")
    wait_until(lambda: not session.windows_named("Add widgets"), "the gallery to close")


def reload_all(session):
    call(session, "ReloadAllTimelines")
    # More often than ten times a second, and several would become one.
    time.sleep(0.11)


def measure_growth(session, screen):
    print("Memory of its own in kB, before and after")
    forget_arrangement(session)
    processes = Host.start(session)
    wait_for_colors(screen, Host.colors)
    for name, step, count in (("500 reloads of all widgets", reload_all, 500),
                              ("200 openings of the gallery", open_and_close_gallery, 200)):
        # The first few fill caches and the allocator's pools.
        for _ in range(10):
            step(session)
        wait_until_idle(processes)
        before = memory(processes)["Anonymous"]
        for _ in range(count):
            step(session)
        wait_until_idle(processes)
        after = memory(processes)["Anonymous"]
        row(name, before, after, f"{after - before:+}")
    end(session, processes)


def last_reload(session):
    """When the extension was last asked for the list, by the widgets' own clock."""
    answer = subprocess.run([binary("kelmar-widgetctl"), "explain", "DueToday", "--json"],
                            env=session.environment, check=True, stdout=subprocess.PIPE)
    return json.loads(answer.stdout)[0]["widgets"][0]["lastReload"]["began"]


def measure_month(session):
    """A month of midnights, which takes a minute by another clock before all programs."""
    forget_arrangement(session)
    rate = DAYS * 86400 // MONTH_SECONDS
    process = session.processes.start(
        "faketime", ["faketime", "--exclude-monotonic", "-f", f"+0 x{rate}",
                     binary("kelmar-widgets")], session.environment)
    wait_until(lambda: session.windows_named("Due Today"), "the widgets")
    host = SimpleNamespace(pid=children_of(process.pid)[0])
    # The first days fill caches.
    time.sleep(MONTH_SECONDS / 6)
    before, began = memory([host])["Anonymous"], last_reload(session)
    time.sleep(MONTH_SECONDS)
    after, ended = memory([host])["Anonymous"], last_reload(session)
    row(f"{(ended - began) / 86400:.0f} days with their midnights", before, after,
        f"{after - before:+}")
    os.kill(host.pid, signal.SIGTERM)
    process.wait()


def main():
    session, screen = start_session()
    try:
        planner = PlannerFolder(session)
        measure_presses(session, screen, planner)
        publish(planner, running=False)
        measure_start(session, screen)
        measure_memory(session, screen)
        measure_wakeups(session, screen, planner)
        publish(planner, running=False)
        measure_growth(session, screen)
        measure_month(session)
    finally:
        session.end(reports=False)


if __name__ == "__main__":
    main()
