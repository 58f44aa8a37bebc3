# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Writes the seeds that are too long to be kept: texts that end right at a limit of the scanner, and one byte behind it.

usage: seeds_markup.py <folder>
"""
import pathlib
import sys

USUAL_CAPACITY = b"\0"
PIECE = b"x" * 4094 + b"</B>"

SEEDS = {
    "longest-tag": b"a<A" + b"x" * 4091 + b">b</A>",
    "tag-too-long": b"a<A" + b"x" * 4092 + b">b</A>",
    "longest-piece": b"<B>a</B>" + b"x" * 4094,
    "piece-too-long": b"<B>a</B>" + b"x" * 4095,
    "longest-text": b"<B>" + PIECE * 16 + b"x" * 30,
    "text-too-long": b"<B>" + PIECE * 16 + b"x" * 31,
    "tag-put-back-at-the-end": b"<X><Y>" + PIECE * 16 + b"x" * 26,
    "twice-as-long-with-its-tags": (b"<A" + b"x" * 4091 + b">y</A>") * 33,
}

folder = pathlib.Path(sys.argv[1])
for name, text in SEEDS.items():
    (folder / name).write_bytes(USUAL_CAPACITY + text)
