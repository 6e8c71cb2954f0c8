"""What type checkers find in the packages: nothing, and that what they are told is what there is."""

from __future__ import annotations

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SOURCES = ROOT / "python"
PACKAGES = ("kelutv", "kelutv_station", "pytest_kelutv")

USE = """
from kelutv import Event, Simulator, Television, enums, records

def use(tv: Television) -> None:
    volume: int = tv.audio.get_volume(enums.KELU_TV_AUDIO_CHANNEL_E.SPEAKER)
    mode: enums.KELU_TV_SNDMODE_E = tv.audio.get_sound_mode()
    level: records.NRAttrData = tv.within(1.5).audio.get_nr_attr()
    both: tuple[int, int] = tv.hotel.get_hotel_boot_channel()
    sources: list[enums.KELU_TV_SRC_E] = tv.sourcemanager.linux_tv_SourceManager_getSourceList()
    tv.audio.set_volume(0, volume)
    with tv.events(timeout=1) as events:
        event: Event = next(events)
    print(mode, level, both, sources, event)
"""
# What is excused is an error where there is nothing to be excused.
WRONG = """
from kelutv import Television

def use(tv: Television) -> None:
    tv.audio.set_volume(0, "loud")  # type: ignore[arg-type]
    tv.audio.set_loudness(3)  # type: ignore[attr-defined]
    text: str = tv.audio.get_volume(0)  # type: ignore[assignment]
"""
# Names that modules import from elsewhere are taken for their own where there is no stub.
IMPORTED = r"""
kelutv\..*\.(AsyncIterator|Callable|Generic|IO|Iterator|NamedTuple|Protocol|Sequence|field)(\..*)?
kelutv\._modules\.[A-Z]\w*
"""

# Collecting garbage takes it a third of its time, and all it has is needed to the end.
STUBTEST = "import gc, sys; gc.disable(); from mypy.stubtest import main; sys.exit(main())"
# What the plugin does not use of pytest is half of what there is to be read.
UNUSED = """
_code.* _io.* _py.* assertion.* cacheprovider capture debugging doctest legacypath logging monkeypatch pytester python
python_api recwarn reports runner terminal tmpdir unittest
"""


class TypingTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        for package in PACKAGES:
            shutil.copytree(SOURCES / package, cls.folder / package, ignore=shutil.ignore_patterns("__pycache__"))
        subprocess.run([sys.executable, "-B", str(SOURCES / "generator" / "generate.py"), str(cls.folder)], check=True)

    def checker(self, *command: str) -> subprocess.CompletedProcess[str]:
        # What stands in PYTHONPATH would be taken for that of others, and its errors for theirs.
        environment = {name: value for name, value in os.environ.items() if name != "PYTHONPATH"}
        environment |= {"PYTHONDONTWRITEBYTECODE": "1", "MYPYPATH": str(self.folder)}
        return subprocess.run(
            command, cwd=self.folder, env=environment, capture_output=True, text=True, timeout=100, check=False
        )

    def write(self, name: str, text: str) -> None:
        (self.folder / name).write_text(text, encoding="utf-8")

    def every_module(self) -> list[str]:
        paths = [path.relative_to(self.folder) for package in PACKAGES for path in (self.folder / package).rglob("*.py")]
        return [".".join(path.with_suffix("").parts).removesuffix(".__init__") for path in paths]

    def test_what_is_declared_is_there_and_of_the_right_type(self) -> None:
        """One run of stubtest, whose types are checked as strictly as by mypy --strict: all of the packages, and their use."""
        self.write("imported", IMPORTED)
        strict = "\n".join(strict_options(self.checker("mypy", "--help").stdout))
        unused = ",".join(f"_pytest.{module}" for module in UNUSED.split())
        self.write("strict.ini", f"[mypy]\n{strict}\n[mypy-{unused}]\nfollow_imports = skip\n")
        self.write("use.py", USE)
        self.write("wrong.py", WRONG)
        imports = "".join(f"    import {module}\n" for module in self.every_module())
        self.write("everything.py", f"from typing import TYPE_CHECKING\n\nif TYPE_CHECKING:\n{imports}")
        done = self.checker(
            sys.executable, "-c", STUBTEST, "--mypy-config-file", "strict.ini", "--allowlist", "imported",
            "--ignore-unused-allowlist", "kelutv", "use", "wrong", "everything")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)


def strict_options(text: str) -> list[str]:
    """The options that --strict stands for, as a configuration has them."""
    listed = re.sub(r"-\s+", "-", text.partition("enables the following flags:")[2].partition("\n\n")[0])
    flags = re.findall(r"--([a-z-]+)", listed.partition("\n  --")[0])
    if len(flags) < 10:
        raise AssertionError(f"mypy does not say what --strict is: {flags}")
    negated = {flag: flag.removeprefix("no-") for flag in flags}
    return [f"{name.replace('-', '_')} = {name == flag}" for flag, name in negated.items()]


if __name__ == "__main__":
    unittest.main()
