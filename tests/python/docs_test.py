"""What the page about the package shows is what happens."""

from __future__ import annotations

import doctest
import re
import unittest

from package import HERE

PAGE = HERE.parents[1] / "docs" / "python.md"
BLOCK = re.compile(r"^```pycon\n(.*?)^```$", re.S | re.M)


class PageTest(unittest.TestCase):
    def test_every_block(self) -> None:
        text = PAGE.read_text(encoding="utf-8")
        # Everything but the blocks becomes empty lines, so that a failure names the line of the page.
        kept = ["\n" * text[: match.start(1)].count("\n") + match[1] for match in BLOCK.finditer(text)]
        self.assertGreater(len(kept), 5)
        names: dict[str, object] = {}
        runner = doctest.DocTestRunner(optionflags=doctest.ELLIPSIS)
        for block in kept:
            example = doctest.DocTestParser().get_doctest(block, names, PAGE.name, str(PAGE), 0)
            example.globs = names
            runner.run(example, clear_globs=False)
        self.assertEqual(runner.summarize(verbose=False).failed, 0)


if __name__ == "__main__":
    unittest.main()
