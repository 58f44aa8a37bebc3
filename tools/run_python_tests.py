#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Runs the Python tests of a folder and leaves their numbers in a result file beside ctest's.

usage: run_python_tests.py <folder> <result.xml> [<pattern: test_<pattern>.py>]"""

import sys
import unittest
from pathlib import Path
from xml.etree import ElementTree


def main():
    folder, result_file, pattern = Path(sys.argv[1]), Path(sys.argv[2]), (sys.argv[3:] or ["*"])[0]
    tests = unittest.defaultTestLoader.discover(str(folder), f"test_{pattern}.py")
    result = unittest.TextTestRunner(verbosity=2, stream=sys.stdout).run(tests)
    # A part of a test that fails (subTest) is its test's failure, and counts once.
    bad = [test for test, _ in result.failures + result.errors] + result.unexpectedSuccesses
    failed = {getattr(test, "test_case", test).id() for test in bad}
    numbers = {"name": folder.name, "tests": result.testsRun, "failures": len(failed), "skipped": len(result.skipped)}
    result_file.parent.mkdir(parents=True, exist_ok=True)
    suite = ElementTree.Element("testsuite", {name: str(number) for name, number in numbers.items()})
    ElementTree.ElementTree(suite).write(result_file, encoding="utf-8")
    return 0 if result.testsRun and not failed else 1


if __name__ == "__main__":
    sys.exit(main())
