#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Adds up test result files and prints "N passed, M failed" as the last line.

A file that is missing or holds no test is a failure: a step that did not run proves nothing."""

import sys
from pathlib import Path
from xml.etree import ElementTree


def main():
    passed = failed = 0
    for file in map(Path, sys.argv[1:]):
        suite = ElementTree.parse(file).getroot() if file.exists() else {}
        tests, bad, left_out = (int(suite.get(name, 0)) for name in ("tests", "failures", "skipped"))
        left_out += int(suite.get("disabled", 0))
        if tests - left_out <= 0:
            print(f"{file.stem}: nothing ran")
            bad = max(bad, 1)
            tests = bad + left_out
        note = f", {left_out} not run" if left_out else ""
        print(f"{file.stem}: {tests - bad - left_out} passed, {bad} failed{note}")
        passed += tests - bad - left_out
        failed += bad
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
