"""How much memory of its own a console takes while it serves a session. All else are pages of files, shared with
whoever has them open; the files have their budgets."""

import subprocess

import pexpect
from tour import session

WAITS = '#include <unistd.h>\nint main(void) { char c; return (write(1, "?", 1) + read(0, &c, 1)) < 0; }\n'


def own_memory(desk, program, typed, until):
    """In kilobytes, once the program has shown `until`."""
    others = desk.processes()
    child = desk.spawn("desk/join", program)
    child.send(typed)
    child.expect_exact(until)
    used = {}
    for process in set(desk.processes()).difference(others):
        with open(f"/proc/{process}/status", encoding="ascii") as file:
            status = dict(line.split(":", 1) for line in file.read().splitlines())
        used[status["Name"].strip()] = int(status["RssAnon"].split()[0])
    child.sendeof()
    child.expect(pexpect.EOF)
    return used[program.rsplit("/", 1)[-1]]


def test_a_console_takes_little_more_memory_than_a_program_that_does_nothing(desk, tmp_path):
    (tmp_path / "waits.c").write_text(WAITS)
    desk.console()
    subprocess.run(["cc", "-Os", "-s", "-o", desk.state + "/root/usr/sbin/waits", tmp_path / "waits.c"], check=True)
    walk, end = session().removesuffix("q\n") + "2\n2\n0\n", "UPNP Enable?<0>(0:Disable,1:Enable):"
    empty = own_memory(desk, "/usr/sbin/waits", "", "?")
    first = own_memory(desk, "/usr/sbin/console", "", "Username:")
    full = own_memory(desk, "/usr/sbin/console", walk, end)
    print(f"own memory in KiB: an empty program {empty}, a console at first {first}, after all menus {full}")
    assert first <= empty + 24 and full <= empty + 48
