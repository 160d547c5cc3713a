"""A desk device of a test's own, reached the ways a person reaches it."""

import os
import re
import socket
import subprocess
import sys
import time

import pexpect
import pytest

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

    def wait_for(self, request, until, seconds=20):
        """The first reply that is such."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
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

    def log_in(self, child):
        child.sendline("admin")
        child.expect("Password:")
        child.sendline("admin")
        child.expect(PROMPT)
        return child

    def choose(self, child, submenu, item, *answers):
        """A menu item, from the main menu and back to it: what was shown for it."""
        for line in (submenu, item, *answers):
            child.sendline(line)
        child.expect(PROMPT)
        child.expect(PROMPT)
        shown = child.before
        child.sendline("q")
        child.expect(PROMPT)
        return shown

    def run(self, *arguments, text=""):
        """./run without a terminal, to its end."""
        return subprocess.run(["./run", *arguments], input=text, env=self.environment, cwd=TREE, capture_output=True,
                              text=True, timeout=30)

    def inside(self, *command):
        """A program of the device, while a session keeps it up."""
        return subprocess.run(["desk/join", *command], env=self.environment, cwd=TREE, capture_output=True, text=True,
                              timeout=30)

    def street(self, *command):
        """A program outside the device, at the other end of its wires."""
        return subprocess.run(["desk/street", *command], env=self.environment, cwd=TREE, capture_output=True, text=True,
                              timeout=30)

    def voice(self):
        """A network's sockets are had from within it, so a helper there makes one and hands it over."""
        with open(os.path.join(self.state, "up"), encoding="ascii") as up:
            device, mode, _ = up.read().split()
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
        return self.inside("/bin/test", "-e", "/var/run/own_network").returncode == 0

    def show(self, *names):
        """Stored settings by name."""
        shown = self.run("--show", *names)
        assert shown.returncode == 0, shown.stderr
        return dict(line.split("=", 1) for line in shown.stdout.splitlines())

    def log(self):
        return self.run("--log").stdout

    def store(self, text):
        """Puts a text into the flash partition, as another firmware or a fault might leave it."""
        os.makedirs(os.path.dirname(self.partition), exist_ok=True)
        with open(self.partition, "w", encoding="latin-1") as file:
            file.write(text)

    def wait_until_down(self):
        """The supervisor holds desk.lock to its end."""
        subprocess.run(["flock", "-w", "30", os.path.join(self.state, "desk.lock"), "true"], check=True)

    def processes(self):
        """Every process of this desk: those that share its memory and root directory, and its supervisor."""
        def home(process):
            return os.readlink(f"/proc/{process}/ns/ipc"), os.readlink(f"/proc/{process}/root")

        with open(os.path.join(self.state, "up"), encoding="ascii") as up:
            ours = home(up.read().split()[0])
        found = []
        for process in filter(str.isdigit, os.listdir("/proc")):
            try:
                if home(process) == ours or self.state in command_line(process):
                    found.append(process)
            except OSError:  # another user's, or gone
                pass
        return found

    def end(self):
        for child in self.spawned:
            child.close(force=True)
        if os.path.exists(os.path.join(self.state, "desk.lock")):
            self.wait_until_down()


@pytest.fixture
def desk(tmp_path):
    one = Desk(tmp_path / "desk")
    yield one
    one.end()
