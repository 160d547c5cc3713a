#!/usr/bin/python3
"""Prints docs/pictures/desk.svg: the desk with its namespaces and wires."""

import sys

from facts import stands_in, taken_from
from svg import Picture

SUPERVISOR = "desk/supervisor"


def key_of(path, name):
    return taken_from(path, rf"\b{name} = (\d+);")


picture = Picture(1000, 590, "The desk: sessions on this machine, the street outside the device, the device")
picture.text(20, 28, "this machine", "bold")

# Sessions.
picture.named_box(24, 50, 190, 62, "./run", ["this terminal, or a script;", "holds sessions.lock shared"])
picture.named_box(24, 124, 190, 62, "./run --telnet PORT", ["socat: a console for each", "connection to 127.0.0.1"])
picture.named_box(274, 86, 140, 62, "desk/join", ["becomes a program", "of the device"])
picture.path([(214, 81), (244, 81), (244, 117), (274, 117)])
picture.path([(214, 155), (244, 155), (244, 117), (274, 117)])
picture.path([(414, 117), (500, 117)])

# The street.
picture.box(24, 226, 390, 320, "dashed", 8)
picture.text(38, 248, "the street", "bold")
picture.text(122, 248, "a network namespace, outside the device", "small soft")
picture.named_box(
    40,
    270,
    256,
    82,
    stands_in(SUPERVISOR, "supervisor"),
    [
        "boots the device, and again when it ends;",
        "takes it down when it can have",
        f"{stands_in(SUPERVISOR, 'sessions.lock')} alone: the last one has left",
    ],
)
picture.named_box(
    40, 440, 216, 62, "desk/street PROGRAM", ["runs here, as a provider's server", "or a machine in the home"]
)
picture.named_box(
    280,
    398,
    124,
    62,
    "wan0",
    [stands_in(SUPERVISOR, address) for address in ("203.0.113.1/24", "203.0.113.2/24")],
    "plain",
)
picture.named_box(280, 474, 124, 46, "lan0", ["in the home"], "plain")
stands_in(SUPERVISOR, "name eth0", "name eth1", "add wan0", "add lan0")

# The device.
picture.box(470, 50, 506, 496, "dashed", 8)
picture.text(484, 72, "the device", "bold")
stands_in(SUPERVISOR, "unshare --mount --ipc --net --pid --uts")
picture.text(566, 72, "mount, IPC, network, process and host name namespaces", "small soft")
picture.named_box(510, 92, 110, 50, "console", ["one per session"])
picture.box(504, 86, 110, 50, "plain")
picture.named_box(500, 92, 110, 50, "console", ["one per session"])
scripts = ["wan.sh, reset_lan.sh, …", "set addresses, routes, rules"]
picture.named_box(790, 88, 170, 62, "/etc/init.d/NAME.sh", scripts)
picture.path([(620, 108), (790, 108)])
picture.text(650, 103, "runs, after the save", "small soft")

picture.box(500, 196, 260, 66, "plain")
for x, key, words in (
    (500, key_of("config/segment.h", "key"), "settings"),
    (600, key_of("config/login_record.h", "key"), "login"),
    (680, key_of("config/voice_change.h", "voice_change_key"), "voice flag"),
):
    picture.text(x + 12, 218, key, "code")
    picture.text(x + 12, 234, words, "small")
picture.text(512, 253, "shared memory", "small soft")
picture.path([(555, 142), (555, 196)], start="arrow")

picture.named_box(484, 306, 124, 62, "process 1", ["/etc/init.d/rcS:", "starts the services"])
picture.named_box(640, 306, 120, 62, "web_server", ["stands in:", "loads and stores"])
picture.named_box(800, 306, 160, 62, "voice_daemon", ["stands in: lines, calls,", "answers status queries"])
picture.path([(700, 306), (700, 262)], start="arrow")
picture.path([(840, 306), (840, 240), (760, 240)], start="arrow")
picture.text(766, 258, "takes over", "small soft")
picture.path([(620, 130), (700, 130), (700, 172), (890, 172), (890, 306)], start="arrow")
port = taken_from("desk/voice/queries.h", r"query_port = (\d+)")
picture.text(712, 166, f"status pages ask on UDP {port}", "small soft")

picture.named_box(626, 436, 148, 78, "/dev/mtdblock/5", ["stored settings,", "a name=value line", "per field"], "plain")
picture.named_box(800, 436, 160, 46, "/dev/mtdblock/6", ["log of past calls"], "plain")
picture.path([(700, 368), (700, 436)], start="arrow")
picture.path([(880, 368), (880, 436)])
picture.text(626, 534, "both stay when the desk goes down", "small soft")

# The wires.
wan = taken_from("desk/rootfs/etc/init.d/wan.sh", r"ifconfig eth0 (203[\d.]+) ")
picture.named_box(484, 398, 120, 62, "eth0: WAN", [wan, taken_from(SUPERVISOR, r"name eth0 address (\S+)")], "plain")
picture.named_box(
    484, 474, 120, 62, "eth1: LAN", ["the stored address", taken_from(SUPERVISOR, r"name eth1 address (\S+)")], "plain"
)
picture.path([(404, 429), (484, 429)], "wire", end="")
picture.path([(404, 497), (484, 497)], "wire", end="")
picture.text(444, 421, "veth", "tiny soft", "middle")
picture.text(444, 489, "veth", "tiny soft", "middle")
picture.path([(296, 337), (484, 337)])
picture.text(316, 330, stands_in("desk/supervisor", "first_process.sh"), "small soft")

picture.text(
    24,
    574,
    "Whoever is not root has all of it in a user namespace. Root without namespaces has a plain chroot: no street, "
    "no wires.",
    "small soft",
)
sys.stdout.write(picture.svg())
