#!/usr/bin/env python3
"""Checks the reference pages: everything public is on them with a comment, and no link leads nowhere.

    python3 catalogue/pages.py FOLDER

FOLDER is where doxygen wrote its `xml` and `html`. What is missing is named and the exit status is 1.
"""

from __future__ import annotations

import argparse
import re
import sys
import xml.etree.ElementTree as ElementTree
from collections import Counter
from html import unescape
from pathlib import Path
from urllib.parse import unquote

from catalogue import expected_exports
from folders import add_folder_options, read_named_catalogue
from tables import CatalogueError


def _has_comment(element: ElementTree.Element) -> bool:
    texts = (element.find(kind) for kind in ("briefdescription", "detaileddescription"))
    return any("".join(text.itertext()).strip() for text in texts if text is not None)


class Pages:
    """What has a comment on the pages that doxygen wrote to `folder`."""

    def __init__(self, folder: Path) -> None:
        self.files: set[str] = set()
        self.members: Counter[str] = Counter()
        self.values: set[str] = set()
        for path in sorted(folder.glob("*.xml")):
            self._read(ElementTree.parse(path).getroot())

    def _read(self, root: ElementTree.Element) -> None:
        for file in root.findall("compounddef[@kind='file']"):
            if _has_comment(file):
                self.files.add(file.find("location").get("file"))
        for member in root.iter("memberdef"):
            if _has_comment(member) or member.get("prot") == "private":
                self.members[member.findtext("qualifiedname") or member.findtext("name")] += 1
            self.values.update(value.findtext("name") for value in member.iter("enumvalue") if _has_comment(value))


def header_values(include: Path) -> list[str]:
    """Every enumerator of the public headers."""
    found = []
    for path in sorted((include / "kelutv").rglob("*.h")):
        text = re.sub(r"/\*.*?\*/|//[^\n]*", " ", path.read_text(encoding="utf-8"), flags=re.S)
        for body in re.findall(r"\benum\b[^;{}()]*\{(.*?)\}", text, re.S):
            found += [part.split("=")[0].strip() for part in body.split(",") if part.strip()]
    return found


def missing(pages: Pages, symbols: list[str], include: Path) -> list[str]:
    """Complaints about headers, exported symbols and enumerators that the pages lack."""
    headers = [str(path.relative_to(include)) for path in sorted((include / "kelutv").rglob("*.h"))]
    complaints = [f"{name}: no comment with @file" for name in headers
                  if name not in pages.files]
    exported = Counter(symbol.split("(")[0] for symbol in symbols)
    complaints += [f"{name}: {pages.members[name]} of {count} on the pages with a comment"
                   for name, count in exported.items() if pages.members[name] < count]
    return complaints + [f"value {name} has no comment" for name in header_values(include) if name not in pages.values]


def dead_links(folder: Path) -> list[str]:
    """Complaints about links between the pages of `folder` that lead nowhere."""
    texts = {path.name: path.read_text(encoding="utf-8") for path in sorted(folder.glob("*.html"))}
    anchors = {name: set(re.findall(r'\b(?:id|name)="([^"]+)"', text)) for name, text in texts.items()}
    complaints = []
    for name, text in texts.items():
        for link in sorted(set(re.findall(r'<a\b[^>]*\bhref="([^"]+)"', text))):
            if re.match(r"\w+:", link):
                continue
            page, _, anchor = unquote(unescape(link)).partition("#")
            page = page or name
            if page not in texts or (anchor and anchor not in anchors[page]):
                complaints.append(f"{name}: the link to {link} leads nowhere")
    return complaints


def main(argv: list[str] | None = None) -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    add_folder_options(parser)
    parser.add_argument("folder", type=Path, help="where doxygen wrote")
    arguments = parser.parse_args(argv)
    try:
        symbols = expected_exports(read_named_catalogue(arguments))
    except CatalogueError as error:
        print(error, file=sys.stderr)
        return 1
    pages = Pages(arguments.folder / "xml")
    complaints = missing(pages, symbols, arguments.include) + dead_links(arguments.folder / "html")
    for complaint in complaints:
        print(complaint, file=sys.stderr)
    if not complaints:
        print(f"{len(pages.files)} headers, {len(symbols)} symbols, {len(pages.values)} values: all on the pages")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
