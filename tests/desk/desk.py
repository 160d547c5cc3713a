"""A desk device of a test's own, reached the ways a person reaches it."""

import os
import pathlib
import re
import signal
import subprocess
import time

import pexpect
import psutil

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


def default_signals():
    """In a child: whoever started us may ignore some, and Python does."""
    for number in "HUP INT QUIT TERM PIPE CHLD TSTP".split():
        signal.signal(getattr(signal, "SIG" + number), signal.SIG_DFL)


class Terminal(pexpect.spawn):
    """A program on a terminal; in front of the console, somebody who reads a prompt before they type."""

    def items(self):
        """Those of the menu on the screen."""
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
        if until == MENU:
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
        self.environment = dict(os.environ, DESK_STATE=str(state), DESK_PRESET=preset, TERM="dumb")
        self.partition = state / "root/dev/mtdblock/5"
        self.spawned = []

    def spawn(self, command, *arguments):
        child = Terminal(command, list(arguments), env=self.environment, cwd=TREE, encoding="utf-8", timeout=PATIENCE,
                         preexec_fn=default_signals)
        child.delaybeforesend = None
        self.spawned.append(child)
        return child

    def console(self):
        """./run on a terminal, at its first prompt."""
        child = self.spawn("./run")
        child.expect("Username:")
        return child

    def log_in(self, child=None):
        """./run on a terminal, or another console there at its first prompt, at the main menu."""
        child = child or self.console()
        child.sendline("admin")
        child.answer({"Password": "admin"})
        return child

    def run(self, *arguments, program="./run", text=""):
        """./run without a terminal, or another program, to its end."""
        return subprocess.run([program, *arguments], input=text, env=self.environment, cwd=TREE, capture_output=True,
                              text=True, timeout=2 * PATIENCE, preexec_fn=default_signals)

    def inside(self, *command):
        """What a program of the device prints, while a session keeps it up."""
        done = self.run(*command, program="desk/join")
        assert done.returncode == 0, done.stderr
        return done.stdout

    def owns_network(self):
        return "chroot" not in (self.state / "up").read_text()

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
        """The log of the device that is up, with all that it was told until now."""
        mark = f"mark {time.monotonic_ns()}"
        self.inside("/bin/logger", mark)
        return eventually(lambda: self.run("--log").stdout, lambda log: mark in log)

    def store(self, text, partition="5"):
        """Puts a text into a flash partition, as another firmware or a fault might leave it."""
        self.partition.parent.mkdir(parents=True, exist_ok=True)
        self.partition.with_name(partition).write_text(text, "latin-1")

    def processes(self):
        """Those of the sessions, the device's, and its supervisor."""
        device, *_ = (self.state / "up").read_text().split()
        supervisor = psutil.Process(int(device)).parent()
        parents = [supervisor, *(psutil.Process(child.pid) for child in self.spawned if child.isalive())]
        return sum((parent.children(recursive=True) for parent in parents), parents)

    def end(self):
        """Hangs all sessions up; the supervisor holds desk.lock to its end."""
        for child in self.spawned:
            child.close(force=True)
        if (self.state / "desk.lock").exists():
            self.run("-w", str(PATIENCE), self.state / "desk.lock", "true", program="flock").check_returncode()
