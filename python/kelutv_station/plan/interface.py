"""What the television's interface has: functions, events and enumerations, as the tool describes them."""

from __future__ import annotations

import re
from collections.abc import Sequence
from dataclasses import dataclass
from functools import cache
from typing import Any

from kelutv_station.conversation import Conversation
from kelutv_station.plan.limits import is_named
from kelutv_station.tool import ToolError

LISTS = ("int*", "unsigned int*", "unsigned char*")
HEXADECIMAL = re.compile(r"hex:(?:[0-9a-f]{2})*|[0-9a-f]{2}(?::[0-9a-f]{2})+", re.I)


@dataclass(frozen=True)
class Field:
    """A parameter or a field of an event; `values` are the names of its enumeration, each with its number."""

    name: str
    type: str
    values: tuple[tuple[str, int], ...] = ()
    is_count: bool = False

    def value_of(self, value: Any) -> Any:
        """The number of a name of the enumeration, the list that a text of bytes is; any other value as it is."""
        if isinstance(value, str) and self.type.removeprefix("const ") in LISTS:
            return bytes_of(self.name, value)
        if not isinstance(value, str) or not self.values:
            return value
        numbers = {number for name, number in self.values if value.lower() == name.lower()}
        numbers = numbers or {number for name, number in self.values if is_named(name, value)}
        if len(numbers) != 1:
            names = ", ".join(name for name, _ in self.values)
            raise ValueError(f"{self.name}: '{value}' is not one of {names}")
        return numbers.pop()

    def name_of(self, number: Any) -> str | None:
        """The name of a number of the enumeration."""
        return next((name for name, each in self.values if each == number), None)


@dataclass(frozen=True)
class Function:
    """A function of the interface with what goes in, the names of what comes out, and its result."""

    name: str
    short: str
    module: str
    dangerous: bool
    inputs: tuple[Field, ...]
    outputs: tuple[str, ...]
    result: Field


@dataclass(frozen=True)
class Event:
    """An event: its name, its numbers from first to last, and the fields of its payload."""

    name: str
    first: int
    last: int
    fields: tuple[Field, ...]


class Interface:
    """Asks the tool for each name once. Its methods raise ToolError with the nearest names for one that is not there."""

    def __init__(self, conversation: Conversation) -> None:
        self._conversation = conversation
        self.function = cache(self._function)
        self.event = cache(self._event)
        self._values = cache(self._read_values)
        self._encode = cache(lambda *words: conversation.ask("encode", *words))

    def require_arguments(self, function: Function, arguments: Sequence[Any]) -> None:
        """Raises ToolError unless the function can be called with these; nothing is sent."""
        self._encode(function.name, "--", *map(written, arguments))

    def _describe(self, name: str, kind: str) -> dict[str, Any]:
        document: dict[str, Any] = self._conversation.ask("describe", "--", name)
        if document.get("kind") != kind:
            raise ToolError(f"{name} is no {kind} but {document.get('kind')}")
        return document

    def _function(self, name: str) -> Function:
        document = self._describe(name, "function")
        inputs = [parameter for parameter in document["parameters"] if parameter["direction"].startswith("in")]
        outputs = tuple(each["name"] for each in document["parameters"] if each["direction"].endswith("out"))
        result = {"name": "result", "type": "int", "enumeration": document.get("resultEnumeration")}
        return Function(
            document["function"], document["short"], document["module"], bool(document["effect"].get("dangerous")),
            tuple(self._field(each) for each in inputs), outputs, self._field(result))

    def _event(self, name: str) -> Event:
        document = self._describe(name, "event")
        return Event(
            document["name"], document["first"], document["last"], tuple(self._field(each) for each in document["fields"]))

    def _field(self, document: dict[str, Any]) -> Field:
        values = self._values(document["enumeration"]) if document.get("enumeration") else ()
        return Field(document["name"], document["type"], values, "left out" in document.get("direction", ""))

    def _read_values(self, name: str) -> tuple[tuple[str, int], ...]:
        return tuple((each["enumerator"], each["value"]) for each in self._describe(name, "enumeration")["values"])


def bytes_of(name: str, text: str) -> list[int]:
    """The bytes of a text as hex:0a0b, or of an address."""
    if not HEXADECIMAL.fullmatch(text):
        raise ValueError(f"{name}: '{text}' is not a list of numbers, hex:0a0b or an address as 02:00:00:12:34:56")
    return list(bytes.fromhex(text.lower().removeprefix("hex:").replace(":", "")))


def written(value: Any) -> str:
    """An argument as the tool has it on its command line."""
    if value is None:
        return "null"
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, dict):
        return ",".join(f"{name}={each}" for name, each in _flat(value))
    if isinstance(value, (list, tuple)):
        return f"[{','.join(map(str, value))}]"
    return str(value)


def _flat(record: dict[str, Any], prefix: str = "") -> list[tuple[str, str]]:
    fields = []
    for name, value in record.items():
        if isinstance(value, dict):
            fields += _flat(value, f"{prefix}{name}.")
        elif isinstance(value, (list, tuple)):
            fields += _flat({f"{name}[{index}]": each for index, each in enumerate(value)}, prefix)
        else:
            fields.append((prefix + name, written(value)))
    return fields
