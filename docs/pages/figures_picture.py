#!/usr/bin/python3
"""Prints docs/pictures/figures.svg: the tables of docs/figures.md, its input, as bars beside their floors and goals."""

import re
import sys

from svg import Picture

WIDTH, LABEL, BARS, ROW = 900, 20, 400, 36
FULL = 360  # pixels of the longest bar of a panel


def tables(page):
    """By heading: rows of cells, without the head of the table."""
    found, heading = {}, ""
    for line in page.split("\n"):
        if line.startswith("## "):
            heading = line[3:]
        elif line.startswith("| ") and not line.startswith("| What "):
            found.setdefault(heading, []).append([cell.strip() for cell in line.strip("|").split("|")])
    return found


def value(cell):
    return float(cell.replace(",", ""))


def panels(page):
    """Title, what the second bar is, and rows: label, the console's number, the other one, as they are written."""
    small, fast = tables(page)["Small"], tables(page)["Fast"]
    memory = re.compile(r"\((\d+) KiB, (\d+) KiB\)")
    bytes_of = [row for row in small if re.fullmatch(r"[\d,]+ bytes", row[1])]
    return [
        ("Bytes", "goal", [(row[0], row[2], row[1].removesuffix(" bytes")) for row in bytes_of]),
        (
            "Memory in KiB",
            "an empty program",
            [(row[0], *found.groups()) for row in small if (found := memory.search(row[2]))],
        ),
        ("Processor time in microseconds", "floor", [(row[0], row[2], row[3]) for row in fast if row[3]]),
        ("Calls", "goal", [(row[0], row[2], row[1]) for row in fast if not row[3]]),
    ]


def main():
    drawn = panels(sys.stdin.read())
    height = sum(44 + ROW * len(rows) for _, _, rows in drawn) + 10
    picture = Picture(WIDTH, height, "What the console costs, beside floors and goals")
    y = 30
    for title, other, rows in drawn:
        picture.text(LABEL, y, title, "bold")
        for x, style, words in ((BARS, "accent", "console"), (BARS + 90, "grey", other)):
            picture.box(x, y - 10, 11, 11, style, 1)
            picture.text(x + 16, y, words, "small soft")
        longest = max(max(value(cell) for cell in row[1:]) for row in rows)
        for label, *cells in rows:
            y += ROW
            picture.text(LABEL, y - 6, label, "small")
            for top, style, cell in ((y - 20, "accent", cells[0]), (y - 7, "grey", cells[1])):
                length = value(cell) / longest * FULL
                picture.box(BARS, top, length, 11, style, 1)
                picture.text(BARS + length + 6, top + 9, cell, "tiny")
        y += 44
    sys.stdout.write(picture.svg())


main()
