"""Records and enumerated values in memory."""

from __future__ import annotations

import struct
from collections.abc import Callable
from functools import cache
from typing import Any

from . import enums, records
from ._library import places
from ._table import RECORDS


def of_kind(error: Exception, text: str) -> Exception:
    """An error of the same family, TypeError, OverflowError or ValueError, that says this."""
    return next((kind for kind in (TypeError, OverflowError) if isinstance(error, kind)), ValueError)(text)


def encoded(text: str) -> bytes:
    """A text as C has it, without the zero; bytes that are no UTF-8 come as lone surrogates and go back as they were."""
    data = text.encode("utf-8", "surrogateescape")
    if b"\0" in data:
        raise ValueError("a text for the television cannot hold a zero character")
    return data


def decoded(data: bytes | bytearray) -> str:
    """A text up to its zero."""
    end = data.find(b"\0")
    return (data if end < 0 else data[:end]).decode("utf-8", "surrogateescape")


@cache
def to_named(enumeration: str) -> Callable[[int], Any]:
    """What makes the enumerator of a number; without a name of an enumeration the number stays."""
    if not enumeration:
        return int
    kind = getattr(enums, enumeration)
    known = kind._value2member_map_

    def named(value: int) -> Any:
        return known.get(value) or kind(value)

    return named


Getter = Callable[[bytearray, int], Any]
Putter = Callable[[bytearray, int, Any], None]


def _text_field(room: int) -> tuple[Getter, Putter, int]:
    def get(data: bytearray, at: int) -> str:
        return decoded(data[at : at + room])

    def put(data: bytearray, at: int, value: str) -> None:
        text = encoded(value)
        if len(text) > room:
            raise ValueError(f"'{value}' has {len(text)} bytes, {room} is the most")
        data[at : at + len(text)] = text

    return get, put, room


def _record_field(name: str) -> tuple[Getter, Putter, int]:
    return reader(name), lambda data, at, value: pack_into(name, data, at, value), size(name)


def _number_field(code: str, enumeration: str) -> tuple[Getter, Putter, int]:
    form, named = struct.Struct(code), to_named(enumeration) if enumeration else None

    def get(data: bytearray, at: int) -> Any:
        (value,) = form.unpack_from(data, at)
        return named(value) if named else value

    def put(data: bytearray, at: int, value: Any) -> None:
        form.pack_into(data, at, value)

    return get, put, form.size


def _repeated(get: Getter, put: Putter, count: int, step: int) -> tuple[Getter, Putter]:
    def get_all(data: bytearray, at: int) -> tuple[Any, ...]:
        return tuple(get(data, at + i * step) for i in range(count))

    def put_all(data: bytearray, at: int, values: Any) -> None:
        if len(values) != count:
            raise ValueError(f"{len(values)} entries where there are {count}")
        for i, value in enumerate(values):
            put(data, at + i * step, value)

    return get_all, put_all


@cache
def _fields(record: str) -> tuple[tuple[str, int, Getter, Putter], ...]:
    found = []
    for c_name, name, code, count, named, room in RECORDS[record]:
        if code == "s":
            get, put, step = _text_field(room)
        elif code == "r":
            get, put, step = _record_field(named)
        else:
            get, put, step = _number_field(code, named)
        if count:
            get, put = _repeated(get, put, count, step)
        found.append((name, places()[f"{record}.{c_name}"], get, put))
    return tuple(found)


def size(record: str) -> int:
    return places()[record]


@cache
def reader(record: str) -> Getter:
    """What makes a record of memory."""
    kind, numbers, fields = getattr(records, record), _numbers_of(record), _fields(record)
    if numbers is not None:
        unpack_from = numbers.unpack_from
        return lambda data, at: kind(*unpack_from(data, at))
    return lambda data, at: kind(*[get(data, at + offset) for _, offset, get, _ in fields])


def _numbers_of(record: str) -> struct.Struct | None:
    """All fields of a record at once where they are numbers without names, one behind the other."""
    form, end = "=", 0
    for c_name, _, code, count, named, _ in RECORDS[record]:
        offset = places()[f"{record}.{c_name}"]
        if code in ("s", "r") or count or named or offset < end:
            return None
        form += f"{offset - end}x{code}"
        end = offset + struct.calcsize(f"={code}")
    return struct.Struct(form)


def pack_into(record: str, data: bytearray, at: int, value: Any) -> None:
    kind = getattr(records, record)
    if not isinstance(value, kind):
        raise TypeError(f"{value!r} is no records.{record}")
    for name, offset, _, put in _fields(record):
        try:
            put(data, at + offset, getattr(value, name))
        except (struct.error, TypeError, ValueError) as error:
            raise of_kind(error, f"records.{record}.{name}: {error}") from None


def pack(record: str, value: Any) -> bytearray:
    """A record as it is in memory."""
    data = bytearray(size(record))
    pack_into(record, data, 0, value)
    return data
