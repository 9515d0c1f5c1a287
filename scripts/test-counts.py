#!/usr/bin/env python3
"""test-counts.py REPORT...: prints "N passed, N failed" from JUnit reports of ctest and of the test
programs.

Exits with 1 if a test failed, no test ran or a report is missing. A test that could not run counts
as failed. A disabled or skipped test counts as neither; its name is printed on standard error.
"""
import sys
import xml.etree.ElementTree as ElementTree


def outcome(case):
    if case.find("failure") is not None or case.find("error") is not None:
        return "failed"
    skipped = case.find("skipped")
    if case.get("status") == "run" and skipped is None:
        return "passed"
    reason = skipped.get("message", "") if skipped is not None else ""
    left_out = (case.get("status") == "disabled" or reason.startswith("SKIP_")
                or case.get("result") in ("suppressed", "skipped"))
    return "skipped" if left_out else "failed"


def cases_of(report):
    try:
        return list(ElementTree.parse(report).getroot().iter("testcase"))
    except (OSError, ElementTree.ParseError) as error:
        print(f"The tests left no report: {error}", file=sys.stderr)
        return None


def main():
    reports = [cases_of(report) for report in sys.argv[1:]]
    cases = [case for report in reports if report for case in report]
    outcomes = [outcome(case) for case in cases]
    for case, result in zip(cases, outcomes):
        if result == "skipped":
            print(f"skipped: {case.get('name')}", file=sys.stderr)
    passed = outcomes.count("passed")
    failed = outcomes.count("failed") + reports.count(None)
    if passed + failed == 0:
        failed = 1
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


sys.exit(main())
