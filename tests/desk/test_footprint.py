"""How much memory a console takes: in all at its first prompt, and of its own to the end of a session. What comes into
view in between are pages of the C library and of the settings, which are there for everybody."""

import statistics
import subprocess

import pexpect
from tour import session

WAITS = '#include <unistd.h>\nint main(void) { char c; return (write(1, "?", 1) + read(0, &c, 1)) < 0; }\n'


def memory(desk, program, typed, until):
    """In kilobytes, once the program has shown `until`: the most there ever was, and what is its own."""
    others = desk.processes()
    child = desk.spawn("desk/join", program)
    child.send(typed)
    child.expect_exact(until)
    used = {}
    for process in set(desk.processes()).difference(others):
        with open(f"/proc/{process}/status", encoding="ascii") as file:
            status = dict(line.split(":", 1) for line in file.read().splitlines())
        used[status["Name"].strip()] = [int(status[field].split()[0]) for field in ("VmHWM", "RssAnon")]
    child.sendeof()
    child.expect(pexpect.EOF)
    return used[program.rsplit("/", 1)[-1]]


def test_a_console_takes_little_more_memory_than_a_program_that_does_nothing(desk, tmp_path):
    (tmp_path / "waits.c").write_text(WAITS)
    desk.console()
    subprocess.run(["cc", "-Os", "-s", "-o", desk.state + "/root/usr/sbin/waits", tmp_path / "waits.c"], check=True)
    walk, end = session().removesuffix("q\n") + "2\n2\n0\n", "UPNP Enable?<0>(0:Disable,1:Enable):"
    cases = ("/usr/sbin/waits", "", "?"), ("/usr/sbin/console", "", "Username:"), ("/usr/sbin/console", walk, end)
    rounds = [[memory(desk, *case) for case in cases] for _ in range(5)]
    (empty, empty_own), (first, first_own), (full, full_own) = (
        [statistics.median(column) for column in zip(*case)] for case in zip(*rounds))
    print(f"\npeak memory in KiB, and of that the process's own: an empty program {empty} ({empty_own}), "
          f"a console at its first prompt {first} ({first_own}), after all menus {full} ({full_own})")
    assert first <= 1.15 * empty and full_own <= empty_own + 48
