"""What the public headers declare: enumerations, records, C functions, class methods.

The headers are regular by convention: one enumerator per line with an explicit value. A typedef of int is an
enumeration whose names the service keeps to itself.
"""

from __future__ import annotations

import math
import re
from dataclasses import dataclass, field
from pathlib import Path

from tables import Place, RowError


@dataclass(frozen=True)
class Parameter:
    type: str
    name: str


@dataclass(frozen=True)
class Signature:
    """A declaration; types are written the demangler's way (`char const*`)."""

    result: str
    name: str
    parameters: tuple[Parameter, ...]
    virtual: bool = False

    def __str__(self) -> str:
        parameters = ", ".join(f"{p.type} {p.name}" for p in self.parameters)
        return f"{'virtual ' if self.virtual else ''}{self.result} {self.name}({parameters})"

    def parameter(self, name: str) -> Parameter:
        for parameter in self.parameters:
            if parameter.name == name:
                return parameter
        raise RowError(f"'{name}' is not a parameter of {self.name}")


@dataclass(frozen=True)
class Enumeration:
    """An enumeration; its `end_markers` are among the values, but nothing is set to them."""

    name: str
    values: dict[str, int]
    end_markers: tuple[str, ...] = ()

    @property
    def real_values(self) -> dict[str, int]:
        """The values without the end markers."""
        return {name: value for name, value in self.values.items() if name not in self.end_markers}


@dataclass(frozen=True)
class Field:
    type: str
    name: str
    count: int | None = None


@dataclass(frozen=True)
class Record:
    name: str
    fields: tuple[Field, ...]
    place: Place


@dataclass
class Headers:
    """`callbacks` are the typedefs of function pointers; `arrays` those of arrays, each with its entries."""

    enumerations: dict[str, Enumeration] = field(default_factory=dict)
    records: dict[str, Record] = field(default_factory=dict)
    functions: dict[str, dict[str, Signature]] = field(default_factory=dict)
    methods: dict[str, list[Signature]] = field(default_factory=dict)
    enumerators: dict[str, int] = field(default_factory=dict)
    callbacks: set[str] = field(default_factory=set)
    arrays: dict[str, Field] = field(default_factory=dict)
    symbol_types: dict[str, str] = field(default_factory=dict)

    def enumerator(self, name: str) -> int | None:
        return self.enumerators.get(name)

    def demangled(self, signature: Signature) -> str:
        """The name and parameter types as a demangled symbol shows them, typedefs resolved."""
        return f"{signature.name}({', '.join(self._in_symbols(p.type) for p in signature.parameters)})"

    def _in_symbols(self, type_name: str) -> str:
        named = re.sub(r"\w+", lambda word: self.symbol_types.get(word[0], word[0]), type_name)
        return re.sub(r"std::(vector|list)<([^<>]+)>", r"std::\1<\2, std::allocator<\2> >", named)


def canonical_type(text: str) -> str:
    """`const char *` and `char const*` alike become `char const*`."""
    words = re.sub(r"([*&])", r" \1 ", text).split()
    stars = "".join(word for word in words if word in "*&")
    base = [word for word in words if word not in "*&" and word not in ("struct", "enum")]
    if "const" in base:
        base.remove("const")
        base.append("const")
    return " ".join(base) + stars


def _split_parameters(text: str) -> list[str]:
    text = text.strip()
    return [] if text in ("", "void") else [part.strip() for part in text.split(",")]


def _parameter(text: str) -> Parameter:
    match = re.fullmatch(r"(.*[\s*&])(\w+)", text)
    if not match:
        raise RowError(f"parameter '{text}' needs a type and a name")
    return Parameter(canonical_type(match[1]), match[2])


def parse_signature(text: str) -> Signature:
    """Reads one declaration such as `bool getMute(int channel)`."""
    text = " ".join(text.split())
    match = re.fullmatch(r"(virtual\s+)?(.*[\s*&>])(\w+)\s*\((.*)\)", text)
    if not match:
        raise RowError(f"'{text}' is not a declaration: TYPE NAME(TYPE NAME, ...)")
    parameters = tuple(_parameter(part) for part in _split_parameters(match[4]))
    if len({p.name for p in parameters}) != len(parameters):
        raise RowError(f"'{text}' names a parameter twice")
    return Signature(canonical_type(match[2]), match[3], parameters, bool(match[1]))


def _without_comments(text: str) -> str:
    """The code, each line where it was."""
    text = re.sub(r"/\*.*?\*/", lambda comment: " " + "\n" * comment[0].count("\n"), text, flags=re.S)
    return re.sub(r"//[^\n]*", " ", text)


def _enumerations(text: str) -> list[Enumeration]:
    found = []
    for match in re.finditer(r"typedef\s+enum\s+(\w+)[^{;]*\{(.*?)\}\s*(\w+)\s*;", text, re.S):
        values = {name: int(value, 0) for name, value in re.findall(r"(\w+)\s*=\s*(-?\w+)", match[2])}
        found.append(Enumeration(match[3], values))
    return found + [Enumeration(name, {}) for name in re.findall(r"typedef\s+int\s+(\w+)\s*;", text)]


def _field(text: str) -> Field:
    match = re.fullmatch(r"(.*[\s*])(\w+)((?:\[\d+\])*)", text.strip())
    if not match:
        raise RowError(f"record field '{text.strip()}' is not TYPE NAME or TYPE NAME[COUNT]")
    counts = [int(count) for count in re.findall(r"\d+", match[3])]
    return Field(canonical_type(match[1]), match[2], math.prod(counts) if counts else None)


def _records(text: str, path: Path) -> list[Record]:
    found = []
    for match in re.finditer(r"typedef\s+struct\s+\w+\s*\{(.*?)\}\s*(\w+)\s*;", text, re.S):
        fields = tuple(_field(part) for part in match[1].split(";") if part.strip())
        found.append(Record(match[2], fields, Place(path, text.count("\n", 0, match.start()) + 1)))
    return found


def _arrays(text: str) -> list[Field]:
    found = re.findall(r"typedef\s+([\w\s]+?)\s+(\w+)\[(\d+)\]\s*;", text)
    return [Field(canonical_type(type_name), name, int(count)) for type_name, name, count in found]


def _symbol_types(text: str) -> dict[str, str]:
    """What stands for a typedef in a demangled symbol: the tag, int, or the type of a function pointer."""
    tags = re.findall(r"typedef\s+(?:enum|struct)\s+(\w+)[^{;]*\{.*?\}\s*(\w+)\s*;", text, re.S)
    return {name: tag for tag, name in tags} | {name: "int" for name in re.findall(r"typedef\s+int\s+(\w+)\s*;", text)}


def _callbacks(text: str) -> dict[str, str]:
    """The typedefs of function pointers, each with its type."""
    found = {}
    for result, name, parameters in re.findall(r"typedef\s+([\w\s*]+?)\(\s*\*\s*(\w+)\s*\)\s*\(([^()]*)\)\s*;", text):
        types = ", ".join(_parameter(part).type for part in _split_parameters(parameters))
        found[name] = f"{canonical_type(result)} (*)({types})"
    return found


def _functions(text: str) -> dict[str, Signature]:
    signatures = (parse_signature(match[1]) for match in re.finditer(r"KELUTV_API\s+([\w:<>\s*]+\([^()]*\))\s*;", text))
    return {signature.name: signature for signature in signatures}


def _methods(text: str) -> dict[str, list[Signature]]:
    found = {}
    for match in re.finditer(r"class\s+KELUTV_API\s+(\w+)[^{;]*\{(.*?)\n\};", text, re.S):
        public = re.split(r"\b(?:private|protected)\s*:", match[2])[0]
        declarations = re.findall(r"((?:virtual\s+)?[\w:<>*&\s]+?[\s*&>]\w+\s*\([^()]*\))\s*;", public)
        declarations = [re.sub(r"^\s*(public\s*:)?\s*", "", text) for text in declarations]
        passed_over = re.compile(rf"static\s|{match[1]}\s*\(")
        found[match[1]] = [parse_signature(text) for text in declarations if not passed_over.match(text)]
    return found


def read_headers(include: Path) -> Headers:
    """Reads every header below `include`/kelutv except the service link's own."""
    headers = Headers()
    for path in sorted((include / "kelutv").glob("*.h")):
        text = _without_comments(path.read_text(encoding="utf-8"))
        headers.enumerations.update({e.name: e for e in _enumerations(text)})
        callbacks = _callbacks(text)
        headers.callbacks.update(callbacks)
        headers.symbol_types.update(_symbol_types(text) | callbacks)
        headers.arrays.update({array.name: array for array in _arrays(text)})
        headers.records.update({r.name: r for r in _records(text, path)})
        headers.functions[f"kelutv/{path.name}"] = _functions(text)
        headers.methods.update(_methods(text))
    for enumeration in headers.enumerations.values():
        headers.enumerators.update(enumeration.values)
    return headers
