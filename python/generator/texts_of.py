"""Sentences of the headers and of the catalogue as docstrings."""

from __future__ import annotations

import re
import textwrap

WIDTH = 118


def one_line(text: str) -> str:
    """Without the marks that the reference pages need."""
    return re.sub(r"#(?=[A-Za-z_])", "", " ".join(text.split())).replace("\\", "\\\\").replace('"""', "'''")


def doc_lines(paragraphs: list[str], indent: str) -> list[str]:
    """A docstring; the first paragraph stands on the first line."""
    wrapped: list[str] = []
    for index, paragraph in enumerate(paragraphs):
        hanging = indent + "    " if re.match(r"\w+: ", paragraph) and index else indent
        lines = textwrap.wrap(
            one_line(paragraph), WIDTH - 3, initial_indent=indent, subsequent_indent=hanging, break_long_words=False,
            break_on_hyphens=False,
        )
        wrapped += ([""] if index == 1 else []) + lines
    if len(wrapped) == 1 and len(wrapped[0]) + 6 <= WIDTH + 2:
        return [f'{indent}"""{wrapped[0].strip()}"""']
    return [f'{indent}"""{wrapped[0].strip()}', *wrapped[1:], f'{indent}"""']
