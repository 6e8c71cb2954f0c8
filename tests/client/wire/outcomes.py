"""What a call must give for one answer of the service, worked out from the catalogue."""

from __future__ import annotations

import copy
import math
import struct
from dataclasses import dataclass

from arguments import WORDS, Call
from cells import record_leaves
from headers import Headers
from model import Function, LogLine, Method, Module, Output, ReplyField, WireItem

TRANSACTION_LOG = "E/TVBaseService@Client: invoke failure\n;"
ITEM_COUNT = 255
SHORT_COUNT = 2
SERVICE_ERROR = 3

Value = int | str | list


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


def padded(data: bytes) -> bytes:
    return data + b"\0" * (-len(data) % 4)


def _encoded(item: WireItem, value: int | str | bytes, call: Call) -> bytes:
    if item.kind == "int32":
        return word(int(value != 0) if item.type == "bool" else value)
    if item.kind == "cstring":
        return text(value)
    if item.kind == "bytes":
        return padded(value[: call.sent[item.length]])
    raise ValueError(f"no marker for a {item.kind} item")


def request_payload(request: tuple[WireItem, ...], call: Call) -> bytes:
    """The bytes after the command identifier."""
    payload = b""
    for item in request:
        value = item.literal if item.literal is not None else call.sent[item.source]
        payload += _encoded(item, value, call)
    return payload


def _runs(numbers: list[int]) -> str:
    parts: list[list[int]] = []
    for number in numbers:
        if parts and parts[-1][0] == number:
            parts[-1][1] += 1
        else:
            parts.append([number, 1])
    return " ".join(f"{number}" if count == 1 else f"{number}*{count}" for number, count in parts)


def _shown(value: Value) -> str:
    if not isinstance(value, list):
        return str(value)
    if all(isinstance(entry, int) for entry in value):
        return f"[{_runs(value)}]"
    return "[" + " ".join(f"'{entry}'" for entry in value) + "]"


def observed_text(result: Value | dict[str, int], seen: dict[str, Value]) -> str:
    """The same text that Observed builds in the test program."""
    results = {f"result{leaf}": v for leaf, v in result.items()} if isinstance(result, dict) else {"result": result}
    return "".join(f"{label}={_shown(value)};" for label, value in {**results, **seen}.items())


class _Fields:
    """Encodes a parcel reply and stores what a caller reads of it; a short one ends inside its block of ints."""

    def __init__(self, headers: Headers, call: Call, seen: dict[str, Value], short: bool):
        self.headers = headers
        self.call = call
        self.seen = seen
        self.short = short
        self.result: Value | dict[str, int] | None = None
        self.payload = b""

    def _count(self, text: str) -> int:
        return math.prod(int(f) if f.isdigit() else self.call.sent[f] for f in text.split("*"))

    def _store(self, field: ReplyField, value: Value) -> None:
        if field.target is None:
            self.result = value
        elif isinstance(self.seen[field.target], list):
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
        self.payload += b"".join(map(text, texts)) if field.kind == "cstring" else b"".join(map(word, numbers))
        self._store(field, texts if field.kind == "cstring" else numbers)

    def add(self, field: ReplyField, marker: int) -> None:
        if field.repeated:
            self._add_rest(field, marker)
        elif field.kind in self.headers.records:
            self._add_record(field, marker)
        elif field.kind == "ints":
            count = self._count(field.count)
            numbers = [marker + i for i in range(SHORT_COUNT if self.short else count)] if marker else [0] * count
            self.payload += b"".join(map(word, numbers))
            self._store(field, numbers + [0] * (count - len(numbers)))
        elif field.kind == "cstring":
            self.payload += text(WORDS[-1])
            self._store(field, WORDS[-1])
        elif field.kind in ("int", "bool"):
            self.payload += word(marker)
            self._store(field, int(marker != 0) if field.kind == "bool" else marker)
        else:
            raise ValueError(f"no marker for a {field.kind} reply field")


class Outcomes:
    """The answers one call is tried with and what must come of each."""

    def __init__(self, operation: Method | Function, module: Module, headers: Headers, call: Call):
        self.operation = operation
        self.method: Method = operation if isinstance(operation, Method) else operation.method
        self.reply = operation.reply
        self.headers = headers
        self.call = call
        self.tag = module.log_tag or "-"

    def _lines(self, event: str, lines: tuple[LogLine, ...]) -> str:
        letters = {"error": "E", "debug": "D", "info": "I"}
        return "".join(f"{letters[l.priority]}/{self.tag}: {l.text};" for l in lines if l.event == event)

    def _log(self, *events: str) -> str | None:
        if "irregular" in (self.method.result, self.operation.result):
            return None
        return "".join(self._lines(event, self.method.log) for event in events)

    def _failure_log(self, transaction: bool) -> str | None:
        before = self._log("call")
        after = self._log("failure") if self.method.reply.shape == "parcel" or transaction else ""
        if before is None or after is None:
            return None
        logs_here = self.method.overload.log == "failure" or (transaction and self.method.overload.log == "transaction")
        return before + (TRANSACTION_LOG if logs_here else "") + after

    def _method_failure(self) -> Value | dict[str, int]:
        if self.method.result == "record":
            return {path: 0 for path, _ in record_leaves(self.headers, self.method.signature.result, "")}
        if self.method.result == "list":
            return []
        if self.method.result == "zero":
            return 0
        return 1 if self.method.result == "bool" else -1

    def _function_result(self, result: Value | dict[str, int], item: list[int]) -> int | Value:
        kind = self.operation.result
        if kind.startswith("item["):
            value = item[int(kind[5 : kind.index("]")])]
            return int(value != 0) if kind.endswith("!= 0") else value
        if kind == "list":
            return 0 if result else -1
        return {"same": result, "bool": int(result != 0), "zero": 0}[kind]

    @staticmethod
    def _output_values(output: Output, result: Value, item: list[int]) -> list[int]:
        if output.part:
            return result if output.part == "entries" else [len(result)]
        value = result if output.index is None else item[output.index]
        return [int(value != 0) if output.flag else value]

    def _write_outputs(self, seen: dict[str, Value], result: Value | dict[str, int], item: list[int]) -> None:
        if self.operation.result == "list" and not result:
            return
        for output in self.operation.outputs:
            if output.index is None and isinstance(result, dict):
                seen.update({f"{output.target}{path}": number for path, number in result.items()})
                continue
            values = self._output_values(output, result, item)
            if isinstance(seen[output.target], list):
                seen[output.target][: len(values)] = values
            else:
                seen[output.target] = values[0]

    def _observed(self, result: Value | dict[str, int], seen: dict[str, Value], item: list[int]) -> str | None:
        if "irregular" in (self.method.result, self.operation.result):
            return None
        if isinstance(self.operation, Function):
            self._write_outputs(seen, result, item)
            result = self._function_result(result, item)
        return observed_text(result, seen)

    def _scalar(self, words: list[int], result: int, log: str | None) -> Outcome:
        result = int(result != 0) if self.method.result == "bool" else result
        observed = self._observed(result, copy.deepcopy(self.call.seen), [0] * ITEM_COUNT)
        return Outcome(b"".join(map(word, words)), observed, log)

    def _status(self, status: int) -> Outcome:
        failed = self.method.result == "zero-or-fail" and status != 0
        return self._scalar([status], -1 if failed else status, self._log("call", "failure" if failed else "success"))

    def _parcel(self, marker: int, short: bool = False) -> Outcome:
        seen = copy.deepcopy(self.call.seen)
        fields = _Fields(self.headers, self.call, seen, short)
        for position, field in enumerate(self.reply.fields):
            fields.add(field, marker * (position + 1))
        result = 0 if self.method.result in ("zero-or-fail", "zero") else fields.result
        item = fields.result if self.method.items else [0] * ITEM_COUNT
        return Outcome(word(0) + fields.payload, self._observed(result, seen, item), self._log("call", "success"))

    def _parcel_failure(self) -> Outcome:
        outcome = self.failure(transaction=False)
        return Outcome(word(SERVICE_ERROR) + word(1) + word(2), outcome.observed, outcome.log)

    def failure(self, transaction: bool = True) -> Outcome:
        """No answer at all (or, for parcels, an answer that is an error)."""
        observed = self._observed(self._method_failure(), copy.deepcopy(self.call.seen), [0] * ITEM_COUNT)
        return Outcome(b"", observed, self._failure_log(transaction))

    def answers(self) -> list[Outcome]:
        """Success in several values, and the service's own error."""
        log = self._log("call")
        if self.reply.shape == "status":
            return [self._status(status) for status in (0, 5, -7)]
        if self.reply.shape == "value":
            return [self._scalar([0, v], v, log) for v in (0, 7, -7)] + [self._scalar([SERVICE_ERROR, 7], -1, log)]
        short = [self._parcel(71, short=True)] if any(field.kind == "ints" for field in self.reply.fields) else []
        return [self._parcel(71), self._parcel(0), *short, self._parcel_failure()]

    def refused(self, name: str) -> tuple[str, str]:
        """What a null `name` gives: -1, nothing else touched, and the log."""
        labels = {label: v for label, v in self.call.seen.items() if label != name and not label.startswith(f"{name}.")}
        log = self._lines("null", self.operation.log) if isinstance(self.operation, Method) else ""
        return observed_text(-1, labels), log
