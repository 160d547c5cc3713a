"""What lies in the flash partition when the device boots, and what becomes of it."""

import re

from desk import eventually


def test_stored_lines_are_in_force_from_boot_or_told_by_number_and_half_a_dump_replaces_none(desk):
    desk.store("sip_port=5099\nno_such_setting=1\nsession_timer=soon\n\x01\xff\nupnp_enable=1\nmac_filter_enable=200\n"
               "mac_filter_table[31].enable=1\nmac_filter_table[31].schedule_mode=9\n"
               "mac_filter_table[31].week_mask=\\x00\\xff\\x0a1$`1\nmac_filter_table[30].enable=200\n")
    child = desk.spawn("./run")
    child.expect("./run --log names their lines.*Username:")
    for complaint in ("line 2 names no setting", "line 3 has no value", "line 4 is not name=value"):
        desk.wait_for_log(f"web_server: /dev/mtdblock/5, {complaint}")
    in_force = "cat /var/run/filter.rules /var/run/upnpd.rules"
    rule = "MAC filter 31: 00:00:00:00:00:00, 0:00-0:00 on Wed Sat\n"
    assert desk.shell(in_force) == f"{rule}UPnP: programs of the LAN open ports at 192.168.1.1\n"
    child.log_in().visit("Advanced Network Setting", "NAT Setting", {"NAT Enable?": "0"})
    child.visit("Advanced Network Setting", "UPNP Setting", {"UPNP Enable?": "1"})
    assert desk.shell(in_force) == rule
    child.visit("Advanced Network Setting", "MAC Filter", {
        "Enable MAC Filter Function?": "1", "Add new rule": "1", "What item": "31", "Del or Edit": "0"})
    assert desk.shell(in_force) == ""

    desk.shell("ulimit -f 4; ! /opt/httpd/sbin/web_server dumpshare")
    assert desk.partition.with_name("5.new").stat().st_size == 2048
    assert desk.show("sip_port", "session_timer") == "sip_port=5099\nsession_timer=1800\n"


def test_voice_lines_follow_the_stored_accounts_and_have_calls(desk):
    assert desk.run("--calls", "3").stderr == "The call log has 3 past calls.\n"
    desk.store("sip_line[*].phone_enable=1\nsip_line[0].phone_number=5551000\nsip_line[*].auth_password=secret\n"
               "sip_server[*].registrar_address=sip.example.net\nsip_line[1].phone_number=\\x1b[31m%s%n\\x0ab\n")
    child = desk.console().log_in()
    for state in r"talking +\|\w+ +\|registered +\|registered ", r"disabled +\|\w+ +\|disabled +\|registered ":
        eventually(lambda: child.visit("Status", "Line State"), lambda page: re.search(state, page))
        child.visit("SIP setting", "Account Setting", {"Phone 0 Enable?": "0"})
    calls = child.visit("Status", "Call Detailed Record")
    assert len(re.findall("\n555\\d+ *\\|", calls)) > 3 and "Service Unavailable" in calls
    assert "secret" not in desk.wait_for_log('line 0 "5551000" at "sip.example.net", line 1 "?[31m%s%n?b"')
