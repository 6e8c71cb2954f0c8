#!/usr/bin/env python3
"""Writes the tool's table of functions: what can be called, how, and the calls.

What help shows of them, sentences of the headers and the catalogue, stands in tables of its own (`*_texts.cpp`).
"""

from __future__ import annotations

import argparse
import json
import re
import sys
from collections.abc import Iterable
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "catalogue"))

from cells import ANSWER, pointee  # noqa: E402
from docs import Doc, read_docs  # noqa: E402
from folders import add_folder_options, read_named_catalogue  # noqa: E402
from headers import Field, Parameter  # noqa: E402
from model import Catalogue, Function, Method, Module, Operation, ValueSet, WireItem  # noqa: E402
from parameters import ParameterInfo  # noqa: E402
from tables import CatalogueError  # noqa: E402
from value_sets import all_values  # noqa: E402

SCALARS = {
    "int": "Int",
    "unsigned int": "Unsigned",
    "bool": "Bool",
    "double": "Double",
    "char": "Char",
    "unsigned char": "Byte",
    "void": "Byte",
}
DIRECTIONS = {"in": "In", "out": "Out", "inout": "InOut", "unused": "In", "length": "Length"}
ITEMS = "KELU_TV_CMDID_E"


def field_values(catalogue: Catalogue) -> dict[tuple[str, str], ValueSet]:
    """The values of record fields, by record and field, as the rows of their operations say."""
    found = {}
    for operation in catalogue.operations:
        for path, values in operation.values.items():
            root, dot, field = path.partition(".")
            if dot and values.enumeration:
                found[pointee(operation.signature.parameter(root).type), field] = values
    return found


def text(value: str | None) -> str:
    return json.dumps(value or "")


def row(cells: Iterable[str]) -> str:
    return f"{{{', '.join(cells)}}}"


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
        names = [self.names, self.record, str(bounds is not None).lower(), str(low), str(high)]
        return row([f"Kind::{self.kind}", f"Scalar::{self.scalar}", *names])


class Types:
    """The enumerations and records: two tables whose rows all modules refer to."""

    def __init__(self, catalogue: Catalogue):
        self.headers = catalogue.headers
        self.platform = catalogue.platform_records
        self.enumerations = [name for name, enumeration in self.headers.enumerations.items() if enumeration.values]
        self.records = sorted({*self.headers.records, *self.platform})
        self.field_values = field_values(catalogue)

    def names(self, type_name: str, values: ValueSet | None = None) -> str:
        enumeration = values.enumeration if values and values.enumeration else type_name
        known = enumeration in self.enumerations
        return f"&kEnumerationTable[{self.enumerations.index(enumeration)}]" if known else "nullptr"

    def scalar(self, type_name: str) -> str:
        return "Int" if type_name in self.headers.enumerations else SCALARS[type_name]

    def is_record(self, type_name: str) -> bool:
        return type_name in self.records

    def record(self, type_name: str) -> str:
        return f"&kRecordTable[{self.records.index(type_name)}]" if self.is_record(type_name) else "nullptr"

    def _fields(self, record: str) -> tuple[Field, ...]:
        known = self.platform[record].record if record in self.platform else self.headers.records[record]
        return known.fields

    def leaves(self, record: str, prefix: str = "") -> Iterable[Field]:
        for field in self._fields(record):
            text_field = self.headers.arrays.get(field.type)
            nested = field.type in self.headers.records or text_field is not None
            indexes = [f"[{i}]" for i in range(field.count)] if field.count and nested else [""]
            for index in indexes:
                path = f"{prefix}{field.name}{index}"
                if field.type in self.headers.records:
                    yield from self.leaves(field.type, f"{path}.")
                elif text_field:
                    yield Field(text_field.type, path, text_field.count)
                else:
                    yield Field(field.type, path, None if nested else field.count)

    def declarations(self) -> list[str]:
        return [
            f"extern const Enumeration kEnumerationTable[{len(self.enumerations)}];",
            f"extern const Record kRecordTable[{len(self.records)}];",
        ]

    def _field(self, record: str, field: Field) -> str:
        values = self.field_values.get((record, field.name))
        cells = [text(field.name), f"Scalar::{self.scalar(field.type)}", self.names(field.type, values)]
        return row([*cells, f"offsetof({record}, {field.name})", str(field.count or 1)])

    def _enumeration(self, name: str) -> str:
        values = self.headers.enumerations[name].values
        rows = ", ".join(row([text(each), str(value)]) for each, value in values.items())
        return f"constexpr Enumerator k{name}[] = {{{rows}}};"

    def _record(self, name: str) -> str:
        rows = ",\n    ".join(self._field(name, field) for field in self.leaves(name))
        return f"constexpr Field k{name}Fields[] = {{\n    {rows}}};"

    def _enumeration_row(self, name: str) -> str:
        names = list(self.headers.enumerations[name].values)
        return row([text(name), f"k{name}", str(len(common_prefix(names))), text(usual_prefix(names))])

    def source(self, modules: list[Module]) -> str:
        enumerations = ",\n    ".join(self._enumeration_row(name) for name in self.enumerations)
        records = ",\n    ".join(row([text(name), f"sizeof({name})", f"k{name}Fields"]) for name in self.records)
        called = ", ".join(f"functionsOf_{module.name}()" for module in modules)
        return "\n".join(
            [
                "// Generated from the public headers.",
                '#include "tools/kelutv/FunctionTables.h"\n',
                "#include <kelutv/kelutv.h>",
                "\n".join(f"#include <{record.header}>" for record in self.platform.values()) + "\n",
                "#include <cstddef>\n",
                "namespace kelutv::tool {\n",
                *self.declarations(),
                "\nnamespace {\n",
                *(self._enumeration(name) for name in self.enumerations),
                *(self._record(name) for name in self.records),
                "\n} // namespace\n",
                f"const Enumeration kEnumerationTable[{len(self.enumerations)}] = {{\n    {enumerations}}};",
                f"const Record kRecordTable[{len(self.records)}] = {{\n    {records}}};",
                "Rows<Enumeration> allEnumerations() { return kEnumerationTable; }",
                *(f"Rows<Function> functionsOf_{module.name}();" for module in modules),
                f"std::vector<Rows<Function>> functionTables() {{ return {{{called}}}; }}",
                "\n} // namespace kelutv::tool\n",
            ]
        )


def common_prefix(names: list[str]) -> str:
    """What all names begin with, up to and with an underscore."""
    shared = names[0][: names[0].rfind("_") + 1]
    while not all(name.startswith(shared) for name in names):
        shared = shared[: shared.rstrip("_").rfind("_") + 1]
    return shared


def usual_prefix(names: list[str]) -> str:
    """What nearly all names begin with: three of four."""
    found = common_prefix(names)
    for name in names if len(names) > 2 else []:
        for end in (match.end() for match in re.finditer("_", name)):
            shared = sum(each.startswith(name[:end]) for each in names)
            if 4 * shared >= 3 * len(names) and end > len(found):
                found = name[:end]
    return found


class ParameterRow:
    """Writes what the catalogue says of one parameter."""

    def __init__(self, types: Types):
        self.types = types

    def _length(self, parameter: ParameterInfo) -> str:
        return parameter.count or (parameter.room if parameter.room not in (None, ANSWER) else "")

    def _values(self, parameter: ParameterInfo) -> ValueType:
        base = pointee(parameter.type)
        record = self.types.record(base)
        numbers = parameter.kind in ("value", "array") and record == "nullptr"
        scalar = self.types.scalar(parameter.element) if numbers else "Int"
        names = self.types.names(base, parameter.values) if numbers else "nullptr"
        return ValueType(parameter.kind.capitalize(), scalar, names, record, parameter.values)

    def text(self, parameter: ParameterInfo) -> str:
        cells = [
            text(parameter.name),
            text(c_type(parameter.type)),
            f"Direction::{DIRECTIONS[parameter.direction]}",
            str(parameter.type.endswith("*")).lower(),
            str(parameter.allows_null).lower(),
            str(self._values(parameter)),
            text(self._length(parameter)),
            str(parameter.led_by_length).lower(),
        ]
        return row(cells)


def operation_steps(operation: Operation) -> tuple[Operation, ...]:
    return operation.steps if isinstance(operation, Function) else ()


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


class Tables:
    """The tables that the rows of a source refer to."""

    def __init__(self) -> None:
        self.names: dict[str, str] = {}

    def name(self, row_type: str, rows: list[str], called: str | None = None) -> str:
        """The name of a table with these rows; equal tables are written once."""
        if not rows:
            return "{}"
        body = f"constexpr {row_type} %s[] = {{\n    " + ",\n    ".join(rows) + "};"
        return self.names.setdefault(body, f"k{called or row_type}s{len(self.names)}")

    def lines(self) -> list[str]:
        return [body % name for body, name in self.names.items()]


def texts_declaration(module: Module, count: int) -> str:
    return f"extern const FunctionTexts kTextsOf_{module.name}[{count}];"


class TextSource:
    """The C++ source of what help shows of one module's functions."""

    def __init__(self, docs: dict[str, Doc], module: Module):
        self.docs = docs
        self.module = module
        self.tables = Tables()

    @staticmethod
    def _null_rule(operation: Operation) -> str:
        names = list(dict.fromkeys(refusal.parameter for refusal in operation.refusals))
        return f"A null {' or '.join(names)} is refused with nothing sent." if names else ""

    def _row(self, operation: Operation) -> str:
        doc = self.docs.get(operation.name, Doc())
        sentences = [text(doc.parameters.get(parameter.name)) for parameter in operation.signature.parameters]
        texts = [doc.brief, doc.details, doc.returns, self._null_rule(operation), operation.irregular]
        return row([*(text(each) for each in texts), self.tables.name("const char*", sentences, "Sentence")])

    def source(self, operations: list[Operation]) -> str:
        rows = ",\n    ".join(self._row(operation) for operation in operations)
        return "\n".join(
            [
                "// Generated from the public headers and the catalogue.",
                '#include "tools/kelutv/Function.h"\n',
                "namespace kelutv::tool {\n",
                texts_declaration(self.module, len(operations)),
                "\nnamespace {\n",
                *self.tables.lines(),
                "\n} // namespace\n",
                f"const FunctionTexts kTextsOf_{self.module.name}[{len(operations)}] = {{\n    {rows}}};",
                "\n} // namespace kelutv::tool\n",
            ]
        )


class ModuleSource:
    """The C++ source of one module's functions."""

    def __init__(self, catalogue: Catalogue, types: Types, module: Module):
        self.catalogue = catalogue
        self.types = types
        self.module = module
        self.calls: list[str] = []
        self.tables = Tables()

    def _argument(self, index: int, parameter: Parameter) -> str:
        base = pointee(parameter.type)
        if base.startswith("std::"):
            return "frame.devices()"
        if parameter.type.endswith("*"):
            return f"frame.pointer<{base}>({index})"
        return f"frame.value<{parameter.type}>({index})"

    def _call(self, operation: Operation) -> str:
        arguments = ", ".join(self._argument(i, p) for i, p in enumerate(operation.signature.parameters))
        target = operation.name
        if operation.owner:
            made = "()." if self.module.constructed else "::instance()->"
            target = f"{operation.owner}{made}{operation.signature.name}"
        call = f"{target}({arguments})"
        body = f"{call};" if operation.signature.result == "void" else f"frame.store({call});"
        name = f"call{len(self.calls)}"
        unused = "" if "frame" in body else "/*frame*/"
        self.calls.append(f"void {name}(CallFrame& {unused or 'frame'}) {{ {body} }}")
        return name

    def _requests(self, operation: Operation) -> list[str]:
        if operation_steps(operation):
            return [cells for step in operation.steps for cells in self._requests(step)]
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
        if self.types.is_record(declared):
            return ValueType("Record", record=self.types.record(declared))
        values = all_values(operation).get("return")
        return ValueType("Value", self.types.scalar(declared), self.types.names(declared, values), values=values)

    def _row(self, operation: Operation, index: int) -> str:
        parameters = [ParameterRow(self.types).text(each) for each in self.catalogue.parameters[operation.name]]
        cells = [
            text(operation.name),
            text(short_name(operation, self.module)),
            text(self.module.name),
            text(declaration(operation)),
            f"&kTextsOf_{self.module.name}[{index}]",
            self.tables.name("Parameter", parameters),
            str(self._result(operation)),
            text(", ".join(called.name for called in operation.called)),
            self.tables.name("Request", self._requests(operation)),
            str(operation.minus_one != "failure").lower(),
            str(operation.status_is_value).lower(),
            self._call(operation),
        ]
        return row(cells)

    def source(self, operations: list[Operation]) -> str:
        rows = ",\n    ".join(self._row(operation, index) for index, operation in enumerate(operations))
        includes = [header for header in (self.module.header, self.module.c_header) if header]
        return "\n".join(
            [
                "// Generated from the catalogue and the public headers.",
                '#include "tools/kelutv/CallFrame.h"',
                '#include "tools/kelutv/FunctionTables.h"\n',
                *(f"#include <{header}>" for header in includes),
                "\nnamespace kelutv::tool {\n",
                *self.types.declarations(),
                texts_declaration(self.module, len(operations)),
                "\nnamespace {\n",
                *self.tables.lines(),
                *self.calls,
                f"constexpr Function kFunctions[] = {{\n    {rows}}};",
                "\n} // namespace\n",
                f"Rows<Function> functionsOf_{self.module.name}();",
                f"Rows<Function> functionsOf_{self.module.name}() {{ return kFunctions; }}",
                "\n} // namespace kelutv::tool\n",
            ]
        )


def write_if_changed(path: Path, content: str) -> None:
    """Leaves an equal file alone, so that nothing that is made of it is made again."""
    if not path.exists() or path.read_text(encoding="utf-8") != content:
        path.write_text(content, encoding="utf-8")


def sources(catalogue: Catalogue, docs: dict[str, Doc]) -> dict[str, str]:
    """Every source by the name that follows the prefix."""
    types = Types(catalogue)
    operations = offered(catalogue)
    found = {"types": types.source(catalogue.modules)}
    for module in catalogue.modules:
        own = [operation for operation in operations if operation.module == module.name]
        found[module.name] = ModuleSource(catalogue, types, module).source(own)
        found[f"{module.name}_texts"] = TextSource(docs, module).source(own)
    return found


def main(argv: list[str] | None = None) -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    add_folder_options(parser)
    parser.add_argument("folder", type=Path, help="where to write")
    parser.add_argument("prefix", help="what the names of the sources begin with")
    arguments = parser.parse_args(argv)
    try:
        written = sources(read_named_catalogue(arguments), read_docs(arguments.include))
        for name, source in written.items():
            write_if_changed(arguments.folder / f"{arguments.prefix}{name}.cpp", source)
    except (CatalogueError, ValueError) as error:
        print(error, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
