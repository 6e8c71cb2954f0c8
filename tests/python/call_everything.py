"""Calls every function of the package once."""

from __future__ import annotations

import sys
from pathlib import Path

sys.path[:0] = [str(Path(__file__).resolve().parent)]

import kelutv  # noqa: E402
from samples import arguments, functions  # noqa: E402


def main() -> None:
    television = kelutv.Television(in_process=True)
    for row in functions():
        module, name = row[1].split(".")
        function = getattr(getattr(television, module), name)
        original = getattr(getattr(television, module), row[0].rsplit("::", 1)[-1])
        if original.__func__ is not function.__func__:
            raise AssertionError(f"{row[0]} and {row[1]} are two functions")
        try:
            function(*arguments(row)[0])
        except kelutv.TelevisionError as error:
            # Such an answer is no success for all of them; what was sent is what counts.
            if isinstance(error, (kelutv.LinkLost, kelutv.NoService)):
                raise


if __name__ == "__main__":
    main()
