#!/usr/bin/env python3
"""Writes one test row for every set operation and every get operation of the same state: what was set is read back."""

from __future__ import annotations

import argparse
import copy
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "catalogue"), str(ROOT / "tests" / "client" / "wire")]

from arguments import Call, build_calls  # noqa: E402
from cells import record_leaves  # noqa: E402
from generate import ModuleWriter, text_literal  # noqa: E402
from model import Function, Method, Operand, ReplyField, State  # noqa: E402
from outcomes import ITEM_COUNT, Outcomes, Value  # noqa: E402
from reader import read_catalogue  # noqa: E402

Operation = Method | Function


def rule_of(operation: Operation) -> State | None:
    """The state of an operation or, for a C function that only forwards, of its method."""
    if isinstance(operation, Function) and operation.state is None and operation.method:
        return operation.method.state
    return operation.state


def operand_values(operation: Operation, operands: tuple[Operand, ...], call: Call) -> list[int | str]:
    values = []
    for operand in operands:
        item = operation.request[operand.index] if operand.literal is None else operand
        values.append(item.literal if item.literal is not None else call.sent[item.source])
    return values


def read_by(getter: Operation, call: Call, keys: list[int | str]) -> None:
    """Lets the getter's call ask for the keys that the setter's call has."""
    types = {parameter.name: parameter.type for parameter in getter.signature.parameters}
    for operand, key in zip(rule_of(getter).keys, keys):
        source = getter.request[operand.index].source if operand.literal is None else None
        if types.get(source) == "int":
            call.sent[source] = key
            call.arguments[source] = str(key)


def is_covered_by_its_method(getter: Operation) -> bool:
    """Whether it is a C function that treats in its own way what a regular method gives."""
    return isinstance(getter, Function) and getter.result == "irregular" and getter.method.result != "irregular"


class StoredOutcome(Outcomes):
    """What a get operation must show when the television keeps `values`."""

    def shown(self, values: list[int | str]) -> str | None:
        seen = copy.deepcopy(self.call.seen)
        if self.reply.shape != "parcel":
            result = int(values[0] != 0) if self.method.result == "bool" else values[0]
            return self._observed(result, seen, [0] * ITEM_COUNT)
        left = list(values)
        results = [self._stored(field, left, seen) for field in self.reply.fields]
        result = 0 if self.method.result in ("zero-or-fail", "zero") else results[0]
        return self._observed(result, seen, (values + [0] * ITEM_COUNT)[:ITEM_COUNT])

    def _stored(self, field: ReplyField, left: list, seen: dict[str, Value]) -> Value | dict[str, Value]:
        if field.kind in self.headers.records:
            record = {path: left.pop(0) for path, _ in record_leaves(self.headers, field.kind, "")}
            if field.target:
                seen.update({f"{field.target}{path}": value for path, value in record.items()})
            return record
        if field.kind == "ints":
            block = (left + [0] * int(field.count))[: int(field.count)]
            if field.target:
                seen[field.target][: len(block)] = block
            return block
        value = int(left[0] != 0) if field.kind == "bool" else left[0]
        del left[0]
        if field.target:
            seen[field.target] = value
        return value


class PairWriter(ModuleWriter):
    def add_pairs(self) -> None:
        operations = [op for op in [*self.module.methods, *self.module.functions] if rule_of(op)]
        for setter in (op for op in operations if rule_of(op).is_set):
            for getter in (op for op in operations if not rule_of(op).is_set):
                if rule_of(getter).name == rule_of(setter).name and not is_covered_by_its_method(getter):
                    self._add_pair(setter, getter)

    def _add_pair(self, setter: Operation, getter: Operation) -> None:
        """Flags go to one side, to the other and back, so that whatever the state was, each side is seen to arrive."""
        calls = build_calls(setter, self.catalogue.headers)
        get_call = build_calls(getter, self.catalogue.headers)[0]
        read_by(getter, get_call, operand_values(setter, rule_of(setter).keys, calls[0]))
        steps = [self._step(setter, call, getter, get_call) for call in calls]
        steps += steps[:1] if len(steps) > 1 else []
        table = f"kSteps{len(self.tables)}"
        self.tables.append(f"constexpr Step {table}[] = {{{', '.join(steps)}}};")
        name = f"{setter.name}_then_{getter.name}".replace("::", "_")
        self.rows.append(f'    {{"{name}", {table}, {self._call_function(getter, get_call)}}},')

    def _step(self, setter: Operation, call: Call, getter: Operation, get_call: Call) -> str:
        kept, read = rule_of(setter), rule_of(getter)
        if operand_values(setter, kept.keys, call) != operand_values(getter, read.keys, get_call):
            raise SystemExit(f"{setter.name} and {getter.name} do not agree on their keys")
        values = operand_values(setter, kept.values, call)
        shown = StoredOutcome(getter, self.module, self.catalogue.headers, get_call).shown(values)
        if shown is None:
            raise SystemExit(f"{getter.name} is irregular; its pair with {setter.name} needs a test by hand")
        return f"{{{self._call_function(setter, call)}, {text_literal(shown)}}}"

    def write(self) -> str:
        self.add_pairs()
        if not self.rows:
            return "// Generated from the catalogue: no state of this module is both set and read.\n"
        suite = self.module.name.capitalize()
        headers = [header for header in (self.module.header, self.module.c_header) if header]
        return "\n\n".join(
            [
                "\n".join(["// Generated from the catalogue."] + [f"#include <{header}>" for header in headers]),
                '#include "client/wire/WireTable.h"\n#include "simulator/Pairs.h"\n\n#include <algorithm>',
                "namespace kelutv::test {\n\nnamespace {",
                *self.functions,
                *self.tables,
                "const Pair kPairs[] = {\n" + "\n".join(self.rows) + "\n};",
                "} // namespace",
                f"INSTANTIATE_TEST_SUITE_P({suite}, Pairs, ::testing::ValuesIn(kPairs), pairName);",
                "} // namespace kelutv::test\n",
            ]
        )


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("module", help="name of the module's table, such as audio")
    parser.add_argument("output", type=Path, help="the C++ source to write")
    arguments = parser.parse_args()
    catalogue = read_catalogue(ROOT / "catalogue", ROOT / "include")
    module = next(module for module in catalogue.modules if module.name == arguments.module)
    arguments.output.write_text(PairWriter(catalogue, module).write(), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
