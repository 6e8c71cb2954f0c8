"""What is to be closed when it is no longer wanted."""

from __future__ import annotations

from typing import Self


class Closing:
    """Closes itself at the end of a `with`."""

    def close(self) -> None:
        """Ends what it holds."""
        raise NotImplementedError

    def __enter__(self) -> Self:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()
