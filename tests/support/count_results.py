"""Prints the passed, failed and skipped tests of a result file, as GoogleTest and pytest write it."""
import sys
import xml.etree.ElementTree as ElementTree

passed = failed = skipped = 0
for case in ElementTree.parse(sys.argv[1]).iter("testcase"):
    if case.find("failure") is not None or case.find("error") is not None:
        failed += 1
    elif case.find("skipped") is not None or case.get("result") == "skipped" or case.get("status") == "notrun":
        skipped += 1
    else:
        passed += 1
print(passed, failed, skipped)
