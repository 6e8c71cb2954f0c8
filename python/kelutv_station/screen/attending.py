"""Attending a run: with the operator's screen, or with a line a result where there is no terminal."""

from __future__ import annotations

import sys
import threading

from kelutv_station.plan.plan import Plan
from kelutv_station.report.lines import result_line
from kelutv_station.run.questions import Question, Questions
from kelutv_station.run.results import Result
from kelutv_station.run.station import Station
from kelutv_station.saying import say
from kelutv_station.screen.drawing import View, drawing
from kelutv_station.screen.terminal import Terminal

TICK = 0.25


class Lines:
    """Prints each result."""

    def __init__(self) -> None:
        self._lock = threading.Lock()

    def report(self, result: Result) -> None:
        """Prints a result; from any thread."""
        with self._lock:
            say(result_line(result), sys.stdout)

    def questions_changed(self) -> None:
        """Nobody is asked where nobody can answer."""

    def attend(self, station: Station, plan: Plan, questions: Questions) -> None:
        """Waits for the end of the run."""
        with station:
            while not station.wait(TICK):
                pass


class Screen:
    """Shows the units and puts their questions to the operator."""

    def __init__(self) -> None:
        self._terminal = Terminal()
        self._latest: Result | None = None
        self._selected: Question | None = None
        self._drawn: Question | None = None
        self._stopping = False

    def report(self, result: Result) -> None:
        """Shows a result; from any thread."""
        self._latest = result
        self._terminal.wake()

    def questions_changed(self) -> None:
        """Shows other questions; from any thread."""
        self._terminal.wake()

    def attend(self, station: Station, plan: Plan, questions: Questions) -> None:
        """Draws and takes keys until the run ends."""
        with self._terminal, station:
            while not station.wait(0):
                self._select(questions.waiting)
                if self._selected != self._drawn:
                    self._drop_keys(station)
                self._terminal.draw(drawing(self._view(station, plan, questions), *self._terminal.size))
                self._drawn = self._selected
                for key in self._terminal.keys(TICK):
                    self._press(key, station, questions)

    def _drop_keys(self, station: Station) -> None:
        """What was pressed before a question is there answers none; it can only stop the station."""
        if "q" in self._terminal.keys(0):
            self._stop(station)

    def _stop(self, station: Station) -> None:
        self._stopping = True
        station.stop()

    def _select(self, waiting: list[Question]) -> None:
        if self._selected not in waiting:
            self._selected = waiting[0] if waiting else None

    def _view(self, station: Station, plan: Plan, questions: Questions) -> View:
        units = [(unit.serial, station.status(unit)) for unit in plan.units]
        return View(plan.title, len(plan.steps), units, questions.waiting, self._selected, self._latest, self._stopping)

    def _press(self, key: str, station: Station, questions: Questions) -> None:
        if key == "q":
            self._stop(station)
        elif key == "\t":
            waiting = questions.waiting
            if self._selected in waiting:
                self._selected = waiting[(waiting.index(self._selected) + 1) % len(waiting)]
        elif self._selected and self._selected == self._drawn and key in dict(self._selected.answers):
            questions.answer(self._selected, key)
            self._select(questions.waiting)


def has_terminal() -> bool:
    """Whether somebody can see the screen and press keys."""
    return sys.stdin.isatty() and sys.stdout.isatty()
