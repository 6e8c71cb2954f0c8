#!/usr/bin/env python3
"""Writes the interface as data: what every command carries, what can be called and how, what help says of it, events."""

from __future__ import annotations

import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parents[1] / "catalogue")]

from docs import read_docs  # noqa: E402
from event_sources import EventSources  # noqa: E402
from functions import ModuleSource, offered  # noqa: E402
from interface import InterfaceTables  # noqa: E402
from model import Catalogue  # noqa: E402
from program import run  # noqa: E402
from texts import TextSource  # noqa: E402
from vocabulary import Vocabulary  # noqa: E402


def sources(catalogue: Catalogue, include: Path) -> dict[str, str]:
    """Every source by its name. Sentences stand in `functions_*_texts.cpp` and nowhere else."""
    vocabulary = Vocabulary(catalogue)
    docs = read_docs(include)
    operations = offered(catalogue)
    events = EventSources(catalogue)
    found = {
        "events.cpp": events.table(),
        "events.md": events.page(),
        "include/kelutv-simulator/events.h": events.header(),
        "interface.cpp": InterfaceTables(catalogue).source(),
        "vocabulary.cpp": vocabulary.source(catalogue.modules),
    }
    for module in catalogue.modules:
        own = [operation for operation in operations if operation.module == module.name]
        found[f"functions_{module.name}.cpp"] = ModuleSource(catalogue, vocabulary, module).source(own)
        found[f"functions_{module.name}_texts.cpp"] = TextSource(docs, module).source(own)
    return found


def main(argv: list[str] | None = None) -> int:
    return run(__doc__, sources, argv)


if __name__ == "__main__":
    sys.exit(main())
