# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The numbers at the end of a check are those of the tests that ran, and what did not run is no success."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOLS = Path(__file__).resolve().parents[2] / "tools"

MIXED = """import unittest
class Mixed(unittest.TestCase):
    def test_good(self): pass
    def test_bad(self): self.fail()
    def test_broken(self): raise OSError
    def test_in_parts(self):
        for part in range(3):
            with self.subTest(part): self.assertEqual(part, 1)
    @unittest.skip("not here")
    def test_skipped(self): pass
"""


def run(tool, *arguments):
    command = [sys.executable, "-B", TOOLS / tool, *arguments]
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)


class ResultsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.result = self.folder / "new" / "result.xml"

    def sum(self, *files):
        done = run("sum_results.py", *files)
        return done.returncode, done.stdout.splitlines()[-1]

    def test_what_did_not_run_is_a_failure(self):
        cases = (('tests="7" failures="0" disabled="1" skipped="2"', (0, "8 passed, 0 failed")),
                 ('tests="3" failures="2"', (1, "5 passed, 2 failed")),
                 ('tests="0" failures="0"', (1, "4 passed, 1 failed")),
                 ('tests="2" failures="0" skipped="2"', (1, "4 passed, 1 failed")))
        first = self.folder / "0.xml"
        for number, (numbers, expected) in enumerate(cases):
            file = self.folder / f"{number}.xml"
            file.write_text(f"<testsuite {numbers}/>", encoding="utf-8")
            self.assertEqual(self.sum(first, file), expected)
        self.assertEqual(self.sum(first, self.folder / "missing.xml"), (1, "4 passed, 1 failed"))

    def test_python_tests_are_counted_one_each_however_they_fail(self):
        self.assertEqual(run("run_python_tests.py", self.folder, self.result).returncode, 1, "no tests")
        (self.folder / "test_mixed.py").write_text(MIXED, encoding="utf-8")
        (self.folder / "test_unreadable.py").write_text("import nothing_of_this_name\n", encoding="utf-8")
        self.assertEqual(run("run_python_tests.py", self.folder, self.result).returncode, 1)
        self.assertEqual(self.sum(self.result), (1, "1 passed, 4 failed"))


if __name__ == "__main__":
    unittest.main()
