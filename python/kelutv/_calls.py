"""Calls as Python makes them, each made of its row of the table."""

from __future__ import annotations

import math
import operator
import struct
from collections.abc import Callable, Iterable
from functools import partial
from typing import Any

from . import records
from ._foreign import ffi
from ._library import MOST_BYTES, failure, here, library, listed
from ._memory import decoded, encoded, of_kind, pack, reader, size, to_named
from ._table import FUNCTIONS, Parameter, Row
from .errors import LibraryRefused, LinkLost, MalformedReply, ServiceRefused

_UNTOUCHED = 0x5A
# Buffers of items are this long, whatever the item; zeros at the end mean nothing.
_ITEM_ROOM = "255"
_NOT_THROUGH, _REFUSED = 1, 2
_GIVEN = ("number", "pointed", "text", "array", "block", "record", "inout")

Call = Callable[..., Any]


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


# Adds what goes to C for one parameter; takes what came back by it.
Giver = Callable[[Frame], None]
Taker = Callable[[Frame], Any]


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


def _refusal(row: Row, error: Exception, given: Iterable[tuple[Parameter, Any]]) -> Exception:
    """What says of a call why it was not made: the first that is no number where one must be, else what was wrong."""
    wrong = (
        f"{parameter[0]}: {value!r} is no {'number' if parameter[2] == 'd' else 'whole number'}"
        for parameter, value in given
        if parameter[1] == "number" and not hasattr(value, "__float__" if parameter[2] == "d" else "__index__")
    )
    return of_kind(error, f"{row[1]}: {next(wrong, error)}")


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
            raise _refusal(row, error, zip(parameters, arguments)) from None
        if summary[0] != reply_size or not reply_size or (minus_one_fails and result == -1):
            check(row, result)
        return convert(result) if convert else None

    return call


def _result_of(code: str, named: str) -> Callable[[Any], Any] | None:
    if not code:
        return None
    if code == "?":
        return bool
    if code == "r":
        read = reader(named)
        return lambda memory: read(memory, 0)
    return (lambda _: listed()) if code == "l" else to_named(named)


def _room(text: str, given: dict[str, Any]) -> int:
    """How many entries there must be room for, or how long a length says."""
    return math.prod(int(factor) if factor.isdigit() else int(given[factor]) for factor in text.split("*"))


def _memory_of(role: str, code: str, named: str) -> Callable[[Any], bytearray]:
    """What puts a value into memory."""
    if role == "text":
        return lambda text: bytearray(encoded(text) + b"\0")
    if role == "block":
        return lambda block: bytearray(struct.pack("I", len(block)) + bytes(block))
    if role == "record":
        return partial(pack, named)
    if role == "array" and code == "B":
        return lambda entries: bytearray(entries) or bytearray(1)
    if role == "array":
        return lambda entries: bytearray(struct.pack(f"{len(entries)}{code}", *entries)) or bytearray(1)
    return lambda number: bytearray(struct.pack(code, number))


def _giver(parameter: Parameter) -> Giver:
    """For what the caller gives."""
    name, role, code, named, _, may_be_none, _, _ = parameter
    if role == "number":
        return lambda frame: frame.foreign.append(frame.given[name])
    memory_of = _memory_of(role, code, named)

    def give(frame: Frame) -> None:
        value = frame.given[name]
        if value is None and may_be_none:
            frame.foreign.append(ffi.NULL)
            return
        try:
            if value is None:
                raise TypeError("must not be None")
            frame.add_memory(name, memory_of(value))
        except (TypeError, OverflowError, ValueError, AttributeError, struct.error) as error:
            raise of_kind(error, f"{name}: {error}") from None

    return give


def _room_giver(parameter: Parameter) -> Giver:
    """For what C writes."""
    name, role, code, named, room, _, _, _ = parameter
    entries = room.split(" by ")[0]
    if role == "out text" or not entries and role == "out array":
        return lambda frame: operator.setitem(frame.add_buffer(name), 0, 0)
    if role == "out array":
        step = size(named) if code == "r" else struct.calcsize(code)
        fill = (b"\0" if code in ("r", "B") else bytes([_UNTOUCHED])) * step
        return lambda frame: frame.add_memory(name, _array_room(name, fill, _room(entries, frame.given)))
    length = size(named) if role == "out record" else struct.calcsize(code)
    return lambda frame: frame.add_memory(name, bytearray(length))


def _array_room(name: str, fill: bytes, entries: int) -> bytearray:
    if not 0 <= entries * len(fill) <= 16 * MOST_BYTES:
        raise ValueError(f"{name}: {entries} entries, 0 to {16 * MOST_BYTES // len(fill)} are allowed")
    return bytearray(fill * entries or fill[:1])


def _giver_of(parameter: Parameter, lengths: dict[str, str]) -> Giver | None:
    name, role = parameter[:2]
    if role in _GIVEN:
        return _giver(parameter)
    if role == "length":
        array = lengths[name]
        return lambda frame: frame.foreign.append(len(frame.given[array] or ()))
    if role == "null":
        return lambda frame: frame.foreign.append(ffi.NULL)
    return _room_giver(parameter) if role.startswith("out ") else None


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
        step, read = size(named), reader(named)
        blocks = [data[at : at + step] for at in range(0, len(data) - step + 1, step)]
        return [read(block, 0) for block in blocks[: next((i for i, b in enumerate(blocks) if not any(b)), None)]]
    if code == "B":
        count = room.partition(" by ")[2]
        return bytes(data[: max(0, _number(frame, count))]) if count else bytes(data)
    named_value = to_named(named) if named else None
    values = struct.unpack_from(f"{_entries(frame, parameter)}{code}", data)
    return [named_value(value) for value in values] if named_value else list(values)


def _devices(_: Frame) -> list[records.KELU_TV_CEC_DEVICE_INFO_SORTED_S]:
    texts = listed()
    return [
        records.KELU_TV_CEC_DEVICE_INFO_SORTED_S(int(texts[i]), int(texts[i + 1]), *texts[i + 2 : i + 5])
        for i in range(0, len(texts), 5)
    ]


def _taker_of(parameter: Parameter) -> Taker:
    name, role, code, named = parameter[:4]
    if role == "list":
        return _devices
    if role == "out text":
        return lambda frame: decoded(frame.memory[name])
    if role == "out record":
        read = reader(named)
        return lambda frame: read(frame.memory[name], 0)
    if role == "out array":
        return lambda frame: _take_array(frame, parameter)
    unpack = struct.Struct(code).unpack
    if not named:
        return lambda frame: unpack(frame.memory[name])[0]
    enumerator = to_named(named)
    return lambda frame: enumerator(unpack(frame.memory[name])[0])


def _general(row: Row) -> Call:
    """A call of whatever there is."""
    _, name, symbol, parameters, code, named, reply_size, _, _, _ = row
    function, thread = getattr(library(), symbol), here()
    given = [each for each in parameters if each[1] in _GIVEN]
    names, bounded = [each[0] for each in given], [each for each in given if each[6] is not None]
    lengths = {each[0]: each[4] for each in parameters if each[1] == "length"}
    givers = [giver for each in parameters if (giver := _giver_of(each, lengths))]
    counts = {each[4].partition(" by ")[2] for each in parameters}
    takers = [
        _taker_of(each)
        for each in parameters
        if (each[1].startswith("out ") or each[1] in ("list", "inout")) and each[0] not in counts
    ]
    convert, record_size = _result_of(code, named), size(named) if code == "r" else 0

    def call(*arguments: Any) -> Any:
        if len(arguments) != len(names):
            raise TypeError(f"{name} takes {len(names)} arguments, there are {len(arguments)}")
        frame = Frame(dict(zip(names, arguments)))
        if record_size:
            frame.add_memory("", bytearray(record_size))
        try:
            for parameter in bounded:
                _check_bounds(parameter, frame.given[parameter[0]])
            for giver in givers:
                giver(frame)
            thread.summary[0] = 0
            result = function(*frame.foreign)
        except (TypeError, OverflowError, ValueError) as error:
            raise _refusal(row, error, zip(given, arguments)) from None
        if thread.summary[0] != reply_size or not reply_size or result == -1:
            check(row, result)
        values = [taker(frame) for taker in takers]
        if convert:
            values.insert(0, convert(frame.memory[""] if record_size else result))
        return tuple(values) if len(values) > 1 else values[0] if values else None

    return call


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
