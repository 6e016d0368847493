"""Installs into a folder of its own, as from a checkout, and runs what is there."""

import json
import os
import pathlib
import stat
import subprocess
import sys
import tempfile
import unittest

from places import APP_ID, BUILD, at_home, run


class Installation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="kelmar-install-")
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.prefix = cls.folder / "prefix"
        run("cmake", "--install", BUILD, "--prefix", cls.prefix)
        cls.environment = at_home(cls.folder)

    def program(self, name):
        return self.prefix / "bin" / name

    def test_programs_for_people_are_in_bin_and_the_others_are_not(self):
        self.assertEqual(sorted(os.listdir(self.prefix / "bin")),
                         ["kelmar-planner-demo", "kelmar-widgetctl", "kelmar-widgets"])
        self.assertEqual(sorted(os.listdir(self.prefix / "libexec/kelmar-widgets")),
                         ["kelmar-planner.extension", "kelmar-widgets-extension",
                          "kelmar-widgets-gio.so"])

    def test_every_shell_finds_its_completions(self):
        for folder, files in (
                ("bash-completion/completions", ["kelmar-widgetctl", "kelmar-widgets"]),
                ("fish/vendor_completions.d", ["kelmar-widgetctl.fish", "kelmar-widgets.fish"]),
                ("zsh/site-functions", ["_kelmar-widgetctl", "_kelmar-widgets"])):
            self.assertEqual(sorted(os.listdir(self.prefix / "share" / folder)), files)

    def test_host_finds_its_extension_and_draws_what_it_says(self):
        picture = self.folder / "desktop.png"
        run(self.program("kelmar-widgets"), "--picture", picture, env=self.environment)
        self.assertEqual(picture.read_bytes()[:8], b"\x89PNG\r\n\x1a\n")

    def test_moved_installation_still_finds_itself(self):
        moved = self.folder / "moved"
        self.prefix.rename(moved)
        self.addCleanup(moved.rename, self.prefix)
        run(moved / "bin/kelmar-widgets", "--picture", self.folder / "moved.png",
            env=self.environment)
        self.assertTrue((self.folder / "moved.png").exists())

    def test_extension_and_tool_find_the_catalogues(self):
        german = {**self.environment, "LANG": "de_DE.UTF-8", "LANGUAGE": "de"}
        listed = json.loads(run(self.program("kelmar-widgetctl"), "--json", "list", env=german))
        self.assertEqual(listed[0]["displayName"], "Heute fällig")
        question = {"jsonrpc": "2.0", "id": 1, "method": "initialize",
                    "params": {"protocol": 1, "systemVersion": "26.0.0"}}
        answer = run(self.prefix / "libexec/kelmar-widgets/kelmar-widgets-extension", env=german,
                     input=json.dumps(question) + "\n")
        self.assertEqual(json.loads(answer)["result"]["widgets"][0]["displayName"],
                         "Heute fällig")

    def test_start_at_login_shows_nothing_to_those_who_have_no_widgets(self):
        run(self.program("kelmar-widgets"), "--if-arranged", env=self.environment, timeout=60)
        # With an arrangement it goes on, here as far as to the display that is missing.
        arrangement = pathlib.Path(self.environment["HOME"],
                                   ".config/kelmar-widgets/arrangement.json")
        arrangement.parent.mkdir(parents=True)
        arrangement.write_text("{}")
        self.addCleanup(arrangement.unlink)
        started = subprocess.run([self.program("kelmar-widgets"), "--if-arranged"],
                                 env={**self.environment, "QT_QPA_PLATFORM": "xcb"},
                                 capture_output=True, text=True, check=False, timeout=60)
        self.assertEqual((started.returncode, started.stderr),
                         (1, "There is no X display to put widgets on.\n"))

    def test_bus_starts_the_program_that_is_installed(self):
        service = (self.prefix / f"share/dbus-1/services/{APP_ID}.service").read_text()
        self.assertIn(f"\nName={APP_ID}\n", service)
        self.assertIn(f"\nExec={self.prefix}/bin/kelmar-widgets --if-arranged\n", service)

    def test_pictures_of_the_icon_have_the_size_of_their_folder(self):
        for size in (48, 128):
            icon = self.prefix / f"share/icons/hicolor/{size}x{size}/apps/{APP_ID}.png"
            self.assertEqual(run("identify", "-format", "%wx%h", icon), f"{size}x{size}")
            self.assertGreater(int(run("identify", "-format", "%k", icon)), 50, "colours")

    def test_nothing_can_be_written_by_others(self):
        files = [path for path in self.prefix.rglob("*") if path.is_file()]
        self.assertGreater(len(files), 15)
        for path in files:
            self.assertFalse(path.stat().st_mode & (stat.S_IWGRP | stat.S_IWOTH), path)


if __name__ == "__main__":
    sys.exit(unittest.main())
