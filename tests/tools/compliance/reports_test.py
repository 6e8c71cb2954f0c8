"""What the tool makes of the report of a compliance run, as those read it for whom it is made."""

from __future__ import annotations

import json
import os
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as Xml
from html.parser import HTMLParser
from pathlib import Path

PROGRAM = os.environ["KELUTV_TOOL"]
PATIENCE = 60
# Of HTML: elements without an end.
VOID = {"meta", "br", "hr", "link", "img", "input"}
TRICKY = 'a <b> & "c" \'d\' ]]> \\x1b \u00fc'


def result(name: str, verdict: str, **others: object) -> dict[str, object]:
    family, module, *_ = name.split(".")
    return {
        "id": name, "family": family, "module": module, "function": "", "sentence": f"Of {TRICKY}.", "verdict": verdict,
        "reason": "" if verdict == "passed" else f"because {TRICKY}", "latencies": [], "exchange": None, **others,
    }


def report(*results: dict[str, object]) -> dict[str, object]:
    return {
        "format": "kelutv compliance 1", "started": "2026-11-22T14:00:00Z", "seconds": 2.5, "tool": "1.0.0",
        "catalogue": "0123456789abcdef", "platform": "sockets", "service": TRICKY, "machine": "Linux", "options": [],
        "checks": len(results), "results": list(results),
    }


RUN = report(
    result("form.audio.a", "passed", latencies=[1_000_000, 2_000_000]),
    result("form.audio.b", "failed", exchange={"command": 1, "request": "0102", "status": 0, "reply": "00000000ff"}),
    result("state.picture.c", "refused"),
    result("state.picture.d", "left-out"),
    result("events.picture.e", "expected-failure"),
    result("load.service.f", "inconclusive"),
)


class Page(HTMLParser):
    """What is open, and what a page refers to."""

    def __init__(self) -> None:
        super().__init__()
        self.open: list[str] = []
        self.references: list[str] = []
        self.identifiers: list[str] = []
        self.text = ""

    def handle_starttag(self, tag: str, attrs: list[tuple[str, str | None]]) -> None:
        if tag not in VOID:
            self.open.append(tag)
        for name, value in attrs:
            if name in ("src", "href", "xlink:href", "action", "srcset", "background"):
                self.references.append(value or "")
            if name == "id":
                self.identifiers.append(value or "")

    def handle_endtag(self, tag: str) -> None:
        if self.open.pop() != tag:
            raise AssertionError(f"</{tag}> ends something else")

    def handle_data(self, data: str) -> None:
        self.text += data


class Reports(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def file(self, name: str, content: object) -> str:
        path = self.folder / name
        path.write_text(json.dumps(content), encoding="utf-8")
        return str(path)

    def run_tool(self, *words: str) -> subprocess.CompletedProcess[str]:
        return subprocess.run(
            [PROGRAM, "compliance", *words], capture_output=True, text=True, timeout=PATIENCE, check=False)

    def made(self, option: str, content: object) -> str:
        path = self.folder / "made"
        run = self.run_tool("report", self.file("run.json", content), option, str(path))
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        return path.read_text(encoding="utf-8")

    def test_a_build_server_reads_the_xml(self) -> None:
        suites = Xml.fromstring(self.made("--junit", RUN))
        self.assertEqual(suites.tag, "testsuites")
        self.assertEqual({name: suites.get(name) for name in ("tests", "failures", "errors", "skipped")},
                         {"tests": "6", "failures": "1", "errors": "0", "skipped": "4"})
        self.assertEqual([suite.get("name") for suite in suites], ["audio", "picture", "service"])
        audio = suites[0]
        self.assertEqual({name: audio.get(name) for name in ("tests", "failures", "errors", "skipped")},
                         {"tests": "2", "failures": "1", "errors": "0", "skipped": "0"})
        cases = {case.get("name"): case for case in suites.iter("testcase")}
        self.assertEqual(cases["form.audio.a"].get("classname"), "kelutv.form.audio")
        self.assertEqual(float(cases["form.audio.a"].get("time", "")), 0.003)
        self.assertEqual(len(cases["form.audio.a"]), 0)
        failure = cases["form.audio.b"].find("failure")
        assert failure is not None
        self.assertEqual(failure.get("message"), f"because {TRICKY}")
        self.assertIn("00000000  00 00 00 00 ff", failure.text or "")
        skipped = cases["state.picture.d"].find("skipped")
        assert skipped is not None
        self.assertEqual(skipped.get("message"), f"left out: because {TRICKY}")
        self.assertIn(TRICKY, [each.get("value") for each in suites.iter("property")])

    def test_the_page_stands_alone(self) -> None:
        text = self.made("--html", RUN)
        page = Page()
        page.feed(text)
        page.close()
        self.assertEqual(page.open, [])
        self.assertEqual(page.references, [])
        self.assertNotIn("url(", text)
        self.assertNotIn("@import", text)
        self.assertNotIn("<script", text)
        self.assertEqual(page.identifiers, ["form.audio.b"])
        self.assertIn(f"because {TRICKY}", page.text)
        self.assertIn("1 check failed of 6", page.text)

    def test_a_run_reported_anew_is_the_same(self) -> None:
        made = json.loads(self.made("-o", RUN))
        self.assertEqual(made["results"], RUN["results"])
        self.assertEqual(made["verdicts"], {
            "passed": 1, "failed": 1, "refused": 1, "expected-failure": 1, "left-out": 1, "inconclusive": 1})

    def test_comparing_says_by_its_exit_code_what_became_of_it(self) -> None:
        good = self.file("good.json", report(result("form.audio.a", "passed"), result("form.audio.b", "failed")))
        bad = self.file("bad.json", report(result("form.audio.a", "failed"), result("form.audio.b", "passed")))
        self.assertEqual(self.run_tool("diff", good, good).returncode, 0)
        run = self.run_tool("diff", good, bad)
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stdout.splitlines(), [
            f"newly failed  form.audio.a: passed -> failed: because {TRICKY}",
            "newly passed  form.audio.b: failed -> passed"])
        self.assertEqual(run.stderr, "kelutv: 1 newly failed, 1 newly passed, 0 changed, 0 new, 0 gone\n")
        self.assertEqual(self.run_tool("diff", good, str(self.folder / "none.json")).returncode, 2)
        self.assertEqual(self.run_tool("diff", good, self.file("other.json", {"format": "x"})).returncode, 2)

    def test_comparing_fails_for_slower_answers_when_told(self) -> None:
        quick = self.file("quick.json", report(result("form.audio.a", "passed", latencies=[1000] * 30)))
        slow = self.file("slow.json", report(result("form.audio.a", "passed", latencies=[3000] * 30)))
        run = self.run_tool("diff", quick, slow)
        self.assertEqual((run.returncode, run.stdout.split()[:2]), (0, ["slower", "form.audio:"]))
        self.assertEqual(self.run_tool("diff", quick, slow, "--slower").returncode, 1)
        self.assertEqual(self.run_tool("diff", slow, quick, "--slower").returncode, 0)
        self.assertEqual(self.run_tool("diff", quick, slow, "--slower", "--factor", "4").returncode, 0)

    def test_standard_output_takes_no_report(self) -> None:
        run = self.run_tool("report", self.file("run.json", RUN), "--html", "-")
        self.assertEqual(run.returncode, 2)
        self.assertIn("reports go into files", run.stderr)


if __name__ == "__main__":
    unittest.main()
