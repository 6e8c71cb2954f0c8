"""A run as one page that stands alone."""

from __future__ import annotations

from html import escape

from kelutv_station.report.lines import counted, cut, percent
from kelutv_station.report.outline import Distribution, Outline, UnitOutline
from kelutv_station.report.svg import picture
from kelutv_station.run.results import Result, Verdict

STYLE = """
:root { color-scheme: light dark; --text: #1c2733; --quiet: #5b6977; --line: #d5dce3; --back: #fff; --panel: #f4f6f8;
  --good: #1b7f4b; --bad: #c0322b; --odd: #9a6700; --bar: #3f76b5; }
@media (prefers-color-scheme: dark) { :root { --text: #e4e9ee; --quiet: #9aa7b4; --line: #3a4552; --back: #161b21;
  --panel: #1f262e; --good: #4cc38a; --bad: #ff7b72; --odd: #e3b341; --bar: #6ea8e6; } }
* { box-sizing: border-box; }
body { margin: 0 auto; max-width: 72rem; padding: 1.5rem 1rem 3rem; font: 16px/1.5 system-ui, sans-serif;
  color: var(--text); background: var(--back); }
h1 { font-size: 1.5rem; margin: 0 0 1rem; } h2 { font-size: 1.15rem; margin: 2.2rem 0 .8rem; }
.figures { display: flex; flex-wrap: wrap; gap: 1rem; margin-bottom: 1rem; }
.figure { flex: 1 1 9rem; padding: .8rem 1rem; border-radius: .5rem; background: var(--panel); }
.figure b { display: block; font-size: 1.8rem; line-height: 1.2; } .figure span, .note { color: var(--quiet); }
.scroll { overflow-x: auto; } table { width: 100%; border-collapse: collapse; }
th, td { padding: .4rem .7rem .4rem 0; text-align: left; vertical-align: top; border-bottom: 1px solid var(--line); }
th { font-weight: 600; color: var(--quiet); } td.number, th.number { text-align: right; font-variant-numeric: tabular-nums; }
.pass { color: var(--good); } .fail, .error { color: var(--bad); } .unknown, .left-out { color: var(--odd); }
.verdict { font-weight: 600; white-space: nowrap; }
td a { white-space: nowrap; }
.share { height: .7rem; margin-top: .4rem; min-width: 6rem; border-radius: .35rem; background: var(--panel); overflow: hidden; }
.share i { display: block; height: 100%; background: var(--bad); } .share.good i { background: var(--good); }
.pictures { display: grid; gap: 1rem; grid-template-columns: repeat(auto-fill, minmax(min(100%, 21rem), 1fr)); }
figure { margin: 0; padding: .8rem 1rem; border-radius: .5rem; background: var(--panel); } svg { width: 100%; height: auto; }
svg text { font: 11px system-ui, sans-serif; fill: var(--quiet); } .bar { fill: var(--bar); }
.axis { stroke: var(--quiet); } .bound { stroke: var(--bad); stroke-dasharray: 4 3; }
details { margin: .4rem 0; } summary { cursor: pointer; }
"""


def page(outline: Outline) -> str:
    """The page as HTML; it needs no other file."""
    parts = [_figures(outline), _units(outline), _failures(outline), _distributions(outline), _details(outline)]
    title = escape(outline.title)
    return (
        f'<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8"><title>{title}</title>'
        f'<meta name="viewport" content="width=device-width, initial-scale=1"><style>{STYLE}</style></head>\n'
        f"<body><h1>{title}</h1>\n{''.join(parts)}</body></html>\n"
    )


def _figures(outline: Outline) -> str:
    total, failed = len(outline.units), sum(outline.failures.values())
    figures = [
        (percent(outline.passed, total), "yield"),
        (f"{outline.passed} of {total}", "units passed"),
        (str(failed), "steps not passed"),
        (f"{max((unit.seconds for unit in outline.units), default=0):.1f} s", "slowest unit"),
    ]
    boxes = "".join(f'<div class="figure"><b>{value}</b><span>{name}</span></div>' for value, name in figures)
    return f'<div class="figures">{boxes}</div>{_share(outline.passed, total, "share good")}\n'


def _share(part: int, whole: int, style: str) -> str:
    return f'<span class="{style}" style="display:block"><i style="width:{100 * part / whole if whole else 0:.1f}%"></i></span>'


def _units(outline: Outline) -> str:
    rows = "".join(_unit_row(unit) for unit in outline.units)
    return _section("Units", _table(("unit", "verdict", "what kept it from passing", "# seconds"), rows))


def _unit_row(unit: UnitOutline) -> str:
    reasons = "<br>".join(f"<b>{escape(result.step)}</b>: {escape(result.reason)}" for result in unit.failures)
    rest = sum(result.verdict is Verdict.LEFT_OUT for result in unit.results)
    note = f'<span class="note">{"<br>" if reasons else ""}{rest} left out behind it</span>' if rest else ""
    incomplete = "" if unit.is_complete else ' <span class="note">has not ended</span>'
    return (
        f'<tr><td><a href="#{_anchor(unit)}">{escape(unit.serial)}</a></td><td>{_verdict(unit.verdict)}{incomplete}</td>'
        f'<td>{reasons}{note}</td><td class="number">{unit.seconds:.1f}</td></tr>'
    )


def _failures(outline: Outline) -> str:
    if not outline.failures:
        return _section("Failures by step", '<p class="note">none</p>')
    total = len(outline.units)
    rows = "".join(
        f'<tr><td>{escape(step)}</td><td class="number">{count}</td><td>{_share(count, total, "share")}</td></tr>'
        for step, count in sorted(outline.failures.items(), key=lambda each: -each[1])
    )
    return _section("Failures by step", _table(("step", "# units", "of all units"), rows))


def _distributions(outline: Outline) -> str:
    figures = "".join(_distribution(each) for each in outline.distributions)
    return _section("Measured values", f'<div class="pictures">{figures}</div>' if figures else '<p class="note">none</p>')


def _distribution(distribution: Distribution) -> str:
    values, capability, unit = distribution.values, distribution.capability, escape(distribution.limit.unit)
    numbers = [
        counted(len(values), "value"), f"{min(values):.4g} to {max(values):.4g} {unit}".strip(),
        f"mean {distribution.mean:.4g}", f"σ {distribution.deviation:.3g}",
        *([f"Cpk {capability:.2f}"] if capability is not None else []),
    ]
    name = "" if distribution.name == "result" else f", {escape(distribution.name)}"
    return (
        f"<figure><figcaption><b>{escape(distribution.step)}</b>{name}</figcaption>{picture(distribution)}"
        f'<div class="note">{" · ".join(numbers)}</div></figure>'
    )


def _details(outline: Outline) -> str:
    parts = []
    for unit in outline.units:
        rows = "".join(_result_row(result) for result in unit.results)
        table = _table(("step", "verdict", "measured", "limit", "reason", "# seconds"), rows)
        shown = "" if unit.verdict is Verdict.PASS else " open"
        head = f"<summary>{escape(unit.serial)} {_verdict(unit.verdict)}</summary>"
        parts.append(f'<details id="{_anchor(unit)}"{shown}>{head}{table}</details>')
    return _section("Every step", "".join(parts))


def _result_row(result: Result) -> str:
    values = "<br>".join(f"{escape(each.name)} {escape(cut(each.text()))}" for each in result.measurements)
    limits = "<br>".join(escape(each.limit.text()) or "–" for each in result.measurements)
    again = f' <span class="note">attempt {result.attempt}</span>' if result.attempt > 1 else ""
    return (
        f"<tr><td>{escape(result.step)}{again}</td><td>{_verdict(result.verdict)}</td><td>{values}</td><td>{limits}</td>"
        f'<td>{escape(result.reason)}</td><td class="number">{result.seconds:.3f}</td></tr>'
    )


def _verdict(verdict: Verdict) -> str:
    return f'<span class="verdict {verdict.value.replace(" ", "-")}">{verdict.value}</span>'


def _anchor(unit: UnitOutline) -> str:
    return f"unit-{''.join(f'{ord(each):x}-' if not each.isalnum() else each for each in unit.serial)}"


def _table(heads: tuple[str, ...], rows: str) -> str:
    cells = "".join(f'<th class="number">{head[2:]}</th>' if head.startswith("# ") else f"<th>{head}</th>" for head in heads)
    return f'<div class="scroll"><table><thead><tr>{cells}</tr></thead><tbody>{rows}</tbody></table></div>'


def _section(title: str, content: str) -> str:
    return f"<section><h2>{title}</h2>{content}</section>\n"
