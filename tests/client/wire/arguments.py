"""Distinct marker arguments for a call, what they put on the wire, and what a call can write back through them."""

from __future__ import annotations

from dataclasses import dataclass, field

from cells import pointee, record_leaves
from headers import Headers, Parameter, Signature
from model import Operation, ValueSet
from program import GenerationError
from tables import Place

UNTOUCHED_INT = 0x5A5A5A5A
UNTOUCHED_DOUBLE = -0.5
BUFFER_SIZE = 256
FIRST_INT = 1001
FIRST_DOUBLE = 1.25
FRACTION = 0.25
RECORDS = 16
SHORTEST_BLOCK = 3
WORDS = ["alpha", "bravo", "charlie", "delta", "echo", "foxtrot"]
NUMBERS = ("int", "unsigned int", "bool", "double")

Value = int | float | str | list


def shown_characters(written: str = "") -> str:
    """What a text buffer shows after `written`, without terminator, went into it."""
    return f"{written}x*{BUFFER_SIZE - 1 - len(written)}"


@dataclass
class Call:
    """One call under construction.

    `sent` maps a wire source to its value. `seen` maps a label to what the call may write there and starts with the
    value it has before; `expressions` gives the C++ text that reads each label. `setup` prepares the arguments.
    """

    setup: list[str] = field(default_factory=list)
    arguments: dict[str, str] = field(default_factory=dict)
    sent: dict[str, Value | bytes] = field(default_factory=dict)
    seen: dict[str, Value] = field(default_factory=dict)
    expressions: dict[str, str] = field(default_factory=dict)
    flags: list[bool] = field(default_factory=list)


class CallBuilder:
    """Gives every parameter a marker; flags alternate, starting with `first_flag`."""

    def __init__(self, operation: Operation, headers: Headers, first_flag: bool):
        self.place: Place = operation.place
        self.signature: Signature = operation.signature
        self.values: dict[str, ValueSet] = operation.values
        self.headers = headers
        self.kinds = {item.source: item.kind for item in operation.request}
        counts = [field.count for field in operation.reply.fields] + [item.length for item in operation.request]
        self.lengths = {name for count in counts if count for name in count.split("*")}
        self.flag = not first_flag
        self.call = Call()

    def build(self) -> Call:
        for position, parameter in enumerate(self.signature.parameters):
            self._add(parameter, position)
        return self.call

    def _next_flag(self) -> bool:
        self.flag = not self.flag
        self.call.flags.append(self.flag)
        return self.flag

    def _add(self, parameter: Parameter, position: int) -> None:
        base = pointee(parameter.type)
        if base in self.headers.records:
            self._add_record(parameter, base, (position + 1) * 1100)
        elif parameter.type.endswith("*"):
            self._add_pointer(parameter, base, WORDS[position % len(WORDS)])
        elif parameter.type in self.headers.callbacks:
            self.call.arguments[parameter.name] = "nullptr"
        else:
            small = parameter.name in self.lengths
            self._add_scalar(parameter, SHORTEST_BLOCK + position if small else (position + 1) * 11)

    def _number(self, path: str, type_name: str, marker: int) -> int | float:
        if type_name == "bool":
            return int(self._next_flag())
        allowed = self.values.get(path)
        if allowed and allowed.bounded:
            return min(allowed.low + 2, allowed.high)
        return marker + FRACTION if type_name == "double" else marker

    def _literal(self, type_name: str, number: int | float) -> str:
        if type_name == "bool":
            return "true" if number else "false"
        if type_name in ("int", "double"):
            return str(number)
        if type_name == "unsigned int":
            return f"{number}U"
        if type_name in self.headers.enumerations:
            return f"static_cast<{type_name}>({number})"
        raise GenerationError(self.place, f"there is no marker for an argument of type {type_name}")

    def _add_scalar(self, parameter: Parameter, marker: int) -> None:
        number = self._number(parameter.name, parameter.type, marker)
        self.call.arguments[parameter.name] = self._literal(parameter.type, number)
        self.call.sent[parameter.name] = number

    def _is_number(self, type_name: str) -> bool:
        return type_name in NUMBERS or type_name in self.headers.enumerations

    def _add_record(self, parameter: Parameter, record: str, marker: int) -> None:
        name = parameter.name
        by_pointer = parameter.type.endswith("*")
        leaves = record_leaves(self.headers, record, name)
        if by_pointer and not all(self._is_number(type_name) for _, type_name in leaves):
            self._prepare(name, f"{record} {name}[{RECORDS}]{{}};", name)
            return
        self._prepare(name, f"{record} {name}{{}};", f"&{name}" if by_pointer else name)
        for position, (path, type_name) in enumerate(leaves, 1):
            number = self._number(path, type_name, marker + position)
            self.call.setup.append(f"{path} = {self._literal(type_name, number)};")
            self.call.sent[path] = number
            if by_pointer and not parameter.type.endswith("const*"):
                self._see(path, number)

    def _prepare(self, name: str, setup: str, argument: str) -> None:
        self.call.setup.append(setup)
        self.call.arguments[name] = argument

    def _see(self, label: str, value: Value) -> None:
        self.call.seen[label] = value
        self.call.expressions[label] = label

    def _add_pointer(self, parameter: Parameter, base: str, word: str) -> None:
        name = parameter.name
        sent_as = self.kinds.get(name)
        if parameter.type == "char const*":
            self.call.arguments[name] = f'"{word}"'
            self.call.sent[name] = word
        elif sent_as in ("ints", "doubles", "bytes"):
            self._add_block(name, sent_as)
        elif base == "char":
            self._add_text(name, word if sent_as else None)
        elif base in ("int", "void"):
            self._add_buffer(name, "IntBuffer", UNTOUCHED_INT)
        elif base == "double":
            self._add_buffer(name, "DoubleBuffer", UNTOUCHED_DOUBLE)
        elif base.startswith("std::vector<"):
            self._prepare(name, f"{base} {name};", f"&{name}")
        else:
            number = self._number(name, base, UNTOUCHED_INT)
            self._prepare(name, f"{base} {name} = {self._literal(base, number)};", f"&{name}")
            self._see(name, number)

    def _add_block(self, name: str, kind: str) -> None:
        buffer, first = {
            "ints": ("IntBuffer", FIRST_INT),
            "doubles": ("DoubleBuffer", FIRST_DOUBLE),
            "bytes": ("ByteBuffer", 1),
        }[kind]
        values = [first + i for i in range(BUFFER_SIZE)]
        self._prepare(name, f"{buffer} {name}({first});", f"{name}.values")
        self.call.sent[name] = bytes(value % 256 for value in values) if kind == "bytes" else values

    def _add_text(self, name: str, word: str | None) -> None:
        self._prepare(name, f'CharBuffer {name}("{word}");' if word else f"CharBuffer {name};", f"{name}.values")
        self._see(name, word or shown_characters())
        if word:
            self.call.sent[name] = word

    def _add_buffer(self, name: str, buffer: str, untouched: int | float) -> None:
        self._prepare(name, f"{buffer} {name};", f"{name}.values")
        self._see(name, [untouched] * BUFFER_SIZE)
        self.call.sent[f"*{name}"] = untouched


def build_calls(operation: Operation, headers: Headers) -> list[Call]:
    """One call, or two with all flags reversed when the operation has any."""
    call = CallBuilder(operation, headers, True).build()
    return [call, CallBuilder(operation, headers, False).build()] if call.flags else [call]
