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

    def sum(self, *texts):
        files = []
        for number, text in enumerate(texts):
            file = self.folder / f"{number}.xml"
            file.unlink(missing_ok=True)
            if text is not None:
                file.write_text(text, encoding="utf-8")
            files.append(file)
        done = run("sum_results.py", *files)
        return done.returncode, done.stdout.splitlines()[-1]

    def test_sums(self):
        good = '<testsuite tests="7" failures="0" disabled="1" skipped="2"/>'
        cases = (
            ("good files", (good, good), (0, "8 passed, 0 failed")),
            ("a failure", (good, '<testsuite tests="3" failures="2"/>'), (1, "5 passed, 2 failed")),
            ("a missing file", (good, None), (1, "4 passed, 1 failed")),
            ("no test at all", (good, '<testsuite tests="0" failures="0"/>'), (1, "4 passed, 1 failed")),
            ("all left out", ('<testsuite tests="2" failures="0" skipped="2"/>',), (1, "0 passed, 1 failed")),
        )
        for what, texts, expected in cases:
            with self.subTest(what):
                self.assertEqual(self.sum(*texts), expected)

    def test_python_tests_are_counted_one_each_however_they_fail(self):
        (self.folder / "test_mixed.py").write_text(MIXED, encoding="utf-8")
        result = self.folder / "new" / "mixed.xml"
        self.assertEqual(run("run_python_tests.py", self.folder, result).returncode, 1)
        self.assertEqual(run("sum_results.py", result).stdout.splitlines()[-1], "1 passed, 3 failed")

    def test_a_folder_without_tests_and_a_test_that_cannot_be_read_fail(self):
        result = self.folder / "none.xml"
        self.assertEqual(run("run_python_tests.py", self.folder, result).returncode, 1)
        (self.folder / "test_unreadable.py").write_text("import nothing_of_this_name\n", encoding="utf-8")
        self.assertEqual(run("run_python_tests.py", self.folder, result).returncode, 1)


if __name__ == "__main__":
    unittest.main()
