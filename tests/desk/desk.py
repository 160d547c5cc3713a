"""A desk device of a test's own, reached the ways a person reaches it."""

import os
import re
import socket
import subprocess
import sys
import time

import pexpect

TREE = os.path.realpath(os.path.join(os.path.dirname(__file__), "..", ".."))
PROMPT = re.escape("[4830NT]#")


def command_line(process):
    """Empty for a process that has ended."""
    try:
        with open(f"/proc/{process}/cmdline", encoding="latin-1") as file:
            return file.read()
    except OSError:
        return ""


class Voice(socket.socket):
    """A socket in the device's network, connected to its voice daemon."""

    def ask(self, request):
        self.send(request)
        return self.recv(10000)

    def wait_for(self, request, until):
        """The first reply that is such."""
        for _ in range(1000):
            reply = self.ask(request).decode()
            if until(reply):
                return reply
            time.sleep(0.02)
        raise TimeoutError(reply)


class Desk:
    def __init__(self, state, **environment):
        self.state = str(state)
        self.environment = dict(os.environ, DESK_STATE=self.state, TERM="dumb", **environment)
        self.partition = os.path.join(self.state, "root/dev/mtdblock/5")
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

    def choose(self, child, *lines):
        """A menu item with its answers, from the main menu and back to it: what was shown for it."""
        child.send("\n".join([*lines, ""]))
        child.expect(PROMPT)
        child.expect(PROMPT)
        shown = child.before
        child.sendline("q")
        child.expect("5:Status.*" + PROMPT)
        return shown

    def call(self, *command, text=""):
        return subprocess.run(command, input=text, env=self.environment, cwd=TREE, capture_output=True, text=True,
                              timeout=60)

    def run(self, *arguments, text=""):
        """./run without a terminal, to its end."""
        return self.call("./run", *arguments, text=text)

    def inside(self, *command):
        """A program of the device, while a session keeps it up."""
        return self.call("desk/join", *command)

    def street(self, *command):
        """A program outside the device, at the other end of its wires."""
        return self.call("desk/street", *command)

    def up(self):
        """The device's first process outside, and how the device is isolated."""
        with open(os.path.join(self.state, "up"), encoding="ascii") as up:
            return up.read().split()[:2]

    def voice(self):
        """A network's sockets are had from within it, so a helper there makes one and hands it over."""
        device, mode = self.up()
        enter = {"user": [f"--user=/proc/{device}/ns/user", "--preserve-credentials"], "root": []}.get(mode)
        enter = [] if enter is None else ["nsenter", f"--net=/proc/{device}/ns/net", *enter]
        here, there = socket.socketpair()
        helper = ("import socket, sys; s = socket.socket(type=socket.SOCK_DGRAM); s.connect(('127.0.0.1', 8118)); "
                  "socket.send_fds(socket.socket(fileno=int(sys.argv[1])), [b' '], [s.fileno()])")
        subprocess.run([*enter, sys.executable, "-c", helper, str(there.fileno())], pass_fds=[there.fileno()],
                       check=True)
        voice = Voice(fileno=socket.recv_fds(here, 1, 1)[1][0])
        voice.settimeout(5)
        return voice

    def owns_network(self):
        return self.up()[1] != "chroot"

    def address(self, interface):
        """MAC address, as the line has it, IP address, broadcast address and netmask."""
        shown = self.inside("/sbin/ifconfig", interface).stdout
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
        os.makedirs(os.path.dirname(self.partition), exist_ok=True)
        with open(self.partition[:-1] + partition, "w", encoding="latin-1") as file:
            file.write(text)

    def processes(self):
        """Every process of this desk: those that share its memory and root directory, and its supervisor."""
        def home(process):
            return os.readlink(f"/proc/{process}/ns/ipc"), os.readlink(f"/proc/{process}/root")

        ours, found = home(self.up()[0]), []
        for process in filter(str.isdigit, os.listdir("/proc")):
            try:
                if home(process) == ours or self.state in command_line(process):
                    found.append(process)
            except OSError:  # another user's, or gone
                pass
        return found

    def end(self):
        """Hangs all sessions up; the supervisor holds desk.lock to its end."""
        for child in self.spawned:
            child.close(force=True)
        if os.path.exists(os.path.join(self.state, "desk.lock")):
            self.call("flock", "-w", "30", os.path.join(self.state, "desk.lock"), "true").check_returncode()
