"""Builds the Debian packages, installs them into a root folder of their own, runs what is there, and
removes them without a trace."""

import pathlib
import re
import sys
import tempfile
import unittest

from places import APP_ID, BUILD, at_home, run

FILES = {
    "kelmar-planner-widgets": [
        f"etc/xdg/autostart/{APP_ID}.desktop",
        "usr/bin/kelmar-widgetctl",
        "usr/bin/kelmar-widgets",
        "usr/libexec/kelmar-widgets/kelmar-planner.extension",
        "usr/libexec/kelmar-widgets/kelmar-widgets-extension",
        "usr/libexec/kelmar-widgets/kelmar-widgets-gio.so",
        f"usr/share/applications/{APP_ID}.desktop",
        "usr/share/bash-completion/completions/kelmar-widgetctl",
        "usr/share/bash-completion/completions/kelmar-widgets",
        f"usr/share/dbus-1/interfaces/{APP_ID}.xml",
        f"usr/share/dbus-1/services/{APP_ID}.service",
        "usr/share/doc/kelmar-planner-widgets/README.md",
        "usr/share/doc/kelmar-planner-widgets/archive.schema.json",
        "usr/share/doc/kelmar-planner-widgets/changelog.gz",
        "usr/share/doc/kelmar-planner-widgets/copyright",
        "usr/share/doc/kelmar-planner-widgets/protocol.schema.json",
        "usr/share/fish/vendor_completions.d/kelmar-widgetctl.fish",
        "usr/share/fish/vendor_completions.d/kelmar-widgets.fish",
        f"usr/share/icons/hicolor/128x128/apps/{APP_ID}.png",
        f"usr/share/icons/hicolor/48x48/apps/{APP_ID}.png",
        f"usr/share/icons/hicolor/scalable/apps/{APP_ID}.svg",
        "usr/share/locale/ar/LC_MESSAGES/kelmar-planner-widgets.mo",
        "usr/share/locale/de/LC_MESSAGES/kelmar-planner-widgets.mo",
        "usr/share/man/man1/kelmar-widgetctl.1.gz",
        "usr/share/man/man1/kelmar-widgets-extension.1.gz",
        "usr/share/man/man1/kelmar-widgets.1.gz",
        f"usr/share/metainfo/{APP_ID}.metainfo.xml",
        "usr/share/zsh/vendor-completions/_kelmar-widgetctl",
        "usr/share/zsh/vendor-completions/_kelmar-widgets",
    ],
    "kelmar-planner-demo": [
        "usr/bin/kelmar-planner-demo",
        "usr/share/applications/kelmar-planner-demo.desktop",
        "usr/share/doc/kelmar-planner-demo/changelog.gz",
        "usr/share/doc/kelmar-planner-demo/copyright",
        "usr/share/man/man1/kelmar-planner-demo.1.gz",
    ],
}


class Root:
    """A root folder with a package database of its own. To fakeroot everybody may be root."""

    def __init__(self, folder):
        self.folder = folder / "root"
        database = self.folder / "var/lib/dpkg"
        for name in ("info", "updates", "triggers"):
            (database / name).mkdir(parents=True)
        (database / "status").touch()
        (database / "available").touch()

    def dpkg(self, *words):
        # What the packages depend on is on this machine, not in that root.
        run("fakeroot", "dpkg", f"--root={self.folder}", "--log=/dev/null", "--force-depends",
            "--force-bad-path", "--force-unsafe-io", *words)

    def files(self):
        return sorted(str(path.relative_to(self.folder)) for path in self.folder.rglob("*")
                      if not path.is_dir() and "var/lib/dpkg" not in str(path))

    def folders(self):
        return sorted(str(path.relative_to(self.folder)) for path in self.folder.rglob("*")
                      if path.is_dir() and "var" not in path.parts)


class Packages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="kelmar-deb-")
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        run("cpack", "--config", BUILD / "CPackConfig.cmake", "-B", cls.folder / "packages")
        found = (cls.folder / "packages").glob("*.deb")
        cls.packages = {path.name.partition("_")[0]: path for path in found}

    def field(self, package, name):
        return run("dpkg-deb", "--field", self.packages[package], name).strip()

    def test_widgets_and_stand_in_are_packages_of_their_own(self):
        self.assertEqual(sorted(self.packages), sorted(FILES))

    def test_what_the_programs_link_is_depended_on(self):
        libraries = r"\blibqt6widgets6 \(>= .*\blibicu|\blibicu.*\blibqt6widgets6 \(>= "
        self.assertRegex(self.field("kelmar-planner-widgets", "Depends"), libraries)
        self.assertIn("libqt6widgets6", self.field("kelmar-planner-demo", "Depends"))

    def test_what_only_the_build_needs_is_not_depended_on(self):
        for package in FILES:
            self.assertNotIn("libqt6svg", self.field(package, "Depends"))

    def test_packages_introduce_themselves(self):
        for package in FILES:
            self.assertEqual(self.field(package, "Section"), "education")
            self.assertRegex(self.field(package, "Maintainer"), r"^\w.* <\S+@\S+>$")
            synopsis, *description = self.field(package, "Description").splitlines()
            self.assertRegex(synopsis, r"^[a-z].{20,70}[a-z]$")
            self.assertGreaterEqual(len(description), 3)
            for line in description:
                self.assertRegex(line, r"^ (\.|\S.*)$")

    def test_programs_are_stripped(self):
        for package in FILES:
            unpacked = self.folder / "unpacked"
            run("dpkg-deb", "--extract", self.packages[package], unpacked)
        programs = [*unpacked.glob("usr/bin/*"), *unpacked.glob("usr/libexec/*/*-extension"),
                    *unpacked.glob("usr/libexec/*/*.so")]
        self.assertEqual(len(programs), 5)
        for program in programs:
            self.assertRegex(run("file", "--brief", program), r"ELF .*, stripped$")

    def test_everything_is_installed_runs_and_is_removed_without_a_trace(self):
        root = Root(self.folder)
        before = root.folders()
        root.dpkg("--install", *self.packages.values())
        self.assertEqual(root.files(), sorted(sum(FILES.values(), [])))
        self.assert_runs(root.folder)
        root.dpkg("--purge", *self.packages)
        self.assertEqual(root.files(), [])
        self.assertEqual(root.folders(), before)

    def assert_runs(self, root):
        environment = at_home(self.folder)
        listed = run(root / "usr/bin/kelmar-widgetctl", "--locale", "de_DE", "list",
                     env=environment)
        self.assertIn("Heute fällig", listed)
        picture = self.folder / "desktop.png"
        run(root / "usr/bin/kelmar-widgets", "--picture", picture, env=environment)
        self.assertTrue(picture.exists())
        service = (root / f"usr/share/dbus-1/services/{APP_ID}.service").read_text()
        program = re.search(r"^Exec=/(\S+)", service, re.MULTILINE).group(1)
        self.assertTrue((root / program).exists(), program)


if __name__ == "__main__":
    sys.exit(unittest.main())
