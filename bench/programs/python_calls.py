#!/usr/bin/env python3
"""Prints what a call from Python takes, beside the same call of the C function, against a simulated television.

PYTHONPATH names the package of a build, KELUTV_SIMULATOR its simulator. The ways take turns, and each figure is the median
of its rounds.
"""

from __future__ import annotations

import statistics
import sys
import time
from collections.abc import Callable

import kelutv
from kelutv._foreign import ffi
from kelutv._library import library

CALLS = 500


def cost(call: Callable[[], object]) -> float:
    """Of one call, in microseconds."""
    begin = time.perf_counter()
    for _ in range(CALLS):
        call()
    return (time.perf_counter() - begin) / CALLS * 1e6


def ways(television: kelutv.Television, worker: kelutv.Television) -> dict[str, Callable[[], object]]:
    function, get_volume = library().linux_tv_Audio_getVolume, television.audio.get_volume
    with_record, memory = library().linux_tv_Audio_getNRAttr, ffi.from_buffer(bytearray(64))
    return {
        "the C function, numbers": lambda: function(0),
        "in the process, numbers": lambda: get_volume(0),
        "the C function, a record": lambda: with_record(memory),
        "in the process, a record": television.audio.get_nr_attr,
        "by a worker, numbers": lambda: worker.audio.get_volume(0),
    }


def main() -> None:
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 30
    with kelutv.Simulator() as simulator:
        television = kelutv.Television(runtime_dir=simulator.runtime_dir, in_process=True)
        television.connect()
        with simulator.television() as worker:
            calls = ways(television, worker)
            samples: dict[str, list[float]] = {name: [] for name in calls}
            for _ in range(rounds):
                for name, call in calls.items():
                    samples[name].append(cost(call))
    medians = {name: statistics.median(figures) for name, figures in samples.items()}
    for name, median in medians.items():
        own = medians[f"the C function, {name.partition(', ')[2]}"]
        print(f"{name:26} {median:8.2f} us {median - own:+8.2f} us beyond the C function")


if __name__ == "__main__":
    main()
