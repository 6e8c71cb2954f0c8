"""A run: the plan carried out with all units side by side."""

from __future__ import annotations

import math
import threading
import time
from collections.abc import Callable
from contextlib import suppress
from dataclasses import dataclass, field, replace

from kelutv_station.plan.checking import ReadyPlan
from kelutv_station.plan.plan import Step, Unit, Wait
from kelutv_station.run.journal import History, Journal
from kelutv_station.run.performing import SHORTEST, Equipment, Outcome, Performer
from kelutv_station.run.questions import Stopped
from kelutv_station.run.results import Result, Verdict, worst
from kelutv_station.run.resuming import AGAIN, resumption_of, trigger_of


@dataclass
class Status:
    """Where a unit is: the step under way, None before the first and behind the last."""

    step: str | None = None
    ended: bool = False
    results: list[Result] = field(default_factory=list)

    @property
    def verdict(self) -> Verdict:
        """The gravest verdict so far."""
        return worst(result.verdict for result in self.results)


class Station:
    """Carries out a plan; every unit has a thread of its own."""

    def __init__(
        self, ready: ReadyPlan, journal: Journal, equipment: Equipment, report: Callable[[Result], None]
    ) -> None:
        """Calls `report` with each result as it comes, from the threads of the units."""
        self._ready, self._journal, self._equipment, self._report = ready, journal, equipment, report
        self._stopping = threading.Event()
        self._failure: BaseException | None = None
        self._threads = [threading.Thread(target=self._attend, args=(unit,), name=unit.serial) for unit in ready.plan.units]

    def __enter__(self) -> Station:
        """Begins with all units."""
        for thread in self._threads:
            thread.start()
        return self

    def __exit__(self, *_: object) -> None:
        """Returns when no unit is under way any longer."""
        self.stop()
        for thread in self._threads:
            thread.join()

    def stop(self) -> None:
        """Lets each unit end the step under way, and begin no other."""
        self._stopping.set()
        self._equipment.questions.stop()

    def wait(self, seconds: float) -> bool:
        """Waits for all units, at most so long; says whether they have ended. Raises what kept a unit from going on."""
        deadline = time.monotonic() + seconds
        for thread in self._threads:
            thread.join(max(deadline - time.monotonic(), 0))
        ended = not any(thread.is_alive() for thread in self._threads)
        if ended and self._failure:
            raise self._failure
        return ended

    def status(self, unit: Unit) -> Status:
        """Where a unit is."""
        history = self._journal.histories[unit.serial]
        names = [step.name for step in self._ready.plan.steps]
        results = dict(history.results)
        return Status(history.open, len(results) == len(names), [results[name] for name in names if name in results])

    def _attend(self, unit: Unit) -> None:
        performer = Performer(self._ready, unit, self._equipment)
        try:
            self._go_through(unit, performer)
        except Stopped:
            pass
        except BaseException as error:
            self._failure = error
            self.stop()
        finally:
            performer.close()

    def _go_through(self, unit: Unit, performer: Performer) -> None:
        steps, history = self._ready.plan.steps, self._journal.histories[unit.serial]
        resumption = resumption_of(steps, history)
        for step in steps:
            if step.name in resumption.unknown:
                reason = resumption.unknown[step.name]
                self._end(step, Result(unit.serial, step.name, Verdict.UNKNOWN, reason, ends_unit=step.stop))
        for index in range(resumption.index, len(steps)):
            if self._stopping.is_set():
                return
            hindrance = hindrance_of(unit, steps[index], history)
            if not hindrance:
                self._carry_out(unit, index, performer)
            elif steps[index].name not in history.results:
                self._end(steps[index], hindrance)

    def _carry_out(self, unit: Unit, index: int, performer: Performer) -> None:
        step = self._ready.plan.steps[index]
        attempt = self._journal.begin(unit.serial, step.name, durable=not step.repeat)
        begun = time.monotonic()
        outcome = performer.perform(step, seconds_left(unit, self._journal.histories[unit.serial]))
        if isinstance(step, Wait) and outcome.verdict is Verdict.FAIL and self._was_interrupted(unit, index):
            outcome = replace(outcome, verdict=Verdict.UNKNOWN, reason=f"{outcome.reason}; {AGAIN}")
        self._end(step, _result(unit, step, outcome, time.monotonic() - begun, attempt))

    def _was_interrupted(self, unit: Unit, index: int) -> bool:
        """Whether what brings the event of a wait was done before the station ended, and once more."""
        trigger = trigger_of(self._ready.plan.steps, index)
        attempts = self._journal.histories[unit.serial].attempts
        return trigger is not None and attempts[self._ready.plan.steps[trigger].name] > 1

    def _end(self, step: Step, result: Result) -> None:
        self._journal.end(result, durable=not step.repeat)
        with suppress(Exception):  # The journal has it; the unit goes on whether or not it can be shown.
            self._report(result)


def _result(unit: Unit, step: Step, outcome: Outcome, seconds: float, attempt: int) -> Result:
    ends_unit = outcome.ends_unit or (step.stop and outcome.verdict is not Verdict.PASS)
    return Result(
        unit.serial, step.name, outcome.verdict, outcome.reason, outcome.measurements, seconds, attempt,
        outcome.operator_seconds, ends_unit)


def seconds_left(unit: Unit, history: History) -> float:
    """How much of a unit's limit its steps have left."""
    if unit.limit is None:
        return math.inf
    return unit.limit - sum(result.seconds - result.operator_seconds for result in history.results.values())


def hindrance_of(unit: Unit, step: Step, history: History) -> Result | None:
    """What becomes of a step that is not begun, after what has happened before it; None when it can be."""
    for result in history.results.values():
        if result.ends_unit:
            return Result(unit.serial, step.name, Verdict.LEFT_OUT, f"behind '{result.step}': {result.verdict.value}")
    if seconds_left(unit, history) < SHORTEST:
        return Result(unit.serial, step.name, Verdict.FAIL, f"the {unit.limit:g} s of the unit are over", ends_unit=True)
    return None
