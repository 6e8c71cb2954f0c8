"""Questions of units to the operator, who answers them one at a time."""

from __future__ import annotations

import threading
from collections.abc import Callable
from dataclasses import dataclass


@dataclass(frozen=True)
class Question:
    """What a unit asks; `answers` are the keys with what each says, the first of them the good one."""

    unit: str
    step: str
    text: str
    answers: tuple[tuple[str, str], ...]


class Stopped(Exception):
    """The station stops before the operator has answered."""


class Questions:
    """The questions that wait for an answer, in the order in which they were asked."""

    def __init__(self, changed: Callable[[], None]) -> None:
        """Calls `changed` whenever another question waits, or one no longer does."""
        self._changed = changed
        self._condition = threading.Condition()
        self._waiting: list[Question] = []
        self._answers: dict[Question, str] = {}
        self._stopped = False

    @property
    def waiting(self) -> list[Question]:
        """Those without an answer."""
        with self._condition:
            return list(self._waiting)

    def ask(self, question: Question) -> str:
        """Waits for the key that the operator presses. Raises Stopped."""
        with self._condition:
            self._waiting.append(question)
        self._changed()
        with self._condition:
            self._condition.wait_for(lambda: self._stopped or question in self._answers)
            if question in self._answers:
                return self._answers.pop(question)
        raise Stopped

    def answer(self, question: Question, key: str) -> None:
        """Answers a question that waits; any other is left alone."""
        with self._condition:
            if question not in self._waiting:
                return
            self._waiting.remove(question)
            self._answers[question] = key
            self._condition.notify_all()
        self._changed()

    def stop(self) -> None:
        """Lets nobody wait any longer."""
        with self._condition:
            self._stopped = True
            self._condition.notify_all()
