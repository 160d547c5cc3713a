"""What the desk's web server stores and reads, and what a person is told about it."""

import pexpect


def test_lines_that_cannot_be_used_are_told_by_number_and_a_copy_that_is_not_whole_counts_for_nothing(desk):
    desk.store("#ver.1.10\nsip_port=5099\nno_such_setting=1\nsession_timer=soon\nlan_ip=10.1.1.1\nsession_timer=18")
    child = desk.spawn("./run")
    child.expect("./run --log names their lines.*Username:")
    log = desk.log()
    for complaint in ("line 3 names no setting", "line 4 has no value", "line 6 was cut off"):
        assert f"web_server: /dev/mtdblock/5, {complaint}" in log
    old = {"sip_port": "5099", "session_timer": "1800", "lan_ip": "10.1.1.1"}
    assert desk.show(*old) == old

    desk.inside("/opt/httpd/sbin/web_server", "dumpshare")
    desk.log_in(child).visit("SIP setting", "Basic Setting", {"SIP Port Number?": "5071"})
    whole = desk.partition.read_bytes()
    copy = whole.rindex(b"#copy")
    for image, wanted in (
            (whole, "5071"), (whole[:-1], "5099"), (whole[:-2] + b"\xff\n", "5099"), (whole[:copy], "5099"),
            (whole[:copy + 24] + b"9" + whole[copy + 25:], "5099"), (whole[:copy + 26] + b"9" + whole[copy + 27:], "5099"),
            # A text at the start counts instead, as far as it goes.
            (b"sip_port=5088\nsip_port=50\xff" + whole[26:], "5088")):
        desk.partition.write_bytes(image)
        assert desk.show("sip_port") == {"sip_port": wanted}


def test_show_and_reset_and_boot_know_their_limits(desk):
    (desk.state / "root/somebody's").mkdir(parents=True)
    assert "desk.log says why" in desk.run().stderr and (desk.state / "root/somebody's").exists()
    (desk.state / "root").rename(desk.state / "another")
    unknown = desk.run("--show", "sip_por")
    assert (unknown.returncode, unknown.stdout, unknown.stderr[:31]) == (1, "", "No setting is called sip_por; d")
    desk.store("sip_port=5099\n")
    child = desk.console()
    assert "The desk is up" in desk.run("--reset").stderr and desk.partition.exists()
    child.sendintr()
    child.expect(pexpect.EOF)
    desk.end()
    assert desk.run("--reset").returncode == 0 and not desk.partition.exists()
