#!/usr/bin/env python3
"""Makes the wheel of the package kelutv, with the client library and the stand-ins of the platform in it.

    make_wheel.py INSTALLED LIBDIR TAG TIME OUTPUT    what is installed of the components python, runtime and platform,
                                                      their folder of libraries, the platform's name in a wheel
                                                      (linux_x86_64), seconds that all files carry, the folder it is put in

Of the same files it has the same bytes. Prints its path.
"""

from __future__ import annotations

import base64
import hashlib
import sys
import time
import zipfile
from pathlib import Path

PACKAGES = Path("lib/python3/dist-packages")
GENERATOR = "kelutvbaseclient"


def wheel_file(tag: str) -> bytes:
    lines = ["Wheel-Version: 1.0", f"Generator: {GENERATOR}", "Root-Is-Purelib: false", f"Tag: {tag}"]
    return ("\n".join(lines) + "\n").encode()


def libraries(folder: Path) -> dict[str, bytes]:
    """Every library under the name that others need it by."""
    wanted = [path for path in sorted(folder.glob("lib*.so*")) if path.is_symlink() or path.name.endswith(".so")]
    return {f"kelutv/lib/{path.name}": path.read_bytes() for path in wanted}


def contents(installed: Path, libdir: str, tag: str) -> tuple[str, dict[str, bytes]]:
    """The folder of metadata, and all files by their paths."""
    root = installed / PACKAGES
    (metadata,) = (path.name for path in root.glob("kelutv-*.dist-info"))
    found = {
        str(path.relative_to(root)): path.read_bytes()
        for path in root.rglob("*")
        if path.is_file() and path.relative_to(root).parts[0].split("-")[0] in ("kelutv", "kelutv_station", "pytest_kelutv")
    }
    # A wheel is one distribution: what the plugin of pytest says of itself is said by that of the package.
    entries = [found.pop(name) for name in sorted(found) if name.endswith(".dist-info/entry_points.txt")]
    found = {name: data for name, data in found.items() if not name.startswith("pytest_kelutv-")}
    found |= libraries(installed / libdir)
    found[f"{metadata}/entry_points.txt"] = b"\n".join(entries)
    found[f"{metadata}/WHEEL"] = wheel_file(tag)
    return metadata, found


def record(metadata: str, files: dict[str, bytes]) -> bytes:
    """What is in the wheel, with hashes and sizes."""
    lines = []
    for name, data in sorted(files.items()):
        digest = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).rstrip(b"=").decode()
        lines.append(f"{name},sha256={digest},{len(data)}")
    return ("\n".join([*lines, f"{metadata}/RECORD,,"]) + "\n").encode()


def write(path: Path, files: dict[str, bytes], seconds: int) -> None:
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name, data in sorted(files.items()):
            member = zipfile.ZipInfo(name, time.gmtime(seconds)[:6])
            member.compress_type = zipfile.ZIP_DEFLATED
            member.create_system = 3
            member.external_attr = 0o100644 << 16
            archive.writestr(member, data)


def main(installed: str, libdir: str, platform: str, seconds: str, output: str) -> int:
    tag = f"py3-none-{platform}"
    metadata, files = contents(Path(installed), libdir, tag)
    files[f"{metadata}/RECORD"] = record(metadata, files)
    path = Path(output) / f"{metadata.removesuffix('.dist-info')}-{tag}.whl"
    write(path, files, int(seconds))
    print(path)
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
