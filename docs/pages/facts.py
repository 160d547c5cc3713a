"""What a picture says of the code stands in the code: where it no longer does, no picture is printed."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def stands_in(path, *texts):
    """The texts, joined by a blank, each of which the file has."""
    for text in texts:
        if text not in (ROOT / path).read_text():
            sys.exit(f"{path} no longer has `{text}`: correct {sys.argv[0]}, whose picture shows it.")
    return " ".join(texts)


def taken_from(path, pattern):
    """What the pattern's group finds in the file."""
    found = re.search(pattern, (ROOT / path).read_text())
    return found[1] if found else sys.exit(f"{path} has nothing like `{pattern}`: correct {sys.argv[0]}.")
