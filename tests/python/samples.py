"""Arguments for every function, as Python takes them and as the tool does."""

from __future__ import annotations

from typing import Any

from kelutv import enums, records
from kelutv._table import FUNCTIONS, RECORDS, Parameter, Row

BLOCK = b"\x0a\x0b"


def functions() -> tuple[Row, ...]:
    return FUNCTIONS


def number_of(parameter: Parameter, position: int) -> Any:
    _, _, code, named, _, _, low, high = parameter
    if named:
        values = list(getattr(enums, named))
        return int(values[position % len(values)])
    if low is not None and high is not None:
        return high
    return {"?": position % 2 == 0, "d": position + 1.5}.get(code, position + 2)


def written(value: Any) -> str:
    return str(value).lower() if isinstance(value, bool) else str(value)


class Sample:
    """The record of a name with different numbers in its fields, and the words of the tool for it."""

    def __init__(self, name: str):
        self.words: list[str] = []
        self.value = self._record(name, "")

    def _record(self, name: str, prefix: str) -> Any:
        fields = {}
        for c_name, field, code, count, named, _ in RECORDS[name]:
            path = prefix + c_name
            if count:
                several = [self._single(code, named, f"{path}[{i}]", code == "r") for i in range(count)]
                if code != "r":
                    raise AssertionError(f"{path}: no record that goes in has an array of numbers")
                fields[field] = tuple(several)
            else:
                fields[field] = self._single(code, named, path, code == "r")
        return getattr(records, name)(**fields)

    def _single(self, code: str, named: str, path: str, is_record: bool) -> Any:
        if is_record:
            return self._record(named, f"{path}.")
        parameter = (path, "number", code, named, "", False, None, None)
        value = number_of(parameter, len(self.words) % 7)
        self.words.append(f"{path}={written(value)}")
        return value


def argument(parameter: Parameter, position: int) -> tuple[Any, str]:
    """One argument for Python and for the tool."""
    _, role, code, named, _, _, _, _ = parameter
    if role == "text":
        return f"text{position}", f"text{position}"
    if role == "block":
        return BLOCK, f"hex:02000000{BLOCK.hex()}"
    if role == "array" and code == "B":
        return BLOCK, f"hex:{BLOCK.hex()}"
    if role == "array":
        values = [5.5, 6.5, 7.5] if code == "d" else [5, 6, 7]
        return values, f"[{','.join(map(str, values))}]"
    if role == "record":
        sample = Sample(named)
        return sample.value, ",".join(sample.words)
    value = number_of(parameter, position)
    return value, written(value)


def arguments(row: Row) -> tuple[list[Any], list[str]]:
    """All arguments for Python, and all words for the tool."""
    values: list[Any] = []
    words: list[str] = []
    for parameter in row[3]:
        role = parameter[1]
        if role in ("null", "callback"):
            words.append("null")
        elif role != "length" and role != "list" and not role.startswith("out "):
            value, word = argument(parameter, len(words))
            values.append(value)
            words.append(word)
    return values, words
