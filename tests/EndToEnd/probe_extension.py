"""A widget extension for tests: three coloured fields and a text, everything asked of it written
down. In its own folder it finds and leaves these files:

    color       the background's colour as "r g b" from 0 to 1, read for every timeline; placeholders
                have a grey one, so that they cannot be mistaken for what can be pressed
    flipped     once the toggle has been pressed; it is off then
    offered     the kinds of widgets that it offers, one a line; "Probe" alone without the file
    live        what is shown besides, a name a line: "countdown", "bar", "slow bar"
    requests    one line for every request that has come, as JSON
    pid         the process id of the one that runs now
"""

import json
import os
import sys
import time


class Probe:
    def __init__(self, folder):
        self._folder = folder
        self._last_id = 0

    def serve(self):
        self._write("pid", "w", str(os.getpid()))
        for line in sys.stdin:
            message = json.loads(line)
            if "method" not in message:
                continue
            self._write("requests", "a", line)
            self._send({"id": message["id"],
                        "result": self._answer(message["method"], message.get("params", {}))})

    def _answer(self, method, parameters):
        if method == "initialize":
            return {"widgets": [
                {"kind": kind, "displayName": kind, "description": "Shows what it is told.",
                 "families": ["systemSmall", "systemMedium", "systemLarge"]}
                for kind in self._lines("offered", ["Probe"])], "controls": []}
        if method == "widget/timeline":
            return {"entries": [self._entry(parameters)], "policy": "never"}
        if method in ("widget/placeholder", "widget/snapshot"):
            return self._entry(parameters, is_placeholder=method == "widget/placeholder")
        if method == "intent/perform":
            if parameters["intent"]["name"] == "Flip":
                self._write("flipped", "w", "")
            self._open("probe://performed/" + parameters["intent"]["name"])
            return {}
        raise AssertionError(method)

    def _entry(self, parameters, is_placeholder=False):
        entry = {"date": time.time() - 1, "view": {
            "content": self._content(parameters["kind"]),
            "background": {"rgb": [0.2, 0.2, 0.2] if is_placeholder else self._color()}}}
        if parameters["environment"]["family"] == "systemSmall":
            entry["view"]["widgetUrl"] = "probe://whole"
        return entry

    def _content(self, kind):
        parts = [fields(kind, not self._has("flipped"))] + [live_thing(name) for name in self._lines("live", [])]
        return {"type": "frame", "maxWidth": "infinity", "maxHeight": "infinity",
                "alignment": "topLeading", "child":
                {"type": "vstack", "alignment": "leading", "spacing": 20, "children": parts}}

    def _lines(self, name, otherwise):
        try:
            with open(os.path.join(self._folder, name), encoding="ascii") as file:
                return file.read().splitlines()
        except FileNotFoundError:
            return otherwise

    def _has(self, name):
        return os.path.exists(os.path.join(self._folder, name))

    def _color(self):
        try:
            with open(os.path.join(self._folder, "color"), encoding="ascii") as file:
                return [float(component) for component in file.read().split()]
        except FileNotFoundError:
            return [0, 0, 1]

    def _open(self, url):
        """Asks for an opening and waits for nothing: the answer is skipped when it comes."""
        self._last_id += 1
        self._send({"id": self._last_id, "method": "app/open",
                    "params": {"url": url, "activates": False, "addsToRecentItems": False}})

    def _send(self, message):
        sys.stdout.write(json.dumps({"jsonrpc": "2.0", **message}) + "\n")
        sys.stdout.flush()

    def _write(self, name, mode, text):
        with open(os.path.join(self._folder, name), mode, encoding="utf-8") as file:
            file.write(text)


def live_thing(name):
    now = time.time()
    if name == "countdown":
        return {"type": "countdown", "from": now, "to": now + 3600,
                "font": {"size": 20}, "color": {"rgb": [1, 1, 1]}}
    return {"type": "progress", "from": now, "to": now + {"bar": 60, "slow bar": 86400}[name],
            "tint": {"rgb": [1, 1, 1]}}


def field(color):
    """40 points square."""
    return {"type": "frame", "width": 40, "height": 40, "child":
            {"type": "shape", "shape": "rectangle", "fill": {"rgb": color}}}


def fields(kind, is_on):
    """A button, a toggle and a link in a row, 20 points apart."""
    return {"type": "hstack", "spacing": 20, "children": [
        {"type": "button", "label": "Press " + kind, "child": field([1, 0, 0]),
         "intent": {"name": "Press", "parameters": {"id": "a/b", "count": 3, "on": True}}},
        {"type": "toggle", "isOn": is_on, "child":
         {"type": "accessible", "label": "Flip " + kind, "child": field([0, 1, 0])},
         "intent": {"name": "Flip", "parameters": {"value": False}}},
        {"type": "link", "url": "probe://linked", "child": field([1, 1, 0])}]}


if __name__ == "__main__":
    Probe(os.path.dirname(os.path.abspath(__file__))).serve()
