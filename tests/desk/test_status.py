"""The status pages on the whole device: real tools, the real log, and a voice daemon that may be gone."""

import os
import re
import signal
import time

import pytest
from desk import command_line


@pytest.mark.parametrize("wan_type, script", enumerate(("", "udhcpc", "pppoe", "pptp", "l2tp", "bigpond")))
def test_the_device_page_shows_what_the_tools_say_and_asks_the_scripts(desk, wan_type, script):
    def interface(name, label):
        mac, ip, _, netmask = desk.address(name)
        return f"{label} MAC Address : {mac}\n{label} IP Address : {ip}\n{label} Subnet Mask : {netmask}\n"

    desk.store(f"wan_type={wan_type}\nstatic_ip=203.0.113.77\nstatic_gateway=203.0.113.1\ndns_proxy_enable=0\n")
    child = desk.log_in()
    before = len(desk.log())
    page = desk.choose(child, "5", "0", *(["0"] if script else [])).replace("\r\n", "\n")
    assert ("Configuration successed." in child.before) == (script != "")
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
        assert desk.inside("/opt/httpd/sbin/web_server", "dumpshare").returncode == 0
        with open(desk.partition, "rb") as file:
            return file.read()

    desk.store("sip_line[0].phone_enable=1\nsip_server[0].registrar_address=sip.example.net\n")
    child = desk.log_in()
    before = dump()
    voice = desk.voice()
    voice.wait_for(b"get rtpstatcurrentsend 0 0\n\n", lambda count: int(count) > 0)
    page = desk.choose(child, "5", "2")
    assert re.search(r"\ntalking +\|disabled +\|registered +\|disabled +\r\n", page)
    sent = int(re.search(r"  1  \|   0   \| +(\d+)\|", page)[1])
    voice.wait_for(b"get rtpstattotalsend 0 0\n\n", lambda count: int(count) > sent > 0)

    desk.inside("/bin/sh", "-c", "while [ $((i += 1)) -le 25 ]; do logger -t test entry $i two %s%n; "
                "logger -t test nodebugging; done")
    shown = ""
    child.send("5\n1\n")
    while child.expect([r"q:Exit , other:Continue:$", "haven't other log message\r\n\r\n\r\n"]) == 0:
        shown += child.before
        child.sendline("")
    shown += child.before
    entries = re.findall(r"^\w{3} [ \d]\d [\d:]{8} user.notice entry (\d+) two %s%n ", shown, re.M)
    assert entries == [str(number) for number in range(25, 0, -1)] and "debug" not in shown
    child.sendline("q")

    os.remove(desk.state + "/root/usr/sbin/voice_daemon")  # or it would be started again
    daemon, = [process for process in desk.processes() if command_line(process) == "voice_daemon\0"]
    os.kill(int(daemon), signal.SIGKILL)
    started = time.monotonic()
    assert "Phone 1" not in desk.choose(child, "5", "2")
    assert time.monotonic() - started < 6
    assert dump() == before
