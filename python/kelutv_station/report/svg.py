"""Distributions of measured values as pictures."""

from __future__ import annotations

import math
from html import escape

from kelutv_station.report.outline import Distribution

WIDTH, HEIGHT = 420, 150
LEFT, RIGHT, TOP, BASE = 34, 12, 22, 118
MOST_BARS = 24


def picture(distribution: Distribution) -> str:
    """A histogram with the bounds as dashed lines, as an SVG element."""
    low, high = span_of(distribution)
    counts = counts_of(distribution.values, low, high)
    most = max(counts)
    scale = (WIDTH - LEFT - RIGHT) / (high - low)
    bars = "".join(_bar(number, count, len(counts), most) for number, count in enumerate(counts) if count)
    bounds = "".join(
        _bound(LEFT + (bound - low) * scale, f"{sign} {bound:g}", anchor)
        for bound, sign, anchor in (
            (distribution.limit.low, "≥", "start"), (distribution.limit.high, "≤", "end"),
            (_wanted(distribution), "=", "middle"))
        if bound is not None
    )
    label = escape(f"{distribution.step}, {distribution.name}: {len(distribution.values)} values")
    return (
        f'<svg viewBox="0 0 {WIDTH} {HEIGHT}" role="img" aria-label="{label}">'
        f'<line class="axis" x1="{LEFT}" y1="{BASE}" x2="{WIDTH - RIGHT}" y2="{BASE}"/>{bars}{bounds}'
        f"{_text(LEFT - 6, TOP + 4, str(most), 'end')}{_text(LEFT - 6, BASE, '0', 'end')}"
        f"{_text(LEFT, BASE + 16, f'{low:.4g}', 'start')}{_text(WIDTH - RIGHT, BASE + 16, f'{high:.4g}', 'end')}</svg>"
    )


def span_of(distribution: Distribution) -> tuple[float, float]:
    """The least and the greatest of values and bounds, with something of room around."""
    limit = distribution.limit
    points = [*distribution.values, *(bound for bound in (limit.low, limit.high, _wanted(distribution)) if bound is not None)]
    least, greatest = min(points), max(points)
    room = (greatest - least) / 20 or max(abs(least) / 20, 0.5)
    return least - room, greatest + room


def counts_of(values: tuple[float, ...], low: float, high: float) -> list[int]:
    """How many values each bar has, of as many bars as the values bear."""
    bars = min(max(math.ceil(math.sqrt(len(values))) * 2, 8), MOST_BARS)
    counts = [0] * bars
    for value in values:
        counts[min(int((value - low) / (high - low) * bars), bars - 1)] += 1
    return counts


def _wanted(distribution: Distribution) -> float | None:
    equals = distribution.limit.equals
    return float(equals) if isinstance(equals, (int, float)) and not isinstance(equals, bool) else None


def _bar(number: int, count: int, bars: int, most: int) -> str:
    width, height = (WIDTH - LEFT - RIGHT) / bars, (BASE - TOP) * count / most
    return (
        f'<rect class="bar" x="{LEFT + number * width + 0.5:.1f}" y="{BASE - height:.1f}" width="{width - 1:.1f}" '
        f'height="{height:.1f}"><title>{count}</title></rect>'
    )


def _bound(x: float, text: str, anchor: str) -> str:
    return f'<line class="bound" x1="{x:.1f}" y1="{TOP - 6}" x2="{x:.1f}" y2="{BASE}"/>{_text(x, TOP - 10, text, anchor)}'


def _text(x: float, y: float, text: str, anchor: str) -> str:
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}">{text}</text>'
