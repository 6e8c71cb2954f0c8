"""A run in numbers: its units with their verdicts, its failures by step, its values by step and name."""

from __future__ import annotations

import statistics
from collections.abc import Sequence
from dataclasses import dataclass

from kelutv_station.plan.limits import Limit, is_number
from kelutv_station.plan.plan import Plan
from kelutv_station.run.results import Result, Verdict, worst


@dataclass(frozen=True)
class UnitOutline:
    """One unit: its results in the order of the plan, and whether all steps have one."""

    serial: str
    results: tuple[Result, ...]
    is_complete: bool

    @property
    def verdict(self) -> Verdict:
        """The gravest verdict; a unit that has not gone through all steps has not passed."""
        verdict = worst(result.verdict for result in self.results)
        return Verdict.UNKNOWN if verdict is Verdict.PASS and not self.is_complete else verdict

    @property
    def failures(self) -> list[Result]:
        """What kept it from passing."""
        return [result for result in self.results if result.verdict not in (Verdict.PASS, Verdict.LEFT_OUT)]

    @property
    def seconds(self) -> float:
        """How long its steps took."""
        return sum(result.seconds for result in self.results)


@dataclass(frozen=True)
class Distribution:
    """The numbers that one step measured under one name on all units."""

    step: str
    name: str
    limit: Limit
    values: tuple[float, ...]

    @property
    def mean(self) -> float:
        """Their arithmetic mean."""
        return statistics.fmean(self.values)

    @property
    def deviation(self) -> float:
        """Their standard deviation as a sample's; 0 of a single one."""
        return statistics.stdev(self.values) if len(self.values) > 1 else 0.0

    @property
    def capability(self) -> float | None:
        """The least distance of the mean from a bound in three standard deviations (Cpk), or None without either."""
        bounds = [
            *([self.mean - self.limit.low] if self.limit.low is not None else []),
            *([self.limit.high - self.mean] if self.limit.high is not None else []),
        ]
        return min(bounds) / (3 * self.deviation) if bounds and self.deviation else None


@dataclass(frozen=True)
class Outline:
    """A whole run."""

    title: str
    steps: tuple[str, ...]
    units: tuple[UnitOutline, ...]

    @property
    def passed(self) -> int:
        """How many units passed."""
        return sum(unit.verdict is Verdict.PASS for unit in self.units)

    @property
    def failures(self) -> dict[str, int]:
        """On how many units each step did not pass, without those that were left out; only steps with any."""
        names = [result.step for unit in self.units for result in unit.failures]
        return {step: names.count(step) for step in self.steps if step in names}

    @property
    def distributions(self) -> list[Distribution]:
        """The numbers measured, in the order of the plan."""
        measured: dict[tuple[str, str], list[float]] = {}
        limits: dict[tuple[str, str], Limit] = {}
        for result in (result for step in self.steps for unit in self.units for result in unit.results if result.step == step):
            for each in result.measurements:
                if is_number(each.value) and each.enumerator is None:
                    measured.setdefault((result.step, each.name), []).append(each.value)
                    limits[result.step, each.name] = each.limit
        return [Distribution(*key, limits[key], tuple(values)) for key, values in measured.items()]


def outline_of(plan: Plan, results: Sequence[Result]) -> Outline:
    """The outline of what has come of a plan so far."""
    steps = tuple(step.name for step in plan.steps)
    units = []
    for unit in plan.units:
        by_step = {result.step: result for result in results if result.unit == unit.serial}
        own = tuple(by_step[step] for step in steps if step in by_step)
        units.append(UnitOutline(unit.serial, own, len(own) == len(steps)))
    return Outline(plan.title, steps, tuple(units))
