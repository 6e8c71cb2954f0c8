"""Writes for each target the source in which its fault is planted: plants.py FOLDER."""

from __future__ import annotations

import re
import sys
from pathlib import Path

from targets import ROOT, FuzzError, Target, read_targets

INCLUDE = re.compile(r'(?m)^#include "([^"]+)"$')


def planted(target: Target) -> str:
    """The text of the file with the fault in it, as it can be compiled anywhere."""
    plant = target.plant
    source = ROOT / plant.file
    text = source.read_text(encoding="utf-8")
    if text.count(plant.right) != 1:
        raise FuzzError(f"{target.name}: '{plant.right}' stands {text.count(plant.right)} times in {plant.file}, not once")

    def absolute(include: re.Match[str]) -> str:
        beside = source.parent / include[1]
        return f'#include "{beside}"' if beside.is_file() else include[0]

    return f'#line 1 "{source}"\n' + INCLUDE.sub(absolute, text.replace(plant.right, plant.wrong))


def write(path: Path, text: str) -> None:
    """Leaves a file alone that says the same, so that it is not compiled again."""
    if not path.exists() or path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8")


def main() -> int:
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    try:
        for target in read_targets().values():
            write(folder / f"{target.name}.cpp", planted(target))
    except FuzzError as error:
        print(f"plants: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
