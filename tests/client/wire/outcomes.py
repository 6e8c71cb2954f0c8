"""What a call must give for one answer of the service, worked out from the catalogue."""

from __future__ import annotations

import copy
import math
import struct
from dataclasses import dataclass

from arguments import WORDS, Call, Value, shown_characters
from cells import record_leaves
from headers import Headers
from model import Layer, LogLine, Method, Operation, Output, Refusal, ReplyField, WireItem

TRANSACTION_LOG = "E/TVBaseService@Client: invoke failure\n;"
ITEM_COUNT = 255
MARKER = 71
COUNT = 3
COUNT_PROMISED = 5
SHORT_COUNT = 2
SERVICE_ERROR = 3
LETTERS = {"error": "E", "debug": "D", "info": "I"}


@dataclass(frozen=True)
class Outcome:
    """The answer's bytes, the text the call must show, and the log; no text for what a hand-written test covers."""

    reply: bytes
    observed: str | None
    log: str | None


def word(number: int) -> bytes:
    return struct.pack("<i", number)


def text(value: str) -> bytes:
    return padded(value.encode() + b"\0")


def text16(value: str) -> bytes:
    return padded(word(len(value)) + value.encode("utf-16-le") + b"\0\0")


def padded(data: bytes) -> bytes:
    return data + b"\0" * (-len(data) % 4)


def block(kind: str, values: list) -> bytes:
    return struct.pack(f"<{len(values)}{'i' if kind == 'ints' else 'd'}", *values)


def _length(item: WireItem, call: Call) -> int:
    return int(item.length) if item.length.isdigit() else call.sent[item.length]


def _encoded(item: WireItem, value: Value | bytes, call: Call) -> bytes:
    if item.kind == "int32":
        return word(int(value != 0) if item.type == "bool" else value)
    if item.kind == "double":
        return block("doubles", [value])
    if item.kind in ("cstring", "str16"):
        return text(value) if item.kind == "cstring" else text16(value)
    sent = value[: _length(item, call)]
    return padded(sent) if item.kind == "bytes" else block(item.kind, sent)


def request_payload(request: tuple[WireItem, ...], call: Call) -> bytes:
    """The bytes after the command identifier."""
    payload = b""
    for item in request:
        value = item.literal if item.literal is not None else call.sent[item.source]
        payload += _encoded(item, value, call)
    return payload


def _number(value: int | float) -> str:
    return "%.17g" % value if isinstance(value, float) else str(value)


def _runs(numbers: list[int | float]) -> str:
    parts: list[list] = []
    for number in numbers:
        if parts and parts[-1][0] == number:
            parts[-1][1] += 1
        else:
            parts.append([number, 1])
    return " ".join(_number(number) if count == 1 else f"{_number(number)}*{count}" for number, count in parts)


def _shown(value: Value) -> str:
    if isinstance(value, str):
        return value
    if not isinstance(value, list):
        return _number(value)
    if any(isinstance(entry, str) for entry in value):
        return "[" + " ".join(f"'{entry}'" for entry in value) + "]"
    return f"[{_runs(value)}]"


def observed_text(result: Value | dict[str, int], seen: dict[str, Value]) -> str:
    """The same text that Observed builds in the test program."""
    results = {f"result{leaf}": v for leaf, v in result.items()} if isinstance(result, dict) else {"result": result}
    return "".join(f"{label}={_shown(value)};" for label, value in {**results, **seen}.items())


def log_text(lines: tuple[LogLine, ...], *events: str) -> str:
    """The same text that the test program makes of the log; of one of `events` only when any are named."""
    wanted = (line for line in lines if not events or line.event in events)
    return "".join(f"{LETTERS[line.priority]}/{line.tag or '-'}: {line.text};" for line in wanted)


@dataclass(frozen=True)
class _Variation:
    """One way to fill a parcel reply: numbers from `marker` on, blocks that end early when `short`, and the count that
    leads a block.
    """

    marker: int
    count: int
    short: bool = False


class _Fields:
    """Encodes a parcel reply and stores what a caller reads of it."""

    def __init__(self, operation: Operation, headers: Headers, call: Call, seen: dict[str, Value], way: _Variation):
        self.headers = headers
        self.call = call
        self.seen = seen
        self.way = way
        self.result: Value | dict[str, int] | None = None
        self.payload = b""
        self.leading = {field.count for field in operation.reply.fields if field.count}
        for position, field in enumerate(operation.reply.fields, 1):
            self._add(field, way.marker * position)

    def _count(self, text: str) -> int:
        return math.prod(int(f) if f.isdigit() else self.call.sent[f] for f in text.split("*"))

    def _store(self, field: ReplyField, value: Value) -> None:
        if field.target is None:
            self.result = value
        elif isinstance(self.seen.get(field.target), list):
            values = value if isinstance(value, list) else [value]
            self.seen[field.target][: len(values)] = values
        else:
            self.seen[field.target] = value

    def _add_record(self, field: ReplyField, marker: int) -> None:
        values = {}
        for position, (path, kind) in enumerate(record_leaves(self.headers, field.kind, ""), 1):
            number = marker * position
            self.payload += word(number)
            values[path] = int(number != 0) if kind == "bool" else number
        if field.target is None:
            self.result = values
        else:
            self.seen.update({f"{field.target}{path}": number for path, number in values.items()})

    def _add_rest(self, field: ReplyField, marker: int) -> None:
        texts = ["alpha", "bravo", ""] if marker else []
        numbers = [marker, marker + 1] if marker else []
        self.payload += b"".join(map(text, texts)) if field.kind == "cstring" else block("ints", numbers)
        self._store(field, texts if field.kind == "cstring" else numbers)

    def _add_block(self, field: ReplyField, marker: int) -> None:
        """What a short reply lacks of a block is zero; of one that is led by its count it is left alone."""
        led = not all(factor.isdigit() or factor in self.call.sent for factor in field.count.split("*"))
        count = max(self.way.count, 0) if led else self._count(field.count)
        held = min(SHORT_COUNT, count) if self.way.short else count
        fraction = 0.25 if field.kind == "doubles" else 0
        first = marker + fraction if marker else type(fraction)(0)
        numbers = [first + i if marker else first for i in range(held)]
        self.payload += block(field.kind, numbers)
        self._store(field, numbers if led else numbers + [type(fraction)(0)] * (count - held))

    def _add(self, field: ReplyField, marker: int) -> None:
        if field.repeated:
            self._add_rest(field, marker)
        elif field.kind in self.headers.records:
            self._add_record(field, marker)
        elif field.kind in ("ints", "doubles"):
            self._add_block(field, marker)
        elif field.kind == "cstring":
            self.payload += text(WORDS[-1])
            self._store(field, WORDS[-1])
        elif field.kind == "double":
            self.payload += block("doubles", [marker + 0.25])
            self._store(field, marker + 0.25)
        else:
            number = self.way.count if field.name in self.leading else marker
            self.payload += word(number)
            self._store(field, int(number != 0) if field.kind == "bool" else number)


class Outcomes:
    """The answers one call is tried with and what must come of each."""

    def __init__(self, operation: Operation, headers: Headers, call: Call):
        self.operation = operation
        self.method: Method = operation.method
        self.reply = operation.reply
        self.headers = headers
        self.call = call
        self.irregular = "irregular" in (self.method.result, *(layer.result for layer in operation.layers))
        self.call_log = "".join(log_text(layer.call_log) for layer in reversed(operation.layers))

    def _log(self, *events: str) -> str | None:
        if self.irregular:
            return None
        return self.call_log + "".join(log_text(self.method.log, event) for event in events)

    def _failure_log(self, transaction: bool) -> str | None:
        if self.irregular:
            return None
        overload = self.method.overload
        logs_here = overload.log == "failure" or (transaction and overload.log == "transaction")
        failed = self.method.reply.shape == "parcel" or transaction
        after = log_text(self.method.log, "failure") if failed else ""
        return self._log("call") + (TRANSACTION_LOG if logs_here else "") + after

    def _method_failure(self, seen: dict[str, Value]) -> Value | dict[str, int]:
        result, target = self.method.result, self.reply.fields[0].target if self.reply.fields else None
        if result in ("fallback", "characters"):
            if target:
                seen[target] = self.method.fallback if result == "fallback" else shown_characters(self.method.fallback)
            return 0
        if result == "record":
            return {path: 0 for path, _ in record_leaves(self.headers, self.method.signature.result, "")}
        if result == "list":
            return []
        return {"zero": 0, "bool": 1}.get(result, -1)

    @staticmethod
    def _layer_result(layer: Layer, result: Value | dict[str, int], item: list[int]) -> int | Value:
        if layer.result.startswith("item["):
            result = item[int(layer.result[5 : layer.result.index("]")])]
            result = int(result != 0) if layer.result.endswith("!= 0") else result
        elif layer.result == "list":
            result = 0 if result else -1
        elif layer.result in ("bool", "zero"):
            result = int(layer.result == "bool" and result != 0)
        return int(result != 0) if layer.returns == "bool" else result

    @staticmethod
    def _output_values(output: Output, result: Value, item: list[int]) -> list[int]:
        if output.part:
            return result if output.part == "entries" else [len(result)]
        value = result if output.index is None else item[output.index]
        return [int(value != 0) if output.flag else value]

    def _write_outputs(
        self, layer: Layer, seen: dict[str, Value], result: Value | dict[str, int], item: list[int]
    ) -> None:
        if layer.result == "list" and not result:
            return
        for output in layer.outputs:
            if output.index is None and isinstance(result, dict):
                seen.update({f"{output.target}{path}": number for path, number in result.items()})
                continue
            values = self._output_values(output, result, item)
            if isinstance(seen.get(output.target), list):
                seen[output.target][: len(values)] = values
            else:
                seen[output.target] = values[0]

    def _through(
        self, layers: tuple[Layer, ...], result: Value | dict[str, int], seen: dict[str, Value], item: list[int]
    ) -> Value | dict[str, int]:
        for layer in layers:
            self._write_outputs(layer, seen, result, item)
            result = self._layer_result(layer, result, item)
        return result

    def _observed(self, result: Value | dict[str, int], seen: dict[str, Value], item: list[int] | None) -> str | None:
        if self.irregular:
            return None
        return observed_text(self._through(self.operation.layers, result, seen, item or [0] * ITEM_COUNT), seen)

    def _scalar(self, words: list[int], result: int, log: str | None) -> Outcome:
        result = int(result != 0) if self.method.result == "bool" else result
        return Outcome(block("ints", words), self._observed(result, copy.deepcopy(self.call.seen), None), log)

    def _status(self, status: int) -> Outcome:
        failed = self.method.result == "zero-or-fail" and status != 0
        return self._scalar([status], -1 if failed else status, self._log("call", "failure" if failed else "success"))

    def _parcel(self, way: _Variation) -> Outcome:
        seen = copy.deepcopy(self.call.seen)
        fields = _Fields(self.operation, self.headers, self.call, seen, way)
        result = 0 if self.method.result in ("zero-or-fail", "zero", "fallback", "characters") else fields.result
        item = fields.result if self.method.items else None
        return Outcome(word(0) + fields.payload, self._observed(result, seen, item), self._log("call", "success"))

    def _parcels(self) -> list[Outcome]:
        ways = [_Variation(MARKER, COUNT), _Variation(0, 0)]
        if any(field.count for field in self.reply.fields):
            ways.append(_Variation(MARKER, COUNT_PROMISED, short=True))
        if {field.name for field in self.reply.fields} & {field.count for field in self.reply.fields}:
            ways.append(_Variation(MARKER, -1))
        return [self._parcel(way) for way in ways]

    def _missing_texts(self) -> list[Outcome]:
        """A text that should be there and is not, or has no terminator."""
        if [field.kind for field in self.reply.fields if not field.repeated] != ["cstring"]:
            return []
        lines = log_text(self.method.log, "missing") or log_text(self.method.log, "failure")
        log = None if self.irregular else self._log("call") + lines
        seen = copy.deepcopy(self.call.seen)
        observed = self._observed(self._method_failure(seen), seen, None)
        return [Outcome(word(0), observed, log), Outcome(word(0) + b"abcd", observed, log)]

    def _parcel_failure(self) -> Outcome:
        outcome = self.failure(transaction=False)
        return Outcome(word(SERVICE_ERROR) + word(1) + word(2), outcome.observed, outcome.log)

    def failure(self, transaction: bool = True) -> Outcome:
        """No answer at all (or, for parcels, an answer that is an error)."""
        seen = copy.deepcopy(self.call.seen)
        return Outcome(b"", self._observed(self._method_failure(seen), seen, None), self._failure_log(transaction))

    def answers(self) -> list[Outcome]:
        """Success in several values, and the service's own error."""
        log = self._log("call")
        if self.reply.shape == "status":
            return [self._status(status) for status in (0, 5, -7)]
        if self.reply.shape == "value":
            return [self._scalar([0, v], v, log) for v in (0, 7, -7)] + [self._scalar([SERVICE_ERROR, 7], -1, log)]
        return [*self._parcels(), *self._missing_texts(), self._parcel_failure()]

    def refused(self, refusal: Refusal) -> Outcome:
        """What a null pointer gives with nothing sent: everything else untouched, and the log."""
        seen = copy.deepcopy(self.call.seen)
        result = self._through(refusal.layers, refusal.result, seen, [0] * ITEM_COUNT)
        return Outcome(b"", observed_text(result, seen), log_text(refusal.log))
