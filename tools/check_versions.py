#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Holds the versions that are written by hand against the one in CMakeLists.txt, from which all others are made.

Prints one line for each file that differs and exits with 1 if there is any; the project's root may be given."""

import re
import sys
from pathlib import Path

SOURCE = ("CMakeLists.txt", r"project\(fv2-agent[^)]*?VERSION ([\d.]+)")
#: Where the newest version stands, by file.
COPIES = {
    "CHANGELOG.md": r"^## ([\d.]+) - ",
    "debian/changelog": r"^fv2-agent \(([^)]+)\)",
    "packaging/fv2-agent.spec": r"^Version:\s*(\S+)",
}


def version(root, file, pattern):
    found = re.search(pattern, (root / file).read_text(encoding="utf-8"), re.MULTILINE)
    return found.group(1) if found else "none"


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent)
    wanted = version(root, *SOURCE)
    faults = [f"{file}: version {found}, {SOURCE[0]} has {wanted}" for file, pattern in COPIES.items()
              if (found := version(root, file, pattern)) != wanted]
    print(*faults, sep="\n", end="\n" if faults else "")
    sys.exit(1 if faults or wanted == "none" else 0)


if __name__ == "__main__":
    main()
