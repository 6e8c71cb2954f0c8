"""The table of functions: what can be called, and how."""

from __future__ import annotations

import re
from collections.abc import Iterable

from cells import ANSWER, pointee
from cxx import Arrays, array, boolean, includes, optional, row, source, text, text_or_null
from effects import reads_back
from model import Catalogue, Method, Module, Operation, ValueSet, WireItem
from parameters import ITEMS, ParameterInfo
from program import GenerationError
from tables import Place
from texts import texts_declaration
from value_sets import all_values
from vocabulary import Vocabulary, range_of

EFFECTS = {"read": "Read", "set": "Set", "action": "Action", "print-only": "PrintOnly"}
KINDS = {
    "value": "Single",
    "text": "Text",
    "array": "Array",
    "record": "Record",
    "list": "List",
    "callback": "Callback",
}
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


class FunctionTable:
    """Writes the rows of all functions that are offered, in their order."""

    def __init__(self, catalogue: Catalogue, vocabulary: Vocabulary):
        self.catalogue = catalogue
        self.vocabulary = vocabulary
        self.operations = offered(catalogue)
        self.names = {operation.name for operation in self.operations}
        self.arrays = Arrays()

    def _values(
        self,
        kind: str,
        scalar: str = "Int",
        names: str = "nullptr",
        record: str = "nullptr",
        known: ValueSet | None = None,
    ) -> str:
        """What a value may be; of the values that are `known` the range, if it is one."""
        return row([f"ValueKind::{kind}", f"ScalarType::{scalar}", names, record, range_of(known, self.arrays)])

    def _parameter_values(self, parameter: ParameterInfo, place: Place) -> str:
        base = pointee(parameter.type)
        record = self.vocabulary.record(base)
        kind = KINDS[parameter.kind]
        if parameter.kind not in ("value", "array") or record != "nullptr":
            return self._values(kind, record=record)
        names = self.vocabulary.names(base, parameter.values)
        return self._values(kind, self.vocabulary.scalar(parameter.element, place), names, known=parameter.values)

    def _parameter(self, parameter: ParameterInfo, place: Place) -> str:
        length = parameter.count or (parameter.room if parameter.room != ANSWER else None)
        cells = [
            text(parameter.name),
            text(c_type(parameter.type)),
            f"Direction::{DIRECTIONS[parameter.direction]}",
            boolean(parameter.type.endswith("*")),
            boolean(parameter.allows_null),
            self._parameter_values(parameter, place),
            text(length),
            boolean(parameter.led_by_length),
        ]
        return row(cells)

    def _result(self, operation: Operation) -> str:
        declared = operation.signature.result
        if declared == "void":
            return self._values("Nothing")
        if declared.startswith("std::"):
            return self._values("List")
        if self.vocabulary.is_record(declared):
            return self._values("Record", record=self.vocabulary.record(declared))
        known = all_values(operation).get("return")
        return self._values(
            "Single",
            self.vocabulary.scalar(declared, operation.place),
            self.vocabulary.names(declared, known),
            known=known,
        )

    def _back(self, operation: Operation) -> str | None:
        """What can be called to read what a set is about to change: of a method that has one, its C function."""
        getter = operation.effect.back
        if getter is None or getter in self.names:
            return getter
        callers = (each for each in self.catalogue.functions if getter in [called.name for called in each.called])
        found = next((each.name for each in callers if each.name in self.names and reads_back(each, operation)), None)
        if found is None:
            raise GenerationError(operation.place, f"no function reads back with {getter}")
        return found

    def _effect(self, operation: Operation) -> str:
        effect = operation.effect
        kept = optional(None if effect.kept is None else boolean(effect.kept))
        kind = f"EffectKind::{EFFECTS[effect.kind]}"
        return row([kind, text_or_null(self._back(operation)), kept, boolean(effect.dangerous)])

    def _requests(self, operation: Operation) -> list[str]:
        if len(operation.called) > 1:
            return [cells for step in operation.called for cells in self._requests(step)]
        method = operation.method
        if method is None or not method.command:
            return []
        items = list(operation.request)
        item, value = None, 0
        if method.items and items and items[0].literal is not None:
            item, value = self._enumerator(items[0]), items[0].literal
        arguments = text(", ".join(wire_text(each) for each in items))
        named = [text(method.command), f"0x{method.value:X}", text_or_null(item), str(value)]
        return [row([*named, arguments, text(reply_text(method))])]

    def _enumerator(self, item: WireItem) -> str:
        values = self.catalogue.headers.enumerations[ITEMS].values
        return item.source if item.source in values else next(n for n, v in values.items() if v == item.literal)

    def _row(self, operation: Operation, index: int) -> str:
        module = self.catalogue.module(operation.module)
        parameters = [self._parameter(each, operation.place) for each in self.catalogue.parameters[operation.name]]
        cells = [
            text(operation.name),
            text(short_name(operation, module)),
            text(module.name),
            text(declaration(operation)),
            f"&kTexts[{index}]",
            self.arrays.name("Parameter", parameters),
            self._result(operation),
            self._effect(operation),
            text(", ".join(called.name for called in operation.called)),
            self.arrays.name("SentRequest", self._requests(operation)),
            boolean(operation.minus_one != "failure"),
            boolean(operation.status_is_value),
        ]
        return row(cells)

    def source(self) -> str:
        rows = [self._row(operation, index) for index, operation in enumerate(self.operations)]
        return source(
            includes(["wire/Function.h"]),
            "kelutv::wire",
            shown=["Rows<Function> allFunctions() { return kFunctions; }"],
            hidden=[*self.arrays.definitions(), array("constexpr Function kFunctions", rows)],
            declared=[
                self.vocabulary.declared_enumerations(),
                self.vocabulary.declared_records(),
                texts_declaration(len(rows)),
            ],
        )
