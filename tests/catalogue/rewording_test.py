#!/usr/bin/env python3
"""No program reads prose: of all that is generated, comments of the public headers change the texts of help alone."""

from __future__ import annotations

import re
import shutil
import sys
import tempfile
import unittest
from collections.abc import Callable
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FOLDERS = ["catalogue", "wire/generator", "tests/client/wire", "tests/simulator"]
sys.path[:0] = [str(ROOT / folder) for folder in FOLDERS]

import catalogue  # noqa: E402
import generate  # noqa: E402
import generate_pairs  # noqa: E402
import generate_wire_table  # noqa: E402
import program  # noqa: E402
import reference  # noqa: E402
from reader import read_catalogue  # noqa: E402

TEXTS = {"functions_texts.cpp", "vocabulary_texts.cpp"}
COMMENT = re.compile(r"/\*.*?\*/|//[^\n]*", re.S)
# What gives a comment its place and form: its ends, the tags, the names behind @param.
FORM = r"/\*\*<?|/\*|\*/|//|@param\s+(?:\w+,\s*)*\w+|@[\w{}]+"
PHRASES = {
    "Receives": "Is given",
    "Room for": "A place with",
    "The devices are added": "Devices come",
    "In: ": "On the way in: ",
    "null": "nothing",
    "Null": "Nothing",
    " of `": " among `",
}
PHRASE = re.compile("|".join(re.escape(phrase) for phrase in PHRASES))


def mangled(comment: str) -> str:
    """Other words and numbers in the same form."""

    def other(match: re.Match[str]) -> str:
        if match["form"]:
            return match["form"]
        return str(int(match["number"]) + 7) if match["number"] else match["word"][::-1] + "q"

    return re.sub(rf"(?P<form>{FORM})|(?P<number>\d+)|(?P<word>[A-Za-z_]\w*)", other, comment)


def rephrased(comment: str) -> str:
    """The phrases of old habit replaced, the rest as it was."""
    return PHRASE.sub(lambda match: PHRASES[match[0]], comment)


def dropped(_: str) -> str:
    return " "


class Rewording(unittest.TestCase):
    folder: Path
    before: dict[str, str]

    @classmethod
    def setUpClass(cls) -> None:
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.before = cls.generated(ROOT / "include", "headers as they are")

    def reword(self, reworded: Callable[[str], str]) -> Path:
        """A copy of the public headers with other comments."""
        include = self.folder / reworded.__name__
        shutil.copytree(ROOT / "include", include)
        for path in include.rglob("*.h"):
            text = path.read_text(encoding="utf-8")
            path.write_text(COMMENT.sub(lambda match: reworded(match[0]), text), encoding="utf-8")
        return include

    @classmethod
    def generated(cls, include: Path, name: str) -> dict[str, str]:
        """Everything that the programs write with these headers, by the name of the file."""
        written = cls.folder / f"made of {name}"
        written.mkdir()
        options = ["--catalogue", str(ROOT / "catalogue"), "--include", str(include)]
        generators = (generate, generate_wire_table, generate_pairs)
        codes = [program.run("", each.sources, [*options, str(written)]) for each in generators]
        codes.append(reference.main([*options, str(written / "reference.txt")]))
        if any(codes):
            raise AssertionError(f"a generator refuses {name}")
        exports = catalogue.expected_exports(read_catalogue(ROOT / "catalogue", include))
        files = (path for path in written.rglob("*") if path.is_file())
        return {path.name: path.read_text(encoding="utf-8") for path in files} | {"exports": str(exports)}

    def comments(self, include: Path) -> str:
        texts = (path.read_text(encoding="utf-8") for path in sorted((include / "kelutv").glob("*.h")))
        return "\n".join(comment for text in texts for comment in COMMENT.findall(text))

    def differing(self, reworded: Callable[[str], str]) -> set[str]:
        """The files that other comments change."""
        include = self.reword(reworded)
        self.assertIsNone(PHRASE.search(self.comments(include)))
        after = self.generated(include, f"{reworded.__name__} headers")
        self.assertEqual(self.before.keys(), after.keys())
        return {name for name, text in after.items() if text != self.before[name]}

    def test_other_words_change_the_texts_of_help_alone(self) -> None:
        self.assertEqual(self.differing(mangled), TEXTS)

    def test_other_phrases_change_texts_of_help_alone(self) -> None:
        self.assertEqual(self.differing(rephrased), TEXTS)

    def test_headers_without_comments_change_the_texts_of_help_alone(self) -> None:
        self.assertEqual(self.differing(dropped), TEXTS)


if __name__ == "__main__":
    unittest.main()
