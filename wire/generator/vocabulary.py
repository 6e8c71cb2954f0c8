"""The enumerations and records of the public headers: two tables whose rows all others refer to."""

from __future__ import annotations

import re
from collections.abc import Iterable

from cells import pointee
from cxx import array, includes, row, source, text
from headers import Field
from model import Catalogue, Module, ValueSet

SCALARS = {
    "int": "Int",
    "unsigned int": "Unsigned",
    "bool": "Bool",
    "double": "Double",
    "char": "Char",
    "unsigned char": "Byte",
    "void": "Byte",
}


def field_values(catalogue: Catalogue) -> dict[tuple[str, str], ValueSet]:
    """The values of record fields, by record and field, as the rows of their operations say."""
    found = {}
    for operation in catalogue.operations:
        for path, values in operation.values.items():
            root, dot, field = path.partition(".")
            if dot and values.enumeration:
                found[pointee(operation.signature.parameter(root).type), field] = values
    return found


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


class Vocabulary:
    """Finds the rows of enumerations and records, and writes their tables."""

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
        return array(f"constexpr Enumerator k{name}", (row([text(each), str(value)]) for each, value in values.items()))

    def _record(self, name: str) -> str:
        return array(f"constexpr Field k{name}Fields", (self._field(name, field) for field in self.leaves(name)))

    def _enumeration_row(self, name: str) -> str:
        names = list(self.headers.enumerations[name].values)
        return row([text(name), f"k{name}", str(len(common_prefix(names))), text(usual_prefix(names))])

    def source(self, modules: list[Module]) -> str:
        enumerations = [self._enumeration_row(name) for name in self.enumerations]
        records = [row([text(name), f"sizeof({name})", f"k{name}Fields"]) for name in self.records]
        called = ", ".join(f"functionsOf_{module.name}()" for module in modules)
        platform = dict.fromkeys(record.header for record in self.platform.values())
        return source(
            includes(["tools/kelutv/FunctionTables.h"], ["kelutv/kelutv.h", *platform, "cstddef"]),
            "kelutv::tool",
            shown=[
                array("const Enumeration kEnumerationTable", enumerations),
                array("const Record kRecordTable", records),
                "Rows<Enumeration> allEnumerations() { return kEnumerationTable; }",
                *(f"Rows<Function> functionsOf_{module.name}();" for module in modules),
                f"std::vector<Rows<Function>> functionTables() {{ return {{{called}}}; }}",
            ],
            hidden=[
                *(self._enumeration(name) for name in self.enumerations),
                *(self._record(name) for name in self.records),
            ],
            declared=self.declarations(),
        )
