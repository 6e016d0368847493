"""The stand-in for the planner at work in a session."""

import json
import os
import subprocess

import planner
from processes import wait_until
from session import binary

STATE = planner.FOLDER + "/demo-state.json"


class StandIn:
    def __init__(self, session):
        self._session = session
        subprocess.run([binary("kelmar-planner-demo"), "--register"],
                       env=session.environment, check=True, stdout=subprocess.DEVNULL)

    def start(self):
        process = self._session.processes.start(
            "kelmar-planner-demo", [binary("kelmar-planner-demo"), "--background"],
            self._session.environment)
        wait_until(lambda: os.path.exists(self._session.path_in_home(planner.SNAPSHOT)),
                   "the planner's snapshot")
        return process

    def change_state(self, change):
        """Lets `change` alter what the planner has kept; it must not be running."""
        path = self._session.path_in_home(STATE)
        with open(path, encoding="utf-8") as file:
            state = json.load(file)
        change(state)
        with open(path, "w", encoding="utf-8") as file:
            json.dump(state, file)

    def snapshot(self):
        with open(self._session.path_in_home(planner.SNAPSHOT), encoding="utf-8") as file:
            return json.load(file)

    def timer(self):
        """The study timer as the planner has published it."""
        return self.snapshot()["timer"]

    def wait_for_timer(self, **values):
        def has_come():
            timer = self.timer()
            return all(timer.get(key) == value for key, value in values.items()) and timer
        return wait_until(has_come, f"a timer with {values} in the snapshot")
