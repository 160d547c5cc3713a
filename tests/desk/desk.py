"""A desk device of a test's own, reached the ways a person reaches it."""

import os
import pathlib
import re
import subprocess
import sys

import pexpect
import psutil

TREE = pathlib.Path(__file__).resolve().parents[2]
PROMPT = re.escape("[4830NT]#")


class Desk:
    def __init__(self, state, preset="release"):
        self.state = state
        self.environment = dict(os.environ, DESK_STATE=str(state), DESK_PRESET=preset, TERM="dumb")
        self.partition = state / "root/dev/mtdblock/5"
        self.spawned = []

    def spawn(self, command, *arguments):
        child = pexpect.spawn(command, list(arguments), env=self.environment, cwd=TREE, encoding="utf-8", timeout=30)
        child.delaybeforesend = None
        self.spawned.append(child)
        return child

    def console(self):
        """./run on a terminal, at its first prompt."""
        child = self.spawn("./run")
        child.expect("Username:")
        return child

    def log_in(self, child=None):
        """./run on a terminal, or another console there, at the main menu."""
        child = child or self.console()
        child.send("admin\nadmin\n")
        child.expect("5:Status.*" + PROMPT)
        return child

    def choose(self, child, visit):
        """SUBMENU/ITEM/ANSWERS..., from the main menu and back to it: what was shown for it."""
        child.send(visit.replace("/", "\n") + "\n")
        child.expect(PROMPT)
        child.expect(PROMPT)
        shown = child.before
        child.sendline("q")
        child.expect("5:Status.*" + PROMPT)
        return shown

    def run(self, *arguments, program="./run", text=""):
        """./run without a terminal, or another program, to its end."""
        return subprocess.run([program, *arguments], input=text, env=self.environment, cwd=TREE, capture_output=True,
                              text=True, timeout=60)

    def inside(self, *command):
        """What a program of the device prints, while a session keeps it up."""
        done = self.run(*command, program="desk/join")
        assert done.returncode == 0, done.stderr
        return done.stdout

    def up(self):
        """The device's first process outside, and how the device is isolated."""
        return (self.state / "up").read_text().split()[:2]

    def owns_network(self):
        return self.up()[1] != "chroot"

    def address(self, interface):
        """MAC address, as the line has it, IP address, broadcast address and netmask."""
        shown = self.inside("/sbin/ifconfig", interface)
        return re.search(r"HWaddr (.*)\n +inet addr:(\S+) +Bcast:(\S+) +Mask:(\S+)", shown).groups()

    def show(self, *names):
        """Stored settings by name."""
        shown = self.run("--show", *names)
        assert shown.returncode == 0, shown.stderr
        return dict(line.split("=", 1) for line in shown.stdout.splitlines())

    def log(self):
        return self.run("--log").stdout

    def store(self, text, partition="5"):
        """Puts a text into a flash partition, as another firmware or a fault might leave it."""
        self.partition.parent.mkdir(parents=True, exist_ok=True)
        self.partition.with_name(partition).write_text(text, "latin-1")

    def processes(self):
        """Those of the sessions, the device's, and its supervisor."""
        supervisor = psutil.Process(int(self.up()[0])).parent()
        parents = [supervisor, *(psutil.Process(child.pid) for child in self.spawned if child.isalive())]
        return sum((parent.children(recursive=True) for parent in parents), parents)

    def end(self):
        """Hangs all sessions up; the supervisor holds desk.lock to its end."""
        for child in self.spawned:
            child.close(force=True)
        if (self.state / "desk.lock").exists():
            self.run("-w", "30", self.state / "desk.lock", "true", program="flock").check_returncode()
