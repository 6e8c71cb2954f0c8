"""What the comments of the public headers say of enumerations and records, and of what stands in them."""

from __future__ import annotations

import re
from pathlib import Path

from docs import parse_doc

_TYPE = re.compile(
    r"(?:/\*\*(?P<comment>(?:(?!\*/).)*)\*/\s*)?typedef\s+(?P<kind>enum|struct)\s+\w+[^{;]*"
    r"\{(?P<body>.*?)\}\s*(?P<name>\w+)\s*;",
    re.S,
)
_ENUMERATOR = re.compile(r"(\w+)\s*=\s*-?\w+\s*,?\s*/\*\*<(.*?)\*/", re.S)
_FIELD = re.compile(r"(\w+)(?:\[\w+\])*\s*;\s*/\*\*<(.*?)\*/", re.S)


def _words(comment: str) -> str:
    return " ".join(re.sub(r"\n\s*\*", "\n", comment).split())


def _of_type(match: re.Match[str]) -> dict[str, str]:
    found = {}
    if match["comment"]:
        doc = parse_doc(f"/**{match['comment']}*/")
        found[match["name"]] = " ".join(filter(None, [doc.brief, " ".join(doc.details.split("\n"))]))
    if match["kind"] == "enum":
        found |= {name: _words(text) for name, text in _ENUMERATOR.findall(match["body"])}
    else:
        found |= {f"{match['name']}.{name}": _words(text) for name, text in _FIELD.findall(match["body"])}
    return found


def read_meanings(include: Path) -> dict[str, str]:
    """The comments below `include`/kelutv, by `Enumeration`, `ENUMERATOR`, `Record` and `Record.field`."""
    meanings: dict[str, str] = {}
    for path in sorted((include / "kelutv").glob("*.h")):
        for match in _TYPE.finditer(path.read_text(encoding="utf-8")):
            meanings |= _of_type(match)
    return meanings
