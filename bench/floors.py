# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What needs neither desktop nor service: mark-up and log lines, timed inside of a program of their own."""

import json
import subprocess

SCANS = ("Messages", "OpeningTags", "ClosingTags", "Entities")


def medians(table, program):
    """The median of each benchmark of a program, by name, as the program's report has it."""
    command = [table.build / program, "--benchmark_format=json", f"--benchmark_repetitions={table.rounds}",
               "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.02"]
    report = json.loads(subprocess.run(command, check=True, capture_output=True, timeout=600).stdout)
    return {each["run_name"]: each for each in report["benchmarks"] if each.get("aggregate_name") == "median"}


def nanoseconds(benchmark):
    return benchmark["real_time"] * {"ns": 1, "us": 1e3, "ms": 1e6}[benchmark["time_unit"]]


def markup(table, floors):
    styled = medians(table, "bench_styled_text")
    for size, text in ((1, "one message"), (4096, "4 KiB of messages")):
        ours, qt = (nanoseconds(styled[f"{name}/{size}"]) / 1000 for name in ("StyledText", "QtHtmlImport"))
        table.at_least(f"mark-up to styled text, {text}, Qt's HTML import / ours",
                       f"{qt:.3g} / {ours:.3g} µs", qt / ours, 20, qt / ours)
    rate = floors["MessagesScanned/65534"]["bytes_per_second"] / 1e6
    table.at_least("scanner alone", f"{rate:.0f} MB/s", rate, 200)
    for name in SCANS:
        short, long = (floors[f"{name}Scanned/{size}"]["bytes_per_second"] / 1e6 for size in (4096, 65534))
        table.at_most(f"cost of a byte, {name} of 64 KiB / 4 KiB", f"{long:.0f}, {short:.0f} MB/s", short / long, 1.3,
                      short / long)


def log_lines(table, floors):
    names = "LogLineFilteredOut", "LogLineWritten", "BareOpenAppendClose"
    out, written, bare = (nanoseconds(floors[name]) for name in names)
    table.at_most("log line, filtered out / written", f"{out:.3g} / {written:.4g} ns", out / written, 0.01, out / written)
    table.at_most("log line, written / bare open, append, close", f"{written:.4g} / {bare:.4g} ns", written / bare, 1.3,
                  written / bare)


def run(table):
    floors = medians(table, "bench_ground_floors")
    markup(table, floors)
    log_lines(table, floors)
