"""Markdown pipe tables with the line of every row, so that an error can name its place."""

from __future__ import annotations

import re
from dataclasses import dataclass
from pathlib import Path


class RowError(Exception):
    """What is wrong with one row; the reader adds the place."""


class CatalogueError(Exception):
    """Everything that is wrong, one `file:line: message` each."""

    def __init__(self, messages: list[str]):
        super().__init__("\n".join(messages))
        self.messages = messages


@dataclass(frozen=True)
class Place:
    path: Path
    line: int

    def __str__(self) -> str:
        return f"{self.path}:{self.line}"


@dataclass(frozen=True)
class Row:
    place: Place
    cells: dict[str, str]

    def __getitem__(self, column: str) -> str:
        return self.cells[column]


@dataclass(frozen=True)
class Section:
    """The tables under one `##` heading; `###` headings only group rows for the reader."""

    title: str
    place: Place
    rows: list[Row]


def _cells(line: str) -> list[str]:
    return [cell.strip() for cell in line.strip().strip("|").split("|")]


def _is_rule(line: str) -> bool:
    return re.fullmatch(r"\|(\s*:?-+:?\s*\|)+", line.strip()) is not None


class _TableReader:
    def __init__(self, path: Path, columns: dict[str, list[str]]):
        self.path = path
        self.columns = columns
        self.errors: list[str] = []
        self.sections: dict[str, Section] = {}
        self.section: Section | None = None
        self.header: list[str] | None = None

    def error(self, line: int, message: str) -> None:
        self.errors.append(f"{self.path}:{line}: {message}")

    def open_section(self, title: str, line: int) -> None:
        self.header = None
        if title not in self.columns:
            self.error(line, f"unknown section '{title}', expected one of: {', '.join(self.columns)}")
            self.section = None
        elif title in self.sections:
            self.error(line, f"section '{title}' stands twice")
        else:
            self.section = Section(title, Place(self.path, line), [])
            self.sections[title] = self.section

    def check_header(self, line: int) -> None:
        expected = self.columns[self.section.title]
        for column in self.header:
            if column not in expected:
                self.error(line, f"unknown column '{column}', expected: {' | '.join(expected)}")
        for column in expected:
            if column not in self.header:
                self.error(line, f"missing column '{column}'")
        if len(set(self.header)) != len(self.header):
            self.error(line, "a column stands twice")

    def add_row(self, text: str, line: int) -> None:
        cells = _cells(text)
        if len(cells) != len(self.header):
            self.error(line, f"{len(cells)} cells, but the table has {len(self.header)} columns")
            return
        for column, cell in zip(self.header, cells):
            if not cell:
                self.error(line, f"empty cell in column '{column}', write - for nothing")
        self.section.rows.append(Row(Place(self.path, line), dict(zip(self.header, cells))))

    def table_line(self, text: str, line: int) -> None:
        if self.section is None:
            self.error(line, "a table outside of any known section")
        elif self.header is None:
            self.header = _cells(text)
            self.check_header(line)
        elif not _is_rule(text):
            self.add_row(text, line)

    def read(self) -> dict[str, Section]:
        for line, text in enumerate(self.path.read_text(encoding="utf-8").splitlines(), 1):
            if text.startswith("## "):
                self.open_section(text[3:].strip(), line)
            elif text.startswith("|"):
                self.table_line(text, line)
            else:
                self.header = None
        if self.errors:
            raise CatalogueError(self.errors)
        return self.sections


def read_sections(path: Path, columns: dict[str, list[str]]) -> dict[str, Section]:
    """Reads the sections of one file; `columns` names the sections that may occur and each one's columns."""
    return _TableReader(path, columns).read()
