import pathlib
import sys

# What the tests of the desk are made of.
sys.path.append(str(pathlib.Path(__file__).parents[1] / "desk"))
