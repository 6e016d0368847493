"""Holds the include rules of the layers: includes run downwards only, and Qt stays where it is drawn
or hosted with."""

import pathlib
import re
import sys
import unittest

SOURCES = pathlib.Path(__file__).resolve().parents[2] / "src"

# For every layer the layers that it may include, itself aside.
MAY_INCLUDE = {
    "System": set(),
    "Shared": {"System"},
    "Kit": {"System"},
    "Widget": {"System", "Shared", "Kit"},
    "Layout": {"System", "Kit"},
    "Paint": {"System", "Kit", "Layout"},
    "Host": {"System", "Kit"},
    "Desktop": {"System", "Kit", "Layout", "Paint", "Host"},
    "DemoPlanner": {"System", "Shared"},
    "Tools": {"System", "Shared", "Kit", "Widget", "Layout", "Paint", "Host", "Desktop"},
}
WITH_QT = {"Paint", "Host", "Desktop", "DemoPlanner", "Tools"}

OWN_INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"/]+)/[^"]+"', re.MULTILINE)
ANY_INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)


def sources(layer, root=SOURCES):
    return sorted(path for path in (root / layer).iterdir() if path.suffix in {".h", ".cpp"})


def faults(layer, text):
    """What a source of a layer includes against the rules."""
    found = []
    for included in OWN_INCLUDE.findall(text):
        if included != layer and included not in MAY_INCLUDE[layer]:
            found.append(f"includes {included}")
    if layer not in WITH_QT:
        for included in ANY_INCLUDE.findall(text):
            if re.match(r"Qt?[A-Z]", included) or included.startswith("Qt"):
                found.append(f"includes Qt ({included})")
    return found


class Layers(unittest.TestCase):
    def test_every_folder_is_a_known_layer(self):
        folders = {path.name for path in SOURCES.iterdir() if path.is_dir()}
        self.assertEqual(folders, set(MAY_INCLUDE))

    def test_includes_run_downwards_only(self):
        seen = 0
        for layer in MAY_INCLUDE:
            for path in sources(layer):
                seen += 1
                self.assertEqual(faults(layer, path.read_text()), [], path.relative_to(SOURCES))
        self.assertGreater(seen, 100)

    def test_the_rules_form_no_circle(self):
        for layer, below in MAY_INCLUDE.items():
            for lower in below:
                self.assertNotIn(layer, MAY_INCLUDE[lower], f"{layer} and {lower}")

    def test_what_would_break_them_is_found(self):
        self.assertEqual(faults("Kit", '#include "Shared/WidgetData.h"\n'), ["includes Shared"])
        self.assertEqual(faults("Desktop", '#include "Widget/Links.h"\n'), ["includes Widget"])
        self.assertEqual(faults("Widget", "#include <QString>\n"), ["includes Qt (QString)"])
        self.assertEqual(faults("Layout", "# include <QtCore/QString>\n"),
                         ["includes Qt (QtCore/QString)"])
        self.assertEqual(faults("Host", '#include <QObject>\n#include "Kit/View.h"\n'), [])


if __name__ == "__main__":
    sys.exit(unittest.main())
