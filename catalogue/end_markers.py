"""`enumerations.md`: which enumerators only mark the end of an enumeration, or of a range inside one."""

from __future__ import annotations

import re
from collections.abc import Callable
from dataclasses import replace

from headers import Headers
from tables import Row, RowError, Section

FILE = "enumerations.md"
END_MARKERS = "End markers"
VALUES = "Values that look like end markers"
COLUMNS = {END_MARKERS: ["enumeration", "end marker"], VALUES: ["enumeration", "value"]}

_LOOKS_LIKE_ONE = re.compile(r"_(?:BUTT|MAX|NUM|COUNT|TOTAL|END|LAST)$|_BUTT_")


def read_end_markers(
    sections: dict[str, Section], headers: Headers, complain: Callable[[Row, RowError], None]
) -> list[str]:
    """Marks the enumerators in `headers`; gives complaints about those that are in neither table."""
    named: set[str] = set()
    for title, column in ((END_MARKERS, "end marker"), (VALUES, "value")):
        for row in sections[title].rows if title in sections else []:
            try:
                _read(row, column, headers, named)
            except RowError as error:
                complain(row, error)
    return [
        f"{enumeration.name}: {name} looks like an end marker, but no table of {FILE} names it"
        for enumeration in headers.enumerations.values()
        for name in enumeration.values
        if _LOOKS_LIKE_ONE.search(name) and name not in named
    ]


def _read(row: Row, column: str, headers: Headers, named: set[str]) -> None:
    enumeration, name = headers.enumerations.get(row["enumeration"]), row[column]
    if enumeration is None:
        raise RowError(f"'{row['enumeration']}' is not an enumeration of the public headers")
    if name not in enumeration.values:
        raise RowError(f"'{name}' is not an enumerator of {enumeration.name}")
    if name in named:
        raise RowError(f"'{name}' stands twice")
    if column == "value" and not _LOOKS_LIKE_ONE.search(name):
        raise RowError(f"'{name}' does not look like an end marker")
    named.add(name)
    if column == "end marker":
        marked = replace(enumeration, end_markers=(*enumeration.end_markers, name))
        headers.enumerations[enumeration.name] = marked
