"""Arguments as the package kelutv takes them, made of what a plan writes."""

from __future__ import annotations

import dataclasses
import typing
from collections.abc import Sequence
from enum import Enum
from typing import Any

from kelutv_station.plan.interface import Field, Function, bytes_of
from kelutv_station.plan.outputs import method_of
from kelutv_station.plan.tables import join, shown

TRUTHS = {"true": True, "yes": True, "on": True, "1": True, "false": False, "no": False, "off": False, "0": False}


def taken(function: Function, fields: Sequence[Field], values: Sequence[Any]) -> tuple[Any, ...]:
    """The arguments, each of the type that is declared. Raises ValueError for one that cannot be."""
    hints = typing.get_type_hints(method_of(function.module, function.name))
    kinds = {name.removesuffix("_"): kind for name, kind in hints.items() if name != "return"}
    given = [(field, value) for field, value in zip(fields, values, strict=True) if field.name in kinds]
    return tuple(_taken(field.name, kinds[field.name], _named(field, value)) for field, value in given)


def _named(field: Field, value: Any) -> Any:
    return value if isinstance(value, str) and _is_whole(value) else field.value_of(value)


def _taken(name: str, kind: Any, value: Any) -> Any:
    if typing.get_origin(kind) in (Sequence, tuple):
        return _entries(name, typing.get_args(kind)[0], value)
    if value is None and type(None) in typing.get_args(kind):
        return None
    if not isinstance(kind, type):
        return _taken(name, typing.get_args(kind)[0], value)
    if kind is bytes:
        return bytes(bytes_of(name, value) if isinstance(value, str) else _entries(name, int, value))
    if dataclasses.is_dataclass(kind):
        return _record(name, kind, value)
    if issubclass(kind, Enum):
        value = _named(Field(name, "int", tuple((each, member.value) for each, member in kind.__members__.items())), value)
    return _plain(name, kind, value)


def _entries(name: str, kind: Any, value: Any) -> list[Any]:
    if not isinstance(value, (list, tuple)):
        raise ValueError(f"{name} must be a list, not {shown(value)}")
    return [_taken(f"{name}[{index}]", kind, entry) for index, entry in enumerate(value)]


def _record(name: str, kind: Any, value: Any) -> Any:
    """A record; fields that the table does not have are zero, and so are missing entries of a list."""
    if not isinstance(value, dict):
        raise ValueError(f"{name} must be a table, not {shown(value)}")
    record, kinds = kind(), typing.get_type_hints(kind)
    for field, each in value.items():
        if field not in kinds:
            raise ValueError(f"{name} has no field {field}; it has: {join(kinds)}")
        new, old = _taken(f"{name}.{field}", kinds[field], each), getattr(record, field)
        if isinstance(old, tuple):
            new = (*new, *old[len(new) :])
        setattr(record, field, new)
    return record


def _plain(name: str, kind: type, value: Any) -> Any:
    text = str(value)
    if kind is bool and text.lower() in TRUTHS:
        return TRUTHS[text.lower()]
    if kind is str and isinstance(value, (str, int, float)):
        return text
    if kind is float and isinstance(value, (int, float, str)) and not isinstance(value, bool):
        return float(value)
    if (kind is int or issubclass(kind, Enum)) and _is_whole(text):
        return int(text, 0)
    raise ValueError(f"{name}: {shown(value)} is no {'true or false' if kind is bool else kind.__name__}")


def _is_whole(text: str) -> bool:
    try:
        int(text, 0)
    except ValueError:
        return False
    return True
