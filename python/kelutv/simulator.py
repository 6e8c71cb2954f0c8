"""The simulated television."""

from __future__ import annotations

import json
import os
import select
import shutil
import subprocess
import tempfile
import threading
import time
import weakref
from collections.abc import Sequence
from contextlib import suppress
from pathlib import Path
from typing import IO, Any

from ._closing import Closing
from .errors import SimulatorError
from .television import Television
from .tool import program

__all__ = [
    "Simulator",
]

_READY = b"kelutv-simulator: ready (TVBaseService)\n"
_START_SECONDS = 20.0
_ANSWER_SECONDS = 15.0
_END_SECONDS = 5.0


class Simulator(Closing):
    """A simulated television that runs until it is closed.

    runtime_dir: Where it is found; a folder of its own that goes with it where nothing is said.
    config, state, eep: Files as for the options of kelutv-simulator.
    faults: Lines of faults from the start: `CMD_AUDIO_GETVOLUME error -5`.
    scenario: A file or a name; `speed` plays it so many times faster, with `exit_at_end` the simulator ends with it.
    level: The form of requests that it is asked by, see Television.
    messages: Where its messages on standard error go, as for `subprocess`.
    """

    def __init__(
        self,
        runtime_dir: str | os.PathLike[str] | None = None,
        config: str | os.PathLike[str] | None = None,
        state: str | os.PathLike[str] | None = None,
        eep: str | os.PathLike[str] | None = None,
        faults: Sequence[str] = (),
        scenario: str | os.PathLike[str] | None = None,
        speed: float | None = None,
        exit_at_end: bool = False,
        level: int | None = None,
        messages: int | IO[Any] | None = None,
    ):
        own = tempfile.mkdtemp(prefix="kelutv-") if runtime_dir is None else None
        self.runtime_dir = Path(own or os.fspath(runtime_dir or "")).absolute()
        self.level = level
        options = _options(config=config, state=state, eep=eep, scenario=scenario, speed=speed)
        options += [word for fault in faults for word in ("--fault", fault)]
        options += ["--exit-at-end"] if exit_at_end else []
        self._environment = os.environ | {"KQDROID_RUNTIME_DIR": str(self.runtime_dir)}
        self._running = _Running(own)
        self._finalizer = weakref.finalize(self, self._running.end)
        try:
            self._running.start([program("kelutv-simulator"), *options], self._environment, messages)
        except BaseException:
            self.close()
            raise

    def television(self, timeout: float | None = None, messages: int | IO[Any] | None = None) -> Television:
        """The television, as an application sees it; to be closed by the caller."""
        return Television(runtime_dir=self.runtime_dir, level=self.level, timeout=timeout, messages=messages)

    def do(self, line: str) -> list[str]:
        """Has a line of the control channel carried out: `unplug hdmi1`; what it answers.

        Raises SimulatorError for a line that is refused.
        """
        answer = self.ask(line)
        lines = [str(each) for each in answer["lines"]]
        if not answer["ok"]:
            raise SimulatorError(f"{line}: {' '.join(lines)}")
        return lines

    def ask(self, line: str) -> dict[str, Any]:
        """The whole answer to a line, as `kelutv sim --json` has it."""
        if "\n" in line or "\0" in line:
            raise ValueError("a line has neither line ends nor zeros in it")
        return self._running.ask(line, self._environment)

    def plug(self, what: str) -> None:
        """Plugs a device into a source, `hdmi1`, or a CEC device in, `cec 5`."""
        self.do(f"plug {what}")

    def unplug(self, what: str) -> None:
        """The opposite."""
        self.do(f"unplug {what}")

    def signal(self, source: str, signal: str) -> None:
        """Gives a source another signal: `none`, `1080p60`, `2160p60-hdr10`."""
        self.do(f"signal {source} {signal}")

    def key(self, key: str) -> None:
        """Presses and releases a key of the remote control: `volume_up`."""
        self.do(f"key {key}")

    def fault(self, line: str) -> None:
        """Lets answers go wrong from now on: `CMD_AUDIO_GETVOLUME error -5 once`."""
        self.do(f"fault {line}")

    def clear_faults(self) -> None:
        """Forgets all faults."""
        self.do("fault clear")

    def event(self, event: int | str, payload: bytes = b"") -> None:
        """Publishes an event by its number or name, whatever it says."""
        self.do(f"event {event} {payload.hex()}".rstrip())

    def set(self, state: str, *values: int | str) -> None:
        """Sets a state: `simulator.set("audio.volume[speaker]", 35)`."""
        self.do(f"set {state} = {','.join(map(str, values))}")

    def get(self, state: str) -> list[Any]:
        """The values of a state: `simulator.get("audio.volume[speaker]")`."""
        answer = self.ask(f"get {state}")
        states = answer.get("states") or answer.get("initial")
        if not answer["ok"] or not states:
            raise SimulatorError(f"get {state}: {' '.join(map(str, answer['lines']))}")
        values = [_plain(value) for value in states[0]["values"]]
        return values

    def wait(self, timeout: float | None = None) -> int:
        """Waits for the simulator to end by itself; its exit code. Raises subprocess.TimeoutExpired."""
        return self._running.process().wait(timeout)

    @property
    def pid(self) -> int:
        """The process."""
        return self._running.process().pid

    @property
    def is_running(self) -> bool:
        return self._running.process().poll() is None

    def kill(self) -> None:
        """Ends it as a crash would."""
        self._running.process().kill()
        self._running.process().wait()

    def close(self) -> None:
        """Ends it, and takes its folder away if it is its own."""
        self._finalizer.detach()
        self._running.end()

    def __repr__(self) -> str:
        return f"<Simulator in {self.runtime_dir}{'' if self.is_running else ', ended'}>"


def _plain(value: Any) -> Any:
    return value["value"] if isinstance(value, dict) else value


def _options(**options: Any) -> list[str]:
    return [
        word
        for name, value in options.items()
        if value is not None
        for word in (f"--{name}", os.fspath(value) if isinstance(value, os.PathLike) else str(value))
    ]


class _Running:
    """The process of a simulator, what drives it, and the folder that goes with it."""

    def __init__(self, folder: str | None):
        self._folder = folder
        self._process: subprocess.Popen[bytes] | None = None
        self._control: subprocess.Popen[bytes] | None = None
        self._asking = threading.Lock()

    def process(self) -> subprocess.Popen[bytes]:
        assert self._process is not None
        return self._process

    def start(self, command: list[str], environment: dict[str, str], messages: int | IO[Any] | None) -> None:
        self._process = subprocess.Popen(
            command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=messages, env=environment
        )
        if not _lines_of(self._process, _START_SECONDS).startswith(_READY):
            raise SimulatorError(f"the simulator did not start, exit code {_end(self._process, _END_SECONDS)}")

    def ask(self, line: str, environment: dict[str, str]) -> dict[str, Any]:
        with self._asking:
            answer = self._answer_to(line, environment)
        if not answer:
            raise SimulatorError(f"{line}: no simulator answers")
        document: dict[str, Any] = json.loads(answer)
        if "ok" not in document:
            raise SimulatorError(f"{line}: {document['error']['message']}")
        return document

    def _answer_to(self, line: str, environment: dict[str, str]) -> bytes:
        """Nothing when there is none."""
        control = self._control or subprocess.Popen(
            [program("kelutv"), "sim", "--json", "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL, env=environment,
        )
        self._control = control
        assert control.stdin is not None
        try:
            control.stdin.write(f"{line}\n".encode())
            control.stdin.flush()
            answer = _lines_of(control, _ANSWER_SECONDS)
        except BrokenPipeError:
            answer = b""
        if not answer:
            self._control = None
            _end(control)
        return answer

    def end(self) -> None:
        for process in (self._control, self._process):
            if process is not None:
                _end(process)
        self._control = None
        if self._folder is not None:
            shutil.rmtree(self._folder, ignore_errors=True)
            self._folder = None


def _lines_of(process: subprocess.Popen[bytes], seconds: float) -> bytes:
    """The next line that a process prints, and what comes with it; nothing when none comes in time or it has ended."""
    assert process.stdout is not None
    poll = select.poll()
    poll.register(process.stdout, select.POLLIN)
    end, line = time.monotonic() + seconds, bytearray()
    while not line.endswith(b"\n"):
        if not poll.poll(max(0.0, (end - time.monotonic()) * 1000)):
            return b""
        part = os.read(process.stdout.fileno(), 1 << 16)
        if not part:
            return b""
        line += part
    return bytes(line)


def _end(process: subprocess.Popen[bytes], patience: float = 0.0) -> int:
    """Ends a process that does not end by itself in time; its exit code."""
    for ask in (process.terminate, process.kill):
        try:
            process.wait(patience)
        except subprocess.TimeoutExpired:
            ask()
            patience = _END_SECONDS
    code = process.wait()
    for stream in (process.stdin, process.stdout):
        if stream is not None:
            # What was still to be written to it is lost with it.
            with suppress(OSError):
                stream.close()
    return code
