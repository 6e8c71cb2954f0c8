"""Connections of the package kelutv for the units of a station."""

from __future__ import annotations

import subprocess

import kelutv

from kelutv_station.plan.plan import Unit
from kelutv_station.run.performing import CONNECTING
from kelutv_station.run.television import Television

MOST_EVENTS = 4096


def connect(unit: Unit) -> Television:
    """A television that connects when it is told to; messages of the library do not reach the operator's screen."""
    return kelutv.Television(
        unit.runtime_dir, unit.level, CONNECTING, messages=subprocess.DEVNULL, most_events=MOST_EVENTS)
