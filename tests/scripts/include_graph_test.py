"""What scripts/include-graph says of a checkout of its own, and that HACKING.md describes every room of its table.
    include_graph_test.py SCRIPT HACKING"""

import json
import re
import runpy
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(sys.argv[1])
HACKING = Path(sys.argv[2])


class IncludeGraph(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        self.write("scripts/include-graph", "")
        shutil.copy(SCRIPT, self.root / "scripts/include-graph")
        commands = [
            {"directory": f"{self.root}/build", "file": "a.cpp", "command": f"c++ -I{self.root} -I../include -c a.cpp"}
        ]
        self.write("build/compile_commands.json", json.dumps(commands))
        self.write("wire/Value.h", "#include <vector>\n")
        self.write("include/kelutv/types.h", "")

    def write(self, name: str, text: str) -> None:
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def run_script(self, *arguments: str) -> subprocess.CompletedProcess[str]:
        command = [sys.executable, "-B", "scripts/include-graph", *arguments]
        return subprocess.run(command, cwd=self.root, capture_output=True, text=True, check=False)

    def assert_refused(self, *complaints: str) -> None:
        run = self.run_script("build")
        self.assertEqual(run.stderr, "".join(f"include-graph: {complaint}\n" for complaint in complaints))
        self.assertEqual(run.returncode, 1)

    def test_rooms_are_listed_lowest_first(self) -> None:
        self.write("simulator/files/File.h", '#include "Own.h"\n# include "wire/Value.h"\n#include <kelutv/types.h>\n')
        self.write("simulator/files/Own.h", "")
        self.write("simulator/Program.cpp", '#include "simulator/files/File.h"\n#include "made/by/the/build.h"\n')
        run = self.run_script("build")
        lines = [
            "include/kelutv ->",
            "wire ->",
            "simulator/files -> include/kelutv wire",
            "simulator -> simulator/files",
        ]
        self.assertEqual(run.stderr, "")
        self.assertEqual(run.stdout.splitlines(), lines)
        self.assertEqual(run.returncode, 0)

    def test_an_include_upwards(self) -> None:
        self.write("simulator/files/File.h", "")
        self.write("wire/Rows.h", '\n#include "simulator/files/File.h"\n')
        self.assert_refused("wire/Rows.h:2: wire may not include simulator/files/File.h")

    def test_an_include_of_a_lower_room_that_is_not_allowed(self) -> None:
        self.write("client/Client.cpp", '#include "wire/Value.h"\n')
        self.assert_refused("client/Client.cpp:1: client may not include wire/Value.h")

    def test_an_include_of_something_of_the_tests(self) -> None:
        self.write("tests/support/Harness.h", "")
        self.write("client/Client.cpp", '#include "tests/support/Harness.h"\n')
        self.assert_refused("client/Client.cpp:1: client may not include tests/support/Harness.h")

    def test_test_support_that_fuzz_targets_use(self) -> None:
        self.write("tests/support/Harness.h", "")
        self.write("fuzz/support/Input.cpp", '#include "tests/support/Harness.h"\n')
        self.assertEqual(self.run_script("build").returncode, 0)

    def test_a_folder_that_is_no_room(self) -> None:
        self.write("simulator/cellar/Wine.h", "")
        self.assert_refused("simulator/cellar/Wine.h: simulator/cellar is not among the rooms")

    def test_a_room_that_is_full(self) -> None:
        for number in range(20):
            self.write(f"simulator/faults/Fault{number}.cpp", "")
            self.write(f"simulator/faults/Fault{number}.h", "")
        self.assertEqual(self.run_script("build").returncode, 0)
        self.write("simulator/faults/Fault20.cpp", "")
        self.assert_refused("simulator/faults: 21 sources, more than 20")

    def test_a_row_that_allows_what_stands_below_it(self) -> None:
        script = SCRIPT.read_text(encoding="utf-8")
        self.write("scripts/include-graph", script.replace('    "wire": "",', '    "wire": "simulator/screen",'))
        self.assert_refused("ROOMS: simulator/screen does not stand above wire")

    def test_a_folder_that_is_no_build(self) -> None:
        run = self.run_script("wire")
        self.assertIn("is not a configured build directory", run.stderr)
        self.assertEqual(run.returncode, 2)


class Rooms(unittest.TestCase):
    def test_those_of_the_platform_the_simulator_and_the_tool_are_described(self) -> None:
        table = runpy.run_path(str(SCRIPT))["ROOMS"]
        rooms = [room for room in table if room.startswith(("platform", "simulator", "tools")) and room[-1] != "/"]
        described = re.findall(r"^\| `([\w/]+)/` \|", HACKING.read_text(encoding="utf-8"), re.MULTILINE)
        for room in rooms:
            self.assertTrue({room, room.removeprefix("tools/")} & set(described), f"{room} is not in HACKING.md")
        self.assertGreater(len(rooms), 2)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
