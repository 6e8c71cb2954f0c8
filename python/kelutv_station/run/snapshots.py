"""Snapshots of units, taken and compared by the tool."""

from __future__ import annotations

import os
from pathlib import Path
from typing import Any
from urllib.parse import quote

from kelutv_station.plan.plan import Snapshot, Unit
from kelutv_station.tool import Tool, ToolError

MANY_ANSWERS = 60


def compare_with_golden(tool: Tool, unit: Unit, step: Snapshot, folder: Path, limit: float, most: float) -> list[str]:
    """Takes a snapshot into the folder and says in what it differs from the golden one, a text a state.

    `limit` is how long one answer may take, `most` how long the snapshot, in seconds. Raises ToolError.
    """
    folder.mkdir(exist_ok=True)
    taken = folder / f"{_file_name(unit.serial)}.{_file_name(step.name)}.json"
    taken.unlink(missing_ok=True)
    environment = {"KQDROID_RUNTIME_DIR": os.path.abspath(unit.runtime_dir)}
    if unit.level is not None:
        environment["KQDROID_BINDER_LEVEL"] = str(unit.level)
    tool.run(
        "snapshot", "-o", str(taken), "--limit", f"{limit:g}", environment=environment,
        patience=min(limit * MANY_ANSWERS, most))
    if not taken.exists():
        raise ToolError(f"no snapshot of {unit.serial} could be taken")
    ignore = [word for state in step.ignore for word in ("--ignore", state)]
    settings = ["--settings"] if step.settings else []
    answer = tool.run("snapshot", "diff", *settings, *ignore, str(step.golden), str(taken), allowed=(0, 1))
    differences = [_text(document) for document in answer.documents if "state" in document]
    if answer.code != bool(differences):
        raise ToolError(f"the tool's exit code is {answer.code}, with {len(differences)} differences")
    return differences


def _file_name(text: str) -> str:
    """The text as part of a file's name, another one for each text."""
    return quote(text, safe="").replace(".", "%2E")


def _text(difference: dict[str, Any]) -> str:
    return f"{difference['state']}: {difference['first']} -> {difference['second']}"
