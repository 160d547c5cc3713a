"""The ways a desk is started and left: by whoever, with whatever ignored, closed or held."""

import os

import pytest

IGNORED = "--ignore-signal=HUP,INT,QUIT,TERM,PIPE,CHLD,TSTP"


def test_it_does_not_matter_what_is_ignored_or_closed_or_set_where_it_is_started(desk, tmp_path):
    script = tmp_path / "script"  # longer than a pipe holds
    menus = "".join(f"{submenu}\nq\n" for submenu in range(6))
    script.write_text(f"admin\nadmin\n{4000 * menus}2\n0\n5071\n" + 13 * "\n" + "q\nq\n")
    started = desk.run("-c", f"umask 777; LC_ALL=xx_XX exec env {IGNORED} ./run <'{script}'", program="sh")
    assert (started.returncode, started.stdout.count("q:Exit")) == (1, 4000 * 12 + 4)
    assert desk.show("sip_port") == "sip_port=5071\n"
    assert "forgotten" in desk.run("--reset").stderr and desk.show("sip_port") == "sip_port=5060\n"
    assert desk.run("-c", "./run <&- 2>&-", program="sh").stdout == "Username:Bye Bye!!\n"


def test_ctrl_z_stops_no_ping_and_ctrl_c_gives_the_login_back_though_one_hangs(desk):
    desk.console()  # keeps the desk up
    ping, hangs = desk.root / "bin/ping", desk.root / "tmp/hangs"
    ping.unlink()
    ping.write_text("#!/bin/sh\ntrap '' INT TERM HUP\nread -r _ </tmp/hangs\n")
    ping.chmod(0o755)
    os.mkfifo(hangs)
    child = desk.console("bash", "-mc", f"env {IGNORED} ./run; exit $?").log_in()  # a shell that sees a stopped job
    child.send("4\n4\n0\nfirst\n")
    with open(hangs, "w"):
        child.sendcontrol("z")
        child.expect_exact("^Z")
    child.expect("Request timed out.")
    assert desk.run().stdout.startswith("Duplex Login") and "The desk is up" in desk.run("--reset").stderr
    child.send("0\nsecond\n")
    with open(hangs, "w"):
        child.sendintr()
        child.expect("Bye Bye!!")
    assert child.wait() == 130
    assert desk.run().stdout.startswith("Username:")


def test_what_root_leaves_in_somebody_elses_folder_is_theirs(desk):
    nobody = 65534
    desk.state.mkdir()
    try:
        os.chown(desk.state, nobody, nobody)
    except OSError as cannot:
        pytest.skip(str(cannot))
    with desk:
        assert "Username:" in desk.run().stdout
    assert [path for path in desk.state.rglob("*") if path.lstat().st_uid != nobody] == []
