"""The status pages on the whole device: real tools, the real log, and a voice daemon that may be gone."""

import os
import re
import signal
import time

import pytest
from desk import PROMPT, command_line

STOP, RESTART = "asked to stop", "asked to restart"
LINK = {"0": [STOP, RESTART], "1": [RESTART]}
ACTIONS = {  # by WAN type: the answers, and what its script is asked for them
    0: ("", {"": []}), 1: ("udhcpc", {"0": [STOP], "1": [RESTART], "2": []}),
    2: ("pppoe", LINK), 3: ("pptp", LINK), 4: ("l2tp", LINK), 5: ("bigpond", LINK),
}


def interface(desk, name, label):
    shown = desk.inside("/sbin/ifconfig", name).stdout
    mac, ip, netmask = re.search(r"HWaddr (.*)\n.*inet addr:(\S+) .*Mask:(.*)", shown).groups()
    return f"{label} MAC Address : {mac}\n{label} IP Address : {ip}\n{label} Subnet Mask : {netmask}\n"


@pytest.mark.parametrize("wan_type", ACTIONS)
def test_the_device_page_shows_what_the_tools_say_and_asks_the_scripts(desk, wan_type):
    desk.store(f"wan_type={wan_type}\nstatic_ip=203.0.113.77\nstatic_gateway=203.0.113.1\ndns_proxy_enable=0\n")
    child = desk.log_in(desk.console())
    script, actions = ACTIONS[wan_type]
    for answer, asked in actions.items():
        before = len(desk.log())
        child.sendline("5")
        child.expect(PROMPT)
        child.sendline("0")
        child.expect("Device Information\r\n.*" + "-{54}\r\n(?=0:)")
        page = child.after.replace("\r\n", "\n")
        if wan_type != 0:
            child.sendline(answer)
        child.expect(r"q:Exit\r\n\r\n\[4830NT\]#")
        assert ("Configuration successed." in child.before) == bool(asked)
        child.sendline("q")
        child.expect(r"\[4830NT\]#$")
        assert re.findall(r"\w+\.sh: asked.*", desk.log()[before:]) == [f"{script}.sh: {word}" for word in asked]

    assert re.search(r"System Date : \w{3} \w{3} [ \d]\d \d\d:\d\d:\d\d \S+ \d{4}\nUp Time : +\S.*\nDevice Mode", page)
    assert "DNS 1 (Primary):203.0.113.1\nDNS 2 (Secondary):203.0.113.2\nOther DNS: \n" in page
    assert "DHCP Server Function : Enabled \nDNS Proxy Function : Disabled \n" in page
    if desk.owns_network():
        wan = {0: interface(desk, "eth0", "WAN"), 1: interface(desk, "eth0", "WAN"), 5: ""}
        wan = wan.get(wan_type, "\nWAN is disconnection!\n")
        gateway = "" if wan_type == 5 else "WAN Gateway Address : 203.0.113.1\n"
        assert f" \n{wan}{gateway}DNS 1 " in page and interface(desk, "eth1", "LAN") in page


def test_viewing_changes_nothing_and_a_lost_voice_daemon_is_waited_for_five_seconds(desk):
    def dump():
        assert desk.inside("/opt/httpd/sbin/web_server", "dumpshare").returncode == 0
        with open(desk.partition, "rb") as file:
            return file.read()

    desk.store("sip_line[0].phone_enable=1\nsip_server[0].registrar_address=sip.example.net\n")
    child = desk.log_in(desk.console())
    before = dump()
    voice = desk.voice()
    voice.wait_for(b"get rtpstatcurrentsend 0 0\n\n", lambda count: int(count) > 0)
    pages = [desk.choose(child, "5", "2") for _ in range(2)]
    assert all(re.search(r"\ntalking +\|disabled +\|registered +\|disabled +\r\n", page) for page in pages)
    sent = [int(re.search(r"  1  \|   0   \| +(\d+)\|", page)[1]) for page in pages]
    voice.wait_for(b"get rtpstattotalsend 0 0\n\n", lambda count: int(count) > sent[1] >= sent[0])

    desk.inside("/bin/sh", "-c", "i=0; while [ $((i += 1)) -le 25 ]; do logger -t test entry $i a %s%n nodebugging; "
                "logger -t test entry $i %s%n; done")
    shown = ""
    for line in "5", "1":
        child.sendline(line)
    while child.expect([r"q:Exit , other:Continue:$", "haven't other log message\r\n\r\n\r\n"]) == 0:
        shown += child.before + child.after
        child.sendline("")
    shown = (shown + child.before).replace("\r\n", "\n")
    child.sendline("q")
    child.expect("5:Status.*" + PROMPT)
    told = [line.split() for line in desk.log().splitlines() if "debug" not in line]
    told = [" ".join((words + [""] * 14)[i] for i in (0, 1, 2, 4, 6, 7, 8, 9, 10, 11, 12, 13)) for words in told]
    assert re.findall(r"^\w{3} .*", shown, re.M) == told[::-1]
    assert shown.count("q:Exit , other:Continue:") == (len(told) - 1) // 20 and "entry 25 %s%n" in shown

    os.remove(desk.state + "/root/usr/sbin/voice_daemon")  # or it would be started again
    daemon, = [process for process in desk.processes() if command_line(process) == "voice_daemon\0"]
    os.kill(int(daemon), signal.SIGKILL)
    started = time.monotonic()
    assert "Phone 1" not in desk.choose(child, "5", "2")
    assert time.monotonic() - started < 6
    assert dump() == before
