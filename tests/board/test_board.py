"""The device on a whole emulated board: kernel, flash chip, serial line and Ethernet."""

import os
import random
import re
import time

import pexpect
import pytest
from board import Board
from desk import Desk
from test_tour import tour

CALL = "0|5551234|20100314150926|0|20100314150938|1003|0|1\n"
# A text of some erase blocks, so that a save takes its time.
MANY = "".join(f"{table}_filter_table[{rule}].filter_string={200 * 'x'}\n"
               for table in ("url", "domain") for rule in range(32))


@pytest.fixture
def board(tmp_path):
    one = Board(tmp_path / "board")
    yield one
    one.end()


def test_the_walk_is_that_of_the_desk_and_one_login_is_for_serial_line_and_ethernet(board, tmp_path, request):
    desk = Desk(tmp_path / "desk")
    request.addfinalizer(desk.end)
    desk.console()
    if not desk.owns_network():
        pytest.skip("Without namespaces the desk has no network to compare the board's with.")
    shown = tour(board).splitlines()
    assert shown == tour(desk).replace("date: can't set date: Operation not permitted\n", "").splitlines()

    line = board.log_in(board.line)  # init has brought the console back
    board.spawn("telnet", "127.0.0.1", str(board.port)).expect("Duplex Login with 127.0.0.1")
    assert "lease of 192.168.1.1" in board.inside("udhcpc", "-i", "lan0", "-nq")
    pinged = line.visit("Tools", "System Setting", {"0:Ping command": "0", "PING Destination": "203.0.113.1"},
                        {"[4830NT]": "0", "PING Destination": "203.0.113.9"}, {"[4830NT]": "q"})
    assert re.findall("PING Success|Request timed out", pinged) == ["PING Success", "Request timed out"]
    line.visit("Tools", "Day/Time Setting", {"Date Time Set By": "0", "Select Time Zone": "12", "Hour": "12", "Minute": "0"})
    line.visit("Tools", "Day/Time Setting", {"Date Time Set By": "1", "Select Time Zone": "20"})
    assert "Hour  (20)" in line.visit("Tools", "Day/Time Setting", {"Date Time Set By": "0", "Select Time Zone": ""})


def test_a_cut_of_power_leaves_the_old_settings_or_the_new(board):
    board.store(MANY)
    board.store(CALL, partition="6")
    line = board.log_in()
    settings, cuts = board.all_stored(), 0
    for item in (("SIP setting", "Basic Setting", {"SIP Port Number?": "5071"}),
                 ("Basic Network Setting", "DHCP setting", {"What item": "0", "DHCP Server End IP?": "192.168.1.160"}),
                 ("SIP setting", "Basic Setting", {"SIP Port Number?": "5072"}),
                 ("Tools", "System Setting", {"0:Ping command": "1", "Set defice configuration": "yes"})):
        resets = item[0] == "Tools"
        left = board.cut_during(lambda: line.visit(*item, **({"until": "System reboot"} if resets else {})))
        before, settings = settings, board.all_stored()
        assert (settings == board.all_stored(b"")) == resets and settings != before
        assert {board.all_stored(image) for image in set(left)} <= {before, settings}
        cuts += len(left)
    assert cuts > 40
    line.expect("Booting Linux.*Username:")

    # BOARD_CUTS=40: so many in earnest, each followed by a boot.
    for cut in range(int(os.environ.get("BOARD_CUTS", "1"))):
        before = board.all_stored()
        board.log_in(line).choose("SIP setting")
        line.answer()
        line.choose("Basic Setting")
        line.answer({"SIP Port Number?": str(6000 + cut)}, until="Host Name?")
        line.sendline()
        time.sleep(random.uniform(0, 1))
        board.emulator().kill()
        line.expect(pexpect.EOF)
        after = board.all_stored()
        assert after in (before, re.sub(r"\nsip_port=\d+", f"\nsip_port={6000 + cut}", before))
        line = board.console()
        assert board.inside("show_settings", "/dev/mtdblock/5", "/opt/webctrl/meta/metafile.dat.default") == after
    assert "5551234" in board.log_in(line).visit("Status", "Call Detailed Record")
