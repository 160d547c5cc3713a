#!/usr/bin/python3
"""Prints docs/pictures/layers.svg: the layers, and a line's way through them."""

import sys

from facts import ROOT, stands_in
from svg import Picture

LEFT, WIDTH, GRID = 20, 706, 140
COLUMN, BOX, TOP, STEP, TALL = 116, 104, 236, 62, 36
HANDLER, CONFIG, PLATFORM = 146, 424, 496  # tops
LEGEND = 752
# Where each file of shell/ has its place: column and row.
SHELL = {
    "menu": (0, 0), "session": (0, 1), "line": (0, 2),
    "dialogue": (1, 0), "prompt": (1, 1), "output": (1, 2),
    "answer": (2, 0), "parse": (2, 1), "message": (2, 2),
    "journal": (3, 0),
    "apply": (4, 0), "command_output": (4, 1),
}  # fmt: skip
WAY = [
    (
        stands_in("shell/line.h", "read_line()"),
        ["hands out the next line of what was typed.", "Here ends the console when the connection does."],
    ),
    (stands_in("shell/session.h", "refresh_login()"), ["starts the idle time anew, or ends the console."]),
    (stands_in("shell/menu.h", "run_menus"), ["finds the item that the line chooses."]),
    ("the item's handler", ["is a list of statements, one per question."]),
    (
        stands_in("shell/dialogue.h", "class Dialogue").split()[1],
        ["shows the question with the stored value;", "the answer comes as 1 does."],
    ),
    (stands_in("shell/answer.h", "judge_line"), ["makes a value of it, or it is refused."]),
    (
        stands_in("shell/journal.h", "class Journal").split()[1],
        ["keeps it until all questions are answered;", "commit() writes field by field."],
    ),
    (
        stands_in("shell/apply.h", "save_settings()"),
        ["has the web server store the record, then", "scripts or the voice daemon apply it."],
    ),
]


def x_of(column):
    return GRID + column * COLUMN


def middle(name):
    column, row = SHELL[name]
    return x_of(column) + BOX / 2, TOP + row * STEP + TALL / 2


def named(picture, column, y, name):
    picture.box(x_of(column), y, BOX, TALL, "plain")
    picture.text(x_of(column) + BOX / 2, y + 22, name, "small", "middle")


def layer(picture, y, height, name, words):
    picture.box(LEFT, y, WIDTH, height, "box", 6)
    picture.text(LEFT + 12, y + 22, name, "bold")
    picture.lines(LEFT + 12, y + 40, words, "small soft", 14)


def main():
    files = {path.stem for path in (ROOT / "shell").glob("*.h")}
    if files != set(SHELL):
        sys.exit(f"shell/ and its picture differ in {', '.join(files ^ set(SHELL))}: correct {sys.argv[0]}.")
    picture = Picture(1066, 598, "The layers of the console, and a line's way through them")
    layer(picture, 20, 38, stands_in("CMakeLists.txt", "main.cpp"), [])
    picture.text(GRID, 42, "hands the menu tree to the shell", "small soft")
    layer(picture, 74, 126, "menus/", ["one file", "per item"])
    families = sorted(path.parent.name for path in (ROOT / "menus").glob("*/submenu.cpp"))
    for index, family in enumerate(families):
        picture.box(GRID + index * 95, 84, 88, 30, "plain")
        picture.text(GRID + index * 95 + 44, 103, family, "small", "middle")
    picture.box(GRID, HANDLER, 4 * COLUMN + BOX, 40, "plain")
    picture.text(GRID + 30, HANDLER + 24, "the handler of an item", "small")
    layer(picture, 216, 192, "shell/", ["what all", "dialogues have", "in common"])
    layer(picture, CONFIG, 56, "config/", ["the records"])
    for column, name in ((2, "login_record"), (3, "segment"), (4, "voice_change")):
        stands_in(f"config/{name}.h", "#pragma once")
        named(picture, column, CONFIG + 10, name)
    layer(picture, PLATFORM, 56, "platform/", ["the seam"])
    picture.text(
        GRID + 4 * COLUMN + BOX,
        PLATFORM + 40,
        "what the console asks of the system; tests link a fake",
        "small soft",
        "end",
    )
    picture.text(
        LEFT + 12,
        577,
        "A file uses its own layer and the ones below it; an include that points upwards does not compile.",
        "small soft",
    )
    for name, (column, row) in SHELL.items():
        named(picture, column, TOP + row * STEP, name)

    def x(name):
        return middle(name)[0]

    def top(name):
        return middle(name)[1] - TALL / 2

    def bottom(name):
        return middle(name)[1] + TALL / 2

    def down(start, end, at):
        picture.path([(at, start), (at, end)])

    handler = HANDLER + 40
    down(PLATFORM, bottom("line"), x("line"))
    down(top("line"), bottom("session"), x("line"))
    down(top("session"), bottom("menu"), x("line"))
    down(top("menu"), handler, x("line"))
    down(handler, top("dialogue"), x("dialogue"))
    down(bottom("dialogue"), top("prompt"), x("dialogue"))
    down(bottom("prompt"), top("output"), x("dialogue"))
    down(bottom("output"), PLATFORM, x("dialogue"))
    gap, line, ask = x_of(1) - 6, middle("line")[1], middle("dialogue")[1]
    picture.path([(x_of(0) + BOX, line), (gap, line), (gap, ask + 8), (x_of(1), ask + 8)])
    for column in (1, 2):
        picture.path([(x_of(column) + BOX, ask), (x_of(column + 1), ask)])
    down(bottom("answer"), top("parse"), x("answer"))
    down(bottom("journal"), CONFIG + 10, x("journal"))
    down(handler, top("apply"), x("apply"))
    side = x_of(4) + BOX + 8
    picture.path([(x_of(4) + BOX, ask), (side, ask), (side, PLATFORM)])

    gutter = 208  # between the layers menus/ and shell/
    places = [
        (x("line"), 452),
        (x("line") + 18, top("session") - 13),
        (x("line"), gutter),
        (GRID + 15, HANDLER + 20),
        (x("dialogue"), gutter),
        (x_of(2) - 6, ask - 14),
        (x("journal"), 352),
        (x("apply"), gutter),
    ]
    y = 40
    for number, (place, (name, words)) in enumerate(zip(places, WAY), 1):
        picture.number(*place, number)
        picture.number(LEGEND, y - 4, number)
        picture.text(LEGEND + 18, y, name, "code")
        picture.lines(LEGEND + 18, y + 17, words, "small")
        y += 38 + 16 * len(words)
    sys.stdout.write(picture.svg())


main()
