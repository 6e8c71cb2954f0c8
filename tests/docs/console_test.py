"""The form of console blocks, and the shell that runs them."""

from __future__ import annotations

import os
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from docs.console import Shell, Step, steps_of  # noqa: E402

PAGE = """\
# A page

```console
$ echo one
one
$ cat <<END
> two
> END
two
```

    $ not a console block

<!-- meanwhile: touch there -->

```console
$ wait_for there
gone on
```
"""


class Steps(unittest.TestCase):
    def test_are_the_commands_of_the_blocks(self) -> None:
        self.assertEqual(steps_of(PAGE), [
            Step(4, "echo one", ["one"]),
            Step(6, "cat <<END\ntwo\nEND", ["two"]),
            Step(17, "wait_for there", ["gone on"], "touch there"),
        ])

    def test_know_their_lines(self) -> None:
        page = PAGE.splitlines()
        self.assertEqual([page[step.lines] for step in steps_of(PAGE)], [step.expected for step in steps_of(PAGE)])

    def test_need_a_command(self) -> None:
        with self.assertRaisesRegex(ValueError, "line 2: a console block begins with a command"):
            steps_of("```console\nkelutv get volume\n```\n")

    def test_compare_exactly_but_for_dots(self) -> None:
        step = Step(1, "x", ["[...] a (b)", "...", "end"])
        self.assertTrue(step.shows("[4711] a (b)\nend\n"))
        self.assertTrue(step.shows("[] a (b)\nmore\n\nstill more\nend\n"))
        for output in ("[1] a (b)\nend", "[1] a (b)\nends\n", "[1] a b\nend\n", "", "[1]\n a (b)\nend\n"):
            self.assertFalse(step.shows(output), output)
        self.assertTrue(Step(1, "x").shows(""))
        self.assertFalse(Step(1, "x").shows("\n"))


class Shells(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.shell = self.enterContext(Shell(self.folder, dict(os.environ)))

    def show(self, command: str, *expected: str, meanwhile: str | None = None) -> str:
        return self.shell.show(Step(1, command, list(expected), meanwhile))

    def test_keep_what_a_step_leaves(self) -> None:
        self.assertEqual(self.show("name=value; mkdir below; cd below"), "")
        self.assertEqual(self.show("echo $name; basename $PWD"), "value\nbelow\n")

    def test_show_both_streams_as_they_come(self) -> None:
        self.assertEqual(self.show("echo a; echo b >&2; echo c; false"), "a\nb\nc\n")
        self.assertEqual(self.show("printf 'no end'"), "no end")

    def test_give_commands_nothing_to_read(self) -> None:
        self.assertEqual(self.show("cat"), "")
        self.assertEqual(self.show("cat <<END\ntext\nEND"), "text\n")

    def test_do_something_meanwhile(self) -> None:
        command = "echo before; mkfifo pipe; echo [begun]; cat pipe"
        shown = self.show(command, "...", "[...]", "...", meanwhile="echo and goes on > pipe")
        self.assertEqual(shown, "before\n[begun]\nand goes on\n")

    def test_tell_of_their_end(self) -> None:
        with self.assertRaisesRegex(EOFError, "the shell has ended"):
            self.show("echo last words; exit")


if __name__ == "__main__":
    unittest.main()
