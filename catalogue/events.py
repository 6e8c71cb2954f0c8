"""The events of the simulated television: identifiers, names, payloads."""

from __future__ import annotations

import re
from collections.abc import Callable

from cells import split_list
from headers import Enumeration, Headers
from model import Event, EventField, Events
from tables import Row, RowError, Section

FILE = "events.md"
COLUMNS = {
    "Events": ["identifier", "event", "payload", "when"],
    "Enumerations": ["enumeration", "enumerator", "value", "meaning"],
}
MODULES = "KELU_EM_MODE_E"
# In bytes; 0 takes the rest of the payload.
TYPE_SIZES = {"int8": 1, "uint8": 1, "int16": 2, "uint16": 2, "int32": 4, "bool": 4, "text": 0, "bytes": 0}
_ENUMERATION_SIZE = 4
_MODULE_SIZE = 0x10000
_LARGEST_INT = 0x7FFFFFFF


def _number(text: str) -> int | None:
    return int(text, 0) if re.fullmatch(r"0[xX][0-9a-fA-F]+|0|[1-9]\d*", text) else None


class _EventReader:
    def __init__(self, headers: Headers):
        self.headers = headers
        modules = headers.enumerations.get(MODULES, Enumeration(MODULES, {}))
        self.modules = {name: value for name, value in modules.values.items() if value % _MODULE_SIZE == 0}
        self.events = Events()

    def add_enumerator(self, row: Row) -> None:
        name, enumerator = row["enumeration"], row["enumerator"]
        for word in (name, enumerator):
            if not re.fullmatch(r"[A-Z][A-Z0-9_]*", word):
                raise RowError(f"'{word}' is not a name of capital letters, digits and underscores")
        if name in self.headers.enumerations:
            raise RowError(f"{name} is an enumeration of the public headers already")
        if enumerator in self.headers.enumerators or enumerator in self.events.meanings:
            raise RowError(f"the enumerator {enumerator} exists already")
        value = _number(row["value"])
        if value is None or value > _LARGEST_INT:
            raise RowError(f"value '{row['value']}' is not a number from 0 to {_LARGEST_INT}")
        self.events.enumerations.setdefault(name, Enumeration(name, {})).values[enumerator] = value
        self.events.meanings[enumerator] = row["meaning"]

    def _identifier(self, text: str) -> int:
        module, plus, added = text.partition("+")
        number = _number(added if plus else text)
        base = self.modules.get(module)
        if plus and base is not None and number is not None and number < _MODULE_SIZE:
            return base + number
        if plus or number is None:
            raise RowError(
                f"identifier '{text}' is neither a number nor MODULE+NUMBER with a module of {MODULES} and a number "
                f"from 0 to 0xFFFF"
            )
        return number

    def _identifiers(self, text: str) -> tuple[int, int]:
        first, dots, last = text.partition("..")
        bounds = self._identifier(first), self._identifier(last if dots else first)
        if bounds[0] > bounds[1]:
            raise RowError(f"the range {text} is empty")
        if bounds[0] - bounds[0] % _MODULE_SIZE not in self.modules.values():
            raise RowError(f"the upper half of identifier {first} is not a module of {MODULES}")
        if bounds[0] // _MODULE_SIZE != bounds[1] // _MODULE_SIZE:
            raise RowError(f"the range {text} goes beyond its module")
        return bounds

    def _field(self, text: str) -> EventField:
        match = re.fullmatch(r"([A-Za-z]\w*):(\w+)", text)
        if not match:
            raise RowError(f"field '{text}' is not NAME:TYPE")
        if match[2] in self.headers.enumerations or match[2] in self.events.enumerations:
            return EventField(match[1], match[2], _ENUMERATION_SIZE)
        if match[2] not in TYPE_SIZES:
            raise RowError(f"type '{match[2]}' is neither an enumeration nor one of: {', '.join(TYPE_SIZES)}")
        return EventField(match[1], match[2], TYPE_SIZES[match[2]])

    def _fields(self, text: str) -> tuple[EventField, ...]:
        fields = tuple(self._field(part) for part in split_list(text))
        names = [each.name for each in fields]
        for name in names:
            if names.count(name) > 1:
                raise RowError(f"field {name} stands twice")
        for each in fields[:-1]:
            if each.is_open:
                raise RowError(f"field {each.name}: {each.type} takes the rest of the payload and must be the last field")
        return fields

    def add_event(self, row: Row) -> None:
        name = row["event"]
        if not re.fullmatch(r"[a-z][A-Za-z0-9]*", name):
            raise RowError(f"event '{name}' is not a name such as volumeChanged")
        first, last = self._identifiers(row["identifier"])
        for known in self.events.rows:
            if known.name.lower() == name.lower():
                raise RowError(f"event {name} stands at {known.place} already")
            if first <= known.last and known.first <= last:
                raise RowError(f"identifier {row['identifier']} is that of {known.name} at {known.place}")
        self.events.rows.append(Event(row.place, first, last, name, self._fields(row["payload"]), row["when"]))


def read_events(
    sections: dict[str, Section], headers: Headers, complain: Callable[[Row, RowError], None]
) -> Events:
    """The events of the tables, with their enumerations; what is wrong with a row goes to `complain`."""
    reader = _EventReader(headers)
    for title, add in (("Enumerations", reader.add_enumerator), ("Events", reader.add_event)):
        for row in sections[title].rows if title in sections else []:
            try:
                add(row)
            except RowError as error:
                complain(row, error)
    return reader.events

