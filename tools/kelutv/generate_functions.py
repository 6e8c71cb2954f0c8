#!/usr/bin/env python3
"""Writes the tool's table of functions: what can be called, how, what the headers say of it, and the calls."""

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

from cells import pointee  # noqa: E402
from docs import Doc, read_docs  # noqa: E402
from headers import Field, Headers, Parameter  # noqa: E402
from model import Catalogue, Function, Method, Module, Operation, ReplyField, ValueSet, WireItem  # noqa: E402
from reader import read_catalogue  # noqa: E402
from tables import CatalogueError  # noqa: E402

SCALARS = {
    "int": "Int",
    "unsigned int": "Unsigned",
    "bool": "Bool",
    "double": "Double",
    "char": "Char",
    "unsigned char": "Byte",
    "void": "Byte",
}
# What stands in the platform's headers and in records of their own kind.
PLATFORM_RECORDS = {
    "SExtPortPlugInOutInfo": (
        Field("int", "externalPort.inputPort"),
        Field("unsigned int", "externalPort.inputDev.hdmiDev"),
        Field("int", "plugState"),
    )
}
TEXT_FIELDS = {"BOE_OD_TableName": 10}
# Several records behind a pointer to one.
RECORD_ARRAYS = {("linux_tv_Factory_getLineODListTable", "pTable")}
# A block that begins with its own length.
LED_BY_LENGTH = {("KeluVbiManager::VbiDataCallback", "vbiData")}
LENGTHS = {("KeluVbiManager::VbiDataCallback", "vbiData"): "length", ("linux_tv_Factory_pqIoCtl", "pParm"): ""}
ITEMS = "KELU_TV_CMDID_E"


def text(value: str | None) -> str:
    return json.dumps(value or "")


def row(cells: Iterable[str]) -> str:
    return f"{{{', '.join(cells)}}}"


def called_by(operation: Operation) -> Iterable[Operation]:
    """Every operation that this one calls, directly or through another."""
    if isinstance(operation, Function):
        for callee in ([operation.callee] if operation.callee else []) + list(operation.steps):
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


def all_values(operation: Operation) -> dict[str, ValueSet]:
    """The operation's value sets, and those of the one it calls where it only passes a parameter on."""
    values = dict(operation.values)
    if isinstance(operation, Function) and operation.callee:
        inherited = all_values(operation.callee)
        names = zip((p.name for p in operation.callee.signature.parameters), operation.arguments)
        for theirs, ours in names:
            if theirs in inherited and ours.isidentifier():
                values.setdefault(ours, inherited[theirs])
        if "return" in inherited and operation.result == "same":
            values.setdefault("return", inherited["return"])
    return values


@dataclass(frozen=True)
class ValueType:
    kind: str
    scalar: str = "Int"
    names: str = "nullptr"
    record: str = "nullptr"
    values: ValueSet | None = None

    def __str__(self) -> str:
        bounds = self.values if self.values and self.values.low is not None else None
        low, high = (bounds.low, bounds.high) if bounds else (0, 0)
        names = [self.names, self.record, str(bounds is not None).lower(), str(low), str(high)]
        return row([f"Kind::{self.kind}", f"Scalar::{self.scalar}", *names])


class Types:
    """The enumerations and records: two tables whose rows all modules refer to."""

    def __init__(self, headers: Headers):
        self.headers = headers
        self.enumerations = [name for name, enumeration in headers.enumerations.items() if enumeration.values]
        self.records = sorted({*headers.records, *PLATFORM_RECORDS})

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

    def leaves(self, record: str, prefix: str = "") -> Iterable[Field]:
        fields = PLATFORM_RECORDS[record] if record in PLATFORM_RECORDS else self.headers.records[record].fields
        for field in fields:
            nested = field.type in self.headers.records or field.type in TEXT_FIELDS
            indexes = [f"[{i}]" for i in range(field.count)] if field.count and nested else [""]
            for index in indexes:
                path = f"{prefix}{field.name}{index}"
                if field.type in self.headers.records:
                    yield from self.leaves(field.type, f"{path}.")
                elif field.type in TEXT_FIELDS:
                    yield Field("char", path, TEXT_FIELDS[field.type])
                else:
                    yield Field(field.type, path, None if nested else field.count)

    def declarations(self) -> list[str]:
        return [
            f"extern const Enumeration kEnumerationTable[{len(self.enumerations)}];",
            f"extern const Record kRecordTable[{len(self.records)}];",
        ]

    def _field(self, record: str, field: Field) -> str:
        values = ValueSet(enumeration="E_MW_CEC_UI_CMD") if field.name == "IrCommand" else None
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
                "#include <kqcommon/ExtPort.h>\n",
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
    """Works out what one parameter is for: which way it goes, and what is behind a pointer."""

    def __init__(self, types: Types, operation: Operation, doc: Doc):
        self.types = types
        self.operation = operation
        self.doc = doc
        self.values = all_values(operation)
        request = [item for callee in (operation, *operation_steps(operation)) for item in callee.request]
        self.sent = {re.match(r"\*?(\w+)", item.source)[1]: item for item in request if self._has_source(item)}
        fields = operation.reply.fields if operation.reply else ()
        self.received = {field.target: field for field in fields if field.target}
        outputs = [output for layer in operation.layers for output in layer.outputs]
        self.outputs = {output.target.split(".")[0]: output for output in outputs}
        self.lengths = {item.length: name for name, item in self.sent.items() if item.length}
        for (owner, block), length in LENGTHS.items():
            if owner == operation.name:
                self.lengths[length] = block

    @staticmethod
    def _has_source(item: WireItem) -> bool:
        return item.literal is None and not item.computed

    def _said(self, parameter: Parameter) -> str:
        return self.doc.parameters.get(parameter.name, "")

    def _is_output(self, parameter: Parameter) -> bool:
        if not parameter.type.endswith("*") or parameter.type.endswith("const*"):
            return False
        written = parameter.name in self.received or parameter.name in self.outputs
        return written or self._said(parameter).startswith(("Receives", "Room for", "The devices are added", "In: "))

    def direction(self, parameter: Parameter) -> str:
        if parameter.name in self.lengths and not parameter.type.endswith("*"):
            return "Length"
        if not self._is_output(parameter):
            return "In"
        return "InOut" if parameter.name in self.sent else "Out"

    def _pointer_kind(self, parameter: Parameter) -> tuple[str, str]:
        """The kind behind a pointer to numbers, and what says how many there are."""
        name = parameter.name
        if pointee(parameter.type) in ("void", "unsigned char") and name not in self.received:
            return "Array", self._byte_length(name)
        if name in self.sent and self.sent[name].kind in ("ints", "doubles", "bytes"):
            return "Array", self.sent[name].length
        if name in self.received:
            field = self.received[name]
            return ("Array", self._count(field)) if field.count else ("Value", "")
        if name in self.outputs:
            return ("Array", self._sibling_count()) if self.outputs[name].part == "entries" else ("Value", "")
        is_list = pointee(parameter.type) == "int" and not re.search(r"(?i)(size|length|count)$", name)
        return ("Array", self._sibling_count()) if is_list else ("Value", "")

    def _byte_length(self, name: str) -> str:
        key = (self.operation.name, name)
        if key in LENGTHS:
            return LENGTHS[key]
        return self.sent[name].length if name in self.sent else "outSize"

    def _sibling_count(self) -> str:
        names = [p.name for p in self.operation.signature.parameters if p.type == "int*"]
        return next((name for name in names if re.search(r"(?i)(size|length|count)$", name)), "")

    def _count(self, field: ReplyField) -> str:
        counted = {f.name: f.target for f in self.operation.reply.fields if f.kind == "int"}
        return counted.get(field.count) or field.count

    def _kind(self, parameter: Parameter) -> tuple[str, str]:
        base = pointee(parameter.type)
        if (self.operation.name, parameter.name) in RECORD_ARRAYS:
            return "Array", ""
        if self.types.is_record(base):
            return "Record", ""
        if base.startswith("std::"):
            return "List", ""
        if base in self.types.headers.callbacks:
            return "Callback", ""
        if base == "char":
            return "Text", ""
        return self._pointer_kind(parameter) if parameter.type.endswith("*") else ("Value", "")

    def _scalar(self, parameter: Parameter, kind: str) -> str:
        base = pointee(parameter.type)
        is_item_buffer = base == "void" and parameter.name in self.received
        is_plain = kind in ("Value", "Array") and not self.types.is_record(base)
        return "Int" if is_item_buffer or not is_plain else self.types.scalar(base)

    def _names(self, parameter: Parameter) -> str:
        said = re.search(r"\bof `(\w+)`(?! and so on)", self._said(parameter))
        documented = ValueSet(enumeration=said[1]) if said and said[1] in self.types.headers.enumerations else None
        item = ValueSet(enumeration=ITEMS) if self._is_item(parameter) else None
        return self.types.names(pointee(parameter.type), self.values.get(parameter.name) or documented or item)

    def _is_item(self, parameter: Parameter) -> bool:
        method, request = self.operation.method, self.operation.request
        return method is not None and method.items and request[0].source == parameter.name

    def _allows_null(self, parameter: Parameter, kind: str) -> bool:
        said = self._said(parameter)
        refused = any(refusal.parameter == parameter.name for refusal in self.operation.refusals)
        documented = re.search(r"\bnull\b", said) is not None and "ust not be null" not in said
        return kind == "Callback" or refused or documented

    def text(self, parameter: Parameter) -> str:
        kind, length = self._kind(parameter)
        base = pointee(parameter.type)
        record = self.types.record(base)
        numbers = self._scalar(parameter, kind)
        names = self._names(parameter) if kind in ("Value", "Array") and record == "nullptr" else "nullptr"
        values = ValueType(kind, numbers, names, record, self.values.get(parameter.name))
        cells = [
            text(parameter.name),
            text(c_type(parameter.type)),
            text(self._said(parameter)),
            f"Direction::{self.direction(parameter)}",
            str(parameter.type.endswith("*")).lower(),
            str(self._allows_null(parameter, kind)).lower(),
            str(values),
            text(length),
            str((self.operation.name, parameter.name) in LED_BY_LENGTH).lower(),
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


class ModuleSource:
    """The C++ source of one module's functions."""

    def __init__(self, catalogue: Catalogue, types: Types, docs: dict[str, Doc], module: Module):
        self.catalogue = catalogue
        self.types = types
        self.docs = docs
        self.module = module
        self.calls: list[str] = []
        self.tables: dict[str, str] = {}

    def _table(self, row_type: str, rows: list[str]) -> str:
        """The name of a table with these rows; equal tables are written once."""
        if not rows:
            return "{}"
        body = f"constexpr {row_type} %s[] = {{\n    " + ",\n    ".join(rows) + "};"
        return self.tables.setdefault(body, f"k{row_type}s{len(self.tables)}")

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

    @staticmethod
    def _is_value(operation: Operation) -> bool:
        """Whether -1 may be a value that the service gave."""
        kinds = [operation.method.result if operation.method else "", *(layer.result for layer in operation.layers)]
        plain = all(kind == "same" for kind in kinds[1:])
        return kinds[0] in ("bool", "zero", "record", "list", "fallback", "characters") or plain and (
            kinds[0] == "value" or ModuleSource._reads_status(operation)
        )

    @staticmethod
    def _reads_status(operation: Operation) -> bool:
        method = operation.method
        is_status = method is not None and method.reply is not None and method.reply.shape == "status"
        return is_status and re.match(r"get|is", method.signature.name) is not None and method.irregular is not None

    def _null_rule(self, operation: Operation) -> str:
        names = list(dict.fromkeys(refusal.parameter for refusal in operation.refusals))
        if not names:
            return ""
        return f"A null {' or '.join(names)} is refused with nothing sent."

    def row(self, operation: Operation) -> str:
        doc = self.docs[operation.name]
        parameters = ParameterRow(self.types, operation, doc)
        cells = [
            text(operation.name),
            text(short_name(operation, self.module)),
            text(self.module.name),
            text(declaration(operation)),
            text(doc.brief),
            text(doc.details),
            text(doc.returns),
            self._table("Parameter", [parameters.text(p) for p in operation.signature.parameters]),
            str(self._result(operation)),
            self._table("Request", self._requests(operation)),
            text(self._null_rule(operation)),
            text(operation.irregular),
            str(self._is_value(operation)).lower(),
            str(self._reads_status(operation)).lower(),
            self._call(operation),
        ]
        return row(cells)

    def source(self, operations: list[Operation]) -> str:
        rows = ",\n    ".join(self.row(operation) for operation in operations)
        includes = [header for header in (self.module.header, self.module.c_header) if header]
        return "\n".join(
            [
                "// Generated from the catalogue and the public headers.",
                '#include "tools/kelutv/CallFrame.h"',
                '#include "tools/kelutv/FunctionTables.h"\n',
                *(f"#include <{header}>" for header in includes),
                "\nnamespace kelutv::tool {\n",
                *self.types.declarations(),
                "\nnamespace {\n",
                *(body % name for body, name in self.tables.items()),
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


def write_sources(folder: Path, prefix: str) -> None:
    catalogue = read_catalogue(ROOT / "catalogue", ROOT / "include")
    docs = read_docs(ROOT / "include")
    types = Types(catalogue.headers)
    operations = offered(catalogue)
    for module in catalogue.modules:
        own = [operation for operation in operations if operation.module == module.name]
        source = ModuleSource(catalogue, types, docs, module).source(own)
        write_if_changed(folder / f"{prefix}{module.name}.cpp", source)
    write_if_changed(folder / f"{prefix}types.cpp", types.source(catalogue.modules))


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=Path, help="where to write")
    parser.add_argument("prefix", help="what the names of the sources begin with")
    arguments = parser.parse_args()
    try:
        write_sources(arguments.folder, arguments.prefix)
    except (CatalogueError, ValueError) as error:
        print(error, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
