#!/usr/bin/env python3
"""What Debian asks of packages, and what these ones promise.

    inspect_packages.py FOLDER TIME PATH...    the packages and archives in the folder, the time they all carry, and
                                               paths that no packed file may name
"""

from __future__ import annotations

import base64
import calendar
import gzip
import hashlib
import io
import re
import subprocess
import sys
import tarfile
import tempfile
import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
VERSION = "1.0.0-1"
TRIPLETS = {"amd64": "x86_64-linux-gnu", "armhf": "arm-linux-gnueabihf"}
MACHINES = {"amd64": (2, 62), "armhf": (1, 40)}
C_PLUS_PLUS = ["libc6", "libgcc-s1", "libstdc++6"]


def tree(folder: str, pattern: str, target: str, suffix: str = "") -> list[str]:
    """Where the files of a folder of the sources are installed."""
    names = [str(path.relative_to(ROOT / folder)) for path in (ROOT / folder).rglob(pattern) if path.is_file()]
    return [f"{target}/{name}{suffix}" for name in names]


# Package: packages of ours and of Debian's that it depends on, and all that it holds besides its documents.
PACKAGES: dict[str, tuple[list[str], list[str], list[str]]] = {
    "libkelutvbaseclient1": (
        ["libkelutv-platform1"],
        C_PLUS_PLUS,
        ["lib/{triplet}/libkelutvbaseclient.so.1", "lib/{triplet}/libkelutvbaseclient.so.1.0.0"],
    ),
    "libkelutvbaseclient-dev": (
        ["libkelutvbaseclient1"],
        [],
        [
            *tree("include/kelutv", "*.h", "include/kelutv"),
            "lib/{triplet}/libkelutvbaseclient.so",
            "lib/{triplet}/pkgconfig/kelutvbaseclient.pc",
            "lib/{triplet}/pkgconfig/kelutvbaseclient-link.pc",
            "lib/{triplet}/cmake/kelutvbaseclient/kelutvbaseclientConfig.cmake",
            "lib/{triplet}/cmake/kelutvbaseclient/kelutvbaseclientConfigVersion.cmake",
            "lib/{triplet}/cmake/kelutvbaseclient/kelutvbaseclientTargets.cmake",
            "lib/{triplet}/cmake/kelutvbaseclient/kelutvbaseclientTargets-release.cmake",
            "share/doc/libkelutvbaseclient-dev/examples/CMakeLists.txt",
            "share/doc/libkelutvbaseclient-dev/examples/sources.c",
            "share/doc/libkelutvbaseclient-dev/examples/teletext.cpp",
            "share/doc/libkelutvbaseclient-dev/examples/volume.c",
            "share/doc/libkelutvbaseclient-dev/examples/volume.cpp",
        ],
    ),
    "libkelutv-platform1": (
        [],
        C_PLUS_PLUS,
        [
            "lib/{triplet}/libkqdroid.so.1",
            "lib/{triplet}/libkqdroid.so.1.0.0",
            "lib/{triplet}/libkeluemclient.so",
            "lib/{triplet}/libkqcommon.so",
            "lib/{triplet}/liblog.so",
        ],
    ),
    "libkelutv-platform-dev": (
        ["libkelutv-platform1", "libkelutvbaseclient-dev"],
        [],
        [
            *tree("platform/include", "*.h", "include/kelutv-platform"),
            "include/kelutv-simulator/events.h",
            *tree("service/include/kelutv-service", "*.h", "include/kelutv-service"),
            "lib/{triplet}/libkelutvservice.a",
            "lib/{triplet}/libkqdroid.so",
            "lib/{triplet}/pkgconfig/kelutv-platform.pc",
        ],
    ),
    "kelutv-tools": (
        ["libkelutvbaseclient1", "libkelutv-platform1"],
        C_PLUS_PLUS,
        [
            "bin/kelutv",
            "bin/kelutv-simulator",
            "bin/kqservicemanager",
            "lib/{triplet}/kelutv/libkelutvtrace.so",
            "share/bash-completion/completions/kelutv",
            "share/bash-completion/completions/kelutv-simulator",
            "share/fish/vendor_completions.d/kelutv.fish",
            "share/fish/vendor_completions.d/kelutv-simulator.fish",
            "share/kelutv/config.schema.json",
            "share/kelutv/defaults.json",
            "share/kelutv/kelutv.schema.json",
            "share/kelutv/recording.schema.json",
            *tree("simulator/scenarios", "*.scenario", "share/kelutv/scenarios"),
            *tree("tools/man", "*.1", "share/man/man1", ".gz"),
            "share/man/man1/kqservicemanager.1.gz",
            "share/zsh/vendor-completions/_kelutv",
        ],
    ),
}
MODULES = ("audio", "config", "eep", "factory", "hdmicec", "hotel", "notify", "pcmplayer", "pcsetting", "picture",
           "sourcemanager", "systemsetting", "vbictrl", "vbimanager", "video")
GENERATED = ("_event_table", "_foreign", "_modules", "_table", "enums", "records", "modules/__init__")
PYTHON = "lib/python3/dist-packages"
PACKAGES["python3-kelutv"] = (
    ["libkelutvbaseclient1", "libkelutv-platform1"],
    [*C_PLUS_PLUS, "python3", "python3-cffi-backend"],
    [
        "bin/kelutv-station",
        "share/bash-completion/completions/kelutv-station",
        "share/fish/vendor_completions.d/kelutv-station.fish",
        "share/kelutv/kelutv-station.schema.json",
        "share/man/man1/kelutv-station.1.gz",
        "share/zsh/vendor-completions/_kelutv-station",
        f"{PYTHON}/kelutv/_shim.so",
        f"{PYTHON}/kelutv-{VERSION.split('-')[0]}.dist-info/METADATA",
        f"{PYTHON}/kelutv-{VERSION.split('-')[0]}.dist-info/entry_points.txt",
        f"{PYTHON}/pytest_kelutv-{VERSION.split('-')[0]}.dist-info/METADATA",
        f"{PYTHON}/pytest_kelutv-{VERSION.split('-')[0]}.dist-info/entry_points.txt",
        *(f"{PYTHON}/kelutv/{name}.py" for name in GENERATED),
        *(f"{PYTHON}/kelutv/modules/{name}.py" for name in MODULES),
        *(
            name
            for part in ("kelutv", "kelutv_station", "pytest_kelutv")
            for pattern in ("*.py", "*.pyi", "py.typed")
            for name in tree(f"python/{part}", pattern, f"{PYTHON}/{part}")
        ),
    ],
)
DOCUMENTS = ("copyright", "changelog.gz", "changelog.Debian.gz")
# The cross builds have no libedit.
MORE_DEPENDS = {("kelutv-tools", "amd64"): ["libedit2"]}

# What a library calls itself, and what stands beside it under other names.
SONAMES = {
    "libkelutvbaseclient.so.1.0.0": "libkelutvbaseclient.so.1",
    "libkqdroid.so.1.0.0": "libkqdroid.so.1",
    "libkeluemclient.so": "libkeluemclient.so",
    "libkqcommon.so": "libkqcommon.so",
    "liblog.so": "liblog.so",
    "libkelutvtrace.so": "",
}
LINKS = {
    "libkelutvbaseclient.so.1": "libkelutvbaseclient.so.1.0.0",
    "libkelutvbaseclient.so": "libkelutvbaseclient.so.1",
    "libkqdroid.so.1": "libkqdroid.so.1.0.0",
    "libkqdroid.so": "libkqdroid.so.1",
}

complaints: list[str] = []


def complain_unless(condition: object, text: str) -> None:
    if not condition:
        complaints.append(text)


def contents(archive: tarfile.TarFile) -> dict[str, bytes]:
    return {
        member.name.removeprefix("./"): archive.extractfile(member).read()
        for member in archive.getmembers()
        if member.isfile()
    }


class Package:
    def __init__(self, path: Path) -> None:
        self.name, _, self.architecture = path.stem.split("_")
        self.control = self._open("--ctrl-tarfile", path)
        self.data = self._open("--fsys-tarfile", path)
        self.fields = dict(re.findall(r"(?m)^([\w-]+): (.*)", self.text("./control")))
        self.files = contents(self.data)

    @staticmethod
    def _open(option: str, path: Path) -> tarfile.TarFile:
        content = subprocess.run(["dpkg-deb", option, str(path)], check=True, capture_output=True).stdout
        return tarfile.open(fileobj=io.BytesIO(content))

    def text(self, member: str) -> str:
        return self.control.extractfile(member).read().decode()


def inspect_control(package: Package) -> None:
    name, fields = package.name, package.fields
    for field in ("Maintainer", "Section", "Priority", "Source"):
        complain_unless(fields.get(field), f"{name}: no {field}")
    complain_unless(fields["Package"] == name, f"{name}: calls itself {fields['Package']}")
    complain_unless(fields["Version"] == VERSION, f"{name}: version {fields['Version']} instead of {VERSION}")
    complain_unless(fields["Architecture"] == package.architecture, f"{name}: architecture {fields['Architecture']}")
    multi_arch = {"kelutv-tools": "foreign", "python3-kelutv": "no"}.get(name, "same")
    complain_unless(fields.get("Multi-Arch") == multi_arch, f"{name}: Multi-Arch is {fields.get('Multi-Arch')}")
    kilobytes = sum(len(content) for content in package.files.values()) // 1024
    complain_unless(int(fields["Installed-Size"]) >= kilobytes, f"{name}: Installed-Size is less than {kilobytes}")
    summary = fields["Description"]
    complain_unless(len(summary) < 80 and not summary.endswith("."), f"{name}: '{summary}' is no summary")
    text = package.text("./control").splitlines()
    complain_unless(any(line.startswith(" ") for line in text), f"{name}: no long description")
    long = [line for line in text if line.startswith(" ") and len(line) > 80]
    complain_unless(not long, f"{name}: long lines in the description: {long}")


def inspect_depends(package: Package, ours: list[str], others: list[str]) -> None:
    present = [entry for entry in package.fields.get("Depends", "").split(", ") if entry]
    names = sorted(entry.split()[0] for entry in present)
    others = others + MORE_DEPENDS.get((package.name, package.architecture), [])
    complain_unless(names == sorted(ours + others), f"{package.name}: depends on {present}")
    for name in ours:
        complain_unless(f"{name} (= {VERSION})" in present, f"{package.name}: no dependency on {name} of its version")
    for name in others:
        found = any(re.fullmatch(rf"{re.escape(name)} \(>= [0-9][^)]*\)", entry) for entry in present)
        complain_unless(found, f"{package.name}: no dependency on a version of {name}: {present}")


def inspect_members(name: str, archive: tarfile.TarFile, time: int) -> None:
    for member in archive.getmembers():
        where = f"{name}: {member.name}"
        complain_unless((member.uid, member.gid) == (0, 0), f"{where} is not root's")
        executable = re.search(r"usr/bin/[^/]+$|^\./(postinst|prerm)$", member.name)
        mode = 0o777 if member.issym() else 0o755 if member.isdir() or executable else 0o644
        complain_unless(member.mode == mode, f"{where} has mode {member.mode:o} instead of {mode:o}")
        complain_unless(member.mtime == time, f"{where} is of {member.mtime} instead of {time}")


def inspect_sums(package: Package) -> None:
    sums = dict(reversed(line.split("  ", 1)) for line in package.text("./md5sums").splitlines())
    complain_unless(
        sums == {name: hashlib.md5(content).hexdigest() for name, content in package.files.items()},
        f"{package.name}: md5sums are not those of the files",
    )


def dynamic_section(content: bytes) -> dict[str, list[str]]:
    with tempfile.NamedTemporaryFile() as file:
        file.write(content)
        file.flush()
        text = subprocess.run(["readelf", "-dW", file.name], check=True, capture_output=True, text=True).stdout
    found: dict[str, list[str]] = {}
    for tag, value in re.findall(r"\((\w+)\)\s+[^\[\n]*\[(.*)\]", text):
        found.setdefault(tag, []).append(value)
    return found


def inspect_elf(where: str, content: bytes, architecture: str, search_path: list[str]) -> None:
    machine = (content[4], int.from_bytes(content[18:20], "little"))
    complain_unless(machine == MACHINES[architecture], f"{where} is for another machine: {machine}")
    for section in (b"\0.symtab\0", b"\0.debug_info\0"):
        complain_unless(section not in content, f"{where} is not stripped")
    dynamic = dynamic_section(content)
    found = dynamic.get("RUNPATH", []) + dynamic.get("RPATH", [])
    complain_unless(found == search_path, f"{where} has the search path {found}")
    name = where.rsplit("/", 1)[-1]
    if name.startswith("lib"):
        soname = dynamic.get("SONAME", [""])[0]
        complain_unless(SONAMES.get(name) == soname, f"{where} calls itself '{soname}'")


def inspect_content(where: str, content: bytes, forbidden: list[str]) -> bytes:
    if where.endswith(".gz"):
        complain_unless(content[3] & 8 == 0 and content[4:8] == bytes(4), f"{where} keeps a name or a time")
        content = gzip.decompress(content)
    for path in forbidden:
        complain_unless(path.encode() not in content, f"{where} names {path}")
    return content


def inspect_links(name: str, archive: tarfile.TarFile) -> None:
    for member in archive.getmembers():
        if member.issym():
            link = member.name.rsplit("/", 1)[-1]
            complain_unless(LINKS.get(link) == member.linkname, f"{name}: {link} leads to {member.linkname}")


def inspect_files(package: Package, wanted: list[str]) -> None:
    triplet = TRIPLETS[package.architecture]
    documents = [f"share/doc/{package.name}/{name}" for name in DOCUMENTS]
    expected = {"usr/" + name.format(triplet=triplet) for name in wanted + documents}
    held = {member.name.removeprefix("./") for member in package.data.getmembers() if not member.isdir()}
    complain_unless(held == expected, f"{package.name}: missing or unexpected: {sorted(held ^ expected)}")
    members = {"./control", "./md5sums"}
    if package.name.endswith("1"):
        members |= {"./triggers", "./shlibs"}
        complain_unless("ldconfig" in package.text("./triggers"), f"{package.name}: ldconfig is not run")
    if package.name == "libkelutvbaseclient1":
        members.add("./symbols")
    if package.name == "python3-kelutv":
        members |= {"./postinst", "./prerm"}
    found = {member.name for member in package.control.getmembers() if member.isfile()}
    complain_unless(found == members, f"{package.name}: control files {sorted(found)}")


def licence_holder() -> str:
    """The line of the licence that says whose the works are: `2026 the authors`."""
    return re.search(r"(?m)^ +Copyright (\d{4} .+)$", (ROOT / "LICENSE").read_text(encoding="utf-8"))[1]


def inspect_copyright(package: Package) -> None:
    """The document says of all files what LICENSE says."""
    text = package.files[f"usr/share/doc/{package.name}/copyright"].decode()
    statement = f"Files: *\nCopyright: {licence_holder()}\nLicense: Apache-2.0\n"
    complain_unless(statement in text, f"{package.name}: the copyright file differs from LICENSE: {text}")
    names = set(re.findall(r"(?m)^License: (.+)$", text))
    complain_unless(names == {"Apache-2.0"}, f"{package.name}: licences {sorted(names)}")


def inspect_symbols(package: Package) -> None:
    text = package.text("./symbols")
    first = text.splitlines()[0]
    complain_unless(first == "libkelutvbaseclient.so.1 libkelutvbaseclient1 #MINVER#", f"{package.name}: {first}")
    mangled = re.findall(r"(?m)^ (\S+)@Base 1\.0\.0$", text)
    plain = subprocess.run(["c++filt"], input="\n".join(mangled), check=True, capture_output=True, text=True).stdout
    list_exports = [sys.executable, "-B", str(ROOT / "catalogue/catalogue.py"), "exports"]
    exports = subprocess.run(list_exports, check=True, capture_output=True, text=True).stdout
    missing = sorted(set(exports.splitlines()) - set(plain.replace("[abi:cxx11]", "").splitlines()))
    complain_unless(not missing, f"{package.name}: not in the symbols file: {', '.join(missing)}")


def inspect_package(package: Package, time: int, forbidden: list[str]) -> None:
    ours, others, files = PACKAGES[package.name]
    inspect_control(package)
    inspect_depends(package, ours, others)
    inspect_members(package.name, package.control, time)
    inspect_members(package.name, package.data, time)
    inspect_sums(package)
    inspect_files(package, files)
    inspect_links(package.name, package.data)
    inspect_copyright(package)
    for name, content in package.files.items():
        where = f"{package.name}: {name}"
        content = inspect_content(where, content, forbidden)
        if content.startswith(b"\x7fELF"):
            inspect_elf(where, content, package.architecture, [])
    if package.name == "libkelutvbaseclient1":
        inspect_symbols(package)


def inspect_sdk(path: Path, time: int, forbidden: list[str]) -> None:
    """The archive holds the licence and the files of the four library packages without their documents, in one folder."""
    version = VERSION.split("-")[0]
    architecture = re.fullmatch(rf"kelutv-sdk-{re.escape(version)}-(\w+)\.tar\.gz", path.name)[1]
    folder = path.name.removesuffix(".tar.gz")
    listed = [name for package, (_, _, files) in PACKAGES.items() if package.startswith("lib") for name in files]
    expected = {
        f"{folder}/{name.format(triplet=TRIPLETS[architecture])}" for name in listed if not name.startswith("share/")
    }
    expected.add(f"{folder}/LICENSE")
    with tarfile.open(path) as archive:
        held = {member.name for member in archive.getmembers() if not member.isdir()}
        complain_unless(held == expected, f"{path.name}: missing or unexpected: {sorted(held ^ expected)}")
        inspect_members(path.name, archive, time)
        inspect_links(path.name, archive)
        for name, content in contents(archive).items():
            inspect_content(name, content, forbidden)
            if content.startswith(b"\x7fELF"):
                inspect_elf(name, content, architecture, ["$ORIGIN"])


WHEEL_TAGS = {"amd64": "linux_x86_64", "armhf": "linux_armv7l"}
LOADED = ["libkelutvbaseclient.so.1", "libkqdroid.so.1", "libkeluemclient.so", "libkqcommon.so", "liblog.so"]


def inspect_wheel(path: Path, architecture: str, time: int, forbidden: list[str]) -> None:
    """The wheel holds what the Debian package does, the libraries, and a record of all."""
    metadata = f"kelutv-{VERSION.split('-')[0]}.dist-info"
    listed = [name.removeprefix(f"{PYTHON}/") for name in PACKAGES["python3-kelutv"][2] if name.startswith(PYTHON)]
    expected = {name for name in listed if not name.startswith("pytest_kelutv-")}
    expected |= {f"kelutv/lib/{name}" for name in LOADED} | {f"{metadata}/WHEEL", f"{metadata}/RECORD"}
    with zipfile.ZipFile(path) as archive:
        complain_unless(set(archive.namelist()) == expected, f"{path.name}: {sorted(set(archive.namelist()) ^ expected)}")
        record = dict(line.split(",")[:2] for line in archive.read(f"{metadata}/RECORD").decode().splitlines())
        for member in archive.infolist():
            where, content = f"{path.name}: {member.filename}", archive.read(member)
            complain_unless(calendar.timegm((*member.date_time, 0, 0, 0)) == time - time % 2, f"{where} has another time")
            digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
            own = member.filename.endswith("/RECORD")
            complain_unless(record.get(member.filename) == ("" if own else f"sha256={digest}"), f"{where}: other hash")
            inspect_content(where, content, forbidden)
            if content.startswith(b"\x7fELF") and not where.endswith("_shim.so"):
                machine = (content[4], int.from_bytes(content[18:20], "little"))
                complain_unless(machine == MACHINES[architecture], f"{where} is for another machine")
                complain_unless(dynamic_section(content).get("RUNPATH") == ["$ORIGIN"], f"{where} does not find the others")


def inspect(folder: Path, time: int, forbidden: list[str]) -> None:
    packages = [Package(path) for path in sorted(folder.glob("*.deb"))]
    found = sorted((package.name, package.architecture) for package in packages)
    expected = sorted((name, architecture) for name in PACKAGES for architecture in TRIPLETS)
    complain_unless(found == expected, f"the packages are {found}")
    for package in packages:
        inspect_package(package, time, forbidden)
    archives = sorted(folder.glob("*.tar.gz"))
    complain_unless(len(archives) == len(TRIPLETS), f"the archives are {archives}")
    for path in archives:
        inspect_sdk(path, time, forbidden)
    wheels = {tag: list(folder.glob(f"*-py3-none-{tag}.whl")) for tag in WHEEL_TAGS.values()}
    complain_unless(all(len(found) == 1 for found in wheels.values()), f"the wheels are {wheels}")
    for architecture, tag in WHEEL_TAGS.items():
        for path in wheels[tag]:
            inspect_wheel(path, architecture, time, forbidden)
    print(f"{len(packages)} packages, {len(archives)} archives and {len(wheels)} wheels inspected")


def main(folder: str, time: str, *forbidden: str) -> int:
    inspect(Path(folder), int(time), list(forbidden))
    for complaint in complaints:
        print(complaint, file=sys.stderr)
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
