"""A desktop session of its own for one test: X server, window manager, session bus, home folder
and a planner that is registered for the widgets' links. Nothing of it outlives the test."""

import os
import pwd
import shutil
import stat
import subprocess
import tempfile
import time

from processes import Processes, wait_until
from screen import Screen

BIN_FOLDER = os.environ.get("KELMAR_BIN", "")
SCREEN_SIZE = (1280, 800)
OUTPUT = "screen"  # the X server's only one
WALLPAPER = (0x3B, 0x5B, 0x7A)
PLAIN_COLOR = (0xC0, 0xFF, 0xEE)

BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir={folder}</listen>
  <servicedir>{folder}/services</servicedir>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

# The font that the command line draws pictures with, so that both can be compared.
FONT_CONFIGURATION = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <alias binding="strong">
    <family>sans-serif</family>
    <prefer><family>Inter</family></prefer>
  </alias>
</fontconfig>
"""

RECORDING_PLANNER = """#!/bin/sh
printf '%s\\n' "$1" >> '{record}'
printf '%s\\n' "$DESKTOP_STARTUP_ID" >> '{record}.startup-ids'
env > '{record}.environment.new'
mv '{record}.environment.new' '{record}.environment'
"""

DESKTOP_ENTRY = """[Desktop Entry]
Type=Application
Name=Recording Planner
Exec={program} %u
NoDisplay=true
StartupNotify=true
MimeType=x-scheme-handler/{scheme};
"""


def binary(name):
    path = os.path.join(BIN_FOLDER, name)
    if not BIN_FOLDER or not os.access(path, os.X_OK):
        raise AssertionError(f"{name} has not been built in KELMAR_BIN ({BIN_FOLDER!r})")
    return path


def is_sanitized():
    """Whether the programs were built with the address sanitizer."""
    with open(binary("kelmar-widgets-extension"), "rb") as program:
        return b"__asan_init" in program.read()


class Session:
    """Use as `session = Session(); test.addCleanup(session.end)`, then `start()`."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="kelmar-e2e-")
        self.home = self._make_folder("home")
        self.processes = Processes(self._make_folder("logs"))
        self.environment = {}
        self.screen = None
        self.x_server_options = []

    def start(self, without=()):
        """`without` names what this session lacks: "bus", "window manager"."""
        self.environment = self._base_environment()
        self.write_in_home(".config/fontconfig/fonts.conf", FONT_CONFIGURATION)
        self._start_x_server()
        if "bus" not in without:
            self._start_session_bus()
        if "window manager" not in without:
            self.processes.start("openbox", ["openbox", "--sm-disable"], self.environment)
            # It says that it is there while it is starting. What others ask of it then may lie
            # unread until something else happens.
            wait_until(self.screen.has_responsive_window_manager, "a window manager")
        subprocess.run(["xsetroot", "-solid", "#%02x%02x%02x" % WALLPAPER], env=self.environment,
                       check=True)

    def start_accessibility_bus(self):
        """What a desktop starts for screen readers, on a bus of their own."""
        self.processes.start("at-spi-bus-launcher",
                             ["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
                             self.environment)
        wait_until(self._has_accessibility_bus, "the accessibility bus")

    def end(self, reports=True):
        """Reports what was to be seen and what the programs have said: ctest shows it of tests that
        fail."""
        if self.screen:
            if reports:
                print("Windows:", *(window for window in self.screen.windows() if window.name),
                      sep="\n  ")
            self.screen.close()
        self.processes.end_all()
        if reports:
            print(*self.processes.logs(), sep="\n")
        shutil.rmtree(self.folder, ignore_errors=True)

    # Home folder -----------------------------------------------------------------------------

    def path_in_home(self, *parts):
        return os.path.join(self.home, *parts)

    def write_in_home(self, path, text):
        """Replaces a file as a careful program does: never half of it to be seen."""
        target = self.path_in_home(path)
        os.makedirs(os.path.dirname(target), exist_ok=True)
        with open(target + ".new", "w", encoding="utf-8") as file:
            file.write(text)
        os.replace(target + ".new", target)

    # The planner that records -----------------------------------------------------------------

    def register_recording_planner(self, scheme="kelmarplanner"):
        """Registers a program for a scheme that only writes down what it is given."""
        program = os.path.join(self.folder, "recording-planner")
        make_program(program, RECORDING_PLANNER.format(record=self._url_record()))
        self.write_in_home(".local/share/applications/recording-planner.desktop",
                           DESKTOP_ENTRY.format(program=program, scheme=scheme))
        self.write_in_home(".config/mimeapps.list",
                           "[Default Applications]\n"
                           f"x-scheme-handler/{scheme}=recording-planner.desktop\n")

    def opened_urls(self):
        return self._recorded(self._url_record())

    def environment_of_planner(self):
        """What the program for the last opened URL found in its environment, by the names."""
        record = self._url_record() + ".environment"
        wait_until(lambda: os.path.exists(record), "the planner to have written everything down")
        return dict(line.split("=", 1) for line in self._recorded(record) if "=" in line)

    def startup_ids(self):
        """For every opened URL the identifier with which its program may come to the front."""
        wait_until(lambda: len(self._recorded(self._url_record() + ".startup-ids"))
                   == len(self.opened_urls()), "the planner to have written everything down")
        return self._recorded(self._url_record() + ".startup-ids")

    @staticmethod
    def _recorded(path):
        try:
            with open(path, encoding="utf-8") as record:
                return record.read().splitlines()
        except FileNotFoundError:
            return []

    # Pointer, keyboard and screen --------------------------------------------------------------

    def move_pointer(self, x, y):
        self._xdotool("mousemove", x, y)

    def click(self, x, y, button=1):
        self._xdotool("mousemove", x, y, "click", button)

    def drag(self, start, end):
        self.hold(start, end)
        self.release()

    def hold(self, start, end):
        """Begins a drag that `release` ends."""
        self._xdotool("mousemove", *start, "mousedown", 1)
        steps = 8
        for step in range(1, steps + 1):
            self._xdotool("mousemove", *(start[i] + (end[i] - start[i]) * step // steps
                                         for i in range(2)))

    def release(self):
        self._xdotool("mouseup", 1)

    def press_keys(self, *keys):
        self._xdotool("key", *keys)

    def property_of(self, window, name):
        return subprocess.run(["xprop", "-id", str(window), name], env=self.environment,
                              check=True, stdout=subprocess.PIPE, text=True).stdout

    def open_plain_window(self, x, y, width, height):
        """An ordinary window, for covering others and for having the keyboard, which it has then.

        It is mapped before its window manager gives it the keyboard: who went on in between
        would see it come forward in the middle of the next step.
        """
        process = self.processes.start(
            "plain-window",
            ["xmessage", "-title", "Plain Window", "-bg", "#%02x%02x%02x" % PLAIN_COLOR,
             "-geometry", f"{width}x{height}+{x}+{y}", "-buttons", "", " "], self.environment)
        window = wait_until(lambda: self.windows_named("Plain Window"), "a plain window")[-1]
        wait_until(lambda: self.active_window() == window, "the plain window to have the keyboard")
        return process

    def wait_for_menu(self):
        """Until a menu is open and has all keys sent to it."""
        wait_until(lambda: self.screen.is_keyboard_taken()
                   and any(window.is_popup and window.program == "kelmar-widgets"
                           for window in self.screen.windows()), "a menu")

    def choose_in_menu(self, *keys):
        """Presses keys of which the last one closes the open menu."""
        self.press_keys(*keys)
        wait_until(lambda: not self.screen.is_keyboard_taken(), "the menu to close")

    def press_keys_on(self, window, *keys):
        """Gives a window the keyboard, which it does not ask for, and presses keys there."""
        self._xdotool("windowfocus", "--sync", window, "key", *keys)

    def active_window(self):
        """The window that has the keyboard, as its window manager says, or None."""
        return self.screen.number_on_root("_NET_ACTIVE_WINDOW") or None

    def keyboard_owner(self):
        """The window that really has the keyboard, whatever its window manager thinks."""
        answer = subprocess.run(["xdotool", "getwindowfocus"], env=self.environment, check=False,
                                stdout=subprocess.PIPE, text=True).stdout
        return int(answer) if answer.strip() else None

    def set_resource(self, name, value):
        """An X resource, which programs read when they start."""
        subprocess.run(["xrdb", "-nocpp", "-merge"], input=f"{name}: {value}\n", text=True,
                       env=self.environment, check=True)

    def has_selection_owner(self, name):
        """Whether some program holds a selection, as system trays and compositors do."""
        return self.screen.selection_owner(name) is not None

    def settle(self):
        """Lets everything that was sent arrive: what must NOT happen can only be waited for."""
        time.sleep(0.5)

    def windows_named(self, name):
        """The visible windows of a name."""
        return [window.id for window in self.screen.windows() if window.name == name]

    def windows_of_class(self, name):
        """The visible windows of a program."""
        return [window.id for window in self.screen.windows() if window.program == name]

    def geometry_of(self, window):
        """x, y, width and height of a window on the screen."""
        for found in self.screen.windows():
            if found.id == window:
                return found.geometry
        raise AssertionError(f"window {window} is not to be seen")

    def geometries_of(self, name):
        """x, y, width and height of all visible windows of a name, in their order."""
        return sorted(window.geometry for window in self.screen.windows() if window.name == name)

    def wait_for_window(self, name):
        """The window of a name, as it then is."""
        return wait_until(lambda: self._first_window_named(name), f'the window "{name}"')

    def picture_of(self, name, area):
        """A part of a window, both as they are at the same instant: left, top, width, height."""
        def look():
            with self.screen.standing_still():
                window = self._first_window_named(name)
                return window and self.screen.picture(window.x + area[0], window.y + area[1],
                                                      *area[2:])
        return wait_until(look, f'the window "{name}"')

    def _first_window_named(self, name):
        return next((window for window in self.screen.windows() if window.name == name), None)

    def set_monitors(self, **monitors):
        """Divides the X screen into monitors, each given as (width, height, x, y); the first one
        has the real output, so that the X server makes none of its own beside them."""
        for name in self.monitor_names():
            self._xrandr("--delmonitor", name)
        output = OUTPUT
        for name, (width, height, x, y) in monitors.items():
            self._xrandr("--setmonitor", name, f"{width}/100x{height}/100+{x}+{y}", output)
            output = "none"

    def monitor_names(self):
        """Those that were set by hand."""
        lines = self._xrandr("--listmonitors").splitlines()[1:]
        return [line.split()[1].lstrip("*") for line in lines
                if not line.split()[1].startswith("+")]

    def _xrandr(self, *words):
        return subprocess.run(["xrandr", *words], env=self.environment, check=True,
                              stdout=subprocess.PIPE, text=True).stdout

    # -------------------------------------------------------------------------------------------

    def _make_folder(self, name):
        path = os.path.join(self.folder, name)
        os.mkdir(path)
        return path

    def _url_record(self):
        return os.path.join(self.folder, "opened-urls")

    def _base_environment(self):
        runtime = self._make_folder("runtime")
        os.chmod(runtime, stat.S_IRWXU)
        return {
            "PATH": os.environ["PATH"],
            "HOME": self.home,
            "LANG": "C.UTF-8",
            "TZ": "Europe/Berlin",
            "XDG_CONFIG_HOME": self.path_in_home(".config"),
            "XDG_DATA_HOME": self.path_in_home(".local", "share"),
            "XDG_CACHE_HOME": self.path_in_home(".cache"),
            "XDG_RUNTIME_DIR": runtime,
            "QT_FORCE_STDERR_LOGGING": "1",
            # The sanitizers' runtime would insist on being loaded before the account wrapper.
            "ASAN_OPTIONS": "verify_asan_link_order=0:detect_leaks=0",
            **self.account_environment(),
        }

    def account_environment(self):
        """Gives the current user the test's home folder in the account database itself."""
        account = pwd.getpwuid(os.getuid())
        passwd = os.path.join(self.folder, "passwd")
        group = os.path.join(self.folder, "group")
        with open(passwd, "w", encoding="utf-8") as file:
            file.write(f"{account.pw_name}:x:{account.pw_uid}:{account.pw_gid}:Student:"
                       f"{self.home}:/bin/sh\n")
        with open(group, "w", encoding="utf-8") as file:
            file.write(f"students:x:{account.pw_gid}:\n")
        return {"LD_PRELOAD": "libnss_wrapper.so", "NSS_WRAPPER_PASSWD": passwd,
                "NSS_WRAPPER_GROUP": group,
                # The sanitizers' runtime ends a program that loads a library in this way.
                "NSS_WRAPPER_DISABLE_DEEPBIND": "1"}

    def _start_x_server(self):
        size = "%dx%dx24" % SCREEN_SIZE
        server = self.processes.start(
            "xvfb", ["Xvfb", "-displayfd", "1", "-screen", "0", size, "-nolisten", "tcp",
                     "-noreset", *self.x_server_options],
            {"PATH": os.environ["PATH"]}, stdout=subprocess.PIPE)
        number = server.stdout.readline().decode().strip()
        if not number:
            raise AssertionError("the X server did not start: " + self.processes.log_of("xvfb"))
        self.environment["DISPLAY"] = ":" + number
        self.screen = Screen(":" + number)

    def make_startable(self, service):
        """Lets the bus start a program, as its service file says."""
        with open(os.path.join(self.folder, "services", "test.service"), "w",
                  encoding="utf-8") as file:
            file.write(service)

    def _start_session_bus(self):
        self._make_folder("services")
        configuration = os.path.join(self.folder, "bus.conf")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write(BUS_CONFIGURATION.format(folder=self.folder))
        bus = self.processes.start(
            "dbus", ["dbus-daemon", "--config-file", configuration, "--nofork", "--print-address"],
            self.environment, stdout=subprocess.PIPE)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().decode().strip()

    def _has_accessibility_bus(self):
        return subprocess.run(
            ["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
             "org.a11y.Bus.GetAddress"], env=self.environment, check=False,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

    def _xdotool(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.environment, check=True)


def make_program(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    os.chmod(path, 0o755)
