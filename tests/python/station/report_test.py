"""What is reported of a run."""

from __future__ import annotations

import json
import tempfile
import unittest
from html.parser import HTMLParser
from io import BytesIO, TextIOWrapper
from pathlib import Path
from xml.etree import ElementTree

from kelutv_station.plan.limits import Limit
from kelutv_station.report.files import replace_file
from kelutv_station.report.junit import junit
from kelutv_station.report.lines import json_lines, result_line, summary
from kelutv_station.report.outline import Distribution, Outline, outline_of
from kelutv_station.report.page import page
from kelutv_station.report.svg import counts_of, picture, span_of
from kelutv_station.run.performing import plain
from kelutv_station.run.results import Measurement, Verdict
from kelutv_station.saying import say

from plans import READ, UNIT, VOLUME, ended, plan_with
from televisions import SCHEMA

BOUNDS = Limit(low=30, high=40, unit="%")
UNITS = [UNIT, {"serial": "B&2", "runtime_dir": "two"}, {"serial": "C", "runtime_dir": "three"}]
PLAN = plan_with(VOLUME, READ, title="Line <1>", unit=UNITS)
RUN = outline_of(PLAN, [
    ended("read", Verdict.PASS, Measurement("result", 36, BOUNDS)),
    ended("volume"),
    ended("volume", unit="B&2"),
    ended("read", Verdict.FAIL, Measurement("result", 50, BOUNDS), unit="B&2", reason="result is 50 %, not >= 30 and <= 40"),
    ended("volume", Verdict.ERROR, unit="C", reason="no <service>\x07"),
    ended("read", Verdict.LEFT_OUT, unit="C", reason="behind 'volume': error"),
])


class Checker(HTMLParser):
    """Collects what a page refers to, and its elements that are open."""

    def __init__(self, text: str) -> None:
        super().__init__()
        self.open: list[str] = []
        self.references: list[str] = []
        self.feed(text)
        self.close()

    def handle_starttag(self, tag: str, attrs: list[tuple[str, str | None]]) -> None:
        self.references += [value or "" for name, value in attrs if name in ("src", "href")]
        if tag not in ("meta", "br"):
            self.open.append(tag)

    def handle_startendtag(self, tag: str, attrs: list[tuple[str, str | None]]) -> None:
        """Nothing is open then."""

    def handle_endtag(self, tag: str) -> None:
        if self.open.pop() != tag:
            raise AssertionError(f"</{tag}> ends something else")


class Reports(unittest.TestCase):
    def test_have_every_value_with_its_limit_and_verdict(self) -> None:
        documents = [json.loads(line) for line in json_lines(RUN).splitlines()]
        for document in documents:
            SCHEMA.validate(document)
        verdicts = [(each["unit"], each.get("step"), each["verdict"]) for each in documents]
        self.assertEqual(verdicts, [
            ("A1", "volume", "pass"), ("A1", "read", "pass"), ("B&2", "volume", "pass"), ("B&2", "read", "fail"),
            ("C", "volume", "error"), ("C", "read", "left out"), ("A1", None, "pass"), ("B&2", None, "fail"), ("C", None, "error")])
        self.assertEqual(documents[3]["measurements"], [
            {"name": "result", "value": 50, "enumerator": None, "limit": {"low": 30, "high": 40, "unit": "%"},
             "verdict": "fail"}])
        self.assertEqual(documents[7]["failed"], ["read"])

    def test_are_as_the_schema_says(self) -> None:
        SCHEMA.check_schema(SCHEMA.schema)
        good = json.loads(json_lines(RUN).splitlines()[3])
        for wrong in (
            {"verdict": "good"}, {"attempt": 0}, {"seconds": -1}, {"unit": ""}, {"more": 1}, {"measurements": [{}]},
            {"measurements": [{**good["measurements"][0], "limit": {"lowest": 3}}]},
        ):
            self.assertTrue(SCHEMA.is_valid(good))
            self.assertFalse(SCHEMA.is_valid({**good, **wrong}), wrong)

    def test_hold_numbers_that_json_has_not(self) -> None:
        for number, text in ((float("nan"), "nan"), (float("-inf"), "-inf")):
            value, enumerator = plain(number)
            self.assertEqual((value, enumerator, plain([1.5, number])[0]), (text, None, [1.5, text]))
            self.assertFalse(Measurement("gain", value, Limit(low=0)).is_within)

    def test_are_read_by_readers_of_junit(self) -> None:
        suites = ElementTree.fromstring(junit(RUN))
        counts = ("name", "tests", "failures", "errors", "skipped")
        self.assertEqual([[suite.get(count) for count in counts] for suite in suites], [
            ["A1", "2", "0", "0", "0"], ["B&2", "2", "1", "0", "0"], ["C", "2", "0", "1", "1"]])
        case = suites[1][1]
        self.assertEqual(case.find("failure").get("message"), "result is 50 %, not >= 30 and <= 40")
        self.assertEqual(
            case.find("properties/property").attrib, {"name": "result", "value": "50 % (>= 30 and <= 40): fail"})
        self.assertEqual(suites[2][0].find("error").get("message"), "no <service>\ufffd")

    def test_hold_texts_that_are_no_utf_8(self) -> None:
        outline = outline_of(PLAN, [ended("volume", Verdict.FAIL, Measurement("result", "a\udc80b"), reason="is a\udc80b")])
        with tempfile.TemporaryDirectory() as folder:
            for write in (json_lines, junit, page):
                path = Path(folder) / write.__name__
                replace_file(path, write(outline))
                self.assertIn("b", path.read_text(encoding="utf-8"))
            self.assertEqual(json.loads((Path(folder) / "json_lines").read_text().splitlines()[0])["reason"], "is a\udc80b")
            ElementTree.parse(Path(folder) / "junit")
        for encoding, shown in (("utf-8", "é a\\udc80b"), ("ascii", "\\xe9 a\\udc80b")):
            stream = TextIOWrapper(BytesIO(), encoding)
            say("é a\udc80b", stream)
            self.assertEqual(stream.buffer.getvalue().decode(), f"{shown}\n")

    def test_sum_up_by_unit(self) -> None:
        self.assertEqual(summary(RUN).splitlines(), [
            "A1: pass", "B&2: fail: read (result is 50 %, not >= 30 and <= 40)",
            "C: error: volume (no <service>\x07); 1 step left out",
            "Line <1>: 1 of 3 units passed (33.3 %)"])
        self.assertEqual(result_line(RUN.units[0].results[1]), "A1: read: pass: result 36 %")

    def test_pass_no_unit_that_has_not_ended(self) -> None:
        outline = outline_of(PLAN, [ended("volume")])
        self.assertEqual([unit.verdict for unit in outline.units], [Verdict.UNKNOWN] * 3)
        self.assertEqual(outline.passed, 0)
        self.assertIn("A1: unknown; has not ended", summary(outline))

    def test_count_failures_by_step(self) -> None:
        self.assertEqual(RUN.failures, {"volume": 1, "read": 1})


class Pages(unittest.TestCase):
    def test_stand_alone(self) -> None:
        checker = Checker(page(RUN))
        self.assertEqual(checker.open, [])
        self.assertEqual([each for each in checker.references if not each.startswith("#")], [])

    def test_show_yield_failures_and_pictures(self) -> None:
        text = page(RUN)
        for part in (
            "<h1>Line &lt;1&gt;</h1>", "<b>33.3 %</b>", "<b>1 of 3</b>", "<b>read</b>: result is 50 %, not &gt;= 30",
            "no &lt;service&gt;",
        ):
            self.assertIn(part, text)
        self.assertEqual(text.count("<svg"), 1)
        self.assertIn("2 values · 36 to 50 % · mean 43", text)
        self.assertNotIn("<svg", page(Outline("Empty", (), ())))

    def test_draw_each_value_between_its_bounds(self) -> None:
        distribution = Distribution("read", "result", BOUNDS, (36, 36, 50))
        low, high = span_of(distribution)
        self.assertEqual((low, high), (29, 51))
        counts = counts_of(distribution.values, low, high)
        self.assertEqual((sum(counts), counts[int((36 - 29) / 22 * len(counts))]), (3, 2))
        self.assertEqual(picture(distribution).count('class="bound"'), 2)
        ElementTree.fromstring(picture(distribution))

    def test_know_how_capable_a_process_is(self) -> None:
        self.assertAlmostEqual(Distribution("read", "result", BOUNDS, (34.0, 35.0, 36.0)).capability or 0, 5 / 3)
        self.assertIsNone(Distribution("read", "result", BOUNDS, (35.0, 35.0)).capability)
        self.assertIsNone(Distribution("read", "result", Limit(), (34.0, 36.0)).capability)


if __name__ == "__main__":
    unittest.main()
