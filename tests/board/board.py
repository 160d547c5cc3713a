"""A board of a test's own: its serial line, its shell, its flash chip."""

import re
import shlex
import socket
import subprocess

from desk import PATIENCE, TREE, Desk

LAYOUT = subprocess.check_output(["bash", "-c", ". board/partitions.sh && flash_layout"], cwd=TREE, text=True)
OFFSETS = [int(line.split()[1]) for line in LAYOUT.splitlines()]


class Board(Desk):
    def __init__(self, state):
        super().__init__(state)
        self.flash = state / "flash.bin"
        with socket.create_server(("127.0.0.1", 0)) as probe:
            self.port = probe.getsockname()[1]

    def console(self):
        """./run --board on a terminal, at the console's first prompt."""
        child = self.spawn("./run", "--board", "--telnet", str(self.port))
        child.timeout = 4 * PATIENCE
        child.expect("Username:")
        return child

    def inside(self, *command):
        """What a program of the board prints, by the shell on its other serial line."""
        shell = self.spawn("socat", "-,raw,echo=0", f"UNIX:{self.state}/shell")
        shell.sendline(f"echo begin $((1)); {shlex.join(command)} 2>&1; echo end $((1))")
        shell.expect(r"begin 1\r\n(.*)end 1\r\n")
        shell.close()
        return shell.match[1].replace("\r\n", "\n")

    def run(self, *arguments, **others):
        return super().run(*(["--board"] if arguments[0] == "--show" else []), *arguments, **others)

    def store(self, text, partition="5"):
        """Puts a text into a partition of a new chip."""
        self.state.mkdir(exist_ok=True)
        self.flash.write_bytes((OFFSETS[int(partition)] * b"\xff" + text.encode()).ljust(2**21, b"\xff"))
