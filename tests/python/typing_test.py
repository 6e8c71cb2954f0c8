"""What type checkers find in the packages: nothing, and that what they are told is what there is."""

from __future__ import annotations

import os
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
WRONG = """
from kelutv import Television

def use(tv: Television) -> None:
    tv.audio.set_volume(0, "loud")
    tv.audio.set_loudness(3)
    text: str = tv.audio.get_volume(0)
"""
# Names that modules import from elsewhere are taken for their own where there is no stub.
IMPORTED = r"""
kelutv\..*\.(AsyncIterator|Callable|Generic|IO|Iterator|NamedTuple|Protocol|Sequence|field)(\..*)?
kelutv\._modules\.[A-Z]\w*
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

    def run_checker(self, *command: str) -> subprocess.CompletedProcess[str]:
        environment = os.environ | {"PYTHONDONTWRITEBYTECODE": "1", "PYTHONPATH": str(self.folder), "MYPYPATH": ""}
        return subprocess.run(
            command, cwd=self.folder, env=environment, capture_output=True, text=True, timeout=100, check=False
        )

    def check_types(self, *sources: str) -> subprocess.CompletedProcess[str]:
        return self.run_checker("mypy", "--strict", "--config-file", "", "--cache-dir", "cache", *sources)

    def test_the_package_and_what_uses_it(self) -> None:
        (self.folder / "use.py").write_text(USE, encoding="utf-8")
        done = self.check_types(*PACKAGES, "use.py")
        self.assertEqual(done.returncode, 0, done.stdout)
        (self.folder / "wrong.py").write_text(WRONG, encoding="utf-8")
        done = self.check_types("wrong.py")
        lines = [line.split(":")[1] for line in done.stdout.splitlines() if ": error:" in line]
        self.assertEqual(lines, ["5", "6", "7"], done.stdout)

    def test_what_is_declared_is_there(self) -> None:
        (self.folder / "imported").write_text(IMPORTED, encoding="utf-8")
        done = self.run_checker("stubtest", "kelutv", "--allowlist", "imported", "--ignore-unused-allowlist")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)


if __name__ == "__main__":
    unittest.main()
