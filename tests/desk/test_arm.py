"""The same device on the programs for 32-bit Arm, under qemu."""

import os
import re

import pytest
from desk import TREE, Desk
from tour import session


def take_tour(state, preset):
    """What the whole walk shows, and what it leaves in the flash partition."""
    one = Desk(state, DESK_PRESET=preset)
    try:
        done = one.run(text=session())
        one.wait_until_down()
        with open(one.partition, encoding="latin-1") as file:
            stored = file.read()
    finally:
        one.end()
    # Different from one device to the next, or from one minute to the next.
    shown = re.sub(r"(System Date|Up Time|MAC Address) : .*", r"\1", done.stdout)
    return done.returncode, done.stderr, shown, stored


def test_every_menu_shows_and_stores_the_same_on_arm(tmp_path):
    if not os.path.exists(os.path.join(TREE, "build/arm/console")):
        pytest.skip("The programs for Arm are not built: cmake --preset arm && cmake --build --preset arm")
    here, there = take_tour(tmp_path / "here", "release"), take_tour(tmp_path / "there", "arm")
    assert here[:2] == (1, "") and here[2].count("Setting Save!!") >= 20 and here[2].endswith("Bye Bye!!\n")
    assert there == here
