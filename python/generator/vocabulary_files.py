"""The enumerations, records and events in Python."""

from __future__ import annotations

import re

from headers import Enumeration, Field
from model import Catalogue
from plan import element_code, safe
from texts_of import doc_lines, one_line
from vocabulary import field_values
from wrappers import all_records

HEAD = '"""{title}"""\n\n# Generated from the catalogue and the public headers.\n\nfrom __future__ import annotations\n\n'
_TYPES = {"i": "int", "I": "int", "?": "bool", "d": "float", "B": "int"}
DEVICES = "KELU_TV_CEC_DEVICE_INFO_SORTED_S"


def common_prefix(names: list[str]) -> str:
    """What all names begin with, up to an underscore."""
    if len(names) < 2:
        return ""
    first, last = min(names), max(names)
    same = next((i for i, pair in enumerate(zip(first, last)) if pair[0] != pair[1]), min(len(first), len(last)))
    return first[: first.rfind("_", 0, same) + 1]


def short_names(enumeration: Enumeration) -> dict[str, str]:
    """The names of the members without what all have in common; a member without one of its own is missing."""
    prefix = common_prefix(list(enumeration.values))
    if not prefix:
        return {}
    found: dict[str, str] = {}
    for name in enumeration.values:
        short = safe(name[len(prefix) :])
        if re.fullmatch(r"[A-Za-z]\w*", short) and short not in enumeration.values and short != "mro":
            found[name] = short
    return found


def enumeration_class(name: str, enumeration: Enumeration, meanings: dict[str, str]) -> list[str]:
    lines = [f"class {name}(OpenEnum):"]
    lines += doc_lines([meanings.get(name, f"The values of {name}.")], "    ")
    lines.append("")
    for each, value in enumeration.values.items():
        lines.append(f"    {each} = {value}")
        if each in meanings:
            lines += doc_lines([meanings[each]], "    ")
    shorts = short_names(enumeration)
    if shorts:
        lines.append("")
        lines += [f"    {short} = {enumeration.values[each]}" for each, short in shorts.items()]
    return [*lines, "", ""]


def public(names: list[str]) -> list[str]:
    """What a module offers."""
    return ["__all__ = [", *(f'    "{name}",' for name in sorted(names)), "]"]


def enums_file(catalogue: Catalogue, meanings: dict[str, str]) -> str:
    head = HEAD.format(title="The enumerations of the interface. Each takes numbers that it has no name for, too.")
    known = {name: each for name, each in sorted(catalogue.headers.enumerations.items()) if each.values}
    lines = [head + "from ._open_enum import OpenEnum\n", *public([*known, *catalogue.events.enumerations]), "", ""]
    for name, enumeration in known.items():
        lines += enumeration_class(name, enumeration, meanings)
    said = catalogue.events.meanings
    for name, enumeration in catalogue.events.enumerations.items():
        lines += enumeration_class(name, enumeration, said)
    return "\n".join(lines).rstrip("\n") + "\n"


class RecordFiles:
    """The dataclasses of the records, and where their fields stand."""

    def __init__(self, catalogue: Catalogue, meanings: dict[str, str]):
        self.catalogue = catalogue
        self.headers = catalogue.headers
        self.meanings = meanings
        self.records: dict[str, tuple[Field, ...]] = all_records(catalogue)
        self.values = field_values(catalogue)

    def _enumeration(self, record: str, field: Field) -> str | None:
        named = self.values.get((record, field.name))
        name = named.enumeration if named and named.enumeration else field.type
        found = self.headers.enumerations.get(name)
        return name if found and found.values else None

    def type_of(self, record: str, field: Field) -> tuple[str, str]:
        """The type in Python and the value that a new record has."""
        text = self.headers.arrays.get(field.type)
        if field.type == "char" or (text and not field.count):
            return "str", '""'
        if text:
            return "tuple[str, ...]", f'("",) * {field.count}'
        single = self._single(record, field)
        if field.type in self.headers.records:
            plain = f"field(default_factory={field.type})"
            several = f"field(default_factory=lambda: tuple({field.type}() for _ in range({field.count})))"
            return (f"tuple[{single}, ...]", several) if field.count else (single, plain)
        zero = {"bool": "False", "float": "0.0"}.get(single, "0")
        return (f"tuple[{single}, ...]", f"({zero},) * {field.count}") if field.count else (single, zero)

    def _single(self, record: str, field: Field) -> str:
        if field.type in self.headers.records:
            return field.type
        enumeration = self._enumeration(record, field)
        if enumeration:
            return f"enums.{enumeration} | int"
        return _TYPES[element_code(field.type, self.catalogue)]

    def layout(self, record: str, field: Field) -> str:
        """A row: name in C, name in Python, kind, count, enumeration or record, count of the text."""
        text = self.headers.arrays.get(field.type)
        count = field.count or 0
        name = self._name(field)
        if field.type == "char" or text:
            length = text.count if text else count
            return f'("{field.name}", "{name}", "s", {count if text else 0}, "", {length})'
        if field.type in self.headers.records:
            return f'("{field.name}", "{name}", "r", {count}, "{field.type}", 0)'
        code = element_code(field.type, self.catalogue)
        return f'("{field.name}", "{name}", "{code}", {count}, "{self._enumeration(record, field) or ""}", 0)'

    @staticmethod
    def _name(field: Field) -> str:
        return safe(field.name.split(".")[-1])

    def _class(self, name: str) -> list[str]:
        lines = ["@dataclass", f"class {name}:"]
        said = [one_line(self.meanings.get(name, f"The record {name}."))]
        for field in self.records[name]:
            meaning = self.meanings.get(f"{name}.{field.name}")
            said += [f"{self._name(field)}: {meaning}"] if meaning else []
        lines += doc_lines(said, "    ")
        lines.append("")
        for field in self.records[name]:
            kind, initial = self.type_of(name, field)
            lines.append(f"    {self._name(field)}: {kind} = {initial}")
        return [*lines, "", ""]

    def _ordered(self) -> list[str]:
        """The records within others before these."""
        done: list[str] = []

        def add(name: str) -> None:
            for field in self.records[name]:
                if field.type in self.records and field.type not in done:
                    add(field.type)
            if name not in done:
                done.append(name)

        for name in self.records:
            add(name)
        return done

    def source(self) -> str:
        head = HEAD.format(title="The records of the interface.")
        lines = [head + "from dataclasses import dataclass, field\n\nfrom . import enums\n"]
        lines += [*public([*self.records, DEVICES]), "", ""]
        for name in self._ordered():
            lines += self._class(name)
        lines += [
            "@dataclass",
            f"class {DEVICES}:",
            '    """A device on one of the HDMI inputs. The service words the texts."""',
            "",
            "    logAddr: int = 0",
            "    hdmiDevPort: int = 0",
            '    phyAddr: str = ""',
            '    deVName: str = ""',
            '    hdmiListText: str = ""',
        ]
        return "\n".join(lines).rstrip("\n") + "\n"

    def layouts(self) -> list[str]:
        lines = ["RECORDS: dict[str, tuple[tuple[str, str, str, int, str, int], ...]] = {"]
        for name, fields in self.records.items():
            lines.append(f'    "{name}": (')
            lines += [f"        {self.layout(name, field)}," for field in fields]
            lines.append("    ),")
        return [*lines, "}"]


def events_file(catalogue: Catalogue) -> str:
    """The table of the simulated television's events: first, last, name, fields."""
    head = HEAD.format(title="The events of the simulated television.")
    lines = ["EVENTS: tuple[tuple[int, int, str, tuple[tuple[str, str, str], ...]], ...] = ("]
    codes = {"int8": "b", "uint8": "B", "int16": "h", "uint16": "H", "int32": "i", "bool": "?", "text": "s", "bytes": "y"}
    for event in catalogue.events.rows:
        fields = "".join(
            f'("{each.name}", "{codes.get(each.type, "i")}", "{"" if each.type in codes else each.type}"), '
            for each in event.fields
        )
        lines.append(f'    (0x{event.first:X}, 0x{event.last:X}, "{event.name}", ({fields.strip()})),')
    return head + "\n".join([*lines, ")"]) + "\n"
