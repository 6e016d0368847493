"""Holds the formatting of every C++ source to .clang-format."""

import pathlib
import shutil
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class Format(unittest.TestCase):
    def test_every_source_is_formatted(self):
        tool = shutil.which("clang-format-14")
        self.assertIsNotNone(tool, "clang-format-14 is not installed")
        files = sorted(str(path) for folder in ("src", "tests", "benchmarks", "fuzz")
                       for path in (ROOT / folder).rglob("*")
                       if path.suffix in {".h", ".cpp"})
        self.assertGreater(len(files), 200)
        result = subprocess.run([tool, "--dry-run", "--Werror", *files], capture_output=True,
                                text=True, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)


if __name__ == "__main__":
    sys.exit(unittest.main())
