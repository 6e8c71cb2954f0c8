"""The table of the fuzz targets."""

from __future__ import annotations

import tomllib
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
TABLE = ROOT / "fuzz" / "targets.toml"
CORPUS = ROOT / "fuzz" / "corpus"
BUILD = ROOT / "build" / "fuzz"
# What a run finds and makes, outside of the build's own folders.
WORK = BUILD / "runs"


class FuzzError(Exception):
    """What went wrong, for the person who runs it."""


@dataclass(frozen=True)
class Plant:
    """A fault: `wrong` in place of `right`, which stands in `file` exactly once."""

    file: str
    right: str
    wrong: str


@dataclass(frozen=True)
class Target:
    name: str
    about: str
    files: tuple[str, ...]
    floor: int
    longest: int
    dictionary: str
    plant: Plant

    @property
    def program(self) -> Path:
        return BUILD / "fuzz" / f"fuzz_{self.name}"

    @property
    def corpus(self) -> Path:
        return CORPUS / self.name

    @property
    def findings(self) -> Path:
        return WORK / "findings" / self.name


def read_targets() -> dict[str, Target]:
    table = tomllib.loads(TABLE.read_text(encoding="utf-8"))
    return {
        name: Target(**{**row, "name": name, "files": tuple(row["files"]), "plant": Plant(**row["plant"])})
        for name, row in sorted(table.items())
    }


def named(name: str) -> Target:
    targets = read_targets()
    if name not in targets:
        raise FuzzError(f"there is no target '{name}', only: {', '.join(targets)}")
    return targets[name]
