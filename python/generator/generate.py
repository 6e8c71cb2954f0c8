#!/usr/bin/env python3
"""Writes what of the package kelutv comes from the catalogue and the public headers."""

from __future__ import annotations

import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parents[1]
sys.path[:0] = [str(HERE), str(ROOT / "wire" / "generator"), str(ROOT / "catalogue")]

from docs import read_docs  # noqa: E402
from foreign import declarations, foreign_source  # noqa: E402
from meanings import read_meanings  # noqa: E402
from model import Catalogue  # noqa: E402
from module_files import ModuleFiles  # noqa: E402
from plan import plans  # noqa: E402
from program import run  # noqa: E402
from table_file import TableFile  # noqa: E402
from vocabulary_files import RecordFiles, enums_file, events_file  # noqa: E402
from wrappers import wrappers_source  # noqa: E402


def sources(catalogue: Catalogue, include: Path) -> dict[str, str]:
    """Every file by its name."""
    modules = plans(catalogue)
    meanings = read_meanings(include)
    records = RecordFiles(catalogue, meanings)
    classes = ModuleFiles(catalogue, read_docs(include))
    written = {
        "calls.cpp": wrappers_source(catalogue, modules),
        "kelutv/_foreign.py": foreign_source(declarations(catalogue, modules)),
        "kelutv/_table.py": TableFile(catalogue, records).source(modules),
        "kelutv/_modules.py": classes.television_modules(list(modules)),
        "kelutv/enums.py": enums_file(catalogue, meanings),
        "kelutv/records.py": records.source(),
        "kelutv/_event_table.py": events_file(catalogue),
        "kelutv/modules/__init__.py": '"""The functions by their modules."""\n',
    }
    row = 0
    for name, each in modules.items():
        written[f"kelutv/modules/{name}.py"] = classes.source(name, each, row)
        row += len(each)
    return written


def main(argv: list[str] | None = None) -> int:
    return run(__doc__, sources, argv)


if __name__ == "__main__":
    sys.exit(main())
