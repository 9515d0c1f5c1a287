#!/usr/bin/env python3
"""test-counts.py REPORT: prints "N passed, N failed" from ctest's report in JUnit's format.

Exits with 1 when a test failed or none passed. A test that could not be run has failed; one that
was switched off or skipped itself is neither, and is named on standard error.
"""
import sys
import xml.etree.ElementTree as ElementTree


def outcome(case):
    if case.get("status") == "run":
        return "passed"
    skipped = case.find("skipped")
    reason = skipped.get("message", "") if skipped is not None else ""
    left_out = case.get("status") == "disabled" or reason.startswith("SKIP_")
    return "skipped" if left_out else "failed"


def main():
    try:
        cases = ElementTree.parse(sys.argv[1]).getroot().findall("testcase")
    except (OSError, ElementTree.ParseError) as error:
        print(f"The tests left no report: {error}", file=sys.stderr)
        cases = []
    outcomes = [outcome(case) for case in cases]
    for case, result in zip(cases, outcomes):
        if result == "skipped":
            print(f"skipped: {case.get('name')}", file=sys.stderr)
    passed = outcomes.count("passed")
    failed = outcomes.count("failed")
    if passed + failed == 0:
        failed = 1
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


sys.exit(main())
