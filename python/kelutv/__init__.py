"""A television's functions and events, its simulator, and the tool, for Python.

    with kelutv.Simulator() as simulator, simulator.television(timeout=5) as tv:
        tv.audio.set_volume(kelutv.enums.KELU_TV_AUDIO_CHANNEL_E.SPEAKER, 35)
"""

from . import enums, records
from .errors import (
    LibraryRefused,
    LinkLost,
    MalformedReply,
    NoService,
    ServiceRefused,
    SimulatorError,
    TelevisionError,
    Timeout,
    ToolError,
)
from .events import AsyncStream, Event, Stream, VbiData
from .simulator import Simulator
from .television import Limited, Television
from .tool import Tool

__all__ = [
    "AsyncStream",
    "Event",
    "LibraryRefused",
    "Limited",
    "LinkLost",
    "MalformedReply",
    "NoService",
    "ServiceRefused",
    "Simulator",
    "SimulatorError",
    "Stream",
    "Television",
    "TelevisionError",
    "Timeout",
    "Tool",
    "ToolError",
    "VbiData",
    "enums",
    "records",
]
