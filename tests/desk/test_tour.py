"""A walk through all menus of the whole device: what it shows and stores, also on the programs for 32-bit Arm under
qemu, and how much memory a console takes for it."""

import pathlib
import re
import statistics
import subprocess
from shutil import which

import psutil
import pytest
from desk import Desk

# Visits: submenu, item, and the answers.
VISITS = """
0/0/0/box/example.org/1/02:00:5e:00:00:99/1/1400/198.51.100.7/255.255.255.128/198.51.100.1//0.0.0.0 0/0/1////0//7
0/0/2////0//me/word/isp/1/203.0.113.9/0/120/0//0.0.0.0 0/0/4////0//0/vpn/me/word/0/0/7 0/0/5////0/me/word/2
0/0/3////0/1399/1/203.0.113.9/255.255.255.0/203.0.113.1/vpn/me/word/2/9/7 0/1//255.0.255.0
0/2/0/1/192.168.1.50/192.168.1.60/2 0/2/1/0/1/192.168.1.55/00:11:22:aa:BB:cc/a_printer 0/2/1/0/1/10.0.0.1
0/2/1/1/0/1//192.168.1.56//
1/0/1/1/1/1/1/1/1/192.168.1.77 1/1/0/1/192.168.1.20/2/8080/80/1/1/30/9/15/1/5 1/1/1/0/1//////0
1/2/0/1/6000/0/6001/6010/1/0 1/3/1 1/4/0/1/0/198.51.100.0/255.255.255.0/192.168.1.9 1/5/1/0/1/00:0a:0b:0c:0d:0e/0
1/6/1/0/1/192.168.1.1/192.168.1.9/1/65535/0/0 1/6/1/0/1/192.168.1.9/192.168.1.1
1/7/1/0/1/192.168.1.2/192.168.1.3/games 1/8/0/0/1/192.168.1.2/192.168.1.3/example.net
1/9/1/0/1/1/0/203.0.113.1/203.0.113.9/1/192.168.1.1/192.168.1.9/3/0
1/10/0 1/10/1 1/10/2 1/10/3 1/10/4 1/10/5 1/10/6 1/10/7
2/0/5072/70000 2/0/5073///////////// 2/2/1/stun.example.net
2/1/3600/1/1001/Reception/reception/secret////60/1/sip:1001/Front_desk/example.net/////1/proxy/5061/1/
3/0 3/1/1/10/1/5/1/1/0/one////30/0/1/100/0////////// 3/2/3/2/20/1/0/1////////// 3/3/1 3/4/2/1 3/6/1/16/8/1/7/1023/0/0
3/7/0/4/5551234/front_door/3/q 3/8/0/0/0/5559876/3/0/q
4/2/0/13/2010/3/14/15/9/26 4/2/1/99/time.example.net 4/3/1/2/someone/secret/host.example.net 4/4/0/127.0.0.1/1/no/q
5/0/2 5/1/q 5/2 5/3
""".split()

# Of the moment, and shown: the clock, by the device page and by the date dialogue, and the time since the start.
MOMENT = re.compile(r"(System Date|Up Time) : .*|(Year  |Month |Day   |Hour  |Minute|Second)\(\d+\)")

DOES_NOTHING = '#include <unistd.h>\nint main(void) { char c; return (write(1, "?", 1) + read(0, &c, 1)) < 0; }\n'


def typed(end):
    """After each visit the main menu comes again."""
    return "/".join(["admin/admin", "/q/".join(VISITS), "q", end, ""]).replace("/", "\n")


def walk(desk):
    """What the walk shows, without what is of the moment, and what it leaves in the flash partition."""
    desk.store("0|5551234|20100314150926|0|20100314150938|1003|0|1\n", partition="6")
    desk.console()  # keeps the desk up
    # The snapshot of the log is made only when there is none.
    desk.inside("/bin/sh", "-c", "while [ $((i += 1)) -le 25 ]; do echo entry $i %s; done >/var/tmp/messages.tmp")
    done = desk.run(text=typed("9/help/nothing//q"))
    return done.returncode, done.stderr, MOMENT.sub(r"\1\2", done.stdout), desk.partition.read_text("latin-1")


def test_all_menus_come_and_go_and_every_factory_default_is_one_that_its_prompt_accepts(desk):
    status, errors, shown, _ = walk(desk)
    assert status == 1 and errors.startswith("date: can't set date: Operation not permitted\n")
    assert shown.startswith("Username:Password:0:Basic") and shown.endswith("[4830NT]#Bye Bye!!\n")
    assert shown.count("\n5:Status\n") == len(VISITS) + 2 and shown.count("This command is not define!") == 1
    # A new rule's questions show zeros.
    shown = shown[:shown.index("0:NAT Setting")] + shown[shown.index("0:Basic Setting"):]
    ranges = re.findall(r"<(\d+)[^>]*>\( ?(?:range )?(\d+)[~-](\d+)", shown)
    choices = re.findall(r"<(\d+)>(\([^)]*\d[:, ][^)]*\))", shown)
    lists = re.findall(r"((?:^(?:.*\?|:? ?)\d+:.*\n){2,}).*\?<(\d+)>:", shown, re.M)
    choices += [(value, lines) for lines, value in lists]
    assert len(ranges) > 40 and len(choices) > 70
    assert [one for one in ranges if not int(one[1]) <= int(one[0]) <= int(one[2])] == []
    assert [one for one in choices if one[0] not in re.findall(r"\d+(?=[:, )])", one[1])] == []


def test_arm_shows_and_stores_the_same(desk, tmp_path, request):
    if not (which("arm-linux-gnueabihf-g++") and which("qemu-arm")):
        pytest.skip("The programs for Arm need the packages g++-arm-linux-gnueabihf and qemu-user.")
    arm = Desk(tmp_path / "arm", preset="arm")
    request.addfinalizer(arm.end)
    assert walk(arm) == walk(desk)


def memory(desk, program, lines, until):
    """In kilobytes, once the program has shown `until`: the most there ever was, and what is its own. What comes into
    view during a session are pages of the C library and of the settings, which are there for everybody."""
    rounds = []
    for _ in range(5):
        child = desk.spawn("desk/join", program)
        child.send(lines)
        child.expect_exact(until)
        joined = psutil.Process(child.pid)
        process = [joined, *joined.children(recursive=True)][-1]
        status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
        rounds.append([int(re.search(field + r":\s+(\d+)", status)[1]) for field in ("VmHWM", "RssAnon")])
        child.sendeof()
        child.read()
    peak, own = [statistics.median(column) for column in zip(*rounds)]
    print(f"\n{program} that has shown {until!r}: at most {peak} KiB of memory, {own} KiB its own")
    return peak, own


def test_a_console_takes_little_more_memory_than_a_program_that_does_nothing(desk):
    desk.console()
    subprocess.run(["cc", "-Os", "-s", "-o", desk.state / "root/usr/sbin/waits", "-xc", "-"], input=DOES_NOTHING,
                   text=True, check=True)
    peak, own = memory(desk, "/usr/sbin/waits", "", "?")
    assert memory(desk, "/usr/sbin/console", "", "Username:")[0] <= 1.15 * peak
    assert memory(desk, "/usr/sbin/console", typed("2/2/0"), "UPNP Enable?<0>(0:Disable,1:Enable):")[1] <= own + 48
