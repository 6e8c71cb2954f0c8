#!/usr/bin/env python3
"""Compares all that is generated from a small catalogue with what stands in golden/, and shows the difference.

    golden_test.py             the test
    golden_test.py --update    writes golden/ anew; read what has changed before you commit it
"""

from __future__ import annotations

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / folder) for folder in ("wire/generator", "tests/catalogue")]

import generate  # noqa: E402
from torch_fixture import TorchTest  # noqa: E402

GOLDEN = Path(__file__).resolve().parent / "golden"
COMMENT = """\
/**
 * Sets the time until the lamp goes out. It counts from now on.
 *
 * @param lamp one of the lamps
 * @param minutes how long, "0" for ever
 * @return 0, or -1 when the link fails
 */
"""


class Golden(TorchTest):
    maxDiff = None

    def setUp(self) -> None:
        super().setUp()
        declaration = "KELUTV_API int linux_tv_Lamp_setTimer("
        self.change(declaration, COMMENT + declaration, "include/kelutv/linux_lamp.h")
        self.change("level=1..9", "level=1..9 step 2 unit lux default 3")

    def generated(self) -> dict[str, str]:
        sources = generate.sources(self.read(), self.folder / "include")
        return {f"{name.replace('/', '_')}.txt": source for name, source in sources.items()}

    def test_all_is_as_it_was(self) -> None:
        generated = self.generated()
        self.assertEqual({path.name for path in GOLDEN.iterdir()}, set(generated))
        for name, source in generated.items():
            with self.subTest(name):
                self.assertMultiLineEqual((GOLDEN / name).read_text(encoding="utf-8"), source)

    def update(self) -> None:
        GOLDEN.mkdir(exist_ok=True)
        for path in GOLDEN.iterdir():
            path.unlink()
        for name, source in self.generated().items():
            (GOLDEN / name).write_text(source, encoding="utf-8")


if __name__ == "__main__":
    if sys.argv[1:] == ["--update"]:
        result = unittest.TextTestRunner().run(Golden("update"))
        sys.exit(not result.wasSuccessful())
    unittest.main()
