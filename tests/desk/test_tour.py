"""A walk through all menus of the whole device: what it shows and stores, also on the programs for 32-bit Arm under
qemu, and how much memory a console takes for it."""

import io
import pathlib
import re
import statistics
import subprocess
from shutil import which

import pexpect
import psutil
import pytest
from desk import Desk
from test_rules import RULES, add, table

# Items of the menus and what is answered there; at all others the values are kept. What would restart the device or
# its LAN ends with an answer that is refused.
VISITS = [
    ("Wan Setting", {"WAN Type?": "0", "WAN MAC Type?": "1", "IP?": "198.51.100.7", "Secondary DNS IP": "0.0.0.0"}),
    ("Wan Setting", {"WAN Type?": "1", "Set DNS?": "7"}),
    ("Wan Setting", {"WAN Type?": "2", "PPPoE Type?": "1", "Set DNS?": "7"}),
    ("Wan Setting", {"WAN Type?": "3", "PPTP Type?": "1", "Set DNS?": "7"}),
    ("Wan Setting", {"WAN Type?": "4", "L2TP Type?": "0", "Set DNS?": "7"}),
    ("Wan Setting", {"WAN Type?": "5", "Auth Server?": "2"}),
    ("Lan Setting", {"Lan MASK": "255.0.255.0"}),
    ("DHCP setting", {"What item": "0", "DHCP Server End IP?": "192.168.1.160", "DHCP IP Lease Time?": "2"}),
    ("DHCP setting", {"What item": "1"}, add({"IP?": "192.168.1.155", "MAC?": "02:00:5e:aa:BB:cc", "Description": ""})),
    ("NAT Setting", {"DMZ Enable?": "1", "DMZ Lan IP": "192.168.1.77"}),
    *((item, *table(item, add(answers))) for item, answers, _ in RULES),
    ("Virtual Server Setting", {"Add new rule": "1", "What item": "0", "Del or Edit": "1", "Public Port?": "8081"}),
    *(("Rule Summary", {"Select a list?": str(rules)}) for rules in range(8)),
    ("Basic Setting", {"SIP Port Number?": "5073"}),
    ("Account Setting", {"Phone 0 Enable?": "1", "Phone Number?": "1001", "P-Asserted Enable?": "1",
                         "Use Outbound Proxy for Session?": "1", "Outbound Proxy Server Port?": "5061"}),
    ("NAT Traversal", {"STUN Enable?": "1", "STUN Server IP/URL?": "stun.example.net"}),
    ("NAT Traversal", {"STUN Enable?": "0"}),
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
     {"[4830NT]": "1", "Set defice configuration": "no"}, {"[4830NT]": "q"}),
    ("Device Infomation", {"0:Release": "2"}),
    ("Log", {"q:Exit , other:Continue": "q"}),
]

# Of the moment, and shown: the clock, by the device page and by the date dialogue, and the time since the start.
MOMENT = re.compile(r"(System Date|Up Time) : .*|(Year  |Month |Day   |Hour  |Minute|Second)\(\d+\)")

DOES_NOTHING = '#include <unistd.h>\nint main(void) { char c; return (write(1, "?", 1) + read(0, &c, 1)) < 0; }\n'


def walk(child):
    """From the main menu to each item of each submenu, and back to the main menu."""
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


def tour(desk):
    """What a walk shows, without what is of the moment, and what it leaves stored."""
    desk.store("0|5551234|20100314150926|0|20100314150938|1003|0|1\n", partition="6")
    child = desk.log_in()
    # The snapshot of the log is made only when there is none.
    desk.inside("/bin/sh", "-c", "while [ $((i += 1)) -le 25 ]; do echo entry $i %s; done >/var/tmp/messages.tmp")
    child.logfile_read = io.StringIO()
    walk(child)
    for line in "9", "help", "nothing", "":
        child.sendline(line)
        child.expect_exact("[4830NT]#")
    child.choose("Exit")
    child.expect("Bye Bye!!")
    shown = MOMENT.sub(r"\1\2", child.logfile_read.getvalue().replace("\r\n", "\n"))
    return f"{shown}\n{desk.run('--show').stdout}"


def test_all_menus_come_and_go_with_defaults_that_their_prompts_accept_and_scripts_that_get_what_was_typed(desk):
    desk.console()  # keeps the desk up
    shown = tour(desk)
    for line in "This command is not define!", "date: can't set date: Operation not permitted":
        assert f"\n{line}\n" in shown
    assert desk.spawned[-1].wait() == 1
    log = desk.log()
    for told in ("ntp.sh: time zone GMT+1, time set by hand",
                 "ntp.sh: time zone GMT+1, time from the server time.example.net $(date)",
                 "ddns.sh: registers home.example.net with easydns as me"):
        assert told in log
    assert "s3cret" not in log and "bbreboot: " not in log
    # Not of new rules, whose questions show zeros.
    shown = shown[:shown.index("0:NAT Setting")] + shown[shown.index("0:Basic Setting"):]
    ranges = re.findall(r"<(\d+)[^>]*>\( ?(?:range )?(\d+)[~-](\d+)", shown)
    choices = re.findall(r"<(\d+)>(\([^)]*\d[:, ][^)]*\))", shown)
    lists = re.findall(r"((?:^(?:.*\?|:? ?)\d+:.*\n){2,}).*\?<(\d+)>:", shown, re.M)
    choices += [(value, lines) for lines, value in lists]
    assert len(ranges) > 38 and len(choices) > 70
    assert [one for one in ranges if not int(one[1]) <= int(one[0]) <= int(one[2])] == []
    assert [one for one in choices if one[0] not in re.findall(r"\d+(?=[:, )])", one[1])] == []


def test_arm_shows_and_stores_the_same(desk, tmp_path, request):
    if not (which("arm-linux-gnueabihf-g++") and which("qemu-arm")):
        pytest.skip("The programs for Arm need the packages g++-arm-linux-gnueabihf and qemu-user.")
    arm = Desk(tmp_path / "arm", preset="arm")
    request.addfinalizer(arm.end)
    shown = tour(arm)
    arm.end()  # where there are no namespaces, only one desk can be up
    assert shown.splitlines() == tour(desk).splitlines()


def memory(desk, program, show):
    """In kilobytes, once the program has shown what it is to show: the most there ever was, and what is its own. What
    comes into view during a session are pages of the C library and of the settings, which are there for everybody."""
    rounds = []
    for _ in range(5):
        child = desk.spawn("desk/join", program)
        show(child)
        joined = psutil.Process(child.pid)
        process = [joined, *joined.children(recursive=True)][-1]
        status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
        rounds.append([int(re.search(field + r":\s+(\d+)", status)[1]) for field in ("VmHWM", "RssAnon")])
        child.sendeof()
        child.expect(pexpect.EOF)
    peak, own = [statistics.median(column) for column in zip(*rounds)]
    print(f"\n{program} after {show.__name__}: at most {peak} KiB of memory, {own} KiB its own")
    return peak, own


def test_a_console_takes_little_more_memory_than_a_program_that_does_nothing(desk):
    desk.console()
    subprocess.run(["cc", "-Os", "-s", "-o", desk.state / "root/usr/sbin/waits", "-xc", "-"], input=DOES_NOTHING,
                   text=True, check=True)

    def first_prompt(child):
        child.expect("[?:]")

    def all_menus(child):
        first_prompt(child)
        walk(desk.log_in(child))

    peak, own = memory(desk, "/usr/sbin/waits", first_prompt)
    assert memory(desk, "/usr/sbin/console", first_prompt)[0] <= 1.15 * peak
    assert memory(desk, "/usr/sbin/console", all_menus)[1] <= own + 48
