"""Results in the form of JUnit: a test suite a unit, a test case a step."""

from __future__ import annotations

import re
from xml.etree import ElementTree

from kelutv_station.report.outline import Outline, UnitOutline
from kelutv_station.run.results import Measurement, Result, Verdict

KINDS = {Verdict.FAIL: "failure", Verdict.ERROR: "error", Verdict.UNKNOWN: "error", Verdict.LEFT_OUT: "skipped"}
NOT_OF_XML = re.compile("[^\t\n\r\x20-\ud7ff\ue000-\ufffd\U00010000-\U0010ffff]")


def junit(outline: Outline) -> str:
    """The report as XML."""
    suites = ElementTree.Element("testsuites", name=_clean(outline.title))
    for unit in outline.units:
        suites.append(_suite(unit))
    ElementTree.indent(suites)
    return f'<?xml version="1.0" encoding="utf-8"?>\n{ElementTree.tostring(suites, encoding="unicode")}\n'


def _suite(unit: UnitOutline) -> ElementTree.Element:
    kinds = [KINDS.get(result.verdict) for result in unit.results]
    suite = ElementTree.Element(
        "testsuite", name=_clean(unit.serial), tests=str(len(kinds)), failures=str(kinds.count("failure")),
        errors=str(kinds.count("error")), skipped=str(kinds.count("skipped")), time=f"{unit.seconds:.3f}")
    for result in unit.results:
        suite.append(_case(result))
    return suite


def _case(result: Result) -> ElementTree.Element:
    case = ElementTree.Element(
        "testcase", classname=_clean(result.unit), name=_clean(result.step), time=f"{result.seconds:.3f}")
    if result.measurements:
        properties = ElementTree.SubElement(case, "properties")
        for each in result.measurements:
            ElementTree.SubElement(properties, "property", name=_clean(each.name), value=_clean(_described(each)))
    if result.verdict in KINDS:
        reason = _clean(result.reason)
        ElementTree.SubElement(case, KINDS[result.verdict], message=reason, type=result.verdict.value).text = reason
    return case


def _described(measurement: Measurement) -> str:
    """Value, limit and verdict in one text, which is all that a property can hold."""
    limit = measurement.limit.text()
    verdict = Verdict.PASS if measurement.is_within else Verdict.FAIL
    return f"{measurement.text()} ({limit}): {verdict.value}" if limit else f"{measurement.text()}: {verdict.value}"


def _clean(text: str) -> str:
    """The text without characters that XML has none for."""
    return NOT_OF_XML.sub("\ufffd", text)
