#!/usr/bin/env python3
"""Writes the table of the simulator's CEC devices from `cec` of defaults.json."""

from __future__ import annotations

import argparse
import json
import re
import sys
from pathlib import Path

FIELDS = {"logAddr": int, "hdmiDevPort": int, "name": str, "phyAddr": str, "listText": str, "plugged": bool}
PHYSICAL_ADDRESS = re.compile(r"[0-9A-F](\.[0-9A-F]){3}")
DEFAULTS = Path(__file__).resolve().parent / "defaults.json"


class ConfigurationError(Exception):
    """Why there is no table."""


def check_device(device: object, used: set[int]) -> None:
    if not isinstance(device, dict) or set(device) != set(FIELDS):
        raise ConfigurationError(f"cec: a device has {', '.join(FIELDS)}, not {device}")
    for field, expected in FIELDS.items():
        if type(device[field]) is not expected:
            raise ConfigurationError(f"cec: {field} {device[field]!r} is not of type {expected.__name__}")
    if not 1 <= device["logAddr"] <= 14 or device["logAddr"] in used:
        raise ConfigurationError(f"cec: logAddr {device['logAddr']} is not from 1 to 14 or is there twice")
    if device["hdmiDevPort"] < 0:
        raise ConfigurationError(f"cec: hdmiDevPort {device['hdmiDevPort']} is negative")
    if not PHYSICAL_ADDRESS.fullmatch(device["phyAddr"]):
        raise ConfigurationError(f"cec: phyAddr '{device['phyAddr']}' is not like 1.0.0.0")
    used.add(device["logAddr"])


def check(cec: object) -> None:
    if not isinstance(cec, dict) or set(cec) != {"arcPort", "devices"}:
        raise ConfigurationError("cec: it has arcPort and devices and nothing else")
    if type(cec["arcPort"]) is not int or cec["arcPort"] < 0:
        raise ConfigurationError(f"cec: arcPort {cec['arcPort']!r} is not the number of a port")
    used: set[int] = set()
    for device in cec["devices"]:
        check_device(device, used)


def table(cec: dict) -> str:
    rows = [f"    {{{', '.join(json.dumps(device[field]) for field in FIELDS)}}},\n" for device in cec["devices"]]
    constants = "namespace {\n\nconstexpr CecDevice kDevices[] = {\n" + "".join(rows) + "};\n\n} // namespace\n\n"
    return (
        "// Generated from defaults.json.\n"
        '#include "simulator/CecBus.h"\n\n'
        "namespace simulator {\n\n"
        f"{constants if rows else ''}"
        f"Rows<CecDevice> allCecDevices() {{ return {'kDevices' if rows else '{}'}; }}\n"
        f"std::int32_t cecArcPort() {{ return {cec['arcPort']}; }}\n\n"
        "} // namespace simulator\n"
    )


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("output", type=Path, help="the C++ source to write")
    parser.add_argument("--defaults", type=Path, default=DEFAULTS, help="what the television starts with")
    arguments = parser.parse_args()
    try:
        cec = json.loads(arguments.defaults.read_text(encoding="utf-8")).get("cec", {})
        check(cec)
    except (ConfigurationError, json.JSONDecodeError) as error:
        print(f"{arguments.defaults}: {error}", file=sys.stderr)
        return 1
    arguments.output.write_text(table(cec), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
