"""Where a unit goes on after a crash of the station."""

from __future__ import annotations

from dataclasses import dataclass

from kelutv_station.plan.plan import Step, Wait
from kelutv_station.run.journal import History
from kelutv_station.run.results import Verdict

CRASHED = "the station ended while it was under way"
NO_EVENTS = "the station ended while it waited, and what brings the event must not be repeated"
AGAIN = "the station ended before it came, and the step before, repeated, did not bring it again"


@dataclass(frozen=True)
class Resumption:
    """The index of the step to go on with, and the steps of which nobody will know, each with the reason."""

    index: int
    unknown: dict[str, str]


def resumption_of(steps: tuple[Step, ...], history: History) -> Resumption:
    """Where to go on: behind what has ended, without a second time for what must not be repeated.

    Events that came before a crash are gone, so that a wait begins again with the step that brings its event. Where that
    must not be repeated nobody can know any longer what the wait would have seen. A unit that has been ended stays so, and
    what did not pass is not begun again.
    """
    index = next((number for number, step in enumerate(steps) if step.name not in history.results), len(steps))
    unknown: dict[str, str] = {}
    if any(result.ends_unit for result in history.results.values()):
        return Resumption(index, unknown)
    if index < len(steps) and history.open == steps[index].name and not steps[index].repeat:
        unknown[steps[index].name] = CRASHED
        index += 1
    waits = _waits_from(steps, index)
    if not waits or not history.attempts:
        return Resumption(index, unknown)
    trigger = trigger_of(steps, index)
    if trigger is None:
        return Resumption(index, unknown)
    done = steps[trigger:index]
    if not all(step.repeat for step in done):
        unknown.update({step.name: NO_EVENTS for step in waits})
        return Resumption(index + len(waits), unknown)
    has_passed = all(history.results[step.name].verdict is Verdict.PASS for step in done)
    return Resumption(trigger if has_passed else index, unknown)


def _waits_from(steps: tuple[Step, ...], index: int) -> list[Step]:
    behind = next((number for number in range(index, len(steps)) if not isinstance(steps[number], Wait)), len(steps))
    return list(steps[index:behind])


def trigger_of(steps: tuple[Step, ...], index: int) -> int | None:
    """The index of the step that brings the event of a wait: the last before it that is no wait."""
    return next((number for number in range(index - 1, -1, -1) if not isinstance(steps[number], Wait)), None)
