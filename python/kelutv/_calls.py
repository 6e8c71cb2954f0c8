"""Calls as Python makes them, each made of its row of the table."""

from __future__ import annotations

import math
import struct
from collections.abc import Callable
from typing import Any

from . import records
from ._foreign import ffi
from ._library import MOST_BYTES, failure, here, library, listed
from ._memory import decoded, encoded, of_kind, pack, size, to_named, unpack
from ._table import FUNCTIONS, Parameter, Row
from .errors import LibraryRefused, LinkLost, MalformedReply, ServiceRefused

_UNTOUCHED = 0x5A
# Buffers of items are this long, whatever the item; zeros at the end mean nothing.
_ITEM_ROOM = "255"
_NOT_THROUGH, _REFUSED = 1, 2
_GIVEN = ("number", "pointed", "text", "array", "block", "record", "inout")

Call = Callable[..., Any]
# Adds what goes to C for one parameter, given all arguments by name and a list of what keeps memory.
Giver = Callable[[dict[str, Any]], Any]


class Frame:
    """What one call takes and gives, by the names of the parameters."""

    __slots__ = ("given", "memory", "foreign", "buffers")

    def __init__(self, given: dict[str, Any]):
        self.given = given
        self.memory: dict[str, Any] = {}
        self.foreign: list[Any] = []
        self.buffers = 0

    def add_memory(self, name: str, data: bytearray) -> None:
        self.memory[name] = data
        self.foreign.append(ffi.from_buffer(data))

    def add_buffer(self, name: str) -> bytearray:
        data, address = here().buffer(self.buffers)
        self.buffers += 1
        self.memory[name] = data
        self.foreign.append(address)
        return data


def check(row: Row, result: Any) -> None:
    """Says what failed, of the call that this thread has just made."""
    _, name, _, _, _, _, _, minus_one_fails, is_value, _ = row
    kind, number, text = failure(is_value)
    if kind == _NOT_THROUGH:
        raise LinkLost(name, f"the request did not get through (status {text})", number)
    if kind == _REFUSED:
        raise ServiceRefused(name, text, number)
    if kind:
        raise MalformedReply(name, text)
    if minus_one_fails and result == -1:
        if here().summary[0] == 0:
            raise LibraryRefused(name, "the library refused the call, nothing was sent")
        raise ServiceRefused(name, "the function gave -1")


def _check_bounds(parameter: Parameter, value: Any) -> None:
    label, _, _, _, _, _, low, high = parameter
    if low is not None and high is not None and not low <= value <= high:
        raise ValueError(f"{label} is {value}, {low} to {high} are allowed")


def _plain(row: Row) -> Call:
    """A call of numbers alone."""
    _, name, symbol, parameters, code, named, reply_size, minus_one_fails, _, _ = row
    function, thread, convert = getattr(library(), symbol), here(), _result_of(code, named)
    bounded = [(i, each) for i, each in enumerate(parameters) if each[6] is not None]

    def call(*arguments: Any) -> Any:
        summary = thread.summary
        summary[0] = 0
        try:
            for index, parameter in bounded:
                _check_bounds(parameter, arguments[index])
            result = function(*arguments)
        except (TypeError, OverflowError, ValueError) as error:
            raise of_kind(error, f"{name}: {error}") from None
        if summary[0] != reply_size or not reply_size or (minus_one_fails and result == -1):
            check(row, result)
        return convert(result) if convert else None

    return call


def _result_of(code: str, named: str) -> Callable[[Any], Any] | None:
    if not code:
        return None
    if code == "?":
        return bool
    return to_named(named)


def _room(text: str, given: dict[str, Any]) -> int:
    """How many entries there must be room for, or how long a length says."""
    return math.prod(int(factor) if factor.isdigit() else int(given[factor]) for factor in text.split("*"))


def _array(parameter: Parameter, value: Any) -> bytearray:
    code = parameter[2]
    return bytearray(value) if code == "B" else bytearray(struct.pack(f"{len(value)}{code}", *value))


def _give(frame: Frame, parameter: Parameter) -> None:
    name, role, code, named, _, may_be_none, _, _ = parameter
    value = frame.given[name]
    if value is None and role != "number":
        if not may_be_none:
            raise TypeError(f"{name} must not be None")
        frame.foreign.append(ffi.NULL)
    elif role == "number":
        frame.foreign.append(value)
    elif role == "text":
        frame.add_memory(name, bytearray(encoded(value) + b"\0"))
    elif role == "block":
        frame.add_memory(name, bytearray(struct.pack("I", len(value)) + bytes(value)))
    elif role == "record":
        frame.add_memory(name, pack(named, value))
    elif role == "array":
        frame.add_memory(name, _array(parameter, value) or bytearray(1))
    else:
        frame.add_memory(name, bytearray(struct.pack(code, value)))


def _make_room(frame: Frame, parameter: Parameter) -> None:
    name, role, code, named, room, _, _, _ = parameter
    entries = room.split(" by ")[0]
    if role == "out number":
        frame.add_memory(name, bytearray(struct.calcsize(code)))
    elif role == "out text" or not entries and role == "out array":
        frame.add_buffer(name)[0] = 0
    elif role == "out record":
        frame.add_memory(name, bytearray(size(named)))
    else:
        _make_array(frame, name, code, named, _room(entries, frame.given))


def _make_array(frame: Frame, name: str, code: str, record: str, entries: int) -> None:
    step = size(record) if code == "r" else struct.calcsize(code)
    if not 0 <= entries * step <= 16 * MOST_BYTES:
        raise ValueError(f"{name}: {entries} entries, 0 to {16 * MOST_BYTES // step} are allowed")
    fill = b"\0" if code in ("r", "B") else bytes([_UNTOUCHED])
    frame.add_memory(name, bytearray(fill * max(entries * step, 1)))


def _prepare(frame: Frame, parameter: Parameter, lengths: dict[str, str]) -> None:
    name, role, code = parameter[:3]
    if role in _GIVEN:
        _give(frame, parameter)
    elif role == "length":
        array = frame.given[lengths[name]]
        frame.foreign.append(0 if array is None else len(array))
    elif role == "null":
        frame.foreign.append(ffi.NULL)
    elif role.startswith("out "):
        _make_room(frame, parameter)


def _number(frame: Frame, name: str) -> int:
    (value,) = struct.unpack_from("i", frame.memory[name])
    return int(value)


def _entries(frame: Frame, parameter: Parameter) -> int:
    """How many entries of an array of numbers were written."""
    name, _, code, _, room, _, _, _ = parameter
    data, step = frame.memory[name], struct.calcsize(code)
    entries, _, count = room.partition(" by ")
    if count:
        return max(0, min(_number(frame, count), len(data) // step))
    untouched, written, most = bytes([_UNTOUCHED]) * step, 0, len(data) // step
    while written < most and data[written * step : (written + 1) * step] != untouched:
        written += 1
    while entries == _ITEM_ROOM and written > 1 and not any(data[(written - 1) * step : written * step]):
        written -= 1
    return written


def _take_array(frame: Frame, parameter: Parameter) -> Any:
    name, _, code, named, room, _, _, _ = parameter
    data = frame.memory[name]
    if code == "r":
        step = size(named)
        blocks = [data[at : at + step] for at in range(0, len(data) - step + 1, step)]
        return [unpack(named, bytes(block)) for block in blocks[: next((i for i, b in enumerate(blocks) if not any(b)), None)]]
    if code == "B":
        count = room.partition(" by ")[2]
        return bytes(data[: max(0, _number(frame, count))]) if count else bytes(data)
    named_value = to_named(named) if named else None
    values = struct.unpack_from(f"{_entries(frame, parameter)}{code}", data)
    return [named_value(value) for value in values] if named_value else list(values)


def _take(frame: Frame, parameter: Parameter) -> Any:
    name, role, code, named = parameter[:4]
    if role == "list":
        texts = listed()
        return [
            records.KELU_TV_CEC_DEVICE_INFO_SORTED_S(int(texts[i]), int(texts[i + 1]), *texts[i + 2 : i + 5])
            for i in range(0, len(texts), 5)
        ]
    data = frame.memory[name]
    if role == "out text":
        return decoded(bytes(data[: data.find(b"\0")]))
    if role == "out record":
        return unpack(named, bytes(data))
    if role == "out array":
        return _take_array(frame, parameter)
    (value,) = struct.unpack_from(code, data)
    return to_named(named)(value) if named else value


def _general(row: Row) -> Call:
    """A call of whatever there is."""
    _, name, symbol, parameters, code, named, reply_size, _, _, _ = row
    function, thread = getattr(library(), symbol), here()
    given = [each for each in parameters if each[1] in _GIVEN]
    lengths = {each[0]: each[4] for each in parameters if each[1] == "length"}
    counts = {each[4].partition(" by ")[2] for each in parameters}
    outputs = [
        each
        for each in parameters
        if (each[1].startswith("out ") or each[1] in ("list", "inout")) and each[0] not in counts
    ]

    def call(*arguments: Any) -> Any:
        if len(arguments) != len(given):
            raise TypeError(f"{name} takes {len(given)} arguments, there are {len(arguments)}")
        frame = Frame(dict(zip((each[0] for each in given), arguments)))
        record = bytearray(size(named)) if code == "r" else None
        if record is not None:
            frame.foreign.append(ffi.from_buffer(record))
        try:
            for parameter in given:
                if parameter[6] is not None:
                    _check_bounds(parameter, frame.given[parameter[0]])
            for parameter in parameters:
                _prepare(frame, parameter, lengths)
            thread.summary[0] = 0
            result = function(*frame.foreign)
        except (TypeError, OverflowError, ValueError, struct.error) as error:
            raise of_kind(error, f"{name}: {error}") from None
        if thread.summary[0] != reply_size or not reply_size or result == -1:
            check(row, result)
        values = [_take(frame, parameter) for parameter in outputs]
        if code:
            values.insert(0, _given_result(code, named, result, record))
        return tuple(values) if len(values) > 1 else values[0] if values else None

    return call


def _given_result(code: str, named: str, result: Any, record: bytearray | None) -> Any:
    if record is not None:
        return unpack(named, bytes(record))
    if code == "l":
        return listed()
    convert = _result_of(code, named)
    return convert(result) if convert else None


def make_call(index: int) -> Call:
    """What makes the call of this row."""
    row = FUNCTIONS[index]
    is_plain = all(each[1] == "number" for each in row[3]) and row[4] not in ("r", "l")
    return _plain(row) if is_plain else _general(row)


def index_of(name: str) -> int:
    """The row of a function by its full name in C or C++, or by module and name in Python."""
    found = _indexes().get(name)
    if found is None:
        raise ValueError(f"there is no function '{name}'; names are such as audio.set_volume, linux_tv_Audio_setVolume")
    return found


_known: dict[str, int] = {}


def _indexes() -> dict[str, int]:
    if not _known:
        _known.update({row[1]: index for index, row in enumerate(FUNCTIONS)})
        _known.update({row[0]: index for index, row in enumerate(FUNCTIONS)})
    return _known
