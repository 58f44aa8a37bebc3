#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Measures how fast and how small the agent is, and prints one table; ends with 1 if a figure misses its goal."""

import argparse
import contextlib
import importlib
import os
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path[1:1] = [str(ROOT / "tools/desktop"), str(ROOT / "tests/e2e")]

from table import Table  # noqa: E402

#: The modules that measure, each a group of rows.
GROUPS = ("start_and_memory", "exchange", "window_times", "floors", "many_agents")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build", type=Path, help="where the programs are")
    parser.add_argument("--rounds", type=int, default=15, help="how often each thing is measured")
    parser.add_argument("--slack", type=float, default=1.0, help="how many times worse than its goal a figure may be")
    parser.add_argument("--only", choices=GROUPS, action="append", help="only this group of rows; may be repeated")
    options = parser.parse_args()
    # Before whatever else the machine does, where that is allowed: all programs that are measured inherit it.
    with contextlib.suppress(PermissionError):
        os.sched_setscheduler(0, os.SCHED_RR, os.sched_param(1))
    table = Table(options.build.resolve(), options.rounds, options.slack)
    table.head()
    for group in options.only or GROUPS:
        importlib.import_module(group).run(table)
    for what in table.failed:
        print(f"missed: {what}")
    return 1 if table.failed else 0


if __name__ == "__main__":
    sys.exit(main())
