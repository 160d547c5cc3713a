"""What lies in the flash partition when the device boots, and what becomes of it."""

import re

from desk import eventually


def test_stored_rules_are_in_force_from_boot_until_they_are_deleted_and_useless_lines_are_told(desk):
    useless = ["enable=1", "sip=1", "sip_port[0]=1", "url_filter_table[32].enable=1", "url_filter_table[1x].enable=1",
               "wan_type=256", "wan_type=-1", "wan_type=", "sip_port=5060,", "lan_ip=1.2.3", "lan_ip=1.2.3.4.5",
               "wan_mac=1:2:3:4:5:100", "host_name=a\\x1", "host_name=\\qabc", "host_name=\\xzz",
               "mac_filter_table[0].week_mask=111111", "ddns_user_name=" + 33 * "n"]
    desk.store("\n".join(useless) + "\nmac_filter_enable=200\nmac_filter_table[30].enable=200\n"
               "mac_filter_table[31].enable=1\nmac_filter_table[31].schedule_mode=9\n"
               "mac_filter_table[31].week_mask=\\x00\\xff\\x0a1$`1\n")
    child = desk.spawn("./run")
    child.expect("./run --log names their lines.*Username:")
    told = re.findall(r"web_server: /dev/mtdblock/5, line (\d+) .*skipped", desk.wait_for_log(f"line {len(useless)} "))
    assert told == [str(number + 1) for number in range(len(useless))]
    assert desk.shell("cat /var/run/filter.rules") == "MAC filter 31: 00:00:00:00:00:00, 0:00-0:00 on Wed Sat\n"
    child.log_in().visit("Advanced Network Setting", "MAC Filter", {
        "Enable MAC Filter Function?": "1", "Add new rule": "1", "What item": "31", "Del or Edit": "0"})
    assert desk.shell("cat /var/run/filter.rules") == ""


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


def test_a_copy_of_the_settings_that_is_not_whole_counts_for_nothing_and_a_text_at_the_start_counts_instead(desk):
    child = desk.console().log_in()
    for port in "5099", "5071":
        child.visit("SIP setting", "Basic Setting", {"SIP Port Number?": port})
    image = desk.partition.read_bytes()
    for partition, port in ((image, "5071"), (image[:-1], "5099"), (image[:-2] + b"\xff\n", "5099"),
                            (b"sip_port=5088\nsip_port=50\xff" + image[26:], "5088")):
        desk.partition.write_bytes(partition)
        assert desk.show("sip_port") == f"sip_port={port}\n"
