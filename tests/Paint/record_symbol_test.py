"""Runs the program with which the build records the symbols: what it cannot record must end the
build with a line that names the file."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

RECORDER = os.environ["KELMAR_RECORD_SYMBOL"]
# One black pixel.
PICTURE = ("data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABAQAAAAA3bvkkAAAACklEQVR4nGNgAAAAAgAB"
           "SK+kcQAAAABJRU5ErkJggg==")


def svg(content):
    return ('<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
            f'viewBox="0 0 24 24" fill="none" stroke="#000">{content}</svg>')


class Recording(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kelmar-symbol-")
        self.addCleanup(folder.cleanup)
        self.file = pathlib.Path(folder.name) / "symbol.svg"
        self.drawing = pathlib.Path(folder.name) / "symbol"

    def record(self, content, drawing=None):
        if content is not None:
            self.file.write_text(content)
        return subprocess.run([RECORDER, self.file, drawing or self.drawing], capture_output=True,
                              text=True, timeout=60, check=False)

    def test_paths_shapes_and_turned_groups_are_recorded(self):
        for content in ('<path d="M3 3 L9 20 C1 2 3 4 5 6"/>', '<circle cx="12" cy="13" r="7"/>',
                        '<rect fill="#fff" stroke="none" x="3" y="4" width="9" height="9" rx="2"/>',
                        '<polyline points="1,1 5,9 20,9"/>', '<polygon points="1,1 5,9 20,9"/>',
                        '<g transform="rotate(60 12 12)"><path stroke-width="3" d="M1 1 L5 9"/></g>'):
            with self.subTest(content):
                result = self.record(svg(content))
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertGreater(self.drawing.stat().st_size, 100)
                self.drawing.unlink()

    def test_what_cannot_be_recorded_is_named(self):
        line = '<path d="M1 1 L5 9"/>'
        for content, why in ((None, "cannot be read as SVG"),
                             ("", "cannot be read as SVG"),
                             ("<svg><path", "cannot be read as SVG"),
                             ("[1, 2]", "cannot be read as SVG"),
                             (svg(""), "draws nothing"),
                             (svg(f'<g opacity="0.5">{line}</g>'), "looks different"),
                             (svg(f'{line}<image width="9" height="9" xlink:href="{PICTURE}"/>'),
                              "looks different")):
            with self.subTest(content):
                result = self.record(content)
                self.assertEqual(result.returncode, 1)
                self.assertIn(f"{self.file} {why}", result.stderr.splitlines()[-1])
                self.assertFalse(self.drawing.exists())

    def test_a_drawing_that_cannot_be_written_is_named(self):
        nowhere = self.drawing / "symbol"
        result = self.record(svg('<circle cx="12" cy="13" r="7"/>'), nowhere)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, f"{nowhere} cannot be written\n")

    def test_other_words_are_answered_with_the_usage(self):
        result = subprocess.run([RECORDER, self.file], capture_output=True, text=True, timeout=60,
                                check=False)
        self.assertEqual(result.returncode, 2)
        self.assertIn("Usage: ", result.stderr)


if __name__ == "__main__":
    sys.exit(unittest.main())
