"""The ways a desk is started and left: by whoever, with whatever ignored, closed, held or full."""

import os
import socket
import time

import pytest

IGNORED = "--ignore-signal=HUP,INT,QUIT,TERM,PIPE,CHLD,TSTP"


def test_it_does_not_matter_what_is_ignored_or_closed_or_set_where_it_is_started(desk):
    answers = "admin\nadmin\n2\n0\n5071\n" + 13 * "\n" + "q\nq\n"
    started = desk.run("-c", f"umask 777; LC_ALL=xx_XX exec env {IGNORED} ./run", program="sh", text=answers)
    assert "Setting Save!!" in started.stdout and desk.show("sip_port") == {"sip_port": "5071"}
    reset = desk.run("--reset")
    assert "forgotten" in reset.stderr and desk.show("sip_port") == {"sip_port": "5060"}
    assert desk.run("-c", "./run <&- 2>&-", program="sh").stdout == "Username:Bye Bye!!\n"


def test_ctrl_c_gives_the_login_back_though_a_script_hangs(desk):
    desk.console()  # keeps the desk up
    hangs = desk.state / "root/tmp/hangs"
    script = desk.state / "root/etc/init.d/ddns.sh"
    script.write_text("#!/bin/sh\ntrap '' INT TERM HUP\n: >/tmp/hangs\nsleep 1000\nsleep 1000\n")
    for choices in "", "4\n3\n0\n":
        child = desk.spawn("env", IGNORED, "./run")
        child.expect("Username:")
        desk.log_in(child)
        assert desk.run().stdout.startswith("Duplex Login")
        child.send(choices)
        while choices and not hangs.exists():
            time.sleep(0.05)
        child.sendintr()
        child.expect("Bye Bye!!")
        assert child.wait() == 130
        assert desk.run().stdout.startswith("Username:")


def test_a_telnet_port_that_others_have_is_not_announced(desk):
    with socket.create_server(("127.0.0.1", 0)) as other:
        refused = desk.run("--telnet", str(other.getsockname()[1]))
    assert refused.returncode == 1 and "served" not in refused.stderr


def test_a_full_disk_is_said_on_the_screen(desk):
    desk.state.mkdir()
    script = 'mount -t tmpfs -o size=2m none "$DESK_STATE" && echo mounted && ./run'
    started = desk.run("--map-root-user", "--mount", "sh", "-c", script, program="unshare")
    if "mounted" not in started.stdout:
        pytest.skip(started.stderr)
    assert started.returncode == 1 and "No space left on device" in started.stderr


def test_what_root_leaves_in_somebody_elses_folder_is_theirs(desk):
    nobody = 65534
    desk.state.mkdir()
    try:
        os.chown(desk.state, nobody, nobody)
    except OSError as cannot:
        pytest.skip(str(cannot))
    assert "Username:" in desk.run().stdout
    desk.end()
    assert [path for path in desk.state.rglob("*") if path.lstat().st_uid != nobody] == []
