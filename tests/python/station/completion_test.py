"""What may follow in a begun command line of the station, in every shell."""

from __future__ import annotations

import os
import pty
import re
import select
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from kelutv_station.program import parser

from televisions import PATIENCE, ROOT

COMPLETIONS = ROOT / "python" / "distribution" / "completion"
LINES = {
    "kelutv-station --res": ["--resume"],
    "kelutv-station --li": ["--lines"],
    "kelutv-station au": ["audio.toml"],
    "kelutv-station --resume pa": ["panel.py"],
    "kelutv-station bench/one/de": ["bench/one/deep.toml"],
    "kelutv-station no": [],
    "kelutv-station --output be": ["bench/"],
    "kelutv-station -o te": [],
    "kelutv-station --html te": ["text.txt"],
    "kelutv-station --unit TV-1=bench/o": ["TV-1=bench/one/"],
    "kelutv-station --unit TV-1=te": [],
    "kelutv-station --unit au": [],
}
IN_BASH = """
. "$COMPLETION"
while IFS= read -r line; do
    COMP_LINE=$line COMP_POINT=${#line}
    _kelutv_station kelutv-station
    word=${line##*[[:space:]]} names=()
    for name in "${COMPREPLY[@]}"; do
        kept=; [[ $word == *=* ]] && kept=${word%"${word##*=}"}
        [[ -d $name ]] && name+=/
        names+=("$kept$name")
    done
    (IFS='|'; echo "${names[*]}")
done <<< "$BEGUN"
"""
IN_FISH = """
source $COMPLETION
for line in (string split \\n -- $BEGUN)
    echo (complete -C $line | string replace -r '\\t.*' '' | string join '|')
end
"""
# The line that stands there after the key of completion.
IN_ZSH = """
autoload -Uz compinit && compinit -u -D
setopt no_auto_menu no_list_ambiguous no_beep
zstyle ':completion:*' format ''
show() { print -r -- "<$BUFFER>"; BUFFER=; }
zle -N show
bindkey '^T' show
print be''gin
"""


class Completion(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        (self.folder / "bench" / "one").mkdir(parents=True)
        for name in ("audio.toml", "panel.py", "notes.md", "text.txt", "bench/one/deep.toml"):
            (self.folder / name).touch()

    def environment(self, **more: str) -> dict[str, str]:
        return {"PATH": "/usr/bin:/bin", "HOME": str(self.folder), "LC_ALL": "C.UTF-8", "TERM": "dumb", **more}

    def answers(self, shell: list[str], completion: str, script: str) -> dict[str, list[str]]:
        environment = self.environment(BEGUN="\n".join(LINES), COMPLETION=str(COMPLETIONS / completion))
        done = subprocess.run(
            [*shell, "-c", script], cwd=self.folder, env=environment, capture_output=True, text=True, timeout=PATIENCE,
            check=False)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        lines = done.stdout.splitlines()
        self.assertEqual(len(lines), len(LINES), lines)
        return {begun: [name for name in line.split("|") if name] for begun, line in zip(LINES, lines, strict=True)}

    def test_in_bash(self) -> None:
        self.assertEqual(self.answers(["bash", "--norc"], "kelutv-station", IN_BASH), LINES)

    def test_in_fish(self) -> None:
        self.assertEqual(self.answers(["fish", "--no-config"], "kelutv-station.fish", IN_FISH), LINES)

    def test_in_zsh(self) -> None:
        with Shell(["zsh", "-f", "-i"], self.folder, self.environment(FPATH_OF_TEST=str(COMPLETIONS))) as shell:
            shell.type(f"fpath=({COMPLETIONS} $fpath); {' ; '.join(filter(None, IN_ZSH.splitlines()))}\n")
            shell.until("begin\r")
            for begun, names in LINES.items():
                shell.type(f"{begun}\t\x14")
                word = names[0] if names else begun.rpartition(" ")[2]
                self.assertEqual(shell.until("<(.*?)>").rstrip(), f"{begun.rpartition(' ')[0]} {word}", begun)

    def test_know_every_option(self) -> None:
        options = {name for action in parser()._actions for name in action.option_strings}
        for completion in ("kelutv-station", "_kelutv-station", "kelutv-station.fish"):
            text = (COMPLETIONS / completion).read_text(encoding="utf-8")
            if completion.endswith(".fish"):
                text = re.sub(r"-l (\w+)", r"--\1", re.sub(r"-s (\w)\b", r"-\1", text.partition("complete -c")[2]))
            missing = [name for name in options if not re.search(rf"(?<![\w-]){name}(?![\w-])", text)]
            self.assertEqual(missing, [], completion)


class Shell:
    """An interactive shell on a terminal of its own."""

    def __init__(self, command: list[str], folder: Path, environment: dict[str, str]) -> None:
        self._terminal, other = pty.openpty()
        with os.fdopen(other, "rb") as end:
            self._process = subprocess.Popen(
                command, cwd=folder, env=environment, stdin=end, stdout=end, stderr=end, start_new_session=True)
        self._shown = ""

    def __enter__(self) -> Shell:
        return self

    def __exit__(self, *_: object) -> None:
        self._process.kill()
        self._process.wait()
        os.close(self._terminal)

    def type(self, text: str) -> None:
        os.write(self._terminal, text.encode())

    def until(self, pattern: str) -> str:
        """Waits until this is shown; the last group of it."""
        end = time.monotonic() + PATIENCE
        while (found := re.search(pattern, self._shown)) is None:
            if not select.select([self._terminal], [], [], max(end - time.monotonic(), 0))[0]:
                raise AssertionError(f"{pattern} was not shown: {self._shown}")
            self._shown += os.read(self._terminal, 65536).decode(errors="replace")
        self._shown = self._shown[found.end() :]
        return found[found.lastindex or 0]


if __name__ == "__main__":
    unittest.main()
