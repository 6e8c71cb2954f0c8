"""The tables of commands, items and states: what every request carries, and what it does to a television's state."""

from __future__ import annotations

from cells import record_leaves
from cxx import Arrays, array, boolean, includes, row, source, text
from model import Catalogue, Function, Method, Operand, Operation, Reply, ReplyField, State, ValueSet, WireItem
from program import GenerationError
from vocabulary import Vocabulary

ENCODINGS = {
    "int32": "Int32",
    "int": "Int32",
    "bool": "Int32",
    "double": "Double",
    "cstring": "CString",
    "str16": "String16",
    "ints": "Ints",
    "doubles": "Doubles",
    "bytes": "Bytes",
}
HOLDS = {
    "Int32": "Integers",
    "Ints": "Integers",
    "Double": "Reals",
    "Doubles": "Reals",
    "CString": "Texts",
    "String16": "Texts",
    "Bytes": "Texts",
}
SHAPES = {"status": "Status", "value": "Number", "parcel": "Parcel"}
REST = -1
COUNT_OF_REST = -2


def state_key(operation: Operation, state: State) -> str:
    return f"{operation.method.module}.{state.name}"


class InterfaceTables:
    """Writes the tables of the whole interface."""

    def __init__(self, catalogue: Catalogue, vocabulary: Vocabulary):
        self.catalogue = catalogue
        self.vocabulary = vocabulary
        self.headers = catalogue.headers
        self.kept = [op for op in catalogue.operations if op.state]
        self.states = sorted({state_key(op, op.state) for op in self.kept})
        self.arrays = Arrays()

    def _request(self, operation: Operation) -> str:
        method = operation.method
        rows = []
        for item, declared in zip(operation.request, method.request):
            named = item if item.literal is None else declared
            values = (operation if item.literal is None else method).values.get(named.source.lstrip("*"))
            names = self.vocabulary.names(named.type, values)
            length = self._length_item(operation, item)
            rows.append(row([f"Encoding::{ENCODINGS[item.kind]}", text(named.source), names, str(length)]))
        return self.arrays.name("RequestItem", rows)

    @staticmethod
    def _length_item(operation: Operation, item: WireItem) -> int:
        """Where the request says how long a block is; a block of unsaid length must be the last item."""
        sources = [sent.source for sent in operation.request]
        if item.length in sources:
            return sources.index(item.length)
        if item.length and item is not operation.request[-1]:
            raise GenerationError(operation.place, f"{item.source} is not the last item and its length is not sent")
        return REST

    def _lengths(self, operation: Operation, count: str) -> list[str]:
        """Where the request says how many values are to come; no cell where it does not say all of it."""
        sources = [sent.source for sent in operation.request]
        factors = count.split("*")
        known = [str(sources.index(factor)) for factor in factors if factor in sources]
        return [self.arrays.name("int", known, "Length")] if len(known) == len(factors) else []

    def _reply_field(self, operation: Operation, field: ReplyField, leads: bool) -> list[str]:
        if field.kind in self.headers.records:
            return [
                f"{{Encoding::{ENCODINGS[self._leaf_kind(kind)]}, {text(path[1:])}, {self.vocabulary.names(kind)}, 1}}"
                for path, kind in record_leaves(self.headers, field.kind, "")
            ]
        count = REST if field.repeated else COUNT_OF_REST if leads else 1
        lengths = []
        if field.count is not None:
            count = int(field.count) if field.count.isdigit() else REST
            lengths = self._lengths(operation, field.count)
        names = self.vocabulary.names(field.kind, operation.values.get(field.target or "return"))
        return [row([f"Encoding::{ENCODINGS[field.kind]}", "nullptr", names, str(count), *lengths])]

    def _leaf_kind(self, type_name: str) -> str:
        return "int" if type_name in self.headers.enumerations or type_name == "unsigned int" else type_name

    def _reply(self, operation: Operation) -> str:
        reply = operation.method.reply
        if reply.shape == "value":
            reply = Reply("parcel", (ReplyField("int", "value"),))
        counts = {field.count for field in reply.fields}
        rows = [self._reply_field(operation, field, field.name in counts) for field in reply.fields]
        return self.arrays.name("ReplyField", [leaf for leaves in rows for leaf in leaves])

    def _operands(self, operands: tuple[Operand, ...]) -> str:
        rows = [f"{{{op.index}, 0}}" if op.literal is None else f"{{-1, {op.literal}}}" for op in operands]
        return self.arrays.name("Operand", rows)

    def _rule(self, operation: Operation) -> str:
        state = operation.state
        if state is None:
            return "{StateRule::Access::None, nullptr, {}, {}}"
        access = "Set" if state.is_set else "Get"
        key = f"&kStates[{self.states.index(state_key(operation, state))}]"
        operands = [self._operands(state.keys), self._operands(state.values or ())]
        return row([f"StateRule::Access::{access}", key, *operands])

    def _operation(self, operation: Operation) -> str:
        method = operation.method
        shape = f"Shape::{SHAPES[method.reply.shape]}"
        is_list = len(method.reply.fields) > 1 and any("std::" in each.type for each in method.signature.parameters)
        reply = self._reply(operation)
        cells = [self._request(operation), shape, reply, self._rule(operation)]
        return row([*cells, boolean(is_list)] if is_list else cells)

    def _commands(self) -> list[str]:
        rows: dict[int, tuple[str, Method]] = {}
        for method in self.catalogue.methods:
            number, module = f"0x{method.value:X}", text(method.module)
            cells = row([text(method.command), self._operation(method), number, boolean(method.items), module])
            known = rows.setdefault(method.value, (cells, method))
            if known[0] != cells:
                raise GenerationError(method.place, f"{method.command} differs from its row at {known[1].place}")
        return [rows[value][0] for value in sorted(rows)]

    def _items(self) -> list[str]:
        """Of several rows for one item the first that says what is kept counts; the others must not say otherwise."""
        calls: dict[tuple[int, int], Function] = {}
        for call in self.catalogue.item_calls:
            key = (call.method.value, call.item_value)
            known = calls.setdefault(key, call)
            if known.state and call.state and self._rule(known) != self._rule(call):
                raise GenerationError(call.place, f"{call.item} differs from its row at {known.place}")
            if call.state and not known.state:
                calls[key] = call
        return [f"{{0x{key[0]:X}, {key[1]}, {self._operation(calls[key])}}}" for key in sorted(calls)]

    def _state_rows(self) -> list[str]:
        indexes: dict[str, list[str]] = {}
        values: dict[str, set[str]] = {name: set() for name in self.states}
        for operation in self.kept:
            name = state_key(operation, operation.state)
            held = [self._held_by(operation, key) for key in operation.state.keys]
            if indexes.setdefault(name, held) != held:
                raise GenerationError(operation.place, f"{name} has other keys elsewhere")
            values[name] |= self._values_of(operation)
        return [self._state_row(name, values[name], indexes[name]) for name in self.states]

    def _state_row(self, name: str, values: set[str], indexes: list[str]) -> str:
        held = f"Holds::{values.pop()}" if len(values) == 1 else "Holds::Anything"
        rows = self.arrays.name("Holds", [f"Holds::{index}" for index in indexes])
        return f"{{{text(name)}, {text(name.split('.')[0])}, {held}, {rows}}}"

    @staticmethod
    def _held_by(operation: Operation, operand: Operand) -> str:
        return HOLDS["Int32" if operand.literal is not None else ENCODINGS[operation.request[operand.index].kind]]

    def _values_of(self, operation: Operation) -> set[str]:
        """What a set puts into its state, or a get reads from it."""
        if operation.state.is_set:
            return {self._held_by(operation, value) for value in operation.state.values}
        reply = operation.method.reply
        leaves = [
            self._leaf_kind(kind)
            for field in reply.fields
            for kind in (
                [leaf for _, leaf in record_leaves(self.headers, field.kind, "")]
                if field.kind in self.headers.records
                else [field.kind]
            )
        ]
        return {HOLDS[ENCODINGS[leaf]] for leaf in leaves or ["int"]}

    def source(self) -> str:
        states, commands, items = self._state_rows(), self._commands(), self._items()
        return source(
            includes(["wire/Interface.h"]),
            "kelutv::wire",
            shown=[
                "Rows<Command> allCommands() { return kCommands; }",
                "Rows<Item> allItems() { return kItems; }",
                "Rows<StateKey> allStates() { return kStates; }",
            ],
            hidden=[
                *self.arrays.definitions(),
                array("constexpr StateKey kStates", states),
                array("constexpr Command kCommands", commands),
                array("constexpr Item kItems", items),
            ],
            declared=[self.vocabulary.declared_enumerations()],
        )
