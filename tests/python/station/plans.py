"""Plans as tests write them."""

from __future__ import annotations

import atexit
from pathlib import Path
from typing import Any

from kelutv_station.conversation import Conversation
from kelutv_station.plan.checking import ReadyPlan, ready_plan
from kelutv_station.plan.interface import Interface
from kelutv_station.plan.plan import Plan
from kelutv_station.plan.reading import plan_of
from kelutv_station.run.results import Measurement, Result, Verdict
from kelutv_station.tool import Tool

UNIT = {"serial": "A1", "runtime_dir": "one"}
VOLUME = {"name": "volume", "call": "audio.setVolume", "arguments": ["speaker", 35]}
READ = {"name": "read", "call": "audio.getVolume", "arguments": ["speaker"], "low": 30, "high": 40}
CHANGED = {"name": "changed", "wait": "volumeChanged", "fields": {"channel": "speaker", "volume": 35}, "timeout": 0.2}
BURN = {"name": "burn", "call": "factory.setMacAddress", "arguments": [[2, 0, 0, 1, 2, 3]]}

CONVERSATION = Conversation(Tool())
INTERFACE = Interface(CONVERSATION)
atexit.register(CONVERSATION.close)


def plan_with(*steps: dict[str, Any], **members: Any) -> Plan:
    """A plan of these steps for the unit A1."""
    return plan_of({"unit": [UNIT], "step": list(steps), **members}, "line.toml", Path())


def ready_with(*steps: dict[str, Any], **members: Any) -> ReadyPlan:
    """The same, held against the interface."""
    return ready_plan(plan_with(*steps, **members), INTERFACE)


def ended(step: str, verdict: Verdict = Verdict.PASS, *measurements: Measurement, unit: str = "A1", reason: str = "") -> Result:
    """What came of a step."""
    return Result(unit, step, verdict, reason, measurements, 0.5)
