"""How much memory a console takes while it serves a session."""

import os
import statistics
import subprocess
import time

from tour import session

WAITS = "#include <unistd.h>\nint main(void) { char c; return (int)read(0, &c, 1); }\n"


def memory(process):
    """Kilobytes: the most there ever was, and what is the process's own now."""
    with open(f"/proc/{process}/status", encoding="ascii") as file:
        status = dict(line.split(":", 1) for line in file.read().splitlines())
    return status["Name"].strip(), int(status["VmHWM"].split()[0]), int(status["RssAnon"].split()[0])


def serve(desk, program, last, text=""):
    """A program's memory once it has read `text` and what it has shown ends with `last`."""
    shown, others = os.path.join(desk.state, "shown"), desk.processes()
    with open(shown, "wb") as out, subprocess.Popen(["desk/join", program], env=desk.environment,
                                                    stdin=subprocess.PIPE, stdout=out) as child:
        child.stdin.write(text.encode())
        child.stdin.flush()
        for _ in range(500):
            time.sleep(0.02)
            with open(shown, "rb") as file:
                ready = file.read().endswith(last)
            for name, *used in [memory(process) for process in desk.processes() if ready and process not in others]:
                if name == os.path.basename(program):
                    child.stdin.close()
                    return used
    raise TimeoutError(program)


def test_a_console_takes_little_more_memory_than_a_program_that_does_nothing(desk, tmp_path):
    (tmp_path / "waits.c").write_text(WAITS)
    desk.console()
    subprocess.run(["cc", "-Os", "-s", "-o", os.path.join(desk.state, "root/usr/sbin/waits"), tmp_path / "waits.c"],
                   check=True)
    walk, end = session().removesuffix("q\n") + "the end\n", b"This command is not define!\n[4830NT]#"
    rounds = [(*serve(desk, "/usr/sbin/waits", b""), *serve(desk, "/usr/sbin/console", b"Username:"),
               *serve(desk, "/usr/sbin/console", end, walk)) for _ in range(5)]
    empty, empty_own, first, first_own, full, full_own = (statistics.median(column) for column in zip(*rounds))
    print(f"\npeak memory in KiB, and of that the process's own: an empty program {empty} ({empty_own}), "
          f"a console at its first prompt {first} ({first_own}), after all menus {full} ({full_own})")
    assert first <= 1.15 * empty
    # Later on the rest of the C library in the page cache and the record come into view; they are everybody's.
    assert full_own <= empty_own + 48
