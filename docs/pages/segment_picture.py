#!/usr/bin/python3
"""Prints docs/pictures/segment.svg: the segment to scale. Its input is the field table, tab separated, as
docs/pages/segment_map.cpp prints it."""

import sys
from itertools import groupby

from svg import Picture

PER_ROW, ROW, SCALE = 1000, 13, 0.64  # bytes and height of a row, pixels per byte
LEFT, TOP, RIGHT = 54, 46, 54 + 640
NAMES, STEP = RIGHT + 46, 16
HUES = 5


def parts(start, end):
    """Of a run of bytes, what lies in one row each."""
    while start < end:
        row_end = min(end, (start // PER_ROW + 1) * PER_ROW)
        yield start, row_end
        start = row_end


def place(offset):
    return LEFT + offset % PER_ROW * SCALE, TOP + offset // PER_ROW * ROW


class Block:
    """A member of the segment: its fields' runs of bytes and its reserved ones, and where its records begin."""

    def __init__(self, name, fields):
        self.name, self.records, self.table = name, [], ""
        elements = []
        for _, table, kind, *numbers in fields:
            offset, width, count, stride = map(int, numbers)
            elements += [(offset + i * stride, width, kind == "reserved") for i in range(count)]
            if table and table != self.table:
                self.table = table
                self.records += [offset + i * stride for i in range(1, count)]
                if table == name:
                    self.name += f", {count} × {stride} bytes"
        elements.sort()
        self.start, self.end = elements[0][0], sum(elements[-1][:2])
        self.runs = {
            reserved: [(start, start + width) for start, width, is_reserved in elements if is_reserved == reserved]
            for reserved in (False, True)
        }

    @property
    def label(self):
        return self.name.split(",")[0]


def rectangles(runs):
    """In one path."""
    drawn = []
    for run in runs:
        for start, end in parts(*run):
            x, y = place(start)
            drawn.append(f"M{x:.5g} {y + 1}h{(end - start) * SCALE:.4g}v{ROW - 2}H{x:.5g}z")
    return "".join(drawn)


def joined(runs):
    """Runs that touch, as one."""
    result = []
    for start, end in runs:
        if result and result[-1][1] == start:
            start = result.pop()[0]
        result.append((start, end))
    return result


def draw(picture, block, style):
    for reserved, runs in block.runs.items():
        picture.parts.append(f'<path d="{rectangles(joined(runs))}" class="{"grey" if reserved else style}"/>')
    cuts = "".join("M{:.5g} {}v{}".format(*place(record), ROW) for record in block.records)
    if cuts:
        picture.parts.append(f'<path d="{cuts}" class="cut"/>')
    start, end = max(parts(block.start, block.end), key=lambda part: part[1] - part[0])
    if (end - start) * SCALE > 6.5 * len(block.label) + 8:
        x, y = place(start)
        picture.text(x + 5, y + 10, block.label, "tiny")


def main():
    fields = [line.rstrip("\n").split("\t") for line in sys.stdin]
    blocks = [Block(name, list(rows)) for name, rows in groupby(fields, key=lambda field: field[0])]
    total = blocks[-1].end
    named = [block for block in blocks if block.runs[False]]
    picture = Picture(1030, place(total)[1] + ROW + 14, f"The configuration segment to scale, {total} bytes")
    picture.text(LEFT, 28, f"One row is {PER_ROW} bytes; records begin at the cuts.", "small soft")
    picture.box(LEFT + 300, 19, 12, 11, "grey", 1)
    picture.text(LEFT + 317, 28, "reserved", "small soft")
    for row in range(0, total, 5 * PER_ROW):
        picture.text(LEFT - 8, place(row)[1] + 10, str(row), "tiny soft", "end")
    for block in blocks:
        draw(picture, block, f"hue{named.index(block) % HUES + 1}" if block in named else "grey")
    y = 0
    for index, block in enumerate(named):
        row = place(block.start)[1] + ROW / 2
        y = max(row, y + STEP)
        picture.path([(RIGHT + 3, row), (RIGHT + 10, row), (NAMES - 14, y), (NAMES - 4, y)], "leader", end="")
        picture.box(NAMES, y - 5, 10, 10, f"hue{index % HUES + 1}", 1)
        picture.text(NAMES + 16, y + 4, f"{block.start} {block.name}", "small")
    sys.stdout.write(picture.svg())


main()
