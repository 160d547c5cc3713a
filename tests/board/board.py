"""A board of a test's own: its serial line, its shell, its flash chip."""

import random
import shlex
import socket
import subprocess
import threading
import time

import psutil
import pytest
from desk import PATIENCE, TREE, Desk

LAYOUT = subprocess.check_output(["bash", "-c", ". board/partitions.sh && flash_layout"], cwd=TREE, text=True)
PLACES = [slice(int(offset), int(offset) + int(size)) for _, offset, size in map(str.split, LAYOUT.splitlines())]


class Board(Desk):
    def __init__(self, state):
        super().__init__(state)
        self.flash = state / "flash.bin"
        with socket.create_server(("127.0.0.1", 0)) as probe:
            self.port = probe.getsockname()[1]

    def store(self, text, partition="5"):
        """Puts a text into a partition of the chip, while the board is off."""
        self.state.mkdir(exist_ok=True)
        chip = bytearray(self.flash.read_bytes() if self.flash.exists() else 2**21 * b"\xff")
        start = PLACES[int(partition)].start
        chip[start:start + len(text)] = text.encode()
        self.flash.write_bytes(chip)

    def console(self):
        """./run --board on a terminal, at the console's first prompt."""
        self.line = self.spawn("./run", "--board", "--telnet", str(self.port))
        self.line.timeout = 4 * PATIENCE  # of a busy machine the kernel takes much
        if self.line.expect(["Username:", "cannot be had.*|Packages .*"]):
            pytest.skip(self.line.after.splitlines()[0])
        return self.line

    def emulator(self):
        return next(one for one in psutil.Process(self.line.pid).children() if one.name() == "qemu-system-arm")

    def inside(self, *command):
        """What a program of the board prints, by the shell on its other serial line."""
        shell = self.spawn("socat", "-,raw,echo=0", f"UNIX:{self.state}/shell")
        shell.sendline(f"echo begin $((1)); {shlex.join(command)} 2>&1; echo end $((1))")
        shell.expect(r"begin 1\r\n(.*)end 1\r\n")
        shell.close()
        return shell.match[1].replace("\r\n", "\n")

    def run(self, *arguments, **others):
        return super().run(*(["--board"] if arguments[0] == "--show" else []), *arguments, **others)

    def all_stored(self, partition=None):
        """All settings that the web server would find at a boot, in the bytes of a partition if they are given."""
        file = self.state / "partition"
        file.write_bytes(self.flash.read_bytes()[PLACES[5]] if partition is None else partition)
        return self.run(TREE / "build/arm/desk/show_settings", file, TREE / "desk/defaults/metafile.dat.default",
                        program="qemu-arm").stdout

    def cut_during(self, action):
        """What cuts of the power at random moments of an action would leave in the settings partition."""
        left, over, emulator = [], threading.Event(), self.emulator()

        def cut():
            while not over.is_set():
                time.sleep(random.uniform(0, 0.05))
                emulator.suspend()
                left.append(self.flash.read_bytes()[PLACES[5]])
                emulator.resume()
        cutter = threading.Thread(target=cut)
        cutter.start()
        action()
        over.set()
        cutter.join()
        return left
