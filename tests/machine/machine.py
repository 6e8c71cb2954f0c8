#!/usr/bin/env python3
"""Runs programs in virtual machines with Debian's kernel and its binder driver, all machines at the same time.

usage: machine.py LOGS DIRECTORY...

LOGS       directory for what each machine prints, in machine-ARCHITECTURE.log
DIRECTORY  tests/machine of a build directory; its machine.json says what runs and what that needs

Everything needed goes into the machine's initial file system at its own path. What the machine prints decides: the
emulator's exit status says nothing. Kernels are kept in KELUTV_KERNEL_CACHE, or beside DIRECTORY's build, and fetched
when they are missing.
"""

import concurrent.futures
import gzip
import json
import os
import re
import selectors
import shutil
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
# Many times what it takes on a machine that has nothing else to do.
BOOT_SECONDS = 120
RUN_SECONDS = 600
STARTED = re.compile(rb"^machine: start (\S+)$", re.MULTILINE)
PANIC = re.compile(r"^.*(Kernel panic|Oops|BUG:|WARNING:|Out of memory).*$", re.MULTILINE)
# What the driver says of a program that breaks its protocol.
MISUSE = re.compile(r"^machine kernel: .*(BC_\w+.*(no match|invalid|already|mismatch)|no transaction stack|unknown command).*$",
                    re.MULTILINE)

MACHINES = {
    "amd64": {
        "command": ["qemu-system-x86_64", "-accel", "tcg", "-M", "pc", "-m", "256"],
        "console": "ttyS0",
        "tools": "",
        "libraries": ["/lib/x86_64-linux-gnu", "/usr/lib/x86_64-linux-gnu"],
    },
    "armhf": {
        "command": ["qemu-system-arm", "-accel", "tcg", "-M", "virt", "-m", "128"],
        "console": "ttyAMA0",
        "tools": "arm-linux-gnueabihf-",
        "libraries": ["/usr/arm-linux-gnueabihf/lib"],
    },
}


class Failure(Exception):
    """Why a machine's tests cannot be called passed."""


class Packer:
    """Gathers programs with the libraries they need into one compressed archive."""

    def __init__(self, machine, work):
        self.machine = machine
        self.work = work
        self.files = {}
        self.programs = {}

    def add(self, path, content, mode=0o100755):
        self.files[path] = (mode, content)

    def add_program(self, path):
        if path in self.files:
            return
        status = os.stat(path)
        first = self.programs.setdefault((status.st_dev, status.st_ino), path)
        if first != path:
            self.add(path, first.encode(), 0o120777)
            return
        self.add(path, self.stripped(path))
        dynamic = self.tool("readelf", "-d", "-l", path)
        interpreter = re.search(r"interpreter: (\S+)\]", dynamic)
        if interpreter and interpreter[1] not in self.files:
            self.add(interpreter[1], read(self.library(os.path.basename(interpreter[1]), [])))
        self.add_libraries(path, dynamic)

    def add_libraries(self, path, dynamic):
        runpath = re.search(r"\(R(?:UN)?PATH\).*\[(.*)\]", dynamic)
        places = [os.path.normpath(place.replace("$ORIGIN", os.path.dirname(path)))
                  for place in (runpath[1].split(":") if runpath else [])]
        for name in re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic):
            found = self.library(name, places)
            packed = found if os.path.dirname(found) in places else "/lib/" + name
            if packed not in self.files:
                self.add(packed, self.stripped(found))
                self.add_libraries(found, self.tool("readelf", "-d", found))

    def library(self, name, places):
        for place in [*places, *self.machine["libraries"]]:
            if os.path.exists(os.path.join(place, name)):
                return os.path.join(place, name)
        raise Failure(f"library {name} is nowhere")

    def tool(self, tool, *arguments):
        command = [self.machine["tools"] + tool, *arguments]
        return subprocess.run(command, check=True, capture_output=True, text=True, env={**os.environ, "LC_ALL": "C"}).stdout

    def stripped(self, path):
        copy = os.path.join(self.work, "stripped")
        self.tool("strip", "-o", copy, path)
        return read(copy)

    def write(self, path):
        directories = set()
        for name in self.files:
            while (name := os.path.dirname(name)) != "/":
                directories.add(name)
        entries = [(name, 0o040755, b"") for name in sorted(directories)]
        entries += [(name, mode, content) for name, (mode, content) in self.files.items()]
        with gzip.open(path, "wb", compresslevel=4) as archive:
            for name, mode, content in [*entries, ("/TRAILER!!!", 0, b"")]:
                archive.write(cpio_entry(name[1:], mode, content))

    def size(self):
        return sum(len(content) for _, content in self.files.values())


def cpio_entry(name, mode, content):
    """One entry of a "newc" archive."""
    fields = [0, mode, 0, 0, 1, 0, len(content), 0, 0, 0, 0, len(name) + 1, 0]
    head = b"070701" + b"".join(b"%08X" % field for field in fields) + name.encode() + b"\0"
    return padded(head) + padded(content)


def padded(data):
    return data + b"\0" * (-len(data) % 4)


def read(path):
    with open(path, "rb") as file:
        return file.read()


def console_of(command, log, boot_seconds=BOOT_SECONDS, run_seconds=RUN_SECONDS):
    """What a machine prints until it ends, also written to the log; fails when that takes too long."""
    start = time.monotonic()
    text = bytearray()
    booted = False
    # Should this program be killed, the machine goes with it.
    with subprocess.Popen(["setpriv", "--pdeathsig", "KILL", *command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT) as machine, selectors.DefaultSelector() as selector:
        selector.register(machine.stdout, selectors.EVENT_READ)
        while True:
            left = start + (run_seconds if booted else boot_seconds) - time.monotonic()
            if left <= 0 or not selector.select(left):
                machine.kill()
                raise Failure(f"not done after {run_seconds} s, in {last_started(text)}" if booted
                              else f"started no program in {boot_seconds} s")
            chunk = os.read(machine.stdout.fileno(), 65536)
            if not chunk:
                if machine.wait() != 0:
                    raise Failure(f"the emulator ended with status {machine.returncode}")
                return text.decode(errors="replace")
            chunk = chunk.replace(b"\r", b"")
            text += chunk
            log.write(chunk)
            log.flush()
            booted = booted or STARTED.search(text) is not None


def last_started(text):
    return STARTED.findall(text)[-1].decode(errors="replace")


def tests_of(name, console):
    """How many tests the program ran; fails unless every one of them ran and passed."""
    run = re.search(rf"machine: start {re.escape(name)}\n(.*?)machine: end {re.escape(name)} (.*?)\n", console, re.DOTALL)
    if not run:
        raise Failure("no result")
    output, result = run.groups()
    if not result.startswith("exit 0 "):
        raise Failure(result)
    if re.search(r"\[  SKIPPED \]|DISABLED TEST", output):
        raise Failure("left tests out")
    ran, passed = (re.findall(pattern, output) for pattern in (r"\[==========\] (\d+) tests? from .* ran", r"\[  PASSED  \] (\d+) test"))
    if not ran or ran != passed or "0" in ran:
        raise Failure("ran no tests" if ran == ["0"] else "did not tell what it ran")
    return int(ran[-1])


def judge(console, names):
    """How many tests ran in all the named programs; fails with everything that is wrong."""
    count = 0
    wrong = [match[0].strip() for match in [*PANIC.finditer(console), *MISUSE.finditer(console)]]
    for name in names:
        try:
            count += tests_of(name, console)
        except Failure as failure:
            wrong.append(f"{name}: {failure}")
    if not names:
        wrong.append("no program is listed")
    if not re.search(r"^machine: done$", console, re.MULTILINE):
        wrong.append("it did not come to its end")
    if wrong:
        raise Failure("\n  ".join(wrong))
    return count


def plan_of(directory):
    return json.loads(read(os.path.join(directory, "machine.json")))


def kernel_of(architecture, directory):
    cache = os.environ.get("KELUTV_KERNEL_CACHE") or os.path.join(directory, "kernels")
    kernel = os.path.join(cache, architecture)
    if subprocess.run([os.path.join(HERE, "fetch-kernel"), architecture, kernel], check=False).returncode != 0:
        raise Failure("there is no kernel; './check --all --no-machine' does without")
    return kernel


def pack(plan, kernel, work):
    """Puts all that the machine needs into one file of the folder: the file, and the sizes in words."""
    packer = Packer(MACHINES[plan["architecture"]], work)
    packer.add("/init", packer.stripped(plan["init"]))
    packer.add("/machine/binder_linux.ko", read(os.path.join(kernel, "binder_linux.ko")))
    packer.add("/machine/tests", "".join(line + "\n" for line in plan["tests"]).encode())
    for program in plan["programs"]:
        packer.add_program(program)
    image = os.path.join(work, "initramfs")
    packer.write(image)
    return image, f"{packer.size() / 1e6:.0f} MB of files, {os.path.getsize(image) / 1e6:.0f} MB packed"


def boot(plan, kernel, image, log, *options):
    """What the machine prints; `options` are further ones for the emulator."""
    machine = MACHINES[plan["architecture"]]
    parameters = f"console={machine['console']} quiet loglevel=4 panic=-1 oops=panic rootfstype=ramfs"
    command = [*machine["command"], *options, "-nodefaults", "-display", "none", "-serial", "stdio", "-no-reboot",
               "-kernel", os.path.join(kernel, "vmlinuz"), "-initrd", image, "-append", parameters]
    return console_of(command, log)


def run(directory, logs):
    """Runs one machine and tells what passed in it."""
    plan = plan_of(directory)
    machine = MACHINES[plan["architecture"]]
    if not shutil.which(machine["command"][0]):
        raise Failure(f"{machine['command'][0]} is not installed")
    kernel = kernel_of(plan["architecture"], directory)
    start = time.monotonic()
    with tempfile.TemporaryDirectory() as work, \
            open(os.path.join(logs, f"machine-{plan['architecture']}.log"), "wb") as log:
        image, sizes = pack(plan, kernel, work)
        console = boot(plan, kernel, image, log)
    names = [line.split()[0] for line in plan["tests"]]
    count = judge(console, names)
    return f"{len(names)} programs, {count} tests passed in {time.monotonic() - start:.0f} s ({sizes})"


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    logs, *directories = sys.argv[1:]
    os.makedirs(logs, exist_ok=True)
    failed = False
    left_out = {}
    with concurrent.futures.ThreadPoolExecutor(len(directories)) as pool:
        runs = {directory: pool.submit(run, directory, logs) for directory in directories}
        for directory, future in runs.items():
            try:
                print(f"machine of {directory}: {future.result()}")
                left_out.update(dict.fromkeys(plan_of(directory)["leftOut"]))
            except (Failure, OSError, subprocess.CalledProcessError) as failure:
                failed = True
                print(f"machine of {directory} FAILED:\n  {failure}")
    for line in left_out:
        print(f"left out: {line}")
    sys.exit(failed)


if __name__ == "__main__":
    main()
