"""Where the tests of this folder find things, and programs run with a home folder of their own."""

import os
import pathlib
import pwd
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging"
BUILD = pathlib.Path(os.environ["KELMAR_BUILD"])
BIN = BUILD / "bin"
APP_ID = "com.kelmarplanner.Widgets"


def run(*words, **options):
    """What a program prints; fails with what it complains about."""
    result = subprocess.run([str(word) for word in words], capture_output=True, text=True,
                            check=False, **options)
    if result.returncode != 0:
        raise AssertionError(f"{words} ended with {result.returncode}: "
                             f"{result.stdout}{result.stderr}")
    return result.stdout


def at_home(folder):
    """An environment in which a folder is the user's home, also in the account database."""
    account = pwd.getpwuid(os.getuid())
    home = folder / "home"
    home.mkdir()
    (folder / "passwd").write_text(
        f"{account.pw_name}:x:{account.pw_uid}:{account.pw_gid}:Student:{home}:/bin/sh\n")
    (folder / "group").write_text(f"students:x:{account.pw_gid}:\n")
    return {"PATH": os.environ["PATH"], "HOME": str(home), "LANG": "C.UTF-8",
            "LD_PRELOAD": "libnss_wrapper.so", "NSS_WRAPPER_PASSWD": str(folder / "passwd"),
            "NSS_WRAPPER_GROUP": str(folder / "group"), "QT_QPA_PLATFORM": "offscreen",
            # The sanitizers' runtime would insist on being loaded before the account wrapper.
            "ASAN_OPTIONS": "verify_asan_link_order=0:detect_leaks=0"}
