"""C++ sources as the generators write them: literals, rows of tables, whole files."""

from __future__ import annotations

import json
from collections.abc import Iterable


def text(value: str | None) -> str:
    """A string literal; nothing gives an empty one."""
    return json.dumps(value or "")


def text_or_null(value: str | None) -> str:
    return "nullptr" if value is None else text(value)


def bytes_view(data: bytes) -> str:
    """A literal of a string view, four bytes to a group."""
    groups = [data[i : i + 4] for i in range(0, len(data), 4)] or [b""]
    return " ".join('"' + "".join(f"\\x{byte:02x}" for byte in group) + '"' for group in groups) + "sv"


def boolean(value: bool) -> str:
    return str(value).lower()


def optional(value: str | None) -> str:
    """A `std::optional` that holds this expression, or nothing."""
    return "std::nullopt" if value is None else value


def row(cells: Iterable[str]) -> str:
    """What one row of a table is initialized with."""
    return f"{{{', '.join(cells)}}}"


def array(declaration: str, rows: Iterable[str]) -> str:
    """The definition of an array, a row a line: `array("constexpr int kPrimes", ["2", "3"])`."""
    lines = "".join(f"    {each},\n" for each in rows)
    return f"{declaration}[] = {{\n{lines}}};"


class Arrays:
    """The constant arrays that the rows of a source refer to."""

    def __init__(self) -> None:
        self._names: dict[str, str] = {}

    def name(self, row_type: str, rows: list[str], called: str | None = None) -> str:
        """The name of an array of these rows; equal arrays stand once, and an empty one needs none."""
        if not rows:
            return "{}"
        body = array(f"constexpr {row_type} %s", rows)
        return self._names.setdefault(body, f"k{called or row_type}s{len(self._names)}")

    def definitions(self) -> list[str]:
        return [body.replace("%s", name, 1) for body, name in self._names.items()]


def includes(own: Iterable[str], public: Iterable[str] = ()) -> str:
    """The lines that include files of this tree, and those for headers on the search path."""
    groups = [[f'#include "{path}"' for path in own], [f"#include <{path}>" for path in public]]
    return "\n\n".join("\n".join(group) for group in groups if group)


def source(
    included: str, namespace: str, shown: Iterable[str], hidden: Iterable[str] = (), declared: Iterable[str] = ()
) -> str:
    """A whole source: what is `declared` elsewhere, what is `hidden` in an unnamed namespace, what others see."""
    inner = list(hidden)
    unnamed = ["namespace {\n", *inner, "\n} // namespace\n"] if inner else []
    lines = [
        "// Generated from the catalogue and the public headers.",
        f"{included}\n",
        f"namespace {namespace} {{\n",
        *(f"{each}\n" for each in declared),
        *unnamed,
        *shown,
        f"\n}} // namespace {namespace}\n",
    ]
    return "\n".join(lines)
