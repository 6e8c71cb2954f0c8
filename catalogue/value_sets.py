"""The value sets of an operation with those of the operations that it calls."""

from __future__ import annotations

from collections.abc import Iterable

from model import Function, Operation, ValueSet


def all_values(operation: Operation) -> dict[str, ValueSet]:
    """The operation's value sets, and those of the one it calls where it only passes a parameter on."""
    values = dict(operation.values)
    if isinstance(operation, Function) and operation.callee:
        inherited = all_values(operation.callee)
        for theirs, ours in passed_on(operation):
            if theirs in inherited:
                values.setdefault(ours, inherited[theirs])
        if "return" in inherited and operation.result == "same":
            values.setdefault("return", inherited["return"])
    return values


def passed_on(function: Function) -> Iterable[tuple[str, str]]:
    """The parameters of the operation called that get one of the function's own, each with that one."""
    own = {parameter.name for parameter in function.signature.parameters}
    names = (parameter.name for parameter in function.callee.signature.parameters)
    return [(theirs, ours) for theirs, ours in zip(names, function.arguments) if ours in own]
