"""Questions to the tool about the interface, all to one process."""

from __future__ import annotations

import json
import os
import select
import shlex
import subprocess
import time
from typing import Any

from kelutv_station.tool import PATIENCE, Tool, ToolError, cannot_run

# No command is called so: the complaint about it comes behind all that was said before.
NO_COMMAND = "."


class Conversation:
    """Has the tool carry out commands that need no television; its process begins with the first."""

    def __init__(self, tool: Tool) -> None:
        self._tool = tool
        self._process: subprocess.Popen[bytes] | None = None
        self._line = 0
        self._unread = b""

    def ask(self, *words: str) -> Any:
        """The first document that a command prints. Raises ToolError."""
        if any("\n" in word for word in words):
            return self._tool.run(*words).documents[0]
        said = self._answer(f"{shlex.join(words)}\n{NO_COMMAND}\n")
        if not said:
            raise ToolError(f"{self._tool.program} {words[0]} says nothing")
        if "error" in said[0]:
            raise ToolError(str(said[0]["error"]["message"]).removeprefix(f"line {self._line - 1}: "))
        return said[0]

    def close(self) -> None:
        """Ends the process."""
        process, self._process = self._process, None
        if process is not None:
            process.kill()
            process.communicate()

    def _answer(self, lines: str) -> list[dict[str, Any]]:
        """What is printed for a line and one of no command, but for what is said of that."""
        process, deadline, said = self._begun(), time.monotonic() + PATIENCE, []
        self._line += 2
        assert process.stdin is not None
        try:
            process.stdin.write(lines.encode(errors="surrogateescape"))
            process.stdin.flush()
            while not self._is_end(document := json.loads(self._next_line(process, deadline))):
                said.append(document)
        except (OSError, EOFError, ValueError) as error:
            self.close()
            raise ToolError(f"{self._tool.program} repl cannot be asked: {error}") from error
        return said

    def _begun(self) -> subprocess.Popen[bytes]:
        if self._process is None:
            self._line, self._unread = 0, b""
            try:
                self._process = subprocess.Popen(
                    [self._tool.program, "--json", "repl"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                    stderr=subprocess.STDOUT, start_new_session=True)
            except OSError as error:
                raise cannot_run(self._tool.program, error) from error
        return self._process

    def _is_end(self, document: dict[str, Any]) -> bool:
        return str(document.get("error", {}).get("message")).startswith(f"line {self._line}: ")

    def _next_line(self, process: subprocess.Popen[bytes], deadline: float) -> bytes:
        assert process.stdout is not None
        while b"\n" not in self._unread:
            if not select.select([process.stdout], [], [], max(deadline - time.monotonic(), 0))[0]:
                raise TimeoutError(f"no answer within {PATIENCE:g} s")
            part = os.read(process.stdout.fileno(), 1 << 16)
            if not part:
                raise EOFError(f"exit code {process.wait()}: {self._unread.decode(errors='replace')[-500:]}")
            self._unread += part
        line, _, self._unread = self._unread.partition(b"\n")
        return line
