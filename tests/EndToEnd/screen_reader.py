"""What a screen reader does, over the accessibility bus of the environment it is started in:

    screen_reader.py tree                     prints the widgets' windows with all they hold, as JSON
    screen_reader.py act WINDOW NAME ACTION   does an action on what has this name in a window
    screen_reader.py focus WINDOW NAME        gives it the keyboard
    screen_reader.py listen                   prints a line for every event until it is ended
"""

import json
import sys
import time

import pyatspi
from gi.repository import GLib

PROGRAM = "kelmar-widgets"
PATIENCE = 60.0  # seconds
EVENTS = ("object:state-changed:checked", "object:state-changed:focused",
          "object:property-change:accessible-name", "object:property-change:accessible-value")


def application():
    desktop = pyatspi.Registry.getDesktop(0)
    found = [child for child in desktop if child and child.name == PROGRAM]
    if not found:
        sys.exit(f"{PROGRAM} is not on the accessibility bus")
    return found[-1]


def described(item):
    described = {
        "name": item.name,
        "role": item.getRoleName(),
        "states": sorted(pyatspi.stateToString(state) for state in item.getState().getStates()),
        "actions": actions_of(item),
        "place": list(item.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)),
        "children": [described_child for described_child in map(described_or_none, item)
                     if described_child],
    }
    try:
        value = item.queryValue()
        described["value"] = [value.minimumValue, value.currentValue, value.maximumValue]
    except NotImplementedError:
        pass
    return described


def described_or_none(item):
    return described(item) if item else None


def actions_of(item):
    try:
        actions = item.queryAction()
    except NotImplementedError:
        return []
    return [actions.getName(index) for index in range(actions.nActions)]


def item_named(window_name, name):
    for window in application():
        if window.name == window_name:
            for item in window:
                if item and item.name == name:
                    return item
    return None


def do_with(window_name, name, do):
    """Does something with an item, once. New content may take it away between its being found and
    its being told; then there is soon another one of its name."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        try:
            item = item_named(window_name, name)
            if item and do(item):
                return
        except (GLib.Error, NotImplementedError, ValueError) as gone:
            print(gone, file=sys.stderr)
        time.sleep(0.05)
    sys.exit(f"there is no \"{name}\" in a window \"{window_name}\"")


def act(window_name, name, action):
    do_with(window_name, name,
            lambda item: item.queryAction().doAction(actions_of(item).index(action)))


def focus(window_name, name):
    do_with(window_name, name, lambda item: item.queryComponent().grabFocus())


def listen():
    def tell(event):
        if event.host_application and event.host_application.name == PROGRAM:
            print(event.type, event.detail1, event.source.name, sep="\t", flush=True)
    pyatspi.Registry.registerEventListener(tell, *EVENTS)
    print("listening", flush=True)
    pyatspi.Registry.start()


if __name__ == "__main__":
    command, *arguments = sys.argv[1:]
    if command == "tree":
        print(json.dumps([described(window) for window in application()]))
    else:
        {"act": act, "focus": focus, "listen": listen}[command](*arguments)
