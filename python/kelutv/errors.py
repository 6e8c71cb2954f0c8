"""What can go wrong with a television."""

from __future__ import annotations

__all__ = [
    "LibraryRefused",
    "LinkLost",
    "MalformedReply",
    "NoService",
    "ServiceRefused",
    "SimulatorError",
    "TelevisionError",
    "Timeout",
    "ToolError",
]


class TelevisionError(Exception):
    """A call that failed.

    function: Which one: `audio.set_volume`.
    reason: Why, in words, with the status by its name.
    status: The status of the transaction or the result of the service that says so; None where none does.
    """

    def __init__(self, function: str, reason: str, status: int | None = None):
        super().__init__(function, reason, status)
        self.function = function
        self.reason = reason
        self.status = status

    def __str__(self) -> str:
        return f"{self.function}: {self.reason}"


class ServiceRefused(TelevisionError):
    """The service answered that it did not do it; `status` is its result."""


class MalformedReply(TelevisionError):
    """The service's answer is not what it should be."""


class LibraryRefused(TelevisionError):
    """The client library did not send anything, such as for a null pointer."""


class NoService(TelevisionError):
    """There is no television service."""


class LinkLost(TelevisionError):
    """The request did not get through, or the service or the process that holds the link is gone."""


class Timeout(TelevisionError):
    """The call was not done within its time. What became of it is not known; the process that made it is gone."""


class SimulatorError(Exception):
    """The simulator did not start, refused a line, or is gone."""


class ToolError(Exception):
    """A command of the tool failed.

    command: Its words.
    code: Its exit code: 1 something else, 2 wrong use, 3 no service, 4 a refusal; negative for a signal.
    message: What it said on standard error.
    """

    def __init__(self, command: tuple[str, ...], code: int, message: str):
        super().__init__(command, code, message)
        self.command = command
        self.code = code
        self.message = message

    def __str__(self) -> str:
        return f"kelutv {' '.join(self.command)}: exit code {self.code}: {self.message}"
