"""What every command prints with --json, against the schema of these documents."""

from __future__ import annotations

import json
import os
import re
import subprocess
import sys
import tempfile
import unittest
from collections.abc import Iterator
from pathlib import Path
from typing import ClassVar

from jsonschema import Draft202012Validator

ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "tests"))

from support.television import PATIENCE, Television  # noqa: E402

SCHEMA = json.loads((ROOT / "tools" / "schema" / "kelutv.schema.json").read_text(encoding="utf-8"))
RECORDING = json.loads((ROOT / "tools" / "schema" / "recording.schema.json").read_text(encoding="utf-8"))
PROGRAM = os.environ["KELUTV_TOOL"]
# One of every so many functions is described: a description is long to look through.
STEP = 16


def validator(definition: str) -> Draft202012Validator:
    return Draft202012Validator({"$ref": f"#/$defs/{definition}", "$defs": SCHEMA["$defs"]})


def strict(schema: object, place: str = "") -> Iterator[str]:
    """The places of objects with named members that may have others."""
    if isinstance(schema, list):
        for index, entry in enumerate(schema):
            yield from strict(entry, f"{place}/{index}")
    elif isinstance(schema, dict):
        if schema.get("type") == "object" and "additionalProperties" not in schema:
            yield place
        for name, part in schema.items():
            yield from strict(part, f"{place}/{name}")


def sample_of(parameter: dict) -> str:
    """Something that can be written for a parameter."""
    if "values" in parameter:
        return str(parameter["values"][0]["value"])
    if parameter["form"] == "text":
        return "text"
    if parameter["form"].startswith("record"):
        return "''"
    if parameter["form"].startswith("list"):
        return "hex:020000000a0b" if "byte" in parameter["form"] else "1,2"
    if parameter["form"] == "print or null":
        return "null"
    least = parameter.get("range", {}).get("min")
    return "1" if least is None else str(least)


def call_of(description: dict) -> str:
    given = [each for each in description["parameters"] if each["direction"] in ("in", "in and out")]
    return " ".join(["call", description["function"], *(sample_of(each) for each in given)])


class Documents(unittest.TestCase):
    seen: ClassVar[set[str]] = set()

    def setUp(self) -> None:
        self.television = self.enterContext(Television(os.environ["KELUTV_SIMULATOR"]))

    def run_tool(self, *words: str, given: str = "") -> subprocess.CompletedProcess[str]:
        return subprocess.run(
            [PROGRAM, "--json", *words], env=self.television.environment, input=given, capture_output=True, text=True,
            timeout=PATIENCE)

    def documents(self, text: str, definition: str) -> list:
        """The documents of a text, one a line, each as the definition says."""
        documents = [json.loads(line) for line in text.splitlines()]
        validating = validator(definition)
        for document in documents:
            errors = [f"{error.json_path}: {error.message}" for error in validating.iter_errors(document)]
            self.assertEqual(errors, [], f"{definition}: {document}")
        self.seen.update({definition} if documents else ())
        return documents

    def printed(self, definition: str, *words: str, given: str = "") -> list:
        """The documents that a command prints."""
        run = self.run_tool(*words, given=given)
        documents = self.documents(run.stdout, definition)
        self.assertTrue(documents, f"{words}: {run.stderr}")
        return documents

    def error_of(self, *words: str) -> dict:
        run = self.run_tool(*words)
        (document,) = self.documents(run.stderr.splitlines()[-1], "error")
        self.assertEqual(document["error"]["exit"], run.returncode)
        return document["error"]

    def test_the_schema_is_one_and_strict(self) -> None:
        Draft202012Validator.check_schema(SCHEMA)
        self.assertEqual(list(strict(SCHEMA)), [])
        for reference in re.findall(r'"\$ref": "#/\$defs/([^"]+)"', json.dumps(SCHEMA)):
            self.assertIn(reference, SCHEMA["$defs"])

    def test_settings(self) -> None:
        self.printed("status", "status")
        self.assertEqual(self.printed("get", "get", "source"),
                         [{"thing": "source", "value": 0, "enumerator": "KELU_TV_SRC_ATV"}])
        self.printed("get", "get", "timing", "volume")
        self.assertGreater(len(self.printed("get-all", "get")), 50)
        self.assertEqual(self.printed("set", "set", "source", "hdmi1"),
                         [{"thing": "source", "value": 9, "enumerator": "KELU_TV_SRC_HDMI1"}])

    def test_equipment(self) -> None:
        self.assertGreater(len(self.printed("sources", "sources")), 10)
        self.printed("cec", "cec")
        self.printed("cec-select", "cec", "select", "4")
        self.printed("cec-key", "cec", "key", "play")
        self.printed("power", "power")
        self.printed("power-done", "power", "suspend")
        self.printed("power-done", "power", "resume")
        self.assertEqual(self.printed("status", "status")[0]["cec-devices"][0]["playing"], True)

    def test_names(self) -> None:
        for kind in ("command", "item", "enumeration", "value", "record", "event"):
            names = [document["name"] for document in self.printed("list-entry", "list", "--kind", kind)]
            # One process for some of them.
            lines = self.run_tool("repl", given="".join(f"describe {name}\n" for name in names[::STEP])).stdout
            described = self.documents(lines, f"describe-{kind}")
            self.assertEqual([each["name"] for each in described], names[::STEP])

    def test_new_services(self) -> None:
        folder = Path(self.enterContext(tempfile.TemporaryDirectory())) / "my-tv"
        (written,) = self.printed("new-service", "new-service", str(folder), "--module", "audio")
        self.assertEqual({Path(file) for file in written["files"]}, set(folder.iterdir()))

    def test_snapshots(self) -> None:
        file = str(Path(self.enterContext(tempfile.TemporaryDirectory())) / "snapshot.json")
        (written,) = self.printed("snapshot-written", "snapshot", "-o", file)
        # Whole they are long to look through.
        for text in (Path(file).read_text(encoding="utf-8"), self.run_tool("snapshot").stdout):
            snapshot = json.loads(text)
            self.assertEqual((written["readable"], written["held"]), (snapshot["readable"], len(snapshot["states"])))
            self.documents(json.dumps({**snapshot, "states": snapshot["states"][::STEP]}), "snapshot")
        self.run_tool("set", "volume", "35")
        self.run_tool("set", "sound-mode", "movie")
        changed = self.run_tool("snapshot").stdout
        *differences, last = self.run_tool("snapshot", "diff", file, "-", given=changed).stdout.splitlines()
        self.documents("\n".join(differences), "snapshot-diff")
        self.assertEqual(self.documents(last, "snapshot-diff-sum")[0]["differences"], 2)
        self.run_tool("sim", "fault CMD_AUDIO_SETSOUNDMODE error -5")
        *restored, last = self.run_tool("snapshot", "restore", file).stdout.splitlines()
        self.assertEqual([each["call"] is None for each in self.documents("\n".join(restored), "snapshot-restore")],
                         [False, False])
        self.assertEqual(self.documents(last, "snapshot-restore-sum")[0]["failed"], 1)

    def test_judging(self) -> None:
        folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        before, after, known = (str(folder / name) for name in ("before.json", "after.json", "known.json"))
        self.printed("compliance-plan", "compliance", "--dry-run", "audio.getVolume")
        *checks, last = self.run_tool("compliance", "form.audio.getV*", "-o", before).stdout.splitlines()
        self.assertGreater(len(self.documents("\n".join(checks), "compliance")), 10)
        self.assertEqual(self.documents(last, "compliance-sum")[0]["verdicts"]["failed"], 0)
        self.run_tool("sim", "fault CMD_AUDIO_GETVOLUME short 2")
        failures = [{"check": "form.audio.getVolume[channel=speaker].*", "reason": "no amplifier"}]
        document = json.dumps({"format": "kelutv known failures 1", "failures": failures})
        self.documents(document, "known-failures")
        Path(known).write_text(document, encoding="utf-8")
        checks = self.run_tool("compliance", "form.audio.getV*", "-o", after, "--expect", known).stdout.splitlines()
        verdicts = {check["id"]: check["verdict"] for check in self.documents("\n".join(checks[:-1]), "compliance")}
        self.assertEqual(verdicts["form.audio.getVolume[channel=speaker].status"], "expected-failure")
        self.assertEqual(verdicts["form.audio.getVolume[channel=headphone].status"], "failed")
        for file in (before, after):
            self.documents(json.dumps(json.loads(Path(file).read_text(encoding="utf-8"))), "compliance-report")
        has = str(folder / "has.json")
        self.assertEqual(self.run_tool("compliance", "--discover", has).returncode, 0)
        self.documents(json.dumps(json.loads(Path(has).read_text(encoding="utf-8"))), "capabilities")
        run = self.run_tool("compliance", "diff", before, after, "--factor", "1")
        self.assertEqual(run.returncode, 1)
        *changes, last = run.stdout.splitlines()
        latencies = [line for line in changes if '"family"' in line]
        self.documents("\n".join(latencies), "compliance-diff-latency")
        self.documents("\n".join(line for line in changes if line not in latencies), "compliance-diff")
        self.assertGreater(self.documents(last, "compliance-diff-sum")[0]["changes"]["newly-failed"], 0)

    def test_functions(self) -> None:
        names = [document["function"] for document in self.printed("list", "list")]
        self.assertGreater(len(names), 500)
        self.printed("list-module", "list", "--modules")
        # One process for all of them.
        lines = self.run_tool("repl", given="".join(f"describe {name}\n" for name in names)).stdout
        self.documents("\n".join(lines.splitlines()[::STEP]), "describe")
        descriptions = [json.loads(line) for line in lines.splitlines()]
        self.assertEqual([each["function"] for each in descriptions], names)
        run = self.run_tool("repl", given="".join(f"{call_of(each)}\n" for each in descriptions))
        called = self.documents(run.stdout, "call")
        self.assertEqual([each["function"] for each in called], names, run.stderr)

    def test_the_wire(self) -> None:
        self.printed("call", "call", "audio.getVolume", "speaker", "--wire")
        (refused,) = self.printed("call", "call", "factory.setMacAddress", "1,2")
        self.assertEqual(refused["answer"], {"value": -107, "name": "value out of range"})
        (encoded,) = self.printed("encode", "encode", "audio.setVolume", "speaker", "35")
        (request,) = encoded["requests"]
        self.printed("decode", "decode", request, "--reply", "00000000")
        self.printed("decode", "decode", request[:-8])
        self.printed("decode", "decode", "00")
        self.printed("decode", "decode", "--command", "CMD_SOURCE_GETCURSOURCEID", "--reply", "0000000009000000")
        (refused,) = self.printed("decode", "decode", "--command", "CMD_AUDIO_SETVOLUME", "--reply", "95ffffff")
        self.assertEqual(refused["reply"], {"result": -107, "name": "value out of range", "fields": []})

    def test_traces(self) -> None:
        with tempfile.NamedTemporaryFile("r") as trace:
            self.run_tool("trace", "--output", trace.name, "--", PROGRAM, "get", "volume")
            self.assertTrue(self.documents(trace.read(), "trace"))
        run = self.run_tool("trace", "--summary", "--", PROGRAM, "get", "volume")
        (summary,) = self.documents(run.stderr.splitlines()[-1], "trace-summary")
        self.assertEqual([each["command"] for each in summary["commands"]], ["CMD_AUDIO_GETVOLUME"])
        self.assertEqual(self.printed("top", "top", "--", PROGRAM, "get", "volume")[-1]["commands"][0]["calls"], 1)

    def test_recordings(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            file = str(Path(folder, "recording"))
            run = self.run_tool("record", "--events", "-o", file, "--", PROGRAM, "repl", given="set volume 7\nget\n")
            self.documents(run.stderr.splitlines()[-1], "message")
            (checked,) = self.printed("recording-check", "recording", "check", file)
            self.assertEqual((checked["faults"], checked["ended"], checked["sections"]), (0, True, 1))
            (report,) = self.printed("recording-report", "recording", "report", file)
            self.assertEqual(sum(each["calls"] for each in report["commands"]), checked["calls"])
            other = str(Path(folder, "other"))
            text = Path(file).read_text(encoding="utf-8").splitlines(keepends=True)
            Path(other).write_text("".join(text[:1] + text[2:]), encoding="utf-8")
            missing, last = self.run_tool("recording", "diff", file, other).stdout.splitlines()
            self.assertIsNone(self.documents(missing, "recording-diff")[0]["second"])
            self.assertEqual(self.documents(last, "recording-diff-sum")[0]["differences"], 1)
            self.run_tool("set", "mute", "on")
            replayed = self.run_tool("recording", "replay", file, "--restore").stdout.splitlines()
            self.documents(replayed[0], "recording-replay")
            sums = [json.loads(line) for line in replayed if "sent" in json.loads(line)]
            self.documents(json.dumps(sums[0]), "recording-replay-sum")
            self.documents(replayed[-1], "snapshot-restore-sum")
            self.run_tool("set", "mute", "off")
            lines = [json.loads(line) for line in Path(file).read_text(encoding="utf-8").splitlines()]
            shown = self.run_tool("recording", "show", file).stdout
            self.assertEqual([json.loads(line) for line in shown.splitlines()], lines)
        Draft202012Validator.check_schema(RECORDING)
        validating = Draft202012Validator(RECORDING)
        for line in lines:
            self.assertEqual([error.message for error in validating.iter_errors(line)], [], line)
        self.assertGreater(len(lines), 50)
        call = next(line for line in lines if line["kind"] == "transaction")
        wrong = ({"kind": "header"}, {**call, "reply": None}, {**call, "request": "0"}, {**call, "time": 0.5})
        for line in wrong:
            self.assertFalse(validating.is_valid(line), line)
        self.assertTrue(validating.is_valid({"kind": "temperature", "celsius": 41.5}))
        self.assertTrue(validating.is_valid({**call, "more": {}}))

    def test_events(self) -> None:
        with subprocess.Popen(
            [PROGRAM, "--json", "monitor", "--count", "3", "--timeout", str(PATIENCE)], env=self.television.environment,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
        ) as monitor:
            self.documents(next(line for line in monitor.stderr if line.startswith("{")), "message")
            self.run_tool("sim", "-", given="event 0x60001 0100000014000000\nevent 0x6FF01 07000000\nevent 0x6FF02 0102\n")
            output, _ = monitor.communicate()
        known, words, _ = self.documents(output, "monitor")
        self.assertEqual(known["fields"], [
            {"name": "channel", "value": 1, "enumerator": "KELU_TV_AUDIO_CHANNEL_HEADPHONE"},
            {"name": "volume", "value": 20},
        ])
        self.assertEqual(words["words"], [7])

    def test_waiting(self) -> None:
        self.assertEqual(self.printed("wait", "wait", "service"), [{"service": "there"}])
        self.assertEqual(self.printed("wait", "wait", "source=atv"),
                         [{"thing": "source", "value": 0, "enumerator": "KELU_TV_SRC_ATV"}])
        self.assertEqual(self.error_of("wait", "volume>20", "--timeout", "0.2")["exit"], 5)

    def test_looking_at_everything(self) -> None:
        *checks, last = self.run_tool("doctor", "--event", "0").stdout.splitlines()
        self.assertGreater(len(self.documents("\n".join(checks), "doctor")), 300)
        self.assertEqual(self.documents(last, "doctor-sum")[0]["failures"], 0)

    def test_the_end_of_the_service(self) -> None:
        with subprocess.Popen(
            [PROGRAM, "--json", "monitor", "--timeout", str(PATIENCE)], env=self.television.environment,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
        ) as monitor:
            next(line for line in monitor.stderr if line.startswith("{"))
            self.television.end()
            self.documents(monitor.stdout.readline(), "monitor-service")
            monitor.terminate()

    def test_callbacks(self) -> None:
        with subprocess.Popen(
            ["timeout", str(PATIENCE), PROGRAM, "--json", "repl"], env=self.television.environment, stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
        ) as repl:
            repl.stdin.write("call notify.registerCallbackFunc print\n")
            repl.stdin.flush()
            self.documents(repl.stdout.readline(), "call")
            self.run_tool("sim", "event", "0x60001", "0102")
            printed = self.documents(repl.stdout.readline(), "callback")
            repl.stdin.close()
        self.assertEqual(printed, [{"callback": "event", "event": 0x60001, "payload": "0102"}])

    def test_memories(self) -> None:
        self.printed("eep-areas", "eep", "areas")
        self.printed("eep", "eep", "read", "tv", "0x8A00", "16")
        self.printed("eep", "eep", "dump", "tv", "--length", "16")
        self.documents(self.run_tool("eep", "write", "tv", "0x8A00", "1", "2").stderr, "message")

    def test_the_simulator_and_help(self) -> None:
        self.printed("sim", "sim", "set", "audio.volume[0]", "=", "20")
        self.printed("sim", "sim", "fault", "CMD_AUDIO_GETVOLUME", "error", "-5", "once")
        self.printed("sim", "sim", "faults")
        self.printed("sim", "sim", "fault", "clear")
        self.printed("sim", "sim", "show")
        self.printed("sim", "sim", "help")
        self.printed("help", "help", "get")
        self.printed("complete", "complete", "--", "get", "vol")

    def test_errors(self) -> None:
        self.assertEqual(self.error_of("set", "volume", "101"), {
            "message": "volume cannot be '101', allowed: 0..100, +N, -N", "exit": 2, "hint": "kelutv help set"})
        self.assertEqual(self.error_of("gte")["hint"], "kelutv help")
        self.assertEqual(self.error_of("monitor", "--count", "x")["exit"], 2)
        self.assertEqual(self.error_of("status", "now", "--color", "never")["exit"], 2)
        self.assertEqual(self.error_of("call", "factory.setMacAddress", "1,2")["exit"], 4)
        self.assertEqual(self.error_of("eep", "load", "tv", "nowhere")["exit"], 1)
        run = self.run_tool("repl", given="get volme\nget 'volume\n")
        self.assertEqual(len(self.documents(run.stderr, "error")), 2)

    # The last one by its name.
    def test_z_every_document_of_the_schema_was_printed(self) -> None:
        self.assertEqual(self.seen, {each["$ref"].rpartition("/")[2] for each in SCHEMA["anyOf"]})


if __name__ == "__main__":
    unittest.main()
