"""Distinct marker arguments for a call, what they put on the wire, and what a call can write back through them."""

from __future__ import annotations

from dataclasses import dataclass, field

from cells import pointee, record_leaves
from headers import Headers, Parameter, Signature
from model import Function, Method, ValueSet

UNTOUCHED_INT = 0x5A5A5A5A
UNTOUCHED_TEXT = "untouched"
BUFFER_INTS = 256
BUFFER_CHARS = 256
BUFFER_BYTES = 256
WORDS = ["alpha", "bravo", "charlie", "delta", "echo", "foxtrot"]


@dataclass
class Call:
    """One call under construction.

    `sent` maps a wire source to its value. `seen` maps a label to what the call may write there and starts with the
    value it has before; `expressions` gives the C++ text that reads each label. `setup` holds each parameter's
    preparing statements.
    """

    setup: dict[str, list[str]] = field(default_factory=dict)
    arguments: dict[str, str] = field(default_factory=dict)
    sent: dict[str, int | str | bytes] = field(default_factory=dict)
    seen: dict[str, int | str | list[int]] = field(default_factory=dict)
    expressions: dict[str, str] = field(default_factory=dict)
    flags: list[bool] = field(default_factory=list)


class CallBuilder:
    """Gives every parameter a marker; flags alternate, starting with `first_flag`."""

    def __init__(self, operation: Method | Function, headers: Headers, first_flag: bool):
        self.signature: Signature = operation.signature
        self.values: dict[str, ValueSet] = operation.values
        self.headers = headers
        self.blocks = {item.source for item in operation.request if item.kind == "bytes"}
        self.flag = not first_flag
        self.call = Call()

    def build(self) -> Call:
        for position, parameter in enumerate(self.signature.parameters):
            self._add(parameter, (position + 1) * 11, WORDS[position % len(WORDS)])
        return self.call

    def _next_flag(self) -> bool:
        self.flag = not self.flag
        self.call.flags.append(self.flag)
        return self.flag

    def _add(self, parameter: Parameter, marker: int, word: str) -> None:
        base = pointee(parameter.type)
        if base in self.headers.records:
            self._add_record(parameter, base, marker)
        elif parameter.type.endswith("*"):
            self._add_pointer(parameter, base, word)
        else:
            self._add_scalar(parameter, marker)

    def _number(self, path: str, type_name: str, marker: int) -> int:
        if type_name == "bool":
            return int(self._next_flag())
        allowed = self.values.get(path)
        if allowed and allowed.low is not None:
            return min(allowed.low + 2, allowed.high)
        return marker

    def _literal(self, type_name: str, number: int) -> str:
        if type_name == "bool":
            return "true" if number else "false"
        if type_name in ("int", "unsigned int"):
            return str(number)
        if type_name in self.headers.enumerations:
            return f"static_cast<{type_name}>({number})"
        raise ValueError(f"{self.signature.name}: no marker for an argument of type {type_name}")

    def _add_scalar(self, parameter: Parameter, marker: int) -> None:
        number = self._number(parameter.name, parameter.type, marker)
        self.call.arguments[parameter.name] = self._literal(parameter.type, number)
        self.call.sent[parameter.name] = number

    def _add_record(self, parameter: Parameter, record: str, marker: int) -> None:
        by_pointer = parameter.type.endswith("*")
        setup = self.call.setup[parameter.name] = [f"{record} {parameter.name}{{}};"]
        for position, (path, type_name) in enumerate(record_leaves(self.headers, record, parameter.name), 1):
            number = self._number(path, type_name, marker * 100 + position)
            setup.append(f"{path} = {self._literal(type_name, number)};")
            self.call.sent[path] = number
            if by_pointer and not parameter.type.endswith("const*"):
                self._see(path, number, path)
        self.call.arguments[parameter.name] = f"{'&' if by_pointer else ''}{parameter.name}"

    def _see(self, label: str, value: int | str | list[int], expression: str) -> None:
        self.call.seen[label] = value
        self.call.expressions[label] = expression

    def _add_pointer(self, parameter: Parameter, base: str, word: str) -> None:
        name = parameter.name
        self.call.arguments[name] = name
        if parameter.type == "char const*":
            self.call.arguments[name] = f'"{word}"'
            self.call.sent[name] = word
        elif name in self.blocks:
            fill = f"std::iota({name}, {name} + {BUFFER_BYTES}, static_cast<unsigned char>(1));"
            self.call.setup[name] = [f"unsigned char {name}[{BUFFER_BYTES}];", fill]
            self.call.sent[name] = bytes(i % 256 for i in range(1, BUFFER_BYTES + 1))
        elif base == "char":
            self.call.setup[name] = [f'char {name}[{BUFFER_CHARS}] = "{UNTOUCHED_TEXT}";']
            self._see(name, UNTOUCHED_TEXT, name)
        elif base in ("int", "void"):
            fill = f"std::fill_n({name}, {BUFFER_INTS}, {UNTOUCHED_INT});"
            self.call.setup[name] = [f"int {name}[{BUFFER_INTS}];", fill]
            self._see(name, [UNTOUCHED_INT] * BUFFER_INTS, name)
        else:
            number = self._number(name, base, UNTOUCHED_INT)
            self.call.setup[name] = [f"{base} {name} = {self._literal(base, number)};"]
            self.call.arguments[name] = f"&{name}"
            self._see(name, number, name)


def build_calls(operation: Method | Function, headers: Headers) -> list[Call]:
    """One call, or two with all flags reversed when the operation has any."""
    call = CallBuilder(operation, headers, True).build()
    return [call, CallBuilder(operation, headers, False).build()] if call.flags else [call]
