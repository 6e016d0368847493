"""Holds docs/*.schema.json against what the programs really say: every view of every widget in every
family and mode, and every message of a conversation with the extension."""

import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import jsonschema

ROOT = pathlib.Path(__file__).resolve().parents[2]
BIN = pathlib.Path(os.environ["KELMAR_BIN"])
NOW = "1760036400"


def schema(name):
    document = json.loads((ROOT / "docs" / name).read_text())
    jsonschema.Draft202012Validator.check_schema(document)
    return document


ARCHIVE = schema("archive.schema.json")
PROTOCOL = schema("protocol.schema.json")
STORE = {document["$id"]: document for document in (ARCHIVE, PROTOCOL)}


def validator(document, definition):
    resolver = jsonschema.RefResolver(document["$id"], document, store=STORE)
    return jsonschema.Draft202012Validator({"$ref": f"{document['$id']}#/$defs/{definition}"},
                                           resolver=resolver)


def home_with(snapshot):
    home = tempfile.TemporaryDirectory()
    folder = pathlib.Path(home.name, "Library/Application Support/Kelmar Planner/Ticked")
    folder.mkdir(parents=True)
    (folder.parent / "widget.json").write_bytes(snapshot.read_bytes())
    return home


def control_tool(home, *words):
    result = subprocess.run(
        [BIN / "kelmar-widgetctl", "--home", home, "--now", NOW, "--time-zone",
         "America/New_York", "--locale", "en_US", "--json", *words],
        capture_output=True, text=True, check=True)
    return json.loads(result.stdout)


class Archive(unittest.TestCase):
    def test_every_archive_that_was_found_good_fits(self):
        fits = validator(ARCHIVE, "drawnEntry")
        archives = sorted((ROOT / "tests/golden/expected").rglob("*.json"))
        self.assertGreater(len(archives), 20)
        for archive in archives:
            fits.validate(json.loads(archive.read_text()))

    def test_what_every_widget_shows_now_fits(self):
        fits = validator(ARCHIVE, "drawnEntry")
        with home_with(ROOT / "tests/golden/input/week.json") as home:
            for widget in control_tool(home, "list"):
                if widget["families"]:
                    fits.validate(control_tool(home, "view", widget["kind"]))

    def test_what_is_no_view_does_not_fit(self):
        fits = validator(ARCHIVE, "view")
        good = {"type": "text", "text": "x", "font": {"size": 11}}
        fits.validate(good)
        for bad in ({"type": "blink"}, {**good, "font": {}}, {**good, "text": 1},
                    {**good, "color": {"rgb": [1, 2]}}, {**good, "weight": "bold"},
                    {"type": "opacity", "value": 1}, []):
            self.assertFalse(fits.is_valid(bad), bad)


class Protocol(unittest.TestCase):
    def converse(self, requests):
        """Sends requests to the real extension and gives the messages that come back."""
        lines = "".join(json.dumps(request) + "\n" for request in requests)
        result = subprocess.run([BIN / "kelmar-widgets-extension"], input=lines,
                                capture_output=True, text=True, check=True)
        return [json.loads(line) for line in result.stdout.splitlines()]

    def request(self, number, method, **params):
        message = {"jsonrpc": "2.0", "id": number, "method": method, "params": params}
        validator(PROTOCOL, "request").validate(message)
        return message

    def test_a_conversation_with_the_extension_fits(self):
        environment = {"family": "systemSmall", "contentSize": {"width": 138, "height": 138},
                       "renderingMode": "vibrant"}
        widget = {"kind": "DueToday", "environment": environment, "isPreview": True}
        requests = [
            self.request(1, "initialize", protocol=1, systemVersion="26.0.0"),
            self.request(2, "widget/placeholder", **widget),
            self.request(3, "widget/snapshot", **widget),
            self.request(4, "widget/timeline", **widget),
            self.request(5, "intent/perform",
                         intent={"name": "UndoTickIntent", "parameters": {"id": "nobody"}}),
            {"jsonrpc": "2.0", "id": 6, "method": "nothing"},
            self.request(7, "extension/diagnose"),
        ]
        results = {1: "bundle", 2: "entry", 3: "entry", 4: "timeline", 7: "findings"}
        answers = self.converse(requests)
        self.assertEqual([answer.get("id") for answer in answers if "method" not in answer],
                         [1, 2, 3, 4, 6, 7])
        for answer in answers:
            if "method" in answer:
                validator(PROTOCOL, "request").validate(answer)
                self.assertEqual(answer["params"]["url"], "kelmarplanner://untick/nobody")
                continue
            validator(PROTOCOL, "response").validate(answer)
            if answer["id"] in results:
                validator(PROTOCOL, results[answer["id"]]).validate(answer["result"])


if __name__ == "__main__":
    sys.exit(unittest.main())
