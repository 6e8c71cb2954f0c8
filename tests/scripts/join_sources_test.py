"""What scripts/join-sources makes of a build.
    join_sources_test.py SCRIPT"""

import json
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(sys.argv[1])


class JoinSources(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        self.build = self.root / "build/tidy"
        (self.root / "scripts").mkdir()
        shutil.copy(SCRIPT, self.root / "scripts/join-sources")
        self.entries: list[dict[str, str]] = []

    def source(self, path: str, text: str, options: str = "") -> None:
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)
        command = f"/usr/bin/ccache /usr/bin/c++ -I/one {options} -MD -MF x.d -o x.o -c {file}"
        self.entries.append({"directory": str(self.build), "command": command, "file": str(file)})

    def joined(self) -> list[set[str]]:
        """The sources that are read together."""
        self.build.mkdir(parents=True, exist_ok=True)
        (self.build / "compile_commands.json").write_text(json.dumps(self.entries))
        subprocess.run([self.root / "scripts/join-sources", self.build], check=True, stdout=subprocess.DEVNULL)
        self.commands = json.loads((self.build / "joined/compile_commands.json").read_text())
        files = []
        for command in self.commands:
            lines = Path(command["file"]).read_text().splitlines()
            included = {str(Path(line.split('"')[1]).relative_to(self.root)) for line in lines if line.startswith("#include")}
            files.append(included or {str(Path(command["file"]).relative_to(self.root))})
        return files

    def test_sourcesOfOnePartAreReadTogether(self) -> None:
        self.source("room/a.cpp", "")
        self.source("room/inner/b.cpp", "")
        self.source("other/c.cpp", "")
        self.assertEqual(self.joined(), [{"room/a.cpp", "room/inner/b.cpp"}, {"other/c.cpp"}])
        self.assertIn("-analyzer-opt-analyze-headers", self.commands[0]["arguments"])
        self.assertEqual(self.commands[1]["arguments"], ["/usr/bin/c++", "-I/one", "-c", str(self.root / "other/c.cpp")])

    def test_whatMayBeSaidTwiceKeepsNoSourcesApart(self) -> None:
        for name, meaning in (("a", "int"), ("b", "int"), ("c", "long")):
            own = f"using Number = {meaning};\nvoid PrintTo(Number, int*) {{}}\nNumber of{name}() {{ return Number(1); }}\n"
            self.source(f"room/{name}.cpp", f"namespace {{\n{own}}} // namespace\n")
        self.assertEqual(self.joined(), [{"room/a.cpp", "room/b.cpp"}, {"room/c.cpp"}])

    def test_testsAndWhatTakesNamesFromElsewhereStayWithTheirFolder(self) -> None:
        for folder in ("tests/one", "tests/two", "room", "room/inner"):
            self.source(f"{folder}/a.cpp", "using namespace another;\n")
            self.source(f"{folder}/b.cpp", "using std::string;\n")
        self.assertEqual(
            self.joined(),
            [
                {"tests/one/a.cpp", "tests/one/b.cpp"},
                {"tests/two/a.cpp", "tests/two/b.cpp"},
                {"room/a.cpp", "room/b.cpp"},
                {"room/inner/a.cpp", "room/inner/b.cpp"},
            ],
        )

    def test_testsOfTheFoldersOfOneBuildFileAreReadTogether(self) -> None:
        for folder in ("tests/one", "tests/one/inner", "tests/two"):
            self.source(f"{folder}/a.cpp", "")
        for folder in ("one", "two"):
            (self.root / "tests" / folder / "CMakeLists.txt").touch()
        self.assertEqual(self.joined(), [{"tests/one/a.cpp", "tests/one/inner/a.cpp"}, {"tests/two/a.cpp"}])

    def test_fuzzTargetsAreReadTogether(self) -> None:
        for name in ("a", "b"):
            self.source(f"fuzz/{name}.cpp", 'extern "C" int LLVMFuzzerTestOneInput() {\n}\n')
        self.assertEqual(self.joined(), [{"fuzz/a.cpp", "fuzz/b.cpp"}])
        text = Path(self.commands[0]["file"]).read_text()
        self.assertIn("#define LLVMFuzzerTestOneInput LLVMFuzzerTestOneInput1\n", text)

    def test_whatGivesANameOfItsOwnToTwoThingsStaysApart(self) -> None:
        for number, definition in enumerate(
            (
                "struct Thing {",
                "enum class Thing { A };",
                "using Thing = int;",
                "constexpr char Thing[] = \"\";",
                "std::vector<int> Thing(int value) {",
                "int Thing;",
                "const std::map<int, int>& Thing{kNone};",
                "class Thing : public Base {",
                "[[maybe_unused]] Base& Thing = added();",
            )
        ):
            self.source(f"room/{number}.cpp", f"namespace {{\n\n{definition}\n\n}} // namespace\n")
        self.assertEqual(len(self.joined()), 9)

    def test_aCallOfAnothersOwnFunctionStaysApart(self) -> None:
        self.source("room/a.cpp", "namespace {\nint timeOf(int x) { return x; }\n} // namespace\n")
        self.source("room/b.cpp", "int b() { return timeOf(2); }\n")
        self.source("room/c.cpp", "int c() { return clock.timeOf(2); }\n")
        self.assertEqual(self.joined(), [{"room/a.cpp", "room/c.cpp"}, {"room/b.cpp"}])

    def test_whatIsLocalOrSaidOfAnotherNamespaceJoins(self) -> None:
        self.source("room/a.cpp", "namespace {\nusing std::string;\nint a() {\n    int sum = 0;\n}\n} // namespace\n")
        self.source("room/b.cpp", "namespace {\nusing std::string;\nint b() {\n    int sum = 0;\n}\n} // namespace\n")
        self.assertEqual(len(self.joined()), 1)

    def test_testsOfOneSuiteJoinAndTheSameTestDoesNot(self) -> None:
        self.source("room/a.cpp", "namespace {\nTEST(Suite, first) {\n}\n} // namespace\n")
        self.source("room/b.cpp", "namespace {\nTEST(Suite, second) {\n}\n} // namespace\n")
        self.source("room/c.cpp", "namespace {\nTEST(Suite, first) {\n}\n} // namespace\n")
        self.assertEqual(self.joined(), [{"room/a.cpp", "room/b.cpp"}, {"room/c.cpp"}])

    def test_twoProgramsStayApart(self) -> None:
        self.source("room/a.cpp", "int main() {\n}\n")
        self.source("room/b.cpp", "int main(int, char**) {\n}\n")
        self.source("room/c.cpp", "int other() {\n}\n")
        self.assertEqual(self.joined(), [{"room/a.cpp", "room/c.cpp"}, {"room/b.cpp"}])

    def test_theSameMacroStaysApart(self) -> None:
        self.source("room/a.cpp", "#define THING 1\n")
        self.source("room/b.cpp", "#define THING 2\n")
        self.assertEqual(len(self.joined()), 2)

    def test_definitionsAreTakenTogetherUnlessTheyDiffer(self) -> None:
        self.source("room/a.cpp", "", "-DA=1")
        self.source("room/b.cpp", "", "-DB -I/two")
        self.source("room/c.cpp", "", "-DA=2")
        self.assertEqual(self.joined(), [{"room/a.cpp", "room/b.cpp"}, {"room/c.cpp"}])
        self.assertEqual(self.commands[0]["arguments"][1:5], ["-I/one", "-DB", "-I/two", "-DA=1"])

    def test_otherPlacesOfHeadersStayApart(self) -> None:
        self.source("room/a.cpp", "", "-I/two")
        self.source("room/b.cpp", "", "-I/three")
        self.assertEqual(len(self.joined()), 2)

    def test_sourcesInCStayAlone(self) -> None:
        self.source("room/a.c", "")
        self.source("room/b.c", "")
        self.source("room/c.cpp", "")
        self.assertEqual(len(self.joined()), 3)

    def test_theSettingsOfAFolderGoWithIt(self) -> None:
        self.source("room/inner/a.cpp", "")
        self.source("room/inner/b.cpp", "")
        (self.root / "room/.clang-tidy").write_text("Checks: x\n")
        self.joined()
        self.assertEqual((self.build / "joined/room/.clang-tidy").read_text(), "Checks: x\n")

    def test_groupsOfSourcesArePrinted(self) -> None:
        for name, text in {
            "a": "namespace {\nint thing;\n} // namespace\n",
            "b": "namespace {\nint thing;\n} // namespace\n",
            "other/c": "namespace {\nint another;\n} // namespace\n",
        }.items():
            self.source(f"{name}.cpp", text)
        done = subprocess.run(
            [self.root / "scripts/join-sources", "--groups", "a.cpp", "b.cpp", "other/c.cpp"],
            cwd=self.root, check=True, capture_output=True, text=True,
        )  # fmt: skip
        self.assertEqual(done.stdout, "a.cpp;other/c.cpp\nb.cpp\n")

    def test_whatIsGeneratedIsLeftOut(self) -> None:
        self.source("build/tidy/wire/made.cpp", "")
        self.source("room/a.cpp", "")
        self.assertEqual(self.joined(), [{"room/a.cpp"}])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
