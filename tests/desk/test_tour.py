"""A walk through all menus of the whole device: on the programs that ship, and on those for 32-bit Arm under qemu."""

import re
from shutil import which

import pytest
from desk import Desk
from tour import VISITS, session

# Of the moment, and shown: the clock, by the device page and by the date dialogue, and the time since the start.
MOMENT = re.compile(r"(System Date|Up Time) : .*|(Year  |Month |Day   |Hour  |Minute|Second)\(\d+\)")


def walk(state, preset):
    """What the walk shows, without what is of the moment, and what it leaves in the flash partition."""
    desk = Desk(state, DESK_PRESET=preset)
    try:
        desk.store("0|5551234|20100314150926|0|20100314150938|1003|0|1\n", partition="6")
        desk.console()  # keeps the desk up
        # The snapshot of the log is made only when there is none.
        desk.inside("/bin/sh", "-c", "while [ $((i += 1)) -le 25 ]; do echo entry $i %s; done >/var/tmp/messages.tmp")
        done = desk.run(text=session())
    finally:
        desk.end()
    with open(desk.partition, encoding="latin-1") as file:
        return done.returncode, done.stderr, MOMENT.sub(r"\1\2", done.stdout), file.read()


@pytest.fixture(scope="module")
def here(tmp_path_factory):
    return walk(tmp_path_factory.mktemp("here"), "release")


def test_all_menus_come_and_go_and_every_factory_default_is_one_that_its_prompt_accepts(here):
    status, errors, shown, _ = here
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


def test_arm_shows_and_stores_the_same(here, tmp_path):
    if not (which("arm-linux-gnueabihf-g++") and which("qemu-arm")):
        pytest.skip("The programs for Arm need the packages g++-arm-linux-gnueabihf and qemu-user.")
    assert walk(tmp_path, "arm") == here
