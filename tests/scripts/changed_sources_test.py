"""What scripts/changed-sources says of a checkout and a build of its own.
    changed_sources_test.py SCRIPT COMPILER"""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(sys.argv[1])
COMPILER = sys.argv[2]

# A hook of git's tells its programs of its own checkout.
ENVIRONMENT = {name: value for name, value in os.environ.items() if not name.startswith("GIT_")}

BUILD = """\
rule compile
  command = {compiler} -MD -MF $out.d -c $in -o $out
  depfile = $out.d
  deps = gcc
build alone.o: compile ../../alone.cpp
build second.o: compile ../../second.cpp
build shared.o: compile ../../shared.cpp
"""


class ChangedSources(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        (self.root / "scripts").mkdir()
        shutil.copy(SCRIPT, self.root / "scripts/changed-sources")
        self.write("shared.h", "")
        self.write("only_included.h", "")
        self.write("alone.cpp", '#include "shared.h"\n')
        self.write("second.cpp", '#include "shared.h"\n#include "only_included.h"\n')
        self.write("shared.cpp", '#include "shared.h"\n')
        self.write(".gitignore", "/build/\n")
        self.run_in_root("git", "init", "--quiet")
        self.commit()
        self.write("build/some/build.ninja", BUILD.format(compiler=COMPILER))
        self.run_in_root("ninja", "-C", "build/some", "--quiet")

    def write(self, name: str, text: str) -> None:
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def run_in_root(self, *command: str) -> str:
        run = subprocess.run(
            command, cwd=self.root, env=ENVIRONMENT, check=True, stdout=subprocess.PIPE, text=True
        )
        return run.stdout

    def commit(self) -> None:
        self.run_in_root("git", "add", "--all")
        identity = ["-c", "user.name=somebody", "-c", "user.email=somebody@kelutv.invalid", "-c", "commit.gpgsign=no"]
        self.run_in_root("git", *identity, "commit", "--quiet", "--message", "A state")

    def changed(self, since: str = "HEAD") -> list[str]:
        return self.run_in_root("scripts/changed-sources", since, "build/some").split()

    def test_nothing_has_changed(self) -> None:
        self.assertEqual(self.changed(), [])

    def test_changed_and_new_sources(self) -> None:
        self.write("second.cpp", "int second;\n")
        self.write("new.c", "")
        self.write("notes.md", "")
        self.assertEqual(self.changed(), ["new.c", "second.cpp"])

    def test_a_removed_source_is_not_named(self) -> None:
        (self.root / "second.cpp").unlink()
        self.assertEqual(self.changed(), [])

    def test_a_header_stands_for_its_own_source(self) -> None:
        self.write("shared.h", "int shared;\n")
        self.assertEqual(self.changed(), ["shared.cpp"])

    def test_a_header_without_its_own_source_stands_for_one_that_includes_it(self) -> None:
        self.write("only_included.h", "int number;\n")
        self.assertEqual(self.changed(), ["second.cpp"])

    def test_a_state_holds_what_is_not_committed(self) -> None:
        self.write("alone.cpp", "int alone;\n")
        state = self.run_in_root("scripts/changed-sources", "--state").strip()
        self.assertEqual(self.changed(state), [])
        self.commit()
        self.assertEqual(self.changed(state), [])
        self.write("second.cpp", "int second;\n")
        self.assertEqual(self.changed(state), ["second.cpp"])

    def test_what_is_staged_stays_so(self) -> None:
        self.write("alone.cpp", "int alone;\n")
        self.run_in_root("git", "add", "alone.cpp")
        self.write("second.cpp", "int second;\n")
        before = self.run_in_root("git", "status", "--porcelain")
        self.changed()
        self.assertEqual(self.run_in_root("git", "status", "--porcelain"), before)

    def test_an_unknown_state_is_an_error(self) -> None:
        run = subprocess.run(
            ["scripts/changed-sources", "nowhere", "build/some"],
            cwd=self.root,
            env=ENVIRONMENT,
            capture_output=True,
            text=True,
            check=False,
        )
        self.assertEqual(run.returncode, 1)
        self.assertIn("nowhere", run.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
