"""What each kind of step does with a unit."""

from __future__ import annotations

import math
import time
from collections.abc import Callable, Mapping
from dataclasses import dataclass
from enum import Enum
from pathlib import Path
from typing import Any

from kelutv import LinkLost, NoService, TelevisionError, Timeout

from kelutv_station.plan.checking import ReadyCall, ReadyPlan, needs_events
from kelutv_station.plan.limits import Limit, is_named
from kelutv_station.plan.outputs import named
from kelutv_station.plan.plan import Call, Picture, Prompt, Snapshot, Step, Unit, Wait
from kelutv_station.run.questions import Question, Questions, Stopped
from kelutv_station.run.results import Measurement, Verdict
from kelutv_station.run.snapshots import compare_with_golden
from kelutv_station.run.television import Connect, Event, Events, Television
from kelutv_station.tool import Tool, ToolError

YES, NO = "y", "n"
# In fewer seconds nothing can be done.
SHORTEST = 0.001
# Seconds in which a connection is made, however little a call may take.
CONNECTING = 20.0


@dataclass(frozen=True)
class Outcome:
    """What came of a step; `ends_unit` says that the unit cannot go on."""

    verdict: Verdict
    reason: str = ""
    measurements: tuple[Measurement, ...] = ()
    operator_seconds: float = 0.0
    ends_unit: bool = False


@dataclass(frozen=True)
class Equipment:
    """What all units share: how to connect, the operator, the tool, and the folder for what is kept."""

    connect: Connect
    questions: Questions
    tool: Tool
    folder: Path


class Performer:
    """Carries out the steps of one unit over a connection that the first step makes."""

    def __init__(self, ready: ReadyPlan, unit: Unit, equipment: Equipment) -> None:
        self._ready, self._unit, self._equipment = ready, unit, equipment
        self._television: Television | None = None
        self._events: Events | None = None
        self._deadline = math.inf

    def close(self) -> None:
        """Ends the connection."""
        if self._television:
            self._television.close()
        self._television = None

    def perform(self, step: Step, seconds: float = math.inf) -> Outcome:
        """Carries out a step, without the operator in at most so many seconds.

        Raises Stopped when the station stops before the operator has answered.
        """
        self._deadline = time.monotonic() + seconds
        kinds: dict[type[Step], Callable[[Any], Outcome]] = {
            Call: self._call, Wait: self._wait, Prompt: self._prompt, Picture: self._picture, Snapshot: self._snapshot}
        try:
            if needs_events(self._ready.plan) and not isinstance(step, Wait):
                self._listen()
            return kinds[type(step)](step)
        except Stopped:
            raise
        except Exception as error:
            if isinstance(error, Timeout):
                self._events = None  # The connection that they came by is gone, another one is made.
            return outcome_of(error)

    def _connection(self) -> Television:
        if self._television is None:
            self._television = self._equipment.connect(self._unit)
        self._television.connect(timeout=min(CONNECTING, self._left()))
        return self._television

    def _listen(self) -> Events:
        """Takes the events that come from now on."""
        connection = self._connection()
        if self._events is not None:
            self._events.close()
        self._events = connection.events()
        return self._events

    def _timeout(self, step: Step) -> float:
        return min(step.timeout or self._unit.timeout or self._ready.plan.timeout, self._left())

    def _left(self) -> float:
        return max(self._deadline - time.monotonic(), SHORTEST)

    def _make(self, call: ReadyCall, step: Step) -> Any:
        return self._connection().call(call.function.name, *call.arguments, timeout=self._timeout(step))

    def _call(self, step: Call) -> Outcome:
        call = self._ready.call(self._unit, step)
        assert call is not None
        return judged(measured(call, self._make(call, step), step.limits), step.limits)

    def _wait(self, step: Wait) -> Outcome:
        wanted, timeout, seen = self._ready.waits[step.name], self._timeout(step), 0
        events, begun = self._events or self._listen(), time.monotonic()
        left = timeout
        while left > 0 and (event := events.take(left)) is not None:
            left = begun + timeout - time.monotonic()
            if wanted.event.first <= event.id <= wanted.event.last:
                if fits(event, wanted.fields):
                    return Outcome(Verdict.PASS, measurements=_fields_of(event, time.monotonic() - begun))
                seen += 1
        others = f"; {seen} came with other fields" if seen else ""
        return Outcome(Verdict.FAIL, f"no such {wanted.event.name} came within {timeout:g} s{others}")

    def _prompt(self, step: Prompt) -> Outcome:
        key, seconds = self._ask(step, step.text, ((YES, "done"), (NO, "cannot be done")))
        if key == YES:
            return Outcome(Verdict.PASS, operator_seconds=seconds)
        return Outcome(Verdict.FAIL, "the operator could not do it", operator_seconds=seconds)

    def _picture(self, step: Picture) -> Outcome:
        call = self._ready.call(self._unit, step)
        if call:
            self._make(call, step)
        answers = [(YES, "good"), (NO, "bad"), *((str(number), each) for number, each in enumerate(step.defects, 1))]
        key, seconds = self._ask(step, step.question, tuple(answers))
        judgement = Measurement("judgement", dict(answers)[key], Limit(equals="good"))
        verdict = Verdict.PASS if judgement.is_within else Verdict.FAIL
        return Outcome(verdict, "" if judgement.is_within else f"judged: {judgement.value}", (judgement,), seconds)

    def _ask(self, step: Step, text: str, answers: tuple[tuple[str, str], ...]) -> tuple[str, float]:
        begun = time.monotonic()
        key = self._equipment.questions.ask(Question(self._unit.serial, step.name, text, answers))
        return key, time.monotonic() - begun

    def _snapshot(self, step: Snapshot) -> Outcome:
        differences = compare_with_golden(
            self._equipment.tool, self._unit, step, self._equipment.folder, self._timeout(step), self._left())
        count = Measurement("differences", len(differences), Limit(equals=0))
        if count.is_within:
            return Outcome(Verdict.PASS, measurements=(count,))
        return Outcome(Verdict.FAIL, f"differs from {step.golden.name}: {'; '.join(differences[:5])}", (count,))


def outcome_of(error: Exception) -> Outcome:
    """What an exception says of a unit: the television's own are failures, any other is the station's error."""
    if isinstance(error, NoService):
        return Outcome(Verdict.ERROR, str(error), ends_unit=True)
    if isinstance(error, TelevisionError):
        return Outcome(Verdict.FAIL, str(error), ends_unit=isinstance(error, LinkLost))
    return Outcome(Verdict.ERROR, str(error) if isinstance(error, ToolError) else f"{type(error).__name__}: {error}")


def measured(call: ReadyCall, result: Any, limits: Mapping[str, Limit]) -> tuple[Measurement, ...]:
    """The values of a result by name, each with its limit."""
    values = {name: plain(value) for name, value in named(result, call.function.outputs).items()}
    return tuple(
        Measurement(name, value, limits.get(name, Limit()), enumerator or call.function.result.name_of(value))
        for name, (value, enumerator) in values.items()
    )


def judged(measurements: tuple[Measurement, ...], limits: Mapping[str, Limit]) -> Outcome:
    """The verdict of measurements: all that the limits name must be there, and within."""
    missing = [f"there is no {name}" for name in limits if name not in {each.name for each in measurements}]
    beyond = [f"{each.name} is {each.text()}, not {each.limit.text()}" for each in measurements if not each.is_within]
    reasons = missing + beyond
    return Outcome(Verdict.FAIL if reasons else Verdict.PASS, "; ".join(reasons), measurements)


def plain(value: Any) -> tuple[Any, str | None]:
    """A value as JSON can hold it, and its name where it is one of an enumeration."""
    if isinstance(value, Enum):
        return value.value, value.name
    if isinstance(value, (bytes, bytearray)):
        return value.hex(), None
    if isinstance(value, float) and not math.isfinite(value):
        return str(value), None
    if isinstance(value, (list, tuple)):
        return [plain(entry)[0] for entry in value], None
    return value, None


def fits(event: Event, fields: Mapping[str, Any]) -> bool:
    """Whether an event has these fields."""
    for name, wanted in fields.items():
        value, enumerator = plain(event.fields.get(name))
        if value != wanted and not (isinstance(wanted, str) and enumerator and is_named(enumerator, wanted)):
            return False
    return True


def _fields_of(event: Event, seconds: float) -> tuple[Measurement, ...]:
    fields = {name: plain(value) for name, value in event.fields.items()}
    values = [Measurement(name, value, enumerator=enumerator) for name, (value, enumerator) in fields.items()]
    return (*values, Measurement("waited", round(seconds, 6), Limit(unit="s")))
