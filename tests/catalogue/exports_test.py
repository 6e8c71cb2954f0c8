#!/usr/bin/env python3
"""The built library exports what the catalogue lists, and nothing else.

    exports_test.py NM LIBRARY
"""

from __future__ import annotations

import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "catalogue"))

from catalogue import expected_exports, exported_classes  # noqa: E402
from reader import read_catalogue  # noqa: E402


def exported_symbols(nm: str, library: str) -> set[str]:
    command = [nm, "--dynamic", "--defined-only", "--demangle", "--format=posix", library]
    output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    symbols = (re.fullmatch(r"(.+?) ([A-Za-z])(?: [0-9a-f]+){1,2} *", line) for line in output.splitlines())
    return {symbol[1].replace("[abi:cxx11]", "") for symbol in symbols if symbol and symbol[2] != "A"}


def type_information(classes: dict[str, bool]) -> set[str]:
    return {
        f"{what} for {name}"
        for name, polymorphic in classes.items()
        if polymorphic
        for what in ("vtable", "typeinfo", "typeinfo name")
    }


def belongs_to(symbol: str, classes: dict[str, bool]) -> bool:
    """Constructors, destructors and what virtual bases bring along."""
    for name in classes:
        plain = name.rsplit("::", 1)[-1]
        if re.match(rf"{re.escape(name)}::~?{plain}\(", symbol) or symbol == f"VTT for {name}":
            return True
        if re.match(rf"(non-)?virtual thunk to {re.escape(name)}::", symbol):
            return True
        if symbol.startswith("construction vtable for ") and symbol.endswith(f"-in-{name}"):
            return True
    return False


def main(nm: str, library: str) -> int:
    catalogue = read_catalogue(ROOT / "catalogue", ROOT / "include")
    classes = exported_classes(catalogue)
    expected = set(expected_exports(catalogue)) | type_information(classes)
    exported = exported_symbols(nm, library)
    missing = sorted(expected - exported)
    foreign = sorted(symbol for symbol in exported - expected if not belongs_to(symbol, classes))
    for symbol in missing:
        print(f"not exported: {symbol}", file=sys.stderr)
    for symbol in foreign:
        print(f"exported, but not in the catalogue: {symbol}", file=sys.stderr)
    print(f"{len(exported)} exported symbols, {len(expected)} expected by name")
    return 1 if missing or foreign else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
