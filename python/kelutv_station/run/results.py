"""What came of a step: a verdict, its reason, and every value that was measured with its limit."""

from __future__ import annotations

from collections.abc import Iterable
from dataclasses import asdict, dataclass
from enum import Enum
from typing import Any

from kelutv_station.plan.limits import Limit, limit_of


class Verdict(Enum):
    """How a step, or a unit, ended; a unit ends as the gravest of its steps, in this order."""

    FAIL = "fail"
    ERROR = "error"
    UNKNOWN = "unknown"
    LEFT_OUT = "left out"
    PASS = "pass"


@dataclass(frozen=True)
class Measurement:
    """One value with its limit. `enumerator` is the value's name where it has one."""

    name: str
    value: Any
    limit: Limit = Limit()
    enumerator: str | None = None

    @property
    def is_within(self) -> bool:
        """Whether the value is within its limit."""
        return self.limit.allows(self.value, self.enumerator)

    def text(self) -> str:
        """The value with its unit, for a reader."""
        value = self.enumerator or (f"{self.value:g}" if isinstance(self.value, float) else str(self.value))
        return f"{value} {self.limit.unit}".strip()

    def document(self) -> dict[str, Any]:
        """The measurement as JSON has it."""
        return {
            "name": self.name, "value": self.value, "enumerator": self.enumerator, "limit": self.limit.document(),
            "verdict": (Verdict.PASS if self.is_within else Verdict.FAIL).value,
        }


@dataclass(frozen=True)
class Result:
    """What came of one step on one unit.

    `seconds` is how long it took, of which `operator_seconds` were the operator's; `attempt` counts from 1. `ends_unit` says
    that the steps behind it are left out.
    """

    unit: str
    step: str
    verdict: Verdict
    reason: str = ""
    measurements: tuple[Measurement, ...] = ()
    seconds: float = 0.0
    attempt: int = 1
    operator_seconds: float = 0.0
    ends_unit: bool = False

    def document(self) -> dict[str, Any]:
        """The result as JSON has it."""
        return {
            **asdict(self), "verdict": self.verdict.value, "seconds": round(self.seconds, 6),
            "operator_seconds": round(self.operator_seconds, 6),
            "measurements": [each.document() for each in self.measurements],
        }


def result_of(document: dict[str, Any]) -> Result:
    """The result that Result.document() gave."""
    measurements = tuple(
        Measurement(each["name"], each["value"], limit_of(each["limit"]), each["enumerator"])
        for each in document["measurements"]
    )
    members: dict[str, Any] = {**document, "verdict": Verdict(document["verdict"]), "measurements": measurements}
    return Result(**members)


def worst(verdicts: Iterable[Verdict]) -> Verdict:
    """The gravest of several verdicts."""
    order = list(Verdict)
    return min(verdicts, key=order.index, default=Verdict.PASS)
