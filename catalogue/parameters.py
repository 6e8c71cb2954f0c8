"""What every parameter of an operation is for: worked out from the row's cells and from those of what it calls."""

from __future__ import annotations

import re
from collections.abc import Iterable
from dataclasses import dataclass, replace

from cells import ANSWER, number_of, pointee
from headers import Parameter
from model import Catalogue, Function, Method, Operation, Pointer, ReplyField, ValueSet, WireItem
from tables import RowError
from value_sets import all_values, passed_on

ITEMS = "KELU_TV_CMDID_E"
_BLOCKS = ("ints", "doubles", "bytes")
_BYTES = ("void", "unsigned char")


@dataclass(frozen=True)
class ParameterInfo:
    """One parameter.

    `direction` is in, out, inout, unused, or length for a number that counts an array that goes in. `kind` is value,
    text, array, record, list or callback; a value, an array and a record may be behind a pointer.
    `element` is the type of a value or of an array's entries, void for bytes. `room` is how many entries an array has,
    or must have room for: a number, parameters joined by `*`, or `answer` for as many as an answer can hold; nothing
    for anything else. `count` is the parameter that receives how many were written.
    With `allows_null` a null pointer does no harm: it is refused, or stands for something.
    A block that is `led_by_length` begins with an unsigned word that says how many bytes follow.
    """

    name: str
    type: str
    direction: str
    kind: str
    element: str
    room: str | None = None
    count: str | None = None
    allows_null: bool = False
    led_by_length: bool = False
    values: ValueSet | None = None


@dataclass(frozen=True)
class _Fact:
    """What is known of a pointer; of several entries with a `room`."""

    read: bool = False
    written: bool = False
    unused: bool = False
    room: str | None = None
    count: str | None = None
    element: str | None = None
    null: bool = False
    led_by_length: bool = False

    @property
    def direction(self) -> str | None:
        if self.unused:
            return "unused"
        known = {(True, False): "in", (False, True): "out", (True, True): "inout"}
        return known.get((self.read, self.written))


def _joined(first: dict[str, _Fact], second: dict[str, _Fact]) -> dict[str, _Fact]:
    """All facts; of a pointer that both know it is read and written what either says, the rest as the second says."""
    both = {
        name: replace(fact, read=fact.read or first[name].read, written=fact.written or first[name].written)
        for name, fact in second.items()
        if name in first
    }
    return first | second | both


def _root(path: str) -> str:
    return re.match(r"\*?(\w+)", path)[1]


def _sent(item: WireItem) -> _Fact:
    return _Fact(read=True, room=item.length if item.kind in _BLOCKS else None)


def _received(field: ReplyField, counters: dict[str, str | None]) -> _Fact:
    """`counters` are the targets of the numbers that came before, by the names of their fields."""
    element = {"ints": "int", "doubles": "double"}.get(field.kind)
    if field.count in counters:
        return _Fact(written=True, room=ANSWER, count=counters[field.count], element=element)
    return _Fact(written=True, room=ANSWER if field.repeated else field.count, element=element)


def _facts_of_method(method: Method) -> dict[str, _Fact]:
    sent = {_root(item.source): _sent(item) for item in method.request if item.literal is None}
    received: dict[str, _Fact] = {}
    counters: dict[str, str | None] = {}
    for field in method.reply.fields if method.reply else ():
        if field.target:
            received[_root(field.target)] = _received(field, counters)
        if field.kind == "int":
            counters[field.name] = field.target
    return _joined(sent, received)


def _facts_of_outputs(function: Function) -> dict[str, _Fact]:
    count = next((output.target for output in function.outputs if output.part == "count"), None)
    facts = {}
    for output in function.outputs:
        several = output.part == "entries"
        fact = _Fact(written=True, room=ANSWER, count=count) if several else _Fact(written=True)
        facts[_root(output.target)] = fact
    return facts


class ParameterReader:
    """Works out the parameters of operations, those of what an operation calls before its own."""

    def __init__(self, catalogue: Catalogue):
        self.catalogue = catalogue
        self.headers = catalogue.headers

    def read(self, operation: Operation) -> tuple[ParameterInfo, ...]:
        """The parameters in their order, kept in the catalogue; raises RowError for what nothing tells."""
        known = self.catalogue.parameters
        if operation.name not in known:
            known[operation.name] = self._read(operation)
        return known[operation.name]

    def _read(self, operation: Operation) -> tuple[ParameterInfo, ...]:
        facts, values = self._facts(operation), all_values(operation)
        found = [self._info(operation, parameter, facts, values) for parameter in operation.signature.parameters]
        lengths = {info.room for info in found if info.direction == "in" and info.kind == "array"}
        return tuple(self._as_length(info) if info.name in lengths else info for info in found)

    @staticmethod
    def _as_length(info: ParameterInfo) -> ParameterInfo:
        return info if info.type.endswith("*") else replace(info, direction="length")

    def _facts(self, operation: Operation) -> dict[str, _Fact]:
        if isinstance(operation, Method):
            facts = _facts_of_method(operation)
        else:
            facts = _joined(self._inherited(operation), _facts_of_outputs(operation))
        for name in operation.pointers:
            facts[name] = self._with_cell(operation, name, facts)
        for count in {fact.count for fact in facts.values() if fact.count}:
            facts[count] = replace(facts.get(count, _Fact()), written=True)
        return facts

    def _with_cell(self, operation: Operation, name: str, facts: dict[str, _Fact]) -> _Fact:
        fact, cell = facts.get(name, _Fact()), operation.pointers[name]
        _check_once(name, fact, cell)
        if cell.null and name in (refusal.parameter for refusal in operation.refusals):
            raise RowError(f"'{name}' may be null in column 'pointers', yet its null is refused")
        return _Fact(
            read=fact.read or cell.direction in ("in", "inout"),
            written=fact.written or cell.direction in ("out", "inout"),
            unused=cell.direction == "unused",
            room=cell.room or fact.room,
            count=cell.count or fact.count,
            element=fact.element,
            null=cell.null or fact.null,
            led_by_length=cell.led_by_length or fact.led_by_length,
        )

    def _inherited(self, function: Function) -> dict[str, _Fact]:
        """What is known of the pointers that the function only passes on."""
        facts: dict[str, _Fact] = {}
        for theirs, ours in self._passed_on(function):
            if theirs.type.endswith("*") or theirs.kind == "callback":
                facts[ours] = self._passed_fact(function, theirs)
        return facts

    def _passed_on(self, function: Function) -> Iterable[tuple[ParameterInfo, str]]:
        if function.callee is None:
            return []
        callee = {info.name: info for info in self._of(function.callee)}
        return [(callee[theirs], ours) for theirs, ours in passed_on(function)]

    def _of(self, callee: Operation) -> tuple[ParameterInfo, ...]:
        try:
            return self.read(callee)
        except RowError:
            raise RowError(f"{callee.name}, which is called, has an error of its own") from None

    def _passed_fact(self, function: Function, theirs: ParameterInfo) -> _Fact:
        names = dict(zip((p.name for p in function.callee.signature.parameters), function.arguments))
        return _Fact(
            read=theirs.direction in ("in", "inout"),
            written=theirs.direction in ("out", "inout"),
            unused=theirs.direction == "unused",
            room=self._passed_room(theirs.room, names),
            count=names.get(theirs.count) if theirs.count else None,
            element=theirs.element if theirs.kind == "array" else None,
            null=theirs.allows_null,
            led_by_length=theirs.led_by_length,
        )

    def _passed_room(self, room: str | None, names: dict[str, str]) -> str | None:
        if room is None or room == ANSWER:
            return room
        arguments = (names.get(factor, factor) for factor in room.split("*"))
        numbers = ((argument, number_of(argument, self.headers)) for argument in arguments)
        return "*".join(argument if number is None else str(number) for argument, number in numbers)

    def _info(
        self, operation: Operation, parameter: Parameter, facts: dict[str, _Fact], values: dict[str, ValueSet]
    ) -> ParameterInfo:
        fact = facts.get(parameter.name, _Fact())
        kind = self._kind(parameter, fact)
        _check_known(parameter, kind, fact)
        item = ValueSet(enumeration=ITEMS) if _is_item(operation, parameter.name) else None
        refused = parameter.name in (refusal.parameter for refusal in operation.refusals)
        base = pointee(parameter.type)
        return ParameterInfo(
            name=parameter.name,
            type=parameter.type,
            direction=_direction(parameter, fact),
            kind=kind,
            element=fact.element if base == "void" and fact.element else base,
            room=fact.room,
            count=fact.count,
            allows_null=refused or fact.null,
            led_by_length=fact.led_by_length,
            values=values.get(parameter.name) or item,
        )

    def _kind(self, parameter: Parameter, fact: _Fact) -> str:
        base = pointee(parameter.type)
        if base in self.headers.callbacks:
            return "callback"
        if base == "char":
            return "text"
        if base.startswith("std::"):
            return "list"
        if fact.room or base in _BYTES:
            return "array"
        return "record" if self._is_record(base) else "value"

    def _is_record(self, base: str) -> bool:
        return base in self.headers.records or base in self.catalogue.platform_records


def _check_once(name: str, fact: _Fact, cell: Pointer) -> None:
    told = {
        "direction": cell.direction and fact.direction,
        "room": cell.room and fact.room,
        "count": cell.count and fact.count,
        "null": cell.null and fact.null,
    }
    for what in (what for what, known in told.items() if known):
        raise RowError(f"column 'pointers' repeats the {what} of '{name}', which other cells tell")


def _check_known(parameter: Parameter, kind: str, fact: _Fact) -> None:
    if not parameter.type.endswith("*"):
        return
    if _direction(parameter, fact) is None:
        raise RowError(f"nothing tells whether '{parameter.name}' is read or written; column 'pointers' must")
    if kind == "array" and not fact.room and not fact.unused:
        raise RowError(f"nothing tells how many bytes '{parameter.name}' has; column 'pointers' must")


def _direction(parameter: Parameter, fact: _Fact) -> str | None:
    reads_only = not parameter.type.endswith("*") or parameter.type.endswith("const*")
    return fact.direction or ("in" if reads_only else None)


def _is_item(operation: Operation, name: str) -> bool:
    method = operation.method
    return method is not None and method.items and operation.request[0].source == name
