"""The foreign platform gives away names of the platform seam and nothing else, and the tool brings none of the stand-ins."""

import re
import subprocess
import sys
import unittest
from pathlib import Path

PAGE, READELF, NM, INSTALLED, SDK = Path(sys.argv[1]), sys.argv[2], sys.argv[3], Path(sys.argv[4]), Path(sys.argv[5])


def exported(library: Path) -> list[str]:
    command = [NM, "-D", "-C", "--defined-only", str(library)]
    output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    return [line.split(" ", 2)[2] for line in output.splitlines()]


def needed(file: Path) -> set[str]:
    output = subprocess.run([READELF, "-d", str(file)], check=True, capture_output=True, text=True).stdout
    return set(re.findall(r"\(NEEDED\).*\[(.*)\]", output))


class ForeignPlatform(unittest.TestCase):
    def test_names_are_those_of_the_seam(self) -> None:
        seam = set(re.findall(r"\w+", " ".join(re.findall(r"`([^`]+)`", PAGE.read_text(encoding="utf-8")))))
        libraries = sorted((SDK / "lib").glob("*.so"))
        self.assertEqual(len(libraries), 4)
        for library in libraries:
            names = exported(library)
            self.assertNotEqual(names, [], library)
            for name in names:
                with self.subTest(name):
                    own = re.sub(r"^(.* for |virtual thunk to )", "", name).removeprefix("android::")
                    self.assertIn(re.match(r"\w+", own)[0], seam)

    def test_nothing_comes_from_the_stand_ins(self) -> None:
        platform = {library.name for library in (SDK / "lib").glob("*.so")}
        for file in [INSTALLED / "bin/kelutv", INSTALLED / "lib/libkelutvbaseclient.so.1",
                     INSTALLED / "lib/kelutv/libkelutvtrace.so"]:
            with self.subTest(file):
                self.assertEqual({name for name in needed(file) if re.match("lib(kq|kelu|log|foreign)", name)} - platform,
                                 {"libkelutvbaseclient.so.1"} if file.name == "kelutv" else set())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
