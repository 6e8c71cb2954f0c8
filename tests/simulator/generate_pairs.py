#!/usr/bin/env python3
"""Writes one test row for every set operation and every get operation of the same state: what was set is read back."""

from __future__ import annotations

import copy
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / folder) for folder in ("catalogue", "wire/generator", "tests/client/wire")]

from arguments import Call, Value, build_calls  # noqa: E402
from cells import record_leaves  # noqa: E402
from cxx import row, text  # noqa: E402
from generate_wire_table import TestRows, per_module  # noqa: E402
from model import Catalogue, Module, Operand, Operation, ReplyField, State  # noqa: E402
from outcomes import ITEM_COUNT, Outcomes  # noqa: E402
from program import run  # noqa: E402

BLOCKS = ("ints", "doubles")


def rule_of(operation: Operation) -> State | None:
    """The state of an operation or, for one that only forwards, of the method that sends.

    None when the operation works a part of it out itself.
    """
    if operation.method is None:
        return None
    rule = operation.state or operation.method.state
    operands = (*rule.keys, *(rule.values or ())) if rule else ()
    return None if any(o.literal is None and operation.request[o.index].computed for o in operands) else rule


def operand_values(operation: Operation, operands: tuple[Operand, ...], call: Call) -> list[int | float | str]:
    values = []
    for operand in operands:
        item = operation.request[operand.index] if operand.literal is None else operand
        if item.literal is not None:
            values.append(item.literal)
        elif item.kind in BLOCKS:
            length = int(item.length) if item.length.isdigit() else call.sent[item.length]
            values += call.sent[item.source][:length]
        else:
            values.append(call.sent[item.source])
    return values


def adopt_keys(operation: Operation, call: Call, keys: list[int | float | str]) -> None:
    """Lets a call go for these keys, wherever it takes a key as an int."""
    types = {parameter.name: parameter.type for parameter in operation.signature.parameters}
    for operand, key in zip(rule_of(operation).keys, keys):
        source = operation.request[operand.index].source if operand.literal is None else None
        if types.get(source) == "int":
            call.sent[source] = key
            call.arguments[source] = str(key)


def takes(operation: Operation, call: Call) -> bool:
    """Whether all its numbers lie in the ranges that the row names."""
    numbers = ((call.sent.get(path), allowed) for path, allowed in operation.values.items() if not allowed.enumeration)
    return all(value is None or allowed.holds(value) for value, allowed in numbers)


class StoredOutcome(Outcomes):
    """What a get operation must show when the television keeps `values`."""

    def shown(self, values: list[int | float | str]) -> str:
        seen = copy.deepcopy(self.call.seen)
        if self.reply.shape != "parcel":
            result = int(values[0] != 0) if self.method.result == "bool" else values[0]
            return self._observed(result, seen, None)
        left = list(values)
        results = [self._stored(field, left, seen) for field in self.reply.fields]
        result = 0 if self.method.result in ("zero-or-fail", "zero", "fallback", "characters") else results[0]
        return self._observed(result, seen, (values + [0] * ITEM_COUNT)[:ITEM_COUNT])

    def _stored(self, field: ReplyField, left: list, seen: dict[str, Value]) -> Value | dict[str, Value]:
        if field.kind in self.headers.records:
            record = {path: left.pop(0) for path, _ in record_leaves(self.headers, field.kind, "")}
            if field.target:
                seen.update({f"{field.target}{path}": value for path, value in record.items()})
            return record
        if field.kind in BLOCKS:
            block = self._block(field, left)
            if field.target:
                seen[field.target][: len(block)] = block
            return block
        leads = field.name in {other.count for other in self.reply.fields}
        value = len(left) if leads else left.pop(0)
        value = int(value != 0) if field.kind == "bool" else value
        if field.target and isinstance(seen[field.target], list):
            seen[field.target][0] = value
        elif field.target:
            seen[field.target] = value
        return value

    def _block(self, field: ReplyField, left: list) -> list:
        if field.count in {other.name for other in self.reply.fields}:
            return left
        count = int(field.count) if field.count.isdigit() else self.call.sent[field.count]
        return (left + [0] * count)[:count]


class PairTable:
    """The pairs of one module."""

    def __init__(self, catalogue: Catalogue, module: Module):
        self.headers = catalogue.headers
        self.module = module
        self.rows = TestRows(catalogue, module)

    def _add_pairs(self) -> None:
        operations = [op for op in self.module.operations if rule_of(op)]
        for setter in (op for op in operations if rule_of(op).is_set):
            for getter in (op for op in operations if not rule_of(op).is_set):
                if rule_of(getter).name == rule_of(setter).name:
                    self._add_pair(setter, getter)

    def _add_pair(self, setter: Operation, getter: Operation) -> None:
        """Flags go to one side, to the other and back, so that whatever the state was, each side is seen to arrive.

        A test by hand covers what an irregular getter makes of it.
        """
        calls, get_call = build_calls(setter, self.headers), build_calls(getter, self.headers)[0]
        outcome = StoredOutcome(getter, self.headers, get_call)
        if outcome.irregular or not self._agree(setter, calls, getter, get_call):
            return
        steps = [self._step(setter, call, outcome) for call in calls]
        steps += steps[:1] if len(steps) > 1 else []
        name = f"{setter.name}_then_{getter.name}".replace("::", "_")
        get = self.rows.call_function(getter, get_call)
        self.rows.all.append(row([text(name), self.rows.arrays.name("Step", steps), get]))

    @staticmethod
    def _agree(setter: Operation, calls: list[Call], getter: Operation, get_call: Call) -> bool:
        """Brings all calls to the same keys; whether that is possible."""
        adopt_keys(getter, get_call, operand_values(setter, rule_of(setter).keys, calls[0]))
        keys = operand_values(getter, rule_of(getter).keys, get_call)
        for call in calls:
            adopt_keys(setter, call, keys)
        agreed = all(operand_values(setter, rule_of(setter).keys, call) == keys for call in calls)
        return agreed and takes(getter, get_call) and all(takes(setter, call) for call in calls)

    def _step(self, setter: Operation, call: Call, outcome: StoredOutcome) -> str:
        shown = outcome.shown(operand_values(setter, rule_of(setter).values, call))
        return row([self.rows.call_function(setter, call), text(shown)])

    def source(self) -> str:
        self._add_pairs()
        return self.rows.source("Pair", "simulator/Pairs.h")


sources = per_module("pairs_", lambda catalogue, module: PairTable(catalogue, module).source())

if __name__ == "__main__":
    sys.exit(run(__doc__, sources))
