"""What the comments of the public headers say about C functions and class methods."""

from __future__ import annotations

import re
from dataclasses import dataclass, field
from pathlib import Path

from headers import parse_signature
from tables import RowError


@dataclass(frozen=True)
class Doc:
    """One comment, its sentences joined to lines: `brief` is the first, `details` are the paragraphs after it."""

    brief: str = ""
    details: str = ""
    parameters: dict[str, str] = field(default_factory=dict)
    returns: str = ""


_PIECES = re.compile(
    r"(?P<comment>/\*\*(?!<).*?\*/)|(?P<other>/\*.*?\*/|//[^\n]*)|class\s+KELUTV_API\s+(?P<owner>\w+)", re.S
)


def _lines(comment: str) -> list[str]:
    body = re.sub(r"^/\*\*|\*/$", "", comment.strip())
    return [re.sub(r"^\s*\*? ?", "", line).rstrip() for line in body.splitlines()]


def _paragraphs(lines: list[str]) -> list[str]:
    joined = re.sub(r"\n{2,}", "\0", "\n".join(lines).strip())
    return [" ".join(part.split()) for part in joined.split("\0") if part.strip()]


def _named(text: str) -> list[tuple[str, str]]:
    """What `@param first, second TEXT` says of each."""
    names, words = re.match(r"((?:\w+,\s*)*\w+)\s*(.*)", text).groups()
    return [(name, words) for name in re.split(r",\s*", names)]


def parse_doc(comment: str) -> Doc:
    """Reads one comment; tags other than @param and @return end what stands before them."""
    text: list[str] = []
    tags: list[tuple[str, list[str]]] = []
    for line in _lines(comment):
        tag = re.match(r"\s*@(\w+)\s*(.*)", line)
        if tag:
            tags.append((tag[1], [tag[2]]))
        else:
            (tags[-1][1] if tags else text).append(line)
    paragraphs = _paragraphs(text)
    first = re.match(r"(.*?[.!?])(?:\s+(.*))?$", paragraphs[0]) if paragraphs else None
    brief = first[1] if first else "".join(paragraphs[:1])
    rest = [first[2]] if first and first[2] else []
    said = [(tag, " ".join(_paragraphs(words))) for tag, words in tags]
    named = {name: words for tag, text in said if tag == "param" for name, words in _named(text)}
    returns = " ".join(words for tag, words in said if tag == "return")
    return Doc(brief, "\n".join(rest + paragraphs[1:]), named, returns)


def _group_doc(comment: str) -> Doc | None:
    """What a comment that opens a group says of all its members: the text below the title, or else the title."""
    title = re.search(r"@name\s+([^@\n]*)", comment)
    if not title or "@{" not in comment:
        return None
    doc = parse_doc(re.sub(r"@name[^@\n]*", "", comment).replace("@{", ""))
    words = title[1].strip()
    return doc if doc.brief else Doc(words if words.endswith(".") else words + ".")


def _declarations(text: str) -> list[str]:
    """The names declared in a piece of code without comments."""
    names = []
    for match in re.finditer(r"([\w:<>*&\s]+?[\s*&>]\w+\s*\([^()]*\))\s*(?:const)?\s*;", text):
        declaration = re.sub(r"^\s*(?:public\s*:|KELUTV_API|static)\s*", "", match[1]).replace("KELUTV_API", "")
        try:
            names.append(parse_signature(declaration).name)
        except RowError:
            continue
    return names


class _Reader:
    """Walks over one header: a comment belongs to the declaration right behind it, a group's to all without one."""

    def __init__(self) -> None:
        self.docs: dict[str, Doc] = {}
        self.group: Doc | None = None
        self.waiting: Doc | None = None
        self.owner: str | None = None

    def code(self, text: str) -> None:
        for name in _declarations(text):
            doc = self.waiting or self.group
            self.waiting = None
            if doc:
                self.docs.setdefault(f"{self.owner}::{name}" if self.owner else name, doc)
        if ";" in text or "{" in text:
            self.waiting = None
        if self.owner and re.search(r"\n\};", text):
            self.owner = self.group = None

    def comment(self, text: str) -> None:
        if "@}" in text:
            self.group = None
        elif "@{" in text:
            self.group = _group_doc(text)
        elif "@file" not in text:
            self.waiting = parse_doc(text)

    def read(self, text: str) -> dict[str, Doc]:
        position = 0
        for piece in _PIECES.finditer(text):
            self.code(text[position : piece.start()])
            position = piece.end()
            if piece["comment"]:
                self.comment(piece["comment"])
            elif piece["owner"]:
                self.owner, self.waiting = piece["owner"], None
        self.code(text[position:])
        return self.docs


def read_docs(include: Path) -> dict[str, Doc]:
    """The comments of every C function and public method below `include`/kelutv, by `name` or `Class::name`."""
    docs: dict[str, Doc] = {}
    for path in sorted((include / "kelutv").glob("*.h")):
        docs.update(_Reader().read(path.read_text(encoding="utf-8")))
    return docs
