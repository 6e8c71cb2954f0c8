"""The figures of a run as a picture."""

from __future__ import annotations

import hashlib
import io
from collections.abc import Callable
from pathlib import Path
from typing import Any

from figures import BenchError, Figures, text_of
from tables import in_order, size

SERIES = {"library": "#1f77b4", "bare": "#7f7f7f"}
BARS = {"bare": "bare exchange", "set_volume": "set volume", "sd_bus": "sd-bus", "grpc": "gRPC"}


def digest_of(document: Figures) -> str:
    """What a picture says of the figures that it shows."""
    return hashlib.sha256(text_of(document).encode()).hexdigest()


def draw_bars(axes: Any, values: dict[str, float], form: str, title: str) -> None:
    colors = [SERIES["library" if kind == "set_volume" else "bare"] for kind in values]
    bars = axes.bar([BARS[kind] for kind in values], list(values.values()), color=colors)
    axes.bar_label(bars, [form.format(value) for value in values.values()])
    axes.set(title=title)
    axes.margins(y=0.15)


def draw_calls(axes: Any, calls: Figures) -> None:
    here = calls["same_core"]
    values = {kind: here[kind]["p50_us"] for kind in BARS if kind in here}
    draw_bars(axes, values, "{:.1f}", "One call, both sides on one core (us)")


def draw_instructions(axes: Any, counted: Figures) -> None:
    here = counted["sockets"]["calls"]
    values = {kind: here[kind]["instructions"] for kind in BARS if kind in here}
    draw_bars(axes, values, "{:,}", "Instructions of one call, both sides and the kernel")


def draw_lines(axes: Any, counts: Figures, unit: str, title: str, across: str) -> None:
    order = in_order(counts)
    places = [int(count) for count in order]
    for series, color in SERIES.items():
        values = [counts[count][f"{series}_{unit}"] for count in order]
        axes.plot(places, values, "o-", color=color, label=series)
    axes.set(title=title, xlabel=across, xscale="log")
    axes.set_xticks(places, order, minor=False)
    axes.minorticks_off()
    axes.legend()


def draw_threads(axes: Any, counts: Figures) -> None:
    draw_lines(axes, counts, "calls_per_s", "Calls a second, by threads", "threads")
    axes.set_ylim(bottom=0)


def draw_clients(axes: Any, counts: Figures) -> None:
    draw_lines(axes, counts, "calls_per_s", "Calls a second, by client processes", "processes")
    axes.set_ylim(bottom=0)


def draw_replies(axes: Any, replies: Figures) -> None:
    draw_lines(axes, replies, "us", "One call, by size of its reply (us)", "size")
    order = in_order(replies)
    axes.set_xticks([int(bytes_) for bytes_ in order], [size(int(bytes_)) for bytes_ in order], rotation=30)
    axes.set_yscale("log")


def draw_events(axes: Any, events: Figures) -> None:
    draw_lines(axes, events["all_fast"], "events_per_s", "Events a second, by listeners", "listeners")
    slow = events.get("one_slow", {})
    order = in_order(slow)
    values = [slow[count]["library_events_per_s"] for count in order]
    axes.plot([int(count) for count in order], values, "o--", color=SERIES["library"], label="library, one is slow")
    axes.set_yscale("log")
    axes.legend()


def draw_first_answer(axes: Any, first: Figures) -> None:
    kinds = list(SERIES)
    before = [first[kind]["exec_to_main_us"] for kind in kinds]
    behind = [first[kind]["main_to_answer_us"] for kind in kinds]
    axes.bar(kinds, before, color="#aec7e8", label="start to main")
    axes.bar(kinds, behind, bottom=before, color=SERIES["library"], label="main to the answer")
    axes.set(title="The first call of a process (us)")
    axes.legend()


DRAWN: dict[str, Callable[[Any, Figures], None]] = {
    "calls": draw_calls,
    "instructions": draw_instructions,
    "threads": draw_threads,
    "clients": draw_clients,
    "replies": draw_replies,
    "events": draw_events,
    "first_answer": draw_first_answer,
}
COLUMNS = 2


def draw(document: Figures) -> str:
    """An SVG of all measurements that were made and can be drawn; the same for the same figures."""
    try:
        import matplotlib
    except ImportError:
        raise BenchError("matplotlib is missing (scripts/setup bench), so that there is no picture") from None
    matplotlib.use("svg")
    matplotlib.rcParams.update({"svg.hashsalt": "kelutv", "svg.fonttype": "none", "font.size": 9})
    from matplotlib import pyplot

    drawn = [name for name in DRAWN if name in document["figures"]]
    rows = -(-max(len(drawn), 1) // COLUMNS)
    figure, grid = pyplot.subplots(rows, COLUMNS, figsize=(10, 3.2 * rows), squeeze=False, layout="constrained")
    places = list(grid.flat)
    for name, axes in zip(drawn, places):
        DRAWN[name](axes, document["figures"][name])
    for axes in places[len(drawn) :]:
        axes.set_axis_off()
    text = io.StringIO()
    figure.savefig(text, format="svg", metadata={"Date": None, "Description": digest_of(document)})
    return text.getvalue()


def write(path: Path, document: Figures) -> None:
    path.write_text(draw(document), encoding="utf-8")
