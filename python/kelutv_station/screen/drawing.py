"""What the operator sees: every unit with its step, and the question to be answered with its keys."""

from __future__ import annotations

from collections.abc import Sequence
from dataclasses import dataclass

from kelutv_station.run.questions import Question
from kelutv_station.run.results import Result, Verdict
from kelutv_station.run.station import Status

BOLD, QUIET, GREEN, RED, YELLOW, INVERSE, PLAIN = (f"\x1b[{code}m" for code in ("1", "2", "32", "31", "33", "7", "0"))
COLOURS = {
    Verdict.PASS: GREEN, Verdict.FAIL: RED, Verdict.ERROR: RED, Verdict.UNKNOWN: YELLOW, Verdict.LEFT_OUT: YELLOW}
ROWS_OF_QUESTION = 9


@dataclass(frozen=True)
class View:
    """All that the screen shows; `selected` is the question that the keys answer."""

    title: str
    steps: int
    units: Sequence[tuple[str, Status]]
    questions: Sequence[Question]
    selected: Question | None
    latest: Result | None
    is_stopping: bool = False


def drawing(view: View, width: int, height: int) -> list[str]:
    """The rows of the screen, at most so many and so wide."""
    done = sum(status.ended for _, status in view.units)
    head = cut(f" {view.title}    {done} of {len(view.units)} units done", width)
    rows = [_coloured(head.ljust(width), INVERSE), ""]
    asked = {question.unit for question in view.questions}
    shown = units_shown(view, max(height - ROWS_OF_QUESTION - 3, 1))
    rows += [_unit_row(view, serial, status, serial in asked, width) for serial, status in shown]
    if len(shown) < len(view.units):
        rows.append(_coloured(cut(f"   {len(view.units) - len(shown)} more units", width), QUIET))
    return [*rows, "", *_question(view, width)]


def units_shown(view: View, room: int) -> list[tuple[str, Status]]:
    """The units that there is room for: those that ask first, then those under way, then the others, as the plan has them."""
    if len(view.units) <= room:
        return list(view.units)
    asked = {question.unit for question in view.questions}
    urgent = sorted(view.units, key=lambda each: (each[0] not in asked, each[1].ended))[: max(room - 1, 1)]
    return [each for each in view.units if each in urgent]


def _unit_row(view: View, serial: str, status: Status, asks: bool, width: int) -> str:
    marker = ">" if view.selected and view.selected.unit == serial else " "
    state = "asks you" if asks else status.verdict.value.upper() if status.ended else "under way" if status.step else ""
    step = _failed(status) if status.ended else status.step or ""
    text = cut(f" {marker} {serial:<16} {len(status.results):>3}/{view.steps:<3} {state:<10} {step}", width)
    if asks:
        return _coloured(text, BOLD)
    colour = COLOURS[status.verdict] if status.results and (status.ended or status.verdict is not Verdict.PASS) else PLAIN
    return _coloured(text, colour)


def _failed(status: Status) -> str:
    return ", ".join(result.step for result in status.results if result.verdict not in (Verdict.PASS, Verdict.LEFT_OUT))


def _question(view: View, width: int) -> list[str]:
    if view.is_stopping:
        return [cut(" Stopping: each unit ends the step under way.", width)]
    if view.selected is None:
        latest = f" {view.latest.unit}: {view.latest.step}: {view.latest.verdict.value}" if view.latest else ""
        return [_coloured(cut(latest, width), QUIET), "", *_keys([("q", "stop")], width)]
    others = [("Tab", f"next of {len(view.questions)}")] if len(view.questions) > 1 else []
    return [
        _coloured(cut(f" {view.selected.unit}: {view.selected.step}", width), BOLD),
        *(f" {line}" for line in wrapped(view.selected.text, width - 2)[: ROWS_OF_QUESTION - 5]), "",
        *_keys([*view.selected.answers, *others, ("q", "stop")], width),
    ]


def _keys(keys: Sequence[tuple[str, str]], width: int) -> list[str]:
    """The keys with what each does, in as many rows as they take."""
    rows, length = [""], 0
    for key, meaning in keys:
        meaning = cut(meaning, width - len(key) - 5)
        length += len(key) + len(meaning) + 5
        if length > width:
            rows.append("")
            length = len(key) + len(meaning) + 5
        rows[-1] += f" {INVERSE} {key} {PLAIN} {meaning} "
    return rows


def wrapped(text: str, width: int) -> list[str]:
    """The words of a text in rows; a word that is too long is cut."""
    rows = [""]
    for word in printable(text).split():
        joined = f"{rows[-1]} {word}".strip()
        if len(joined) <= width:
            rows[-1] = joined
        else:
            rows.append(word[:width])
    return [row for row in rows if row] or [""]


def cut(text: str, width: int) -> str:
    """The text in one row."""
    text = printable(text)
    return text if len(text) <= width else f"{text[: max(width - 1, 0)]}…"


def printable(text: str) -> str:
    """The text without characters that would move the cursor."""
    return "".join(each if each.isprintable() else " " for each in text)


def _coloured(text: str, colour: str) -> str:
    return f"{colour}{text}{PLAIN}" if colour != PLAIN else text
