"""The tables of functions: what can be called, how, and the calls."""

from __future__ import annotations

import re
from collections.abc import Iterable
from dataclasses import dataclass

from cells import ANSWER, pointee
from cxx import Arrays, array, boolean, includes, row, source, text
from model import Catalogue, Method, Module, Operation, ValueSet, WireItem
from parameters import ITEMS, ParameterInfo
from texts import texts_declaration
from thunks import Thunks
from value_sets import all_values
from vocabulary import Vocabulary

DIRECTIONS = {"in": "In", "out": "Out", "inout": "InOut", "unused": "In", "length": "Length"}


def called_by(operation: Operation) -> Iterable[Operation]:
    """Every operation that this one calls, directly or through another."""
    for callee in operation.called:
        yield callee
        yield from called_by(callee)


def offered(catalogue: Catalogue) -> list[Operation]:
    """Every C function, and every class method that none of them calls; by module."""
    reached = {callee.name for function in catalogue.functions for callee in called_by(function)}
    found = []
    for module in catalogue.modules:
        found += module.functions
        found += [method for method in module.class_methods if method.name not in reached]
    return found


def short_name(operation: Operation, module: Module) -> str:
    """`audio.setVolume`; the module's own prefix of C functions is left out."""
    if operation.owner:
        return f"{module.name}.{operation.signature.name}"
    bare = operation.name
    for prefix in module.prefixes:
        if bare.startswith(prefix) and bare != prefix:
            bare = bare.removeprefix(prefix)
            break
    return f"{module.name}.{bare}"


def c_type(type_name: str) -> str:
    """`char const*` the way declarations are written: `const char*`."""
    return re.sub(r"^(.*?) const\*", r"const \1*", type_name)


def declaration(operation: Operation) -> str:
    parameters = ", ".join(f"{c_type(p.type)} {p.name}" for p in operation.signature.parameters)
    return f"{operation.signature.result} {operation.name}({parameters})"


@dataclass(frozen=True)
class ValueType:
    kind: str
    scalar: str = "Int"
    names: str = "nullptr"
    record: str = "nullptr"
    values: ValueSet | None = None

    def __str__(self) -> str:
        bounds = self.values if self.values and self.values.bounded else None
        low, high = (bounds.low, bounds.high) if bounds else (0, 0)
        names = [self.names, self.record, boolean(bounds is not None), str(low), str(high)]
        return row([f"Kind::{self.kind}", f"Scalar::{self.scalar}", *names])


class ParameterRow:
    """Writes what the catalogue says of one parameter."""

    def __init__(self, vocabulary: Vocabulary):
        self.vocabulary = vocabulary

    def _length(self, parameter: ParameterInfo) -> str:
        return parameter.count or (parameter.room if parameter.room not in (None, ANSWER) else "")

    def _values(self, parameter: ParameterInfo) -> ValueType:
        base = pointee(parameter.type)
        record = self.vocabulary.record(base)
        numbers = parameter.kind in ("value", "array") and record == "nullptr"
        scalar = self.vocabulary.scalar(parameter.element) if numbers else "Int"
        names = self.vocabulary.names(base, parameter.values) if numbers else "nullptr"
        return ValueType(parameter.kind.capitalize(), scalar, names, record, parameter.values)

    def text(self, parameter: ParameterInfo) -> str:
        cells = [
            text(parameter.name),
            text(c_type(parameter.type)),
            f"Direction::{DIRECTIONS[parameter.direction]}",
            boolean(parameter.type.endswith("*")),
            boolean(parameter.allows_null),
            str(self._values(parameter)),
            text(self._length(parameter)),
            boolean(parameter.led_by_length),
        ]
        return row(cells)


def wire_text(item: WireItem) -> str:
    """One item of a request as a person reads it."""
    if item.computed:
        return "a computed value"
    name = str(item.literal) if item.literal is not None else item.source
    name = item.source if item.literal is not None and item.source and not isinstance(item.literal, str) else name
    return f"{item.kind} {name}[{item.length}]" if item.length else f"{item.kind} {name}"


def reply_text(method: Method) -> str:
    if method.reply.shape != "parcel":
        return {"status": "status", "value": "int value"}[method.reply.shape]
    fields = []
    for field in method.reply.fields:
        count = f"[{field.count}]" if field.count else ""
        fields.append(f"{field.kind}{count}{'...' if field.repeated else ''} {field.name}")
    return ", ".join(fields)


class ModuleSource:
    """The C++ source of one module's functions."""

    def __init__(self, catalogue: Catalogue, vocabulary: Vocabulary, module: Module):
        self.catalogue = catalogue
        self.vocabulary = vocabulary
        self.module = module
        self.thunks = Thunks(module)
        self.arrays = Arrays()

    def _requests(self, operation: Operation) -> list[str]:
        if len(operation.called) > 1:
            return [cells for step in operation.called for cells in self._requests(step)]
        method = operation.method
        if method is None or not method.command:
            return []
        items = list(operation.request)
        item, number = "nullptr", "0"
        if method.items and items and items[0].literal is not None:
            item, number = text(self._enumerator(items[0])), str(items[0].literal)
        arguments = ", ".join(wire_text(each) for each in items)
        cells = [text(method.command), f"0x{method.value:X}", item, number, text(arguments), text(reply_text(method))]
        return [row(cells)]

    def _enumerator(self, item: WireItem) -> str:
        values = self.catalogue.headers.enumerations[ITEMS].values
        return item.source if item.source in values else next(n for n, v in values.items() if v == item.literal)

    def _result(self, operation: Operation) -> ValueType:
        declared = operation.signature.result
        if declared == "void":
            return ValueType("Nothing")
        if declared.startswith("std::"):
            return ValueType("List")
        if self.vocabulary.is_record(declared):
            return ValueType("Record", record=self.vocabulary.record(declared))
        values = all_values(operation).get("return")
        return ValueType("Value", self.vocabulary.scalar(declared), self.vocabulary.names(declared, values), values=values)

    def _row(self, operation: Operation, index: int) -> str:
        parameters = [ParameterRow(self.vocabulary).text(each) for each in self.catalogue.parameters[operation.name]]
        cells = [
            text(operation.name),
            text(short_name(operation, self.module)),
            text(self.module.name),
            text(declaration(operation)),
            f"&kTextsOf_{self.module.name}[{index}]",
            self.arrays.name("Parameter", parameters),
            str(self._result(operation)),
            text(", ".join(called.name for called in operation.called)),
            self.arrays.name("Request", self._requests(operation)),
            boolean(operation.minus_one != "failure"),
            boolean(operation.status_is_value),
            self.thunks.name(operation),
        ]
        return row(cells)

    def source(self, operations: list[Operation]) -> str:
        rows = [self._row(operation, index) for index, operation in enumerate(operations)]
        headers = [header for header in (self.module.header, self.module.c_header) if header]
        return source(
            includes(["tools/kelutv/calls/CallFrame.h", "tools/kelutv/FunctionTables.h"], headers),
            "kelutv::tool",
            shown=[
                f"Rows<Function> functionsOf_{self.module.name}();",
                f"Rows<Function> functionsOf_{self.module.name}() {{ return kFunctions; }}",
            ],
            hidden=[
                *self.arrays.definitions(),
                *self.thunks.definitions(),
                array("constexpr Function kFunctions", rows),
            ],
            declared=[*self.vocabulary.declarations(), texts_declaration(self.module, len(operations))],
        )
