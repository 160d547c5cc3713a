"""The device on a whole emulated board: kernel, flash chip, serial line and Ethernet."""

import concurrent.futures
import os
import pathlib
import random
import re
import socket
import subprocess
import sys
import time

import pexpect
import psutil
import pytest

sys.path.append(str(pathlib.Path(__file__).parents[1] / "desk"))
from desk import PATIENCE, TREE, Desk
from test_tour import tour

LAYOUT = subprocess.check_output(["bash", "-c", ". board/partitions.sh && flash_layout"], cwd=TREE, text=True)
PARTITIONS = [slice(int(offset), int(offset) + int(size)) for offset, size in re.findall(r"(\d+) (\d+)\n", LAYOUT)]


class Board(Desk):
    chip = property(lambda self: self.state / "flash.bin")

    def __exit__(self, *_):
        for child in self.spawned:
            child.close(force=True)

    def console(self):
        """./run --board on a terminal, at the console's first prompt."""
        with socket.create_server(("127.0.0.1", 0)) as probe:
            self.port = str(probe.getsockname()[1])
        self.line = self.spawn("./run", "--board", "--telnet", self.port)
        self.line.timeout = 4 * PATIENCE  # of a busy machine a kernel's start takes much
        if self.line.expect(["Username:", "[^\n]*cannot be had|Packages (?:are missing|could not)[^\n]*"]):
            pytest.skip(self.line.after)
        self.emulator = next(one for one in psutil.Process(self.line.pid).children() if "qemu" in one.name())
        return self.line

    def shell(self, command):
        """What a command prints on the board, by the shell on its other serial line."""
        terminal = self.spawn("socat", "-,raw,echo=0", f"UNIX:{self.state}/shell")
        terminal.sendline(f"echo begin $((1)); {command}; echo end $((1))")
        terminal.expect(r"begin 1\r\n(.*)end 1\r\n")
        terminal.close()
        return terminal.match[1].replace("\r\n", "\n")

    def owns_network(self):
        return True

    def lease(self, mac):
        told = r'#!/bin/sh\n[ "$1" != bound ] || echo "$ip $subnet $router $dns $lease"\n'
        return self.shell(f"printf '{told}' >/tmp/told; chmod +x /tmp/told; ip link set lan0 address {mac}; "
                          "udhcpc -i lan0 -fqn -t 30 -T 1 -s /tmp/told 2>/dev/null")

    def wait_for_log(self, told):
        return self.shell("cat /var/tmp/messages")

    def store(self, text, partition="5"):
        """Puts a text into a partition of the chip, while the board is off."""
        self.state.mkdir(exist_ok=True)
        chip = bytearray(self.chip.read_bytes() if self.chip.exists() else 2**21 * b"\xff")
        start = PARTITIONS[int(partition)].start
        chip[start:start + len(text)] = text.encode()
        self.chip.write_bytes(chip)

    def settings(self):
        return self.chip.read_bytes()[PARTITIONS[5]]

    def show(self, settings=None):
        """All settings that the web server would find at a boot, now or in such bytes."""
        partition = self.state / "partition"
        partition.write_bytes(settings or self.settings())
        return self.run(partition, TREE / "desk/defaults/metafile.dat.default",
                        program=TREE / "build/release/desk/show_settings").stdout

    def cut_during(self, action):
        """What cuts of the power at random moments of an action would leave of the settings."""
        left = []
        with concurrent.futures.ThreadPoolExecutor() as pool:
            acting = pool.submit(action)
            while not acting.done():
                time.sleep(random.uniform(0, 0.05))
                self.emulator.suspend()
                left.append(self.settings())
                self.emulator.resume()
        acting.result()
        return left


@pytest.fixture
def board(tmp_path):
    with Board(tmp_path / "board") as one:
        yield one


def test_the_walk_is_that_of_the_desk_and_one_login_is_for_serial_line_and_ethernet(board, tmp_path):
    with Desk(tmp_path / "desk") as desk:
        walked, _ = tour(desk)
        if not desk.owns_network():
            pytest.skip("Without namespaces the desk has no network to compare the board's with.")
    shown, _ = tour(board)
    assert shown.splitlines() == walked.replace("date: can't set date: Operation not permitted\n", "").splitlines()
    board.spawn("telnet", "127.0.0.1", board.port).expect("Duplex Login with 127.0.0.1")


def test_a_cut_of_power_leaves_the_old_settings_or_the_new(board):
    board.store("".join(f"url_filter_table[{rule}].filter_string={240 * 'x'}\n" for rule in range(32)))  # blocks enough
    board.store("0|5551234|20100314150926|0|20100314150938|1003|0|1\n", partition="6")
    line = board.console().log_in()
    factory, stored, cuts = board.show(b"\0"), board.show(), 0
    for *item, answers, end in (
            ("SIP setting", "Basic Setting", {"SIP Port Number?": "5071"}, {}),
            ("Basic Network Setting", "DHCP setting", {"What item": "0", "DHCP Server End IP?": "192.168.1.160"}, {}),
            ("SIP setting", "Basic Setting", {"SIP Port Number?": "5072"}, {}),
            ("Tools", "System Setting", {"0:Ping command": "1", "Set defice": "yes"}, {"until": "System reboot"})):
        left = board.cut_during(lambda: line.visit(*item, answers, **end))
        before, stored = stored, board.show()
        assert before != stored and {board.show(settings) for settings in set(left)} <= {before, stored}
        cuts += len(left)
    assert cuts > 40 and stored == factory
    line.expect("Booting Linux.*Username:")

    # With BOARD_CUTS=40 in the environment there are so many of these, which switch the board off before it boots.
    for port in range(6000, 6000 + int(os.environ.get("BOARD_CUTS", "1"))):
        before = board.show()
        line.log_in().visit("SIP setting", "Basic Setting", {"SIP Port Number?": str(port)}, until="Host Name?")
        line.sendline()
        time.sleep(random.uniform(0, 1))
        board.emulator.kill()
        line.expect(pexpect.EOF)
        stored = board.show()
        assert stored in (before, re.sub(r"(?m)^sip_port=.*", f"sip_port={port}", before))
        line = board.console()
        assert board.shell("show_settings /dev/mtdblock/5 /opt/webctrl/meta/metafile.dat.default 2>/dev/null") == stored
    assert "5551234" in line.log_in().visit("Status", "Call Detailed Record")
