"""The names of what a function gives, by which a plan limits it and results tell it."""

from __future__ import annotations

import dataclasses
import importlib
import typing
from collections.abc import Sequence
from typing import Any

RESULT = "result"


def named(values: Any, outputs: Sequence[str]) -> dict[str, Any]:
    """What a function gave, by name: several values by those of its outputs, behind its own result where it has one; the
    fields of a record by theirs, those within another value behind its name and a dot."""
    if values is None:
        return {}
    if type(values) is tuple:
        return _flat(dict(zip(_names_of_several(len(values), outputs), values, strict=True)))
    return _flat(_fields_of(values) or {RESULT: values})


def method_of(module: str, function: str) -> Any:
    """The method of the package kelutv that calls a function."""
    (owner,) = importlib.import_module(f"kelutv.modules.{module}").__all__
    return getattr(getattr(importlib.import_module(f"kelutv.modules.{module}"), owner), function.rpartition("::")[2])


def result_names(module: str, function: str, outputs: Sequence[str]) -> tuple[str, ...]:
    """The names that named() gives what a function gives."""
    given = typing.get_type_hints(method_of(module, function))["return"]
    if given is type(None):
        return ()
    if typing.get_origin(given) is tuple:
        kinds = typing.get_args(given)
        return tuple(_names_within(dict(zip(_names_of_several(len(kinds), outputs), kinds, strict=True))))
    return tuple(_names_within(_kinds_of(given) or {RESULT: given}))


def _names_of_several(count: int, outputs: Sequence[str]) -> tuple[str, ...]:
    return (RESULT, *outputs)[-count:]


def _flat(values: dict[str, Any]) -> dict[str, Any]:
    flat = {}
    for name, value in values.items():
        fields = _fields_of(value)
        flat.update({f"{name}.{field}": each for field, each in _flat(fields).items()} if fields else {name: value})
    return flat


def _fields_of(value: Any) -> dict[str, Any]:
    if not dataclasses.is_dataclass(value) or isinstance(value, type):
        return {}
    return {field.name: getattr(value, field.name) for field in dataclasses.fields(value)}


def _names_within(kinds: dict[str, Any]) -> list[str]:
    names = []
    for name, kind in kinds.items():
        fields = _kinds_of(kind)
        names += [f"{name}.{field}" for field in _names_within(fields)] if fields else [name]
    return names


def _kinds_of(kind: Any) -> dict[str, Any]:
    """The fields of a record, each with its type."""
    if not isinstance(kind, type) or not dataclasses.is_dataclass(kind):
        return {}
    return {field.name: typing.get_type_hints(kind)[field.name] for field in dataclasses.fields(kind)}
