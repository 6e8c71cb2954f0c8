"""The enumerations and records of the public headers: two tables whose rows all others refer to."""

from __future__ import annotations

from collections.abc import Iterable

from cells import pointee
from cxx import Arrays, array, boolean, includes, optional, row, source, text, text_or_null
from headers import Enumeration, Field, Record
from model import Catalogue, ValueSet
from program import GenerationError
from tables import Place

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
            if dot:
                found[pointee(operation.signature.parameter(root).type), field] = values
    return found


def range_of(values: ValueSet | None, arrays: Arrays) -> str:
    """A pointer to what is known of the values of a number."""
    if values is None or values.enumeration:
        return "nullptr"
    known = (values.low, values.high, values.step, values.default)
    cells = [*(optional(None if each is None else str(each)) for each in known), text_or_null(values.unit)]
    return arrays.name("Range", [row(cells)])


class Vocabulary:
    """Finds the rows of enumerations and records, and writes their tables."""

    def __init__(self, catalogue: Catalogue):
        self.headers = catalogue.headers
        self.platform = catalogue.platform_records
        self.enumerations = {name: each for name, each in sorted(self.headers.enumerations.items()) if each.values}
        self.records = sorted({*self.headers.records, *self.platform})
        self.field_values = field_values(catalogue)
        self.arrays = Arrays()

    def names(self, type_name: str, values: ValueSet | None = None) -> str:
        enumeration = values.enumeration if values and values.enumeration else type_name
        known = enumeration in self.enumerations
        return f"&kEnumerations[{list(self.enumerations).index(enumeration)}]" if known else "nullptr"

    def scalar(self, type_name: str, place: Place) -> str:
        """What a value of this type is in memory; the row at `place` has one."""
        if type_name in self.headers.enumerations:
            return "Int"
        if type_name not in SCALARS:
            known = ", ".join(name for name in SCALARS if name != "void")
            raise GenerationError(place, f"a value of type {type_name} is none of: {known}, an enumeration, a record")
        return SCALARS[type_name]

    def is_record(self, type_name: str) -> bool:
        return type_name in self.records

    def record(self, type_name: str) -> str:
        return f"&kRecords[{self.records.index(type_name)}]" if self.is_record(type_name) else "nullptr"

    def _record(self, name: str) -> Record:
        return self.platform[name].record if name in self.platform else self.headers.records[name]

    def fields(self, record: str) -> tuple[Field, ...]:
        return self._record(record).fields

    def leaves(self, record: str, prefix: str = "") -> Iterable[Field]:
        for field in self.fields(record):
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

    def declared_enumerations(self) -> str:
        return f"extern const Enumeration kEnumerations[{len(self.enumerations)}];"

    def declared_records(self) -> str:
        return f"extern const Record kRecords[{len(self.records)}];"

    def _enumerator_row(self, enumeration: Enumeration, name: str) -> str:
        return row([text(name), str(enumeration.values[name]), boolean(name in enumeration.end_markers)])

    def _enumerator_rows(self) -> list[str]:
        rows = {name: self._enumerator_row(each, name) for each in self.enumerations.values() for name in each.values}
        return [rows[name] for name in sorted(rows)]

    def _values(self, enumeration: Enumeration) -> str:
        rows = (self._enumerator_row(enumeration, name) for name in enumeration.values)
        return array(f"constexpr Enumerator k{enumeration.name}", rows)

    def _field(self, record: str, field: Field) -> str:
        values = self.field_values.get((record, field.name))
        cells = [
            text(field.name),
            f"ScalarType::{self.scalar(field.type, self._record(record).place)}",
            self.names(field.type, values),
            range_of(values, self.arrays),
            f"offsetof({record}, {field.name})",
            str(field.count or 1),
        ]
        return row(cells)

    def _fields(self, record: str) -> str:
        return array(f"constexpr Field k{record}Fields", (self._field(record, each) for each in self.leaves(record)))

    def source(self) -> str:
        enumerations = [row([text(name), f"k{name}"]) for name in self.enumerations]
        records = [row([text(name), f"sizeof({name})", f"k{name}Fields"]) for name in self.records]
        fields = [self._fields(record) for record in self.records]
        platform = dict.fromkeys(record.header for record in self.platform.values())
        return source(
            includes(["wire/Record.h"], ["kelutv/kelutv.h", *platform, "cstddef"]),
            "kelutv::wire",
            shown=[
                array("const Enumeration kEnumerations", enumerations),
                array("const Record kRecords", records),
                "Rows<Enumeration> allEnumerations() { return kEnumerations; }",
                "Rows<Record> allRecords() { return kRecords; }",
                "Rows<Enumerator> allEnumerators() { return kEnumerators; }",
            ],
            hidden=[
                array("constexpr Enumerator kEnumerators", self._enumerator_rows()),
                *(self._values(enumeration) for enumeration in self.enumerations.values()),
                *self.arrays.definitions(),
                *fields,
            ],
            declared=[self.declared_enumerations(), self.declared_records()],
        )
