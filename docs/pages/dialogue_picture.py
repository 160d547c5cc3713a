#!/usr/bin/python3
"""Prints docs/pictures/dialogue.svg, a dialogue's life from prompt to save, after a visit: dialogue_picture.py VISITS
DEFAULTS, the program of docs/pages/visits.cpp and the factory settings."""

import json
import re
import subprocess
import sys

from facts import stands_in
from svg import Picture

ANSWERS = ["1", "stun.example.net"]
ASKS, NOTES, RECORD, OTHERS = 24, 420, 660, 836  # columns
TOP, ROW, LETTER = 96, 72, 7.22

visit = "\t".join(["2", "2", *ANSWERS]) + "\t\n"
seen = json.loads(subprocess.run(sys.argv[1:3], input=visit, capture_output=True, text=True, check=True).stdout)
questions = [shown.split("\n")[-1] for shown in seen["shown"][:-1]]
fields = seen["written"]  # as the questions come; the last one is noted without one
save, *apply = re.findall(r"\{([^{}]*)\}", seen["shown"][-1])
message = re.sub(r"\{[^{}]*\}", "", seen["shown"][-1]).strip()
if (
    len(fields) != len(questions) + 1
    or not save.endswith("web_server dumpshare")
    or not apply[-1].startswith("voice change")
):
    sys.exit(f"This visit goes otherwise than the picture shows it: correct {sys.argv[0]}.")

commit = TOP + ROW * len(fields) + 8
saved, applied = commit + ROW, commit + 2 * ROW
picture = Picture(1010, applied + 50, "A dialogue's life: asked, judged, noted, committed, saved, applied")


def step(x, y, number, words):
    picture.number(x + 9, y - 4, number)
    picture.text(x + 24, y, words, "small soft")


for x, name, words in (
    (ASKS, "The administrator", "sees and types"),
    (NOTES, "The journal", "in the console"),
    (RECORD, "The segment", "shared"),
    (OTHERS, "Other programs", ""),
):
    picture.text(x, 34, name, "bold")
    picture.text(x, 51, words, "small soft")
picture.box(NOTES - 10, 62, 226, commit - 88, "dashed", 8)
for y, program, words in ((saved, "web server", "stores it in flash"), (applied, "voice daemon", "takes it over")):
    picture.path([(NOTES, y - 10), (OTHERS, y - 10)])
    picture.named_box(OTHERS, y - 26, 150, 48, program, [words], "plain")
picture.box(RECORD - 10, 62, 130, applied - 24, "box", 8)  # over the ways that lead past it
for y in (saved, applied):
    picture.path([(RECORD + 120, y + 10), (OTHERS, y + 10)])

for index, (field, value) in enumerate(fields.items()):
    y = TOP + index * ROW
    entry = f"{field} = {value}"
    picture.box(NOTES, y - 22, 206, 34, "plain")
    picture.text(NOTES + 8, y - 1, entry, "code", length=min(190, LETTER * len(entry)))
    if index < len(questions):
        asked, typed = questions[index], ANSWERS[index]
        picture.text(ASKS, y - 1, asked, "code", length=LETTER * len(asked))
        picture.text(ASKS + LETTER * len(asked), y - 1, typed, "code typed", length=LETTER * len(typed))
        picture.path([(ASKS + LETTER * len(asked + typed) + 6, y - 5), (NOTES, y - 5)])
    else:
        picture.text(ASKS, y - 1, "What the other choice would have needed is emptied", "small soft")
        picture.path([(ASKS + 320, y - 5), (NOTES, y - 5)])
step(ASKS, TOP + 21, 1, "asked with the stored value, judged after Enter")
step(NOTES, TOP + 29, 2, "noted, a kept value as well")
picture.lines(
    ASKS,
    commit - 12,
    ["When a refused answer ends it, or the connection is lost,", "the journal is dropped: nothing was written."],
    "small soft",
)
picture.path([(NOTES + 103, commit - 26), (NOTES + 103, commit + 8), (RECORD - 10, commit + 8)])
step(NOTES + 112, commit, 3, stands_in("shell/dialogue.h", "commit()"))
picture.lines(RECORD, commit, ["field by field, in", "the journal's order"], "small")
picture.text(ASKS, saved - 14, message, "code")
picture.text(NOTES, saved - 16, save.split("/")[-1], "code")
step(NOTES, saved + 8, 4, "save: no Ctrl-C interrupts it")
picture.text(NOTES, applied - 16, stands_in("shell/apply.h", "raise_voice_change_flag") + "()", "code")
step(NOTES, applied + 8, 5, "apply: a flag; elsewhere a script")
sys.stdout.write(picture.svg())
