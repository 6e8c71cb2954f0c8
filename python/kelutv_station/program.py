"""kelutv-station: tests televisions side by side, by a plan."""

from __future__ import annotations

import argparse
import signal
import sys
from collections.abc import Sequence
from contextlib import closing
from dataclasses import replace
from pathlib import Path

from kelutv_station.connecting import connect
from kelutv_station.conversation import Conversation
from kelutv_station.plan.checking import ReadyPlan, ready_plan
from kelutv_station.plan.interface import Interface
from kelutv_station.plan.plan import Plan, PlanError, Unit, asks_operator
from kelutv_station.plan.reading import read_plan
from kelutv_station.report.files import replace_file
from kelutv_station.report.junit import junit
from kelutv_station.report.lines import counted, json_lines, summary
from kelutv_station.report.outline import Outline, outline_of
from kelutv_station.report.page import page
from kelutv_station.run.journal import Journal, JournalError
from kelutv_station.run.performing import Equipment
from kelutv_station.run.questions import Questions
from kelutv_station.run.station import Station
from kelutv_station.saying import say
from kelutv_station.screen.attending import Lines, Screen, has_terminal
from kelutv_station.tool import Tool

PASSED, NOT_PASSED, WRONG_USE, UNFINISHED = 0, 1, 2, 5
EPILOGUE = """exit codes:
  0  every unit passed
  1  a unit did not pass, or the run could not be written down
  2  wrong use, or a plan that is wrong; no unit was touched
  5  stopped before all units were through; --resume goes on
"""


class PrintVersion(argparse.Action):
    """Prints the version, and ends."""

    def __call__(self, parser: argparse.ArgumentParser, *_: object) -> None:
        from importlib.metadata import version  # It takes a quarter of the time in which the program starts.

        say(version("kelutv"), sys.stdout)
        parser.exit()


def parser() -> argparse.ArgumentParser:
    """The command line."""
    result = argparse.ArgumentParser(
        "kelutv-station", description="Tests televisions side by side, by a plan.", epilog=EPILOGUE,
        formatter_class=argparse.RawDescriptionHelpFormatter, allow_abbrev=False)
    result.add_argument("--version", action=PrintVersion, nargs=0, help="print the version")
    result.add_argument("plan", type=Path, metavar="PLAN", help="what is done with each unit: PLAN.toml, or PLAN.py with PLAN")
    result.add_argument(
        "--unit", action="append", default=[], metavar="SERIAL=DIRECTORY",
        help="a unit by its serial number, and the runtime directory in which its service is found; may be given again, and "
        "takes the place of the plan's unit of this serial number")
    result.add_argument(
        "-o", "--output", type=Path, metavar="DIRECTORY", help="journal and results; else the plan's name with .run")
    result.add_argument("--resume", action="store_true", help="go on with the run that is in the output directory")
    result.add_argument("--html", type=Path, metavar="FILE", help="write one page with yield, failures and measured values")
    result.add_argument("--lines", action="store_true", help="print a line a result, and no screen")
    result.add_argument("--check", action="store_true", help="say whether the plan can be carried out, and touch no unit")
    return result


def main(arguments: Sequence[str] | None = None) -> int:
    """Runs the program; gives its exit code."""
    options = parser().parse_args(arguments)
    try:
        return _run(options)
    except PlanError as error:
        return _complain(error, WRONG_USE)
    except JournalError as error:
        return _complain(error, NOT_PASSED)
    except OSError as error:
        return _complain(f"{error.filename}: {error.strerror}", NOT_PASSED)


def _complain(error: object, code: int) -> int:
    say(f"kelutv-station: {error}", sys.stderr)
    return code


def _run(options: argparse.Namespace) -> int:
    plan = with_units(read_plan(options.plan), options.unit)
    tool = Tool()
    with closing(Conversation(tool)) as conversation:
        ready = ready_plan(plan, Interface(conversation))
    if options.check:
        contents = f"{counted(len(plan.steps), 'step')}, {counted(len(plan.units), 'unit')}"
        say(f"{plan.place}: {contents}; nothing is wrong", sys.stdout)
        return PASSED
    if options.html and not options.html.absolute().parent.is_dir():
        raise PlanError(f"--html {options.html}: there is no directory {options.html.parent}")
    with_screen = has_terminal() and not options.lines
    _require_operator(ready.plan, with_screen)
    output = options.output or Path(f"{options.plan.stem}.run")
    journal = Journal(output / "journal.jsonl", ready.plan, resume=options.resume)
    try:
        _carry_out(ready, journal, tool, output, Screen() if with_screen else Lines())
        return _report(ready.plan, journal, output, options.html)
    finally:
        journal.close()


def with_units(plan: Plan, words: Sequence[str]) -> Plan:
    """The plan with the units of the command line, each in the place of the plan's own of its serial number."""
    units = {unit.serial: unit for unit in plan.units}
    for word in words:
        serial, sign, folder = word.partition("=")
        if not (serial and sign and folder):
            raise PlanError(f"--unit {word}: must be SERIAL=DIRECTORY")
        units[serial] = replace(units.get(serial, Unit(serial, folder)), runtime_dir=folder)
    return replace(plan, units=tuple(units.values()))


def _require_operator(plan: Plan, with_screen: bool) -> None:
    for step in plan.steps:
        if asks_operator(step) and not with_screen:
            raise PlanError(
                f"{plan.place_of(step)}: asks the operator; standard input and output must be a terminal, without --lines")


def _carry_out(ready: ReadyPlan, journal: Journal, tool: Tool, output: Path, attendant: Lines | Screen) -> None:
    questions = Questions(attendant.questions_changed)
    station = Station(ready, journal, Equipment(connect, questions, tool, output / "snapshots"), attendant.report)
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda *_: station.stop())
    attendant.attend(station, ready.plan, questions)


def _report(plan: Plan, journal: Journal, output: Path, html: Path | None) -> int:
    outline = outline_of(plan, [result for history in journal.histories.values() for result in history.results.values()])
    replace_file(output / "results.jsonl", json_lines(outline))
    replace_file(output / "junit.xml", junit(outline))
    if html:
        replace_file(html, page(outline))
    say(summary(outline), sys.stdout)
    return _exit_code(outline, output)


def _exit_code(outline: Outline, output: Path) -> int:
    if not all(unit.is_complete for unit in outline.units):
        say(f"kelutv-station: stopped; --resume goes on with {output}", sys.stderr)
        return UNFINISHED
    return PASSED if outline.passed == len(outline.units) else NOT_PASSED
