"""Prints the test cases of the modules named, one a line, for ctest to run each on its own."""

import sys
import unittest


def cases(suite):
    for item in suite:
        if isinstance(item, unittest.TestSuite):
            yield from cases(item)
        else:
            yield item.id()


if __name__ == "__main__":
    found = sorted(cases(unittest.defaultTestLoader.loadTestsFromNames(sys.argv[1:])))
    failed = [case for case in found if case.startswith("unittest.loader")]
    if failed:
        sys.exit(f"cannot be loaded: {failed}")
    print("\n".join(found))
