"""Prints the passed, failed and skipped tests of a result file, as GoogleTest and pytest write it."""
import sys
import xml.etree.ElementTree as ElementTree

cases = ElementTree.parse(sys.argv[1]).iter("testcase")
tests = [{case.get("status"), *(child.tag for child in case)} for case in cases]
failed = sum(not test.isdisjoint({"failure", "error"}) for test in tests)
passed = sum(test.isdisjoint({"failure", "error", "skipped", "notrun"}) for test in tests)
print(passed, failed, len(tests) - passed - failed)
