"""Adds up JUnit reports: a line for each and one for all. Fails when a test failed or a report is missing."""

import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path


def count(path):
    passed = failed = skipped = 0
    for case in ElementTree.parse(path).iter("testcase"):
        if case.find("failure") is not None or case.find("error") is not None or case.get("status") == "fail":
            failed += 1
        elif case.find("skipped") is not None:
            skipped += 1
        else:
            passed += 1
    return passed, failed, skipped


def main(paths):
    total = [0, 0, 0]
    complete = True
    print()
    for path in map(Path, paths):
        if not path.exists():
            print(f"{path.stem:<10} no report: it did not run to its end")
            complete = False
            continue
        numbers = count(path)
        print(f"{path.stem:<10} {numbers[0]:>5} passed {numbers[1]:>4} failed {numbers[2]:>4} skipped")
        total = [sum(pair) for pair in zip(total, numbers)]
    print(f"\n{total[0]} passed, {total[1]} failed" + (f", {total[2]} skipped" if total[2] else ""))
    return 0 if complete and total[0] and not total[1] else 1


sys.exit(main(sys.argv[1:]))
