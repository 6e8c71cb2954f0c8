#!/usr/bin/env python3
"""The built library exports what the catalogue and the lists of symbols name, and nothing else.

    exports_test.py [--write] NM LIBRARY LIST PACKAGE-LIST

Each line of the list is a public header and a symbol that stems from it, each line of the package's list a symbol and the
version it came with. --write makes both; a symbol that is new to the package's list came with the newest version.
"""

from __future__ import annotations

import argparse
import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "catalogue"))

from catalogue import expected_exports, exported_classes  # noqa: E402
from model import Catalogue  # noqa: E402
from reader import read_catalogue  # noqa: E402


TAG = "[abi:cxx11]"
PACKAGE_HEAD = "libkelutvbaseclient.so.1 libkelutvbaseclient1 #MINVER#"


def exported_names(nm: str, library: str) -> set[str]:
    """The exported symbols as they are read, with the tags of the compiler."""
    command = [nm, "--dynamic", "--defined-only", "--demangle", "--format=posix", library]
    output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    symbols = (re.fullmatch(r"(.+?) ([A-Za-z])(?: [0-9a-f]+){1,2} *", line) for line in output.splitlines())
    return {symbol[1] for symbol in symbols if symbol and symbol[2] != "A"}


def type_information(classes: dict[str, bool]) -> set[str]:
    return {
        f"{what} for {name}"
        for name, polymorphic in classes.items()
        if polymorphic
        for what in ("vtable", "typeinfo", "typeinfo name")
    }


def class_of(symbol: str, classes: dict[str, bool]) -> str | None:
    """The class that a constructor, a destructor or what virtual bases bring along belongs to."""
    for name in classes:
        plain = name.rsplit("::", 1)[-1]
        if re.match(rf"{re.escape(name)}::~?{plain}\(", symbol) or symbol == f"VTT for {name}":
            return name
        if re.match(rf"(non-)?virtual thunk to {re.escape(name)}::", symbol):
            return name
        if symbol.startswith("construction vtable for ") and symbol.endswith(f"-in-{name}"):
            return name
    return None


def headers_of(catalogue: Catalogue) -> dict[str, str]:
    """The public header of every C function and of every class."""
    headers = {name: f"kelutv/link/{name.rsplit('::', 1)[-1]}.h" for name in catalogue.link_classes}
    for module in catalogue.modules:
        headers |= {function.name: module.c_header for function in module.functions}
        if module.owner:
            headers[module.owner] = module.header
    return headers


def origin(symbol: str, headers: dict[str, str], classes: dict[str, bool]) -> str:
    owner = class_of(symbol, classes)
    for name in (symbol, owner, symbol.rpartition(" for ")[2], symbol.partition("(")[0].rpartition("::")[0]):
        if name in headers:
            return headers[name]
    return "no header"


def list_lines(exported: set[str], catalogue: Catalogue) -> list[str]:
    headers, classes = headers_of(catalogue), exported_classes(catalogue)
    return sorted(f"{origin(symbol, headers, classes)}: {symbol}" for symbol in exported)


def newest_version() -> str:
    changelog = (ROOT / "packaging/changelog").read_text(encoding="utf-8")
    return re.match(r"\S+ \((.+)-\d+\)", changelog)[1]


def package_entry(name: str) -> str:
    return f" {name}@Base" if re.fullmatch(r"\w+", name) else f' (c++)"{name}@Base"'


def package_lines(names: set[str], path: Path) -> list[str]:
    """The lines of the package's list: those that it has keep their version."""
    listed = path.read_text(encoding="utf-8").splitlines() if path.exists() else []
    versions = dict(line.rsplit(" ", 1) for line in listed[1:])
    newest = newest_version()
    entries = sorted((package_entry(name) for name in names), key=lambda entry: ("(c++)" in entry, entry))
    return [PACKAGE_HEAD, *(f"{entry} {versions.get(entry, newest)}" for entry in entries)]


def differences(path: Path, lines: list[str]) -> list[str]:
    listed = path.read_text(encoding="utf-8").splitlines()
    return [f"not exported, but in {path}: {line}" for line in listed if line not in set(lines)] + [
        f"exported, but not in {path}: {line}" for line in lines if line not in set(listed)
    ]


def complaints(expected: set[str], exported: set[str], classes: dict[str, bool]) -> list[str]:
    foreign = (symbol for symbol in exported - expected if not class_of(symbol, classes))
    return [f"not exported: {symbol}" for symbol in sorted(expected - exported)] + [
        f"exported, but not in the catalogue: {symbol}" for symbol in sorted(foreign)
    ]


def main(options: argparse.Namespace) -> int:
    catalogue = read_catalogue(ROOT / "catalogue", ROOT / "include")
    classes = exported_classes(catalogue)
    expected = set(expected_exports(catalogue)) | type_information(classes)
    names = exported_names(options.nm, options.library)
    exported = {name.replace(TAG, "") for name in names}
    found = complaints(expected, exported, classes)
    lists = {
        options.list: list_lines(exported, catalogue),
        options.package_list: package_lines(names, options.package_list),
    }
    for path, lines in lists.items():
        if not options.write:
            found += differences(path, lines)
        elif not found:
            path.write_text("\n".join(lines) + "\n", encoding="utf-8")
    print("\n".join(found), file=sys.stderr, end="\n" if found else "")
    print(f"{len(exported)} exported symbols, {len(expected)} expected by name")
    return 1 if found else 0


def arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--write", action="store_true", help="write the lists instead of comparing with them")
    parser.add_argument("nm")
    parser.add_argument("library")
    parser.add_argument("list", type=Path)
    parser.add_argument("package_list", type=Path)
    return parser.parse_args()


if __name__ == "__main__":
    sys.exit(main(arguments()))
