"""The figures of a run: read from the lines that kelutv-bench prints, kept as a document of JSON."""

from __future__ import annotations

import json
import os
import platform
import re
from collections.abc import Iterable
from pathlib import Path
from typing import Any

ROOT = Path(__file__).resolve().parent.parent.parent

Figures = dict[str, Any]
LINE = re.compile(r"([a-z0-9_]+(?:/[a-z0-9_]+)+) (\S+)")


class BenchError(Exception):
    """Why there are no figures."""


def read_lines(lines: Iterable[str]) -> Figures:
    """Figures by the parts of their paths. Every line must be one."""
    figures: Figures = {}
    for line in lines:
        match = LINE.fullmatch(line.strip())
        if not match:
            raise BenchError(f"kelutv-bench has printed a line that is no figure: {line!r}")
        *rooms, name = match[1].split("/")
        place = figures
        for room in rooms:
            place = place.setdefault(room, {})
        place[name] = float(match[2])
    return figures


def first_match(path: str, pattern: str) -> str:
    try:
        text = Path(path).read_text(encoding="utf-8")
    except OSError:
        text = ""
    match = re.search(pattern, text, re.MULTILINE)
    return match[1].strip() if match else "unknown"


def computer() -> dict[str, Any]:
    """Where the figures were measured."""
    return {
        "processor": first_match("/proc/cpuinfo", r"^model name\s*:\s*(.*)$"),
        "cores": os.cpu_count(),
        "memory_gib": round(os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30),
        "virtual": "hypervisor" in first_match("/proc/cpuinfo", r"^flags\s*:\s*(.*)$").split(),
        "system": first_match("/etc/os-release", r'^PRETTY_NAME="?([^"\n]*)'),
        "kernel": platform.release().split("-")[0],
    }


def document_of(figures: Figures, extent: str) -> Figures:
    return {"computer": computer(), "extent": extent, "figures": figures}


def text_of(document: Figures) -> str:
    return json.dumps(document, indent=2) + "\n"


def load(path: Path) -> Figures:
    try:
        document = json.loads(path.read_text(encoding="utf-8"))
    except (OSError, ValueError) as error:
        raise BenchError(f"{path}: {error}") from None
    if not isinstance(document, dict) or not {"computer", "extent", "figures"} <= document.keys():
        raise BenchError(f"{path} holds no figures; scripts/bench writes such files")
    return document
