"""The parts of a plan."""

from __future__ import annotations

from collections.abc import Mapping
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any

from kelutv_station.plan.limits import Limit

DEFAULT_TIMEOUT = 5.0


class PlanError(Exception):
    """A plan, or the units that it is for, cannot be used: where, what is wrong, and what is allowed."""


@dataclass(frozen=True)
class Operation:
    """A call of one function with its arguments as the plan writes them."""

    function: str
    arguments: tuple[Any, ...] = ()


@dataclass(frozen=True, kw_only=True)
class Step:
    """What every step has. `repeat` is None where the plan leaves it to what the step does."""

    name: str
    repeat: bool | None = None
    stop: bool = False
    timeout: float | None = None


@dataclass(frozen=True, kw_only=True)
class Call(Step):
    """Calls a function and holds its results against limits, by the names of the results."""

    operation: Operation
    limits: Mapping[str, Limit] = field(default_factory=dict)


@dataclass(frozen=True, kw_only=True)
class Wait(Step):
    """Waits for an event with these fields."""

    event: str
    fields: Mapping[str, Any] = field(default_factory=dict)


@dataclass(frozen=True, kw_only=True)
class Prompt(Step):
    """Asks the operator to do something."""

    text: str


@dataclass(frozen=True, kw_only=True)
class Picture(Step):
    """Lets the operator judge the picture, which `show` puts there; `defects` are what it may be found to have."""

    question: str
    show: Operation | None = None
    defects: tuple[str, ...] = ()


@dataclass(frozen=True, kw_only=True)
class Snapshot(Step):
    """Compares all that the television says of itself with a golden snapshot."""

    golden: Path
    ignore: tuple[str, ...] = ()
    settings: bool = False


@dataclass(frozen=True)
class Unit:
    """One television.

    `timeout` bounds a call, `limit` all steps together without the operator's time, in seconds. `level` is the form of
    requests, None that of the environment.
    """

    serial: str
    runtime_dir: str
    level: int | None = None
    timeout: float | None = None
    limit: float | None = None
    values: Mapping[str, int | str] = field(default_factory=dict)


@dataclass(frozen=True)
class Plan:
    """What is done with each unit; `place` says in messages where it stands."""

    place: str
    folder: Path
    title: str
    steps: tuple[Step, ...]
    units: tuple[Unit, ...] = ()
    allow: tuple[str, ...] = ()
    timeout: float = DEFAULT_TIMEOUT

    def place_of(self, step: Step) -> str:
        """The step for a message."""
        return f"{self.place}: step {self.steps.index(step) + 1} '{step.name}'"


def operations_of(step: Step) -> list[Operation]:
    """What a step calls."""
    if isinstance(step, Call):
        return [step.operation]
    return [step.show] if isinstance(step, Picture) and step.show else []


def asks_operator(step: Step) -> bool:
    """Whether a step needs somebody at the terminal."""
    return isinstance(step, (Prompt, Picture))
