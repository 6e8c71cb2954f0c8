#!/usr/bin/env python3
"""Writes the interface as data: what every command carries, what can be called and how, events, texts of help."""

from __future__ import annotations

import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parents[1] / "catalogue")]

from docs import read_docs  # noqa: E402
from event_sources import EventSources  # noqa: E402
from functions import FunctionTable  # noqa: E402
from interface import InterfaceTables  # noqa: E402
from meanings import read_meanings  # noqa: E402
from model import Catalogue  # noqa: E402
from program import run  # noqa: E402
from texts import meanings_source, texts_source  # noqa: E402
from thunks import thunks_source  # noqa: E402
from vocabulary import Vocabulary  # noqa: E402


def sources(catalogue: Catalogue, include: Path) -> dict[str, str]:
    """Every source by its name. Sentences of the headers stand in `*_texts.cpp` and nowhere else."""
    vocabulary = Vocabulary(catalogue)
    functions = FunctionTable(catalogue, vocabulary)
    events = EventSources(catalogue)
    return {
        "vocabulary.cpp": vocabulary.source(),
        "vocabulary_texts.cpp": meanings_source(vocabulary, read_meanings(include)),
        "interface.cpp": InterfaceTables(catalogue, vocabulary).source(),
        "events.cpp": events.table(),
        "events.md": events.page(),
        "include/kelutv-simulator/events.h": events.header(),
        "functions.cpp": functions.source(),
        "functions_texts.cpp": texts_source(functions.operations, read_docs(include)),
        "thunks.cpp": thunks_source(catalogue, functions.operations),
    }


def main(argv: list[str] | None = None) -> int:
    return run(__doc__, sources, argv)


if __name__ == "__main__":
    sys.exit(main())
