"""What the simulated television starts with: defaults.json, held against the states of the catalogue."""

from __future__ import annotations

import json
import re
from dataclasses import dataclass
from pathlib import Path

SETTINGS = {"initial", "range", "event", "source"}
SOURCE_ROLES = {"key", "value"}
CURRENT_SOURCE = "sourcemanager.curSource"

Value = int | str
Values = list[Value]


class GenerationError(Exception):
    """Why there is no table."""


@dataclass(frozen=True)
class Source:
    """An input and what its signal puts into the states that show it."""

    value: int
    signal: dict[str, Values]


def _listed(value: object) -> list:
    return value if isinstance(value, list) else [value]


class Defaults:
    def __init__(self, path: Path, states: set[str], enumerators: dict[str, int]):
        self.path = path
        self.states = states
        self.enumerators = enumerators
        try:
            modules = json.loads(path.read_text(encoding="utf-8"))
        except json.JSONDecodeError as error:
            raise GenerationError(f"{path}: {error}") from error
        sources = modules.pop("sources", {})
        modules.pop("cec", None)  # generate_cec.py reads it.
        self.signal_states = sorted({name for signal in sources.values() for name in signal})
        self.settings = {f"{module}.{name}": entry for module, names in modules.items() for name, entry in names.items()}
        for name, settings in self.settings.items():
            self._check(name, settings)
        self.sources = self._read_sources(sources)

    def _check(self, name: str, settings: dict) -> None:
        self._check_state(name)
        if not isinstance(settings, dict) or not set(settings) <= SETTINGS:
            raise GenerationError(f"{self.path}: '{name}' takes only {', '.join(sorted(SETTINGS))}")
        self._own_initial(name)
        self.initial_by_key(name)
        bounds = self.range(name)
        if len(bounds) != 2 or any(type(bound) is not int for bound in bounds) or bounds[0] > bounds[1]:
            raise GenerationError(f"{self.path}: '{name}': range {bounds} is not [LOWEST, HIGHEST]")
        if not re.fullmatch(r"0|k[A-Z]\w*", self.event(name)):
            raise GenerationError(f"{self.path}: '{name}': event '{self.event(name)}' is not a name of Events.h")
        if settings.get("source", "key") not in SOURCE_ROLES:
            raise GenerationError(f"{self.path}: '{name}': source is one of {', '.join(sorted(SOURCE_ROLES))}")

    def _check_state(self, name: str) -> None:
        if name not in self.states:
            raise GenerationError(f"{self.path}: the catalogue has no state '{name}'")

    def _values(self, name: str, value: object) -> Values:
        """Integers and texts; the name of an enumerator stands for its value."""
        values = _listed(value)
        for entry in values:
            if type(entry) not in (int, str):
                raise GenerationError(f"{self.path}: '{name}': initial value {entry!r} is neither an integer nor a text")
        return [self.enumerators.get(entry, entry) for entry in values]

    def _number(self, name: str, text: str) -> int:
        if text not in self.enumerators:
            raise GenerationError(f"{self.path}: '{name}': the headers have no '{text}'")
        return self.enumerators[text]

    def _read_sources(self, sources: dict[str, dict]) -> list[Source]:
        """Every source with every state that shows a signal; what it does not name is zero."""
        for name in self.signal_states:
            self._check_state(name)
        lengths = {
            name: {len(_listed(signal[name])) for signal in sources.values() if name in signal}
            for name in self.signal_states
        }
        for name, found in lengths.items():
            if len(found) != 1:
                raise GenerationError(f"{self.path}: '{name}' has signals of {len(found)} different lengths")
        return [
            Source(
                self._number("sources", source),
                {n: self._values(n, signal.get(n, [0] * min(lengths[n]))) for n in self.signal_states},
            )
            for source, signal in sources.items()
        ]

    def initial(self, name: str) -> Values:
        """For every key alike; what shows a signal starts with that of the source that is current at first."""
        return self._first_signal().get(name) or self._own_initial(name)

    def _own_initial(self, name: str) -> Values:
        value = self.settings.get(name, {}).get("initial", [])
        return [] if isinstance(value, dict) else self._values(name, value)

    def _first_signal(self) -> dict[str, Values]:
        first = self._own_initial(CURRENT_SOURCE)
        return next((source.signal for source in self.sources if [source.value] == first), {})

    def initial_by_key(self, name: str) -> dict[int, Values]:
        value = self.settings.get(name, {}).get("initial", [])
        if not isinstance(value, dict):
            return {}
        return {self._number(name, key): self._values(name, entry) for key, entry in value.items()}

    def bounded(self, name: str) -> bool:
        return "range" in self.settings.get(name, {})

    def range(self, name: str) -> list[int]:
        return self.settings.get(name, {}).get("range", [0, 0])

    def event(self, name: str) -> str:
        return self.settings.get(name, {}).get("event", "0")

    def is_source(self, name: str, role: str) -> bool:
        """Whether the first key, or the value, has to be a source."""
        return self.settings.get(name, {}).get("source") == role
