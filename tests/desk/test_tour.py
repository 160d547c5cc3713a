"""A walk through all menus of the whole device: what is shown, stored and in force then, also with the programs for
32-bit Arm under qemu."""

import io
import re
from shutil import which

import pytest
from desk import Desk

RULE = {"Add new rule": "0", "Enable this rule?": "1"}
HOME = {"Start IP?": "192.168.1.10", "End IP?": "192.168.1.20"}
SCHEDULE = {"Schedule?": "1", "Start Time Hour?": "8", "Start Time Minute?": "5", "End Time Hour?": "17",
            "End Time Minute?": "30", "Start Day?": "5", "End Day?": "1"}
# Items of the menus and what is answered there; at all others the values are kept. What would restart the device or
# its LAN ends with an answer that is refused.
VISITS = [
    ("Wan Setting", {"WAN Type?": "0", "WAN MAC Type?": "1", "IP?": "198.51.100.7", "Secondary DNS IP": "0.0.0.0"}),
    ("Wan Setting", {"WAN Type?": "1", "Set DNS?": "7"}),
    ("Lan Setting", {"Lan MASK": "255.0.255.0"}),
    ("DHCP setting", {"What item": "0", "DHCP Server End IP?": "192.168.1.160", "DHCP IP Lease Time?": "2"}),
    ("DHCP setting", {"What item": "1", **RULE, "IP?": "192.168.1.155", "MAC?": "02:00:5e:aa:BB:cc",
                      "Description?": "$(reboot) static_lease"}),
    ("NAT Setting", {"DMZ Enable?": "1", "DMZ Lan IP": "192.168.1.77"}),
    ("Virtual Server Setting", {**RULE, "Private IP?": "192.168.1.10", "Protocol Type?": "2", "Private Port?": "80",
                                "Public Port?": "8080", **SCHEDULE}),
    ("Application Setting", {**RULE, "Trigger Port?": "6112", "Trigger Type?": "1", "Public Port Start?": "6113",
                             "Public Port End?": "6119", "Public Type?": "0", "Schedule?": "0"}),
    ("Static Route Setting", {**RULE, "Type?": "0", "Target?": "10.9.8.7", "Netmask?": "255.255.0.0",
                              "Gateway?": "192.168.1.9"}),
    ("MAC Filter", {"Enable MAC Filter Function?": "1", **RULE, "MAC Address": "02:00:5e:aa:BB:0c", **SCHEDULE}),
    ("IP Filter", {"Enable IP Filter Function?": "1", **RULE, **HOME, "Start Port?": "1", "End Port?": "1023",
                   "Type?": "0", "Schedule?": "0"}),
    ("URL Filter", {"Enable URL Filter Function?": "1", **RULE, **HOME, "URL Filter String?": "a=b;$(reboot) %s"}),
    ("Domain Filter", {"Enable Domain Filter Function?": "1", **RULE, **HOME, "Domain Filter String?": "example.com"}),
    ("Firewall Setting", {"Enable Firewall Function?": "1", **RULE, "Action?": "1", "Source interface?": "2",
                          "Source IP Range Start?": "203.0.113.1", "Source IP Range End?": "203.0.113.9",
                          "Destination IP Range Start?": "192.168.1.1", "Destination IP Range End?": "192.168.1.9",
                          "Protocol?": "0", "Destination Port Start?": "1", "Destination Port End?": "81", **SCHEDULE}),
    ("UPNP Setting", {"UPNP Enable?": "1"}),
    *(("Rule Summary", {"Select a list?": str(rules)}) for rules in range(8)),
    ("Basic Setting", {"SIP Port Number?": "5073"}),
    ("Account Setting", {"Phone 0 Enable?": "1", "Phone Number?": "1001"}),
    ("NAT Traversal", {"STUN Enable?": "1", "STUN Server IP/URL?": "stun.example.net"}),
    ("Call Service", {"Call Service Phone 0 call_forward_always_uri?": "one"}),
    ("Phone Book Setting", {"Action": "0", "Phone Book SpeedDial Digit?": "4", "phone number": "5551234", "note": ""},
     {"Action": "3"}, {"Action": "q"}),
    ("Call Screen", {"Action": "0", "Phone No.?": "0", "input type": "0", "input Phone Number": "5559876"},
     {"Action": "3", "Phone No.?": "0"}, {"Action": "q"}),
    ("Day/Time Setting", {"Date Time Set By": "0", "Select Time Zone": "13", "Year": "2010", "Month": "3", "Day": "14",
                          "Hour": "15", "Minute": "9", "Second": "26"}),
    ("Day/Time Setting", {"Date Time Set By": "1", "Select Time Zone": "99", "NTP Server": "time.example.net $(date)"}),
    ("DDNS Setting", {"DDNS Enable?": "1", "DDNS Server Type?": "2", "User Name?": "me", "Password?": "s3cret",
                      "Host?": "home.example.net"}),
    ("System Setting", {"0:Ping command": "0", "PING Destination": "127.0.0.1"},
     {"[4830NT]": "0", "PING Destination": "$(/sbin/bbreboot);'"},
     {"[4830NT]": "1", "Set defice configuration": "no"}, {"[4830NT]": "q"}),
    ("Device Infomation", {"0:Release": "2"}),
    ("Log", {"q:Exit , other:Continue": "q"}),
]

IN_FORCE = """\
DMZ host: 192.168.1.77
virtual server 0: TCP and UDP port 8080 to 192.168.1.10 port 80, 8:05-17:30 on Sun Mon Fri Sat
special application 0: UDP to port 6112 opens TCP ports 6113-6119, always
firewall 0: allow TCP from any 203.0.113.1-203.0.113.9 to WAN 192.168.1.1-192.168.1.9 ports 1-81, \
8:05-17:30 on Sun Mon Fri Sat
IP filter 0: 192.168.1.10-192.168.1.20 TCP ports 1-1023, always
MAC filter 0: 02:00:5e:aa:bb:0c, 8:05-17:30 on Sun Mon Fri Sat
URL filter 0: 192.168.1.10-192.168.1.20: a=b;$(reboot) %s
domain filter 0: 192.168.1.10-192.168.1.20: example.com
-net 10.9.0.0 netmask 255.255.0.0 gw 192.168.1.9
UPnP: programs of the LAN open ports at 192.168.1.1
"""

# Of the moment, and shown: the clock, by the device page and by the date dialogue, and the time since the start.
MOMENT = re.compile(r"(System Date|Up Time) : .*|(Year  |Month |Day   |Hour  |Minute|Second)\(\d+\)")


def tour(desk):
    """What a walk to each item of each submenu shows, but for the moment, and leaves behind; and the device's log."""
    desk.store("0|5551234|20100314150926|0|20100314150938|1003|0|1\n", partition="6")
    child = desk.console().log_in()
    # The snapshot of the log is made only when there is none.
    desk.shell("while [ $((i += 1)) -le 25 ]; do echo entry $i %s; done >/var/tmp/messages.tmp")
    child.logfile_read = io.StringIO()
    unseen = {item for item, *_ in VISITS}
    for submenu in child.items():
        child.choose(submenu)
        child.answer()
        for item in child.items():
            for answers in [answers for visited, *answers in VISITS if visited == item] or [()]:
                child.choose(item)
                child.answer(*answers)
            unseen.discard(item)
        child.choose("Exit")
        child.answer()
    assert not unseen
    shown = MOMENT.sub(r"\1\2", child.logfile_read.getvalue().replace("\r\n", "\n"))
    shown += desk.shell("cd /var/run && cat nat.rules filter.rules staticroute.rules upnpd.rules")
    if desk.owns_network():
        shown += desk.shell("route -n") + desk.lease("02:00:5e:aa:bb:cc")
    return shown + desk.show(), desk.wait_for_log('phone 0 forwards to "one"')


@pytest.fixture(scope="module")
def toured(tmp_path_factory):
    with Desk(tmp_path_factory.mktemp("walk")) as desk:
        return tour(desk)


def test_what_is_set_on_a_walk_through_all_menus_is_in_force(toured):
    shown, log = toured
    assert IN_FORCE in shown and "entry 25 %s\nentry 24 %s\n" in shown
    for told in ("ntp.sh: time zone GMT+1, time from the server time.example.net $(date)",
                 "ddns.sh: registers home.example.net with easydns as me",
                 'serving SIP port 5073, line 0 "1001" at "", line 1 disabled, phone book 1, call service on'):
        assert told in log
    assert "s3cret" not in log and "bbreboot: " not in log
    if "Kernel IP routing table" not in shown:
        pytest.skip("Without namespaces the desk has no network of its own.")
    assert "\n10.9.0.0 " in shown
    assert "\n192.168.1.155 255.255.255.0 192.168.1.1 192.168.1.1 10800\n" in shown
    assert "\nWAN MAC Address : 02:00:5E:48:30:00  \nWAN IP Address : 203.0.113.10\n" in shown


def test_arm_shows_and_stores_the_same(toured, tmp_path):
    if not (which("arm-linux-gnueabihf-g++") and which("qemu-arm")):
        pytest.skip("The programs for Arm need the packages g++-arm-linux-gnueabihf and qemu-user.")
    with Desk(tmp_path, preset="arm") as desk:
        assert tour(desk)[0].splitlines() == toured[0].splitlines()
