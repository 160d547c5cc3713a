"""A desk device of a test's own, reached the ways a person reaches it."""

import os
import pathlib
import re
import subprocess
import time

import pexpect

TREE = pathlib.Path(__file__).resolve().parents[2]
# In seconds: what a machine may take that is busy with other things. Nothing waits longer than it has to.
PATIENCE = 60
# A menu with its prompt, as it stands on the screen.
MENU = r"(?m)(?:^\w+:[^\r\n]*\r\n)+-+\r\nq:Exit\r\n\r\n\[4830NT\]#"
# The end of a prompt that shows a value, which Enter keeps.
KEPT = r"<[^<>]*>(?:\r\n)?(?:\([^\r\n]*\))?:\Z"


def prompt(question):
    """The prompt that begins like this, once all of it is there. A blank line parts it from what is shown above."""
    return rf"(?m)^{re.escape(question)}(?: ?: ?|(?:(?!\r\n\r\n).)*(?:[>)?]: ?|\n:|#|<NO>))\Z"


def eventually(look, wanted):
    """What `look` sees, as soon as that is what is wanted."""
    deadline = time.monotonic() + PATIENCE
    while not wanted(seen := look()):
        assert time.monotonic() < deadline, seen
        time.sleep(0.05)
    return seen


class Terminal(pexpect.spawn):
    """A program on a terminal; in front of the console, somebody who reads a prompt before they type."""

    def log_in(self):
        self.sendline("admin")
        self.answer({"Password": "admin"})
        return self

    def items(self):
        return re.findall(r"^\d+:(.*)\r$", self.menu, re.M)

    def choose(self, item):
        number = re.search(rf"^(\w+):{re.escape(item)}\r$", self.menu, re.M)
        assert number, f"There is no {item!r} in this menu:\n{self.menu}"
        self.sendline(number[1])

    def answer(self, *answers, until=MENU):
        """Answers the questions {BEGINNING OF THE PROMPT: ANSWER, ...} in this order, keeps the value that others
        show, and returns what is shown until the menu, or another text, comes."""
        shown = ""
        for question, answer in [*(pair for some in answers for pair in some.items()), (None, None)]:
            awaited = prompt(question) if question else until
            while (came := self.expect([awaited, KEPT, MENU, pexpect.EOF, pexpect.TIMEOUT])) == 1:
                shown += self.before + self.after
                self.sendline()
            shown += self.before + (self.after if came < 3 else "")
            assert came == 0, f"{question or 'The end'!r} never came:\n{shown}"
            if question:
                self.sendline(answer)
        self.menu = self.after
        return shown

    def visit(self, submenu, item, *answers, until=MENU):
        """From the main menu to an item of a submenu, and back unless it ends with another text than the menu."""
        self.choose(submenu)
        self.answer()
        self.choose(item)
        shown = self.answer(*answers, until=until)
        if until == MENU:
            self.choose("Exit")
            self.answer()
        return shown


class Desk:
    def __init__(self, state, preset="release"):
        self.state = state
        self.root = state / "root"
        self.partition = self.root / "dev/mtdblock/5"
        self.environment = dict(os.environ, DESK_STATE=str(state), DESK_PRESET=preset, TERM="dumb")
        self.spawned = []

    def __enter__(self):
        return self

    def __exit__(self, *_):
        """Hangs all sessions up; the supervisor holds desk.lock to its end."""
        for child in self.spawned:
            child.close(force=True)
        self.run("-w", str(PATIENCE), self.state / "desk.lock", "true", program="flock").check_returncode()

    def spawn(self, command, *arguments):
        child = Terminal(command, list(arguments), env=self.environment, cwd=TREE, encoding="utf-8", timeout=PATIENCE)
        child.delaybeforesend = None
        self.spawned.append(child)
        return child

    def console(self, *command):
        """./run on a terminal, or another command that opens a console, at its first prompt."""
        child = self.spawn(*command or ["./run"])
        child.expect("Username:")
        return child

    def run(self, *arguments, program="./run", text=""):
        """./run without a terminal, or another program, to its end."""
        return subprocess.run([program, *arguments], input=text, env=self.environment, cwd=TREE, capture_output=True,
                              text=True, timeout=2 * PATIENCE)

    def shell(self, command):
        """What a command prints in the device, while a session keeps it up."""
        done = self.run("/bin/sh", "-c", command, program="desk/join")
        assert done.returncode == 0, done.stderr
        return done.stdout

    def owns_network(self):
        return "chroot" not in (self.state / "up").read_text()

    def lease(self, mac):
        """What a DHCP client with this MAC address is told on the LAN."""
        told = self.state / "told"
        told.write_text('#!/bin/sh\n[ "$1" != bound ] || echo "$ip $subnet $router $dns $lease"\n')
        told.chmod(0o755)
        script = f"ip link set lan0 address {mac} && exec busybox udhcpc -i lan0 -fqn -t 30 -T 1 -s '{told}'"
        return self.run("sh", "-c", script, program="desk/street").stdout

    def show(self, *names):
        return self.run("--show", *names).stdout

    def wait_for_log(self, told):
        return eventually(lambda: self.run("--log").stdout, lambda log: told in log)

    def store(self, text, partition="5"):
        """Puts a text into a flash partition, as another firmware or a fault might leave it."""
        self.partition.parent.mkdir(parents=True, exist_ok=True)
        self.partition.with_name(partition).write_text(text, "latin-1")
