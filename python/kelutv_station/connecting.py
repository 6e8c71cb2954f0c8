"""Connections of the package kelutv for the units of a station."""

from __future__ import annotations

import kelutv

from kelutv_station.plan.plan import Unit
from kelutv_station.run.television import Television


def connect(unit: Unit, timeout: float) -> Television:
    """Connects to a unit; no call lasts longer than the timeout, in seconds. Raises kelutv.TelevisionError."""
    return kelutv.Television(runtime_dir=unit.runtime_dir, timeout=timeout)
