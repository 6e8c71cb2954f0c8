"""The command line that all generators have: `[--catalogue FOLDER] [--include FOLDER] OUTPUT-FOLDER`."""

from __future__ import annotations

import argparse
import sys
from collections.abc import Callable
from pathlib import Path

from folders import add_folder_options, read_named_catalogue
from model import Catalogue
from tables import CatalogueError, Place

Sources = Callable[[Catalogue, Path], dict[str, str]]


class GenerationError(Exception):
    """Why nothing can be made of a row, with the row's place."""

    def __init__(self, place: Place, message: str):
        super().__init__(f"{place}: {message}")


def write_if_changed(path: Path, content: str) -> None:
    """Leaves an equal file alone, so that nothing that is made of it is made again."""
    if not path.exists() or path.read_text(encoding="utf-8") != content:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(content, encoding="utf-8")


def run(description: str | None, sources: Sources, argv: list[str] | None = None) -> int:
    """Writes what `sources` makes of the catalogue and the folder of headers, by the names of the files; an exit code.

    When anything is wrong nothing is written, and standard error says what, with file and line.
    """
    parser = argparse.ArgumentParser(description=description, formatter_class=argparse.RawDescriptionHelpFormatter)
    add_folder_options(parser)
    parser.add_argument("folder", type=Path, help="where to write")
    arguments = parser.parse_args(argv)
    if not arguments.folder.is_dir():
        parser.error(f"'{arguments.folder}' is not a folder")
    try:
        written = sources(read_named_catalogue(arguments), arguments.include)
    except (CatalogueError, GenerationError) as error:
        print(error, file=sys.stderr)
        return 1
    for name, content in written.items():
        write_if_changed(arguments.folder / name, content)
    return 0
