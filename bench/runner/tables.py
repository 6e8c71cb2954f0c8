"""The figures of a run as tables of Markdown, and as the section of a page."""

from __future__ import annotations

from collections.abc import Callable, Iterable
from pathlib import Path
from typing import Any

from figures import BenchError, Figures

BEGIN = "<!-- measured by scripts/bench -->\n"
END = "<!-- end of what was measured -->\n"

KINDS = {
    "bare": "bare exchange",
    "invoke": "a finished request through `BpTVBaseService::invoke`",
    "set_volume": "`linux_tv_Audio_setVolume`",
    "parcel_set": "a call that sends a parcel",
    "sd_bus": "sd-bus, peer to peer",
    "grpc": "gRPC over a Unix socket",
    "bare_item": "bare exchange of 1 KiB",
    "item_read": "a read of 255 ints",
}
TRANSPORTS = {"sockets": "sockets", "driver": "the kernel's driver"}
PLACES = {"same_core": "one core", "two_cores": "a core for each side"}


def number(value: float) -> str:
    """Three digits; whole numbers have all of theirs."""
    if abs(value) >= 100 or value == int(value):
        return f"{round(value):,}"
    return f"{value:#.3g}"


def ratio(value: float) -> str:
    return f"{value:.2f}"


def size(value: float) -> str:
    if value < 1024:
        return f"{value:.0f} bytes"
    return f"{value / 1024:.0f} KiB"


def table(head: list[str], rows: list[list[str]]) -> str:
    lines = [head, ["---", *("---:" for _ in head[1:])], *rows]
    return "".join(f"| {' | '.join(cells)} |\n" for cells in lines)


def calls_table(calls: Figures) -> str:
    places = [place for place in PLACES if place in calls]
    head = ["one call at a time"]
    for place in places:
        head += [PLACES[place], "/ bare"]
    rows = []
    for kind in (kind for kind in KINDS if kind in calls[places[0]]):
        cells = [KINDS[kind]]
        for place in places:
            figures = calls[place][kind]
            cells += [f"{number(figures['p50_us'])} us", ratio(figures["ratio_to_bare"])]
        rows.append(cells)
    return table(head, rows)


def instructions_table(counted: Figures) -> str:
    """A row for each kind of call, and one for the first; peers go over sockets alone."""
    head = ["instructions of a call, both sides and the kernel"]
    for transport in TRANSPORTS:
        head += [TRANSPORTS[transport], "/ bare"]
    rows = []
    for kind in (kind for kind in KINDS if kind in counted["sockets"]["calls"]):
        cells = [KINDS[kind]]
        for transport in TRANSPORTS:
            figures = counted[transport]["calls"].get(kind)
            cells += [number(figures["instructions"]), ratio(figures["ratio_to_bare"])] if figures else ["", ""]
        rows.append(cells)
    cells = ["`main` to the first answer"]
    for transport in TRANSPORTS:
        cells += [number(counted[transport]["first_answer"]["library"]), ""]
    return table(head, [*rows, cells])


def in_order(counts: Figures) -> list[str]:
    return sorted(counts, key=int)


def rates_table(head: str, counts: Figures) -> str:
    rows = [
        [
            count,
            number(counts[count]["library_calls_per_s"]),
            number(counts[count]["bare_calls_per_s"]),
            ratio(counts[count]["ratio_to_bare"]),
        ]
        for count in in_order(counts)
    ]
    return table([head, "calls a second", "bare pairs", "/ bare"], rows)


def replies_table(replies: Figures) -> str:
    rows = [
        [
            size(int(bytes_)),
            f"{number(replies[bytes_]['library_us'])} us",
            f"{number(replies[bytes_]['bare_us'])} us",
            ratio(replies[bytes_]["ratio_to_bare"]),
        ]
        for bytes_ in in_order(replies)
    ]
    return table(["reply", "call", "bare exchange", "/ bare"], rows)


def events_table(events: Figures) -> str:
    all_fast, one_slow = events["all_fast"], events.get("one_slow", {})
    rows = []
    for count in in_order(all_fast):
        cells = [count]
        for figures in (all_fast.get(count), one_slow.get(count)):
            cells += (
                [number(figures["library_events_per_s"]), ratio(figures["ratio_to_bare"])] if figures else ["", ""]
            )
        rows.append(cells)
    return table(["listeners", "events a second", "/ bare", "one of them slow", "/ bare"], rows)


def first_answer_part(first: Figures) -> str:
    words = {"library": "`linux_tv_Audio_setVolume`", "bare": "a connection and a bare exchange"}
    rows = [
        [words[kind], f"{number(first[kind]['exec_to_main_us'])} us", f"{number(first[kind]['main_to_answer_us'])} us"]
        for kind in words
    ]
    library = first["library"]
    return (
        table(["the first call of a process", "start to `main`", "`main` to the answer"], rows) + "\n"
        f"Of the time from `main` to the answer {number(max(library['loader_part_us'], 0))} us are the loader's, which "
        f"looks for {number(library['look_ups_before_main'])}\nsymbols before `main` and for "
        f"{number(library['look_ups'] - library['look_ups_before_main'])} more to the end of the program.\n"
    )


def idle_words(idle: Figures) -> str:
    return (
        f"A client that is connected and calls nothing costs the service {number(idle['memory_kib_per_client'])} KiB, "
        f"{number(idle['descriptors_per_client'])} descriptors and\n{number(idle['threads_per_client'])} threads, "
        f"measured with {idle['clients']:.0f} of them.\n"
    )


def recorded_words(recorded: Figures) -> str:
    return (
        f"A call that is recorded takes {number(recorded['recorded_call_us'])} us where one that is not takes "
        f"{number(recorded['call_us'])} us, both by turns in one run.\n"
    )


PARTS: dict[str, Callable[[Figures], str]] = {
    "calls": calls_table,
    "instructions": instructions_table,
    "threads": lambda counts: rates_table("threads", counts),
    "clients": lambda counts: rates_table("client processes", counts),
    "replies": replies_table,
    "events": events_table,
    "first_answer": first_answer_part,
    "idle": idle_words,
    "recorded_calls": recorded_words,
}
# The pages that show figures, and of which measurements.
PAGES = {"README.md": ("calls", "instructions", "threads", "first_answer", "idle"), "docs/speed.md": tuple(PARTS)}


def computer_words(computer: dict[str, Any]) -> str:
    kind = "a virtual machine" if computer["virtual"] else "a computer"
    return (
        f"Medians on {kind} with {computer['cores']} cores ({computer['processor']}), {computer['memory_gib']} GiB, "
        f"{computer['system']},\nLinux {computer['kernel']}:\n"
    )


def text_of(document: Figures, names: Iterable[str]) -> str:
    """Tables of these measurements, as far as they were made, below a line that says where."""
    figures = document["figures"]
    parts = [PARTS[name](figures[name]) for name in names if name in figures]
    return "\n".join([computer_words(document["computer"]), *parts])


def section_of(page: str) -> tuple[int, int]:
    """Where the figures of a page begin and end."""
    begin, end = page.find(BEGIN), page.find(END)
    if begin < 0 or end < begin:
        raise BenchError(f"the page has no place for figures, between {BEGIN.strip()} and {END.strip()}")
    return begin + len(BEGIN), end


def put_into_pages(root: Path, document: Figures) -> None:
    """Writes the figures of all pages anew."""
    for name, names in PAGES.items():
        page = root / name
        text = page.read_text(encoding="utf-8")
        begin, end = section_of(text)
        page.write_text(text[:begin] + text_of(document, names) + text[end:], encoding="utf-8")
