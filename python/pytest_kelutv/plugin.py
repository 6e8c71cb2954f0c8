"""The plugin of pytest: fixtures `simulator`, `television` and `recording`, markers `fault` and `scenario`."""

from __future__ import annotations

import os
from collections.abc import Iterator
from pathlib import Path
from typing import TYPE_CHECKING, Any

import pytest

from pytest_kelutv.recordings import Recording, keep_path

if TYPE_CHECKING:
    import kelutv

OPTION, DEFAULT = "--television", "default"
MARKERS = (
    "fault(line, ...): lets the simulated television go wrong from the start, as `CMD_AUDIO_GETVOLUME error -5`",
    "scenario(name, speed=None): plays a scenario, by name or by a file beside the test, so many times faster",
)
KEPT = pytest.StashKey[list[str]]()


def pytest_addoption(parser: pytest.Parser) -> None:
    """Adds the options."""
    group = parser.getgroup("kelutv", "televisions")
    group.addoption(
        OPTION, metavar="DIRECTORY",
        help=f"test the television of this runtime directory, or the one that any program would find ('{DEFAULT}'), and no "
        "simulated one; tests that drive the simulated television are skipped")
    group.addoption(
        "--television-timeout", metavar="SECONDS", type=float, default=10.0,
        help="give a call up after this time (%(default)s)")
    group.addoption(
        "--recordings", metavar="DIRECTORY", type=Path, default=Path("recordings"),
        help="keep the recordings of tests that fail in this directory (%(default)s)")


def pytest_configure(config: pytest.Config) -> None:
    """Registers the markers."""
    for marker in MARKERS:
        config.addinivalue_line("markers", marker)
    kept: list[str] = []
    config.stash[KEPT] = kept
    if config.getoption("--television-timeout") <= 0:
        raise pytest.UsageError("--television-timeout must be above 0")


def pytest_collection_modifyitems(config: pytest.Config, items: list[pytest.Item]) -> None:
    """Skips what only a simulated television can do, where a real one is tested."""
    if config.getoption(OPTION) is None:
        return
    for item in items:
        markers = [*item.iter_markers("fault"), *item.iter_markers("scenario")]
        if markers or "simulator" in getattr(item, "fixturenames", ()):
            item.add_marker(pytest.mark.skip(reason=f"drives the simulated television, and {OPTION} is given"))


def pytest_terminal_summary(terminalreporter: Any, config: pytest.Config) -> None:
    """Says which recordings were kept."""
    if config.stash[KEPT]:
        terminalreporter.section("recordings kept")
        for path in config.stash[KEPT]:
            terminalreporter.line(path)


@pytest.fixture
def simulator(request: pytest.FixtureRequest) -> Iterator[kelutv.Simulator]:
    """A simulated television that has just been switched on, with the faults and the scenario of the test's markers."""
    import kelutv

    faults = [line for marker in reversed(list(request.node.iter_markers("fault"))) for line in marker.args]
    with kelutv.Simulator(faults=faults, **_scenario(request.node)) as running:
        yield running


def _scenario(node: pytest.Item) -> dict[str, Any]:
    marker = node.get_closest_marker("scenario")
    if marker is None:
        return {}
    if len(marker.args) != 1 or set(marker.kwargs) - {"speed"}:
        raise pytest.UsageError(f"{node.nodeid}: the marker is {MARKERS[1].partition(':')[0]}")
    beside = node.path.parent / marker.args[0]
    return {"scenario": beside if beside.is_file() else marker.args[0], **marker.kwargs}


@pytest.fixture
def television(request: pytest.FixtureRequest) -> Iterator[kelutv.Television]:
    """A connection to the simulated television, or to the one of --television; its calls are given up after a time."""
    import kelutv

    place = request.config.getoption(OPTION)
    if place is None:
        directory = request.getfixturevalue("simulator").runtime_dir
    else:
        directory = None if place == DEFAULT else place
    if "recording" in request.fixturenames:
        request.getfixturevalue("recording")
    limit = request.config.getoption("--television-timeout")
    with kelutv.Television(runtime_dir=directory, timeout=limit) as connected:
        connected.connect()
        yield connected


@pytest.fixture
def recording(request: pytest.FixtureRequest, tmp_path: Path) -> Iterator[Path]:
    """The file that all programs of the test record into, `television` included; it is kept when the test fails."""
    if request.config.getoption(OPTION) is None and "television" in request.fixturenames:
        request.getfixturevalue("simulator")
    recorded, failed_before = Recording(tmp_path / "recording.jsonl"), request.session.testsfailed
    with recorded.environment(os.environ):
        yield recorded.path
    recorded.wait()
    if request.session.testsfailed > failed_before and recorded.path.exists():
        kept = keep_path(request.config.getoption("--recordings"), request.node.nodeid)
        recorded.keep(kept)
        request.config.stash[KEPT].append(str(kept))
