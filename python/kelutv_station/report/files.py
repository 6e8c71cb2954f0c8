"""Files that are replaced as a whole."""

from __future__ import annotations

import os
from pathlib import Path


def replace_file(path: Path, text: str) -> None:
    """Writes the text into the file; whoever reads it sees the old or the new one. Raises OSError.

    What is no UTF-8 is written by the numbers of its bytes.
    """
    new = path.with_name(f"{path.name}.new")
    new.write_text(text, encoding="utf-8", errors="backslashreplace")
    os.replace(new, path)
