"""Where tables and headers are read from: the repository's own folders unless the command line names others."""

from __future__ import annotations

import argparse
from pathlib import Path

from model import Catalogue
from reader import read_catalogue

ROOT = Path(__file__).resolve().parent.parent


def add_folder_options(parser: argparse.ArgumentParser) -> None:
    """Adds `--catalogue` and `--include`."""
    parser.add_argument("--catalogue", type=Path, default=ROOT / "catalogue", help="folder of the tables")
    parser.add_argument("--include", type=Path, default=ROOT / "include", help="folder of the public headers")


def read_named_catalogue(arguments: argparse.Namespace) -> Catalogue:
    """The catalogue in the folders that the options name; raises CatalogueError."""
    return read_catalogue(arguments.catalogue, arguments.include)
