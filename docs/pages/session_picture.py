#!/usr/bin/python3
"""Prints docs/pictures/session.svg, the console in a terminal: session_picture.py VISITS DEFAULTS, the program of
docs/pages/visits.cpp and the factory settings."""

import json
import re
import subprocess
import sys

from svg import Picture

TYPED = ["admin", "admin", "2", "2", "1", "stun.example.net"]
LEFT, TOP, LINE, LETTER = 18, 30, 16, 7.22  # pixels

visit = "".join(line + "\t" for line in TYPED[2:]) + "\n"
answer = json.loads(subprocess.run(sys.argv[1:3], input=visit, capture_output=True, text=True, check=True).stdout)
shown = [re.sub(r"\{[^{}]*\}", "", text) for text in answer["way"] + answer["shown"]]
shown[-1] += shown[3]  # the submenu comes back

pieces = [("$ ", ""), ("./run\n", "typed")]
for text, typed in zip(shown, [*TYPED, None]):
    pieces += [(text, ""), (typed + "\n", "typed")] if typed else [(text, "")]

rows = sum(text.count("\n") for text, _ in pieces) + 1
picture = Picture(620, TOP + rows * LINE, "The console in a terminal: login, menus, and a dialogue that saves")
column = row = 0
for text, style in pieces:
    for part in re.split("(\n)", text):
        if part == "\n":
            column, row = 0, row + 1
        elif part:
            picture.text(LEFT + column * LETTER, TOP + row * LINE, part, f"code {style}", length=len(part) * LETTER)
            column += len(part)
picture.box(LEFT + column * LETTER, TOP + row * LINE - 10, LETTER, 13, "soft", 0)
sys.stdout.write(picture.svg())
