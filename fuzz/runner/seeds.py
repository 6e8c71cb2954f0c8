"""What the targets begin with, and their dictionaries: made of the catalogue, the tests and the files that come along."""

from __future__ import annotations

import fcntl
import json
import re
import shutil
import subprocess
from collections.abc import Iterable, Iterator
from pathlib import Path

from targets import BUILD, ROOT, WORK, FuzzError, Target

SEEDS = WORK / "seeds"
STRING = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
RAW_STRING = re.compile(r'R"\((.*?)\)"', re.DOTALL)
ESCAPES = {"n": "\n", "t": "\t", "v": "\v", "\\": "\\", '"': '"', "'": "'", "r": "\r", "0": "\0"}
LONGEST_SEED = 8192


def unescaped(literal: str) -> str:
    return re.sub(r"\\(.)", lambda match: ESCAPES.get(match[1], match[1]), literal)


def literals(*sources: str) -> Iterator[str]:
    """The strings in tests."""
    for source in sources:
        text = (ROOT / source).read_text(encoding="utf-8")
        yield from RAW_STRING.findall(text)
        yield from map(unescaped, STRING.findall(RAW_STRING.sub("", text)))


def tests(*rooms: str) -> list[str]:
    return [str(path.relative_to(ROOT)) for room in rooms for path in sorted((ROOT / "tests" / room).glob("*_test.cpp"))]


def files(pattern: str) -> Iterator[str]:
    for path in sorted(ROOT.glob(pattern)):
        yield path.read_text(encoding="utf-8")


def members(document: dict) -> Iterator[str]:
    """Each second-level member of a JSON document as a document of its own."""
    for outer, inner in document.items():
        for name, value in inner.items():
            yield json.dumps({outer: {name: value}})


def configurations() -> Iterator[str]:
    defaults = json.loads((ROOT / "simulator/configuration/defaults.json").read_text(encoding="utf-8"))
    yield from members(defaults)
    yield from (text for text in literals(*tests("simulator/configuration")) if text.startswith("{"))


def control_lines() -> Iterator[str]:
    verbs = literals("simulator/control/ControlVerbs.cpp")
    yield from ("\n".join(verbs),)
    yield from literals(*tests("simulator/control", "simulator/faults", "simulator/television"))


def events_files() -> Iterator[str]:
    yield from tables((ROOT / "catalogue/events.md").read_text(encoding="utf-8"))
    yield from literals("tests/wire/event_file_test.cpp")


def tables(text: str) -> Iterator[str]:
    """The tables in pieces: their heads with a few rows each."""
    sections = re.split(r"(?m)^(?=## )", text)
    for section in sections[1:]:
        lines = section.splitlines()
        rows = [i for i, line in enumerate(lines) if line.startswith("|")]
        head = lines[: rows[2]] if len(rows) > 2 else lines
        for start in range(2, len(rows), 4):
            yield "\n".join([*head, *(lines[i] for i in rows[start : start + 4])]) + "\n"


def scenarios() -> Iterator[str]:
    yield from files("simulator/scenarios/*.scenario")
    yield from literals(*tests("simulator/scenarios"))
    yield from ("on CMD_AUDIO_?\n", "on CMD_AUDIO_GETVOLUM? within 2s show audio.volume\n")
    yield from (f"on {word}\n" for word in literals("tests/wire/pattern_test.cpp", "tests/wire/request_pattern_test.cpp"))


def recordings() -> Iterator[str]:
    """Each line of a recording behind its header, and the lines of tests, right and wrong."""
    header = ""
    reply = re.compile('"status":0(.*)"reply":"[0-9a-f]*"')
    for text in files("tests/recordings/*.jsonl"):
        header, *lines = text.splitlines(keepends=True)
        yield from (header + line for line in lines)
        yield from (header + reply.sub(r'"status":-32\1"reply":null', line) for line in lines)
    yield from (f"{header}{text}\n" for text in literals(*tests("recording")) if text.startswith("{"))


def snapshots() -> Iterator[str]:
    """Snapshots of a few states, held and missing."""
    volume = {"state": "audio.volume[speaker]", "values": [35], "function": "linux_tv_Audio_getVolume",
              "arguments": {"channel": "KELU_TV_AUDIO_CHANNEL_SPEAKER"}, "result": 0, "seconds": 0.012}
    address = {"state": "factory.macAddress", "values": [{"hex": "ff00"}], "function": "linux_tv_Factory_getMacAddress",
               "arguments": {}, "result": None, "seconds": 1.0}
    loud = {"state": "audio.equalLound[?]", "function": "Audio::getEqualLoundValue", "reason": "no keys", "result": -5}
    kinds: list[tuple[list[dict], list[dict]]] = [([volume, address], [loud]), ([volume], []), ([], [loud]), ([], [])]
    for held, missing in kinds:
        yield json.dumps({"format": "kelutv snapshot 1", "library": "1.0.0", "taken": "2026-11-22T14:00:00Z",
                          "readable": len(held) + len(missing), "held": len(held), "states": held, "missing": missing})


TEXTS = {
    "configuration": configurations,
    "control": control_lines,
    "events_file": events_files,
    "recording": recordings,
    "scenario": scenarios,
    "snapshot": snapshots,
    "state": lambda: (text for text in literals(*tests("simulator/television")) if text.startswith("{")),
    "decode": lambda: literals("tests/tools/commands/decode_test.cpp"),
}


DICTIONARIES = {
    "json": ("simulator/configuration/defaults.json", "simulator/configuration/config.schema.json"),
    "documents": ("tools/schema/recording.schema.json",),
}


def json_names(*schemas: str) -> list[str]:
    """Keys and words of files in JSON."""
    names: set[str] = set()

    def collect(value: object) -> None:
        if isinstance(value, dict):
            names.update(value)
            for each in value.values():
                collect(each)
        elif isinstance(value, list):
            for each in value:
                collect(each)
        elif isinstance(value, str) and len(value) < 40:
            names.add(value)

    for name in schemas:
        collect(json.loads((ROOT / name).read_text(encoding="utf-8")))
    return sorted(names)


def entry(word: str) -> str:
    return '"' + "".join(f"\\x{byte:02x}" for byte in word.encode()) + '"\n'


def write_texts(folder: Path, texts: Iterable[str]) -> None:
    folder.mkdir(parents=True, exist_ok=True)
    for number, text in enumerate(texts):
        if len(text) <= LONGEST_SEED:
            (folder / f"text-{number}").write_bytes(text.encode(errors="replace"))


def make() -> None:
    """Writes all seeds and dictionaries anew; runs of several targets at a time do it one after the other."""
    WORK.mkdir(parents=True, exist_ok=True)
    with (WORK / "lock").open("w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        write_all()


def write_all() -> None:
    shutil.rmtree(SEEDS, ignore_errors=True)
    SEEDS.mkdir(parents=True)
    done = subprocess.run([BUILD / "fuzz" / "fuzz_seeds", SEEDS], capture_output=True, text=True)
    if done.returncode != 0:
        raise FuzzError(done.stderr)
    for name, texts in TEXTS.items():
        write_texts(SEEDS / name, texts())
    for name, schemas in DICTIONARIES.items():
        (SEEDS / f"{name}.dict").write_text("".join(map(entry, json_names(*schemas))), encoding="ascii")


def seeds_of(target: Target) -> Path:
    folder = SEEDS / target.name
    folder.mkdir(parents=True, exist_ok=True)
    return folder


def dictionary_of(target: Target) -> Path:
    return SEEDS / f"{target.dictionary}.dict"
