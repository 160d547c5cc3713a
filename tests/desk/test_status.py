"""The status pages on the whole device: real tools, the real log, and a voice daemon that may be gone."""

import re
import time

import pytest


@pytest.mark.parametrize("wan_type, script", enumerate(("", "udhcpc", "pppoe", "pptp", "l2tp", "bigpond")))
def test_the_device_page_shows_what_the_tools_say_and_asks_the_scripts(desk, wan_type, script):
    def interface(name, label):
        mac, ip, _, netmask = desk.address(name)
        return f"{label} MAC Address : {mac}\n{label} IP Address : {ip}\n{label} Subnet Mask : {netmask}\n"

    desk.store(f"wan_type={wan_type}\nstatic_ip=203.0.113.77\nstatic_gateway=203.0.113.1\ndns_proxy_enable=0\n")
    child = desk.log_in()
    before = len(desk.log())
    ended = {"0:Release" if script == "udhcpc" else "0:Disconnect": "0"} if script else {}
    page = child.visit("Status", "Device Infomation", ended).replace("\r\n", "\n")
    asked = [(script, "stop"), (script, "restart")]
    assert re.findall(r"(\w+)\.sh: asked to (.*)", desk.log()[before:]) == asked[:min(wan_type, 2)]
    assert re.search(r"System Date : \w{3} \w{3} [ \d]\d \d\d:\d\d:\d\d \S+ \d{4}\nUp Time : +\S.*\nDevice Mode", page)
    assert "DNS 1 (Primary):203.0.113.1\nDNS 2 (Secondary):203.0.113.2\nOther DNS: \n" in page
    assert "DHCP Server Function : Enabled \nDNS Proxy Function : Disabled \n" in page
    if desk.owns_network():
        wan = interface("eth0", "WAN") if wan_type < 2 else "\nWAN is disconnection!\n"
        wan = "" if script == "bigpond" else f"{wan}WAN Gateway Address : 203.0.113.1\n"
        assert f" \n{wan}DNS 1 " in page and interface("eth1", "LAN") in page


def test_viewing_changes_nothing_and_a_lost_voice_daemon_is_waited_for_five_seconds(desk):
    def dump():
        desk.inside("/opt/httpd/sbin/web_server", "dumpshare")
        return desk.partition.read_bytes()

    child = desk.log_in()
    entries = "while [ $((i += 1)) -le 25 ]; do logger -t test entry $i %s%n; logger -t test debug; done"
    desk.inside("/bin/sh", "-c", entries)
    assert "entry 25" in desk.log()  # which makes an entry of its own
    before = dump()
    page = child.visit("Status", "Log", {"q:Exit , other:Continue": "q"})
    shown = re.findall(r"^\w{3} [ \d]\d [\d:]{8} user.notice entry (\d+) %s%n ", page, re.M)
    assert [int(entry) for entry in shown] == list(range(25, 6, -1)) and "debug" not in page
    (desk.state / "root/usr/sbin/voice_daemon").unlink()  # or it would be started again
    daemon, = [process for process in desk.processes() if process.name() == "voice_daemon"]
    daemon.kill()
    started = time.monotonic()
    assert "Phone 1" not in child.visit("Status", "Line State")
    assert time.monotonic() - started < 15
    assert dump() == before
