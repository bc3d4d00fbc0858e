# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Adds up JUnit reports of CTest: says what failed or was skipped, and closes with the sums."""

import os
import sys
import xml.etree.ElementTree as ElementTree


def outcome(case):
    """'passed', 'failed' or 'skipped'. A test that could not be started has failed."""
    status = case.get("status")
    if status == "run":
        return "passed"
    skipped = case.find("skipped")
    reason = skipped.get("message", "") if skipped is not None else ""
    return "skipped" if status == "disabled" or reason.startswith("SKIP_") else "failed"


def main(paths):
    sums = {"passed": 0, "failed": 0, "skipped": 0}
    for path in paths:
        preset = os.path.basename(os.path.dirname(path))
        try:
            cases = ElementTree.parse(path).getroot().findall("testcase")
        except (OSError, ElementTree.ParseError) as error:
            print(f"FAILED {preset}: no report ({error})")
            cases = []
            sums["failed"] += 1
        for case in cases:
            result = outcome(case)
            sums[result] += 1
            if result != "passed":
                print(f"{result.upper()} {preset}: {case.get('name')}")
    line = f"{sums['passed']} passed, {sums['failed']} failed"
    if sums["skipped"]:
        line += f", {sums['skipped']} skipped"
    print(line)
    return 0 if sums["passed"] and not sums["failed"] else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
