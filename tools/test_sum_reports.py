# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of the sums that ./test closes with: a lost test must never look like a good one."""

import os
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.path.join(os.path.dirname(os.path.abspath(__file__)), "sum_reports.py")
PASSED = '<testcase name="a" status="run"/>'
FAILED = '<testcase name="b" status="fail"><failure message=""/></testcase>'
SKIPPED = '<testcase name="c" status="notrun"><skipped message="SKIP_RETURN_CODE=77"/></testcase>'
NO_PROGRAM = '<testcase name="d" status="notrun"><skipped message="Unable to find executable"/></testcase>'
DISABLED = '<testcase name="e" status="disabled"/>'


class Sums(unittest.TestCase):
    def sum(self, *reports):
        """Exit code and last line for reports with these cases; None is a report that was not written."""
        with tempfile.TemporaryDirectory() as directory:
            paths = []
            for number, cases in enumerate(reports):
                paths.append(os.path.join(directory, f"{number}.xml"))
                if cases is not None:
                    with open(paths[-1], "w", encoding="utf-8") as file:
                        file.write(f"<testsuite>{cases}</testsuite>")
            run = subprocess.run([sys.executable, PROGRAM, *paths], stdout=subprocess.PIPE, text=True, check=False)
        return run.returncode, run.stdout.splitlines()[-1]

    def test_adds_up_over_reports(self):
        self.assertEqual(self.sum(PASSED, PASSED + PASSED), (0, "3 passed, 0 failed"))

    def test_one_failure_fails(self):
        self.assertEqual(self.sum(PASSED + FAILED, PASSED), (1, "2 passed, 1 failed"))

    def test_skipped_and_disabled_are_told(self):
        self.assertEqual(self.sum(PASSED + SKIPPED + DISABLED), (0, "1 passed, 0 failed, 2 skipped"))

    def test_a_test_without_its_program_has_failed(self):
        self.assertEqual(self.sum(PASSED + NO_PROGRAM), (1, "1 passed, 1 failed"))

    def test_a_lost_report_has_failed(self):
        self.assertEqual(self.sum(PASSED, None), (1, "1 passed, 1 failed"))

    def test_nothing_run_is_no_success(self):
        self.assertEqual(self.sum(SKIPPED), (1, "0 passed, 0 failed, 1 skipped"))


if __name__ == "__main__":
    unittest.main()
