"""What the desk's web server stores and reads, and the factory defaults."""

import os

PORT, U16, TOS = (1024, 65535), (0, 65535), {0, 2, 4, 8, 16}
# What the console's prompts accept, where that is more than off and on; for the tables, that every entry is free.
BOUNDS = {
    "wan_type": (0, 5), "static_mtu": (512, 1500), "dhcp_mtu": (512, 1500), "pppoe_mtu": (512, 1492),
    "pptp_mtu": (512, 1400), "l2tp_mtu": (512, 1400), "dhcp_lease_time": {3600 * n for n in (1, 2, 3, 24, 48, 72, 168)},
    "time_zone": (0, 24), "sip_port": PORT, "session_timer": (1, 65535), "media_port_start": PORT,
    "media_port_end": PORT, "rtcp_port": PORT, "sip_transport": (1, 2), "sip_time_interval": (100, 1000),
    "invite_timeout": (1, 100), "ring_back_timeout": (1, 1000), "release_timeout": (4, 10),
    "registration_retry_count": U16, "registration_retry_interval": U16, "ping_interval": U16,
    "auth_expire_time": (60, 65535), "mwi_refresh_timeout": (60, 65535), "registrar_port": PORT, "proxy_port": PORT,
    "outbound_proxy_port": PORT, "call_transfer_timeout": (10, 100), "call_hunting_timeout": (5, 180),
    "call_repeat_timeout": (1, 300), "Call_Transfer_Option": (0, 2), "call_forward_option": (0, 2),
    "call_forward_noans_timeout": U16, "callerid_type": (0, 6), "callerid_power_level": (0, 20),
    "ring_impedance": (1, 8), "hook_flash_detect_ubound": (100, 3000), "hook_flash_detect_lbound": (100, 3000),
    "voice_tx_level": (3, 7), "voice_rx_level": (3, 7), "t38_option": (0, 3), "sip_tos": TOS, "rtp_tos": TOS,
    "pri_voice": (0, 7), "dial_key": {10}, "screen_list": {255}, "enable": {255}, "week_mask": {0, 1000000},
}


def allowed(column, value):
    bounds = BOUNDS.get(column, {0, 1})
    return value in bounds if isinstance(bounds, set) else bounds[0] <= value <= bounds[1]


def test_every_factory_default_is_one_that_its_prompt_accepts(desk):
    desk.console()
    assert desk.inside("/opt/httpd/sbin/web_server", "dumpshare").returncode == 0
    with open(desk.partition, encoding="latin-1") as file:
        version, *lines = file.read().splitlines()
    assert version.startswith("#ver.")
    stored = dict(line.split("=", 1) for line in lines)
    numbers = {name: int(value) for name, value in stored.items() if value.isdigit()}
    assert [name for name, value in numbers.items() if not allowed(name.rsplit(".", 1)[-1], value)] == []
    assert BOUNDS.keys() <= {name.rsplit(".", 1)[-1] for name in numbers}
    assert numbers["media_port_start"] <= numbers["media_port_end"]
    expected = {"admin_user_name": "admin", "admin_password": "admin", "lan_ip": "192.168.1.1",
                "lan_netmask": "255.255.255.0", "lan_broadcast": "192.168.1.255", "dhcp_server_enable": "1",
                "dhcp_start_ip": "192.168.1.100", "dhcp_end_ip": "192.168.1.199", "nat_enable": "1"}
    assert {name: stored[name] for name in expected} == expected


def test_lines_that_cannot_be_used_are_told_by_number_and_skipped(desk):
    desk.store("#ver.1.10\nsip_port=5099\nno_such_setting=1\nsession_timer=soon\nlan_ip=10.1.1.1\n\x01\xff")
    booted = desk.run()
    assert "./run --log names their lines" in booted.stderr
    log = desk.log()
    for complaint in ("line 3 names no setting", "line 4 has no value", "line 6 is not name=value"):
        assert f"web_server: /dev/mtdblock/5, {complaint}" in log
    shown = desk.show("sip_port", "session_timer", "lan_ip")
    assert shown == {"sip_port": "5099", "session_timer": "1800", "lan_ip": "10.1.1.1"}


def test_a_half_written_dump_never_replaces_a_good_one(desk):
    desk.store("sip_port=5098\n")
    desk.console()
    cut_off = desk.inside("/bin/sh", "-c", "ulimit -f 4; /opt/httpd/sbin/web_server dumpshare")
    assert cut_off.returncode != 0
    assert os.path.getsize(desk.partition + ".new") == 2048
    assert desk.show("sip_port") == {"sip_port": "5098"}
    assert desk.inside("/opt/httpd/sbin/web_server", "dumpshare").returncode == 0
    assert os.path.getsize(desk.partition) > 20000 and os.listdir(os.path.dirname(desk.partition)) == ["5"]


def test_show_and_reset_know_their_limits(desk):
    assert desk.show("sip_port") == {"sip_port": "5060"}
    assert len(desk.show("virtual_server_table[0]")) == 11
    unknown = desk.run("--show", "sip_por")
    assert (unknown.returncode, unknown.stdout) == (1, "")
    assert "No setting is called sip_por;" in unknown.stderr
    desk.store("sip_port=5097\n")
    child = desk.console()
    refused = desk.run("--reset")
    assert (refused.returncode, "The desk is up" in refused.stderr) == (1, True)
    child.sendintr()
    assert desk.run("--reset").returncode == 0
    assert desk.show("sip_port") == {"sip_port": "5060"}
