"""The pictures that the command line draws, to compare the desktop's with."""

import os
import subprocess
import tempfile

from picture import Picture
from session import binary


def rendered(session, kind, family, now=None, options=()):
    """A widget as the command line draws it from the same files; `now` in seconds since 1970,
    `options` those of the command line."""
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "widget.png")
        moment = [] if now is None else ["--now", str(now)]
        subprocess.run(
            [binary("kelmar-widgetctl"), "render", kind, "--family", family,
             "--home", session.home, "-o", path, *moment, *options],
            env={**session.environment, "QT_QPA_PLATFORM": "offscreen"}, check=True)
        return Picture.of_file(path)
