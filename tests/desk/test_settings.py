"""What the desk's web server stores and reads, and what a person is told about it."""

import pexpect


def test_lines_that_cannot_be_used_are_told_by_number_and_a_half_written_dump_replaces_nothing(desk):
    desk.store("#ver.1.10\nsip_port=5099\nno_such_setting=1\nsession_timer=soon\nlan_ip=10.1.1.1\n\x01\xff")
    desk.spawn("./run").expect("./run --log names their lines.*Username:")
    log = desk.log()
    for complaint in ("line 3 names no setting", "line 4 has no value", "line 6 is not name=value"):
        assert f"web_server: /dev/mtdblock/5, {complaint}" in log
    read = {"sip_port": "5099", "session_timer": "1800", "lan_ip": "10.1.1.1"}
    assert desk.show(*read) == read

    desk.inside("/bin/sh", "-c", "ulimit -f 4; ! /opt/httpd/sbin/web_server dumpshare")
    half_written = desk.partition.with_name("5.new")
    assert half_written.stat().st_size == 2048 and desk.show(*read) == read
    desk.inside("/opt/httpd/sbin/web_server", "dumpshare")
    assert desk.partition.stat().st_size > 20000 and not half_written.exists()


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
