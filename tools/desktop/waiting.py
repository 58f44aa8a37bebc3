# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Waiting with a deadline: the only way this harness waits."""

import time


class NotInTime(AssertionError):
    """Something that had to happen did not, or can't any more."""


def wait_until(condition, what, seconds=10.0):
    """Asks condition() until it answers something true, and returns that; raises NotInTime after the deadline."""
    deadline = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise NotInTime(f"waited {seconds:g} s in vain for {what}")
        time.sleep(0.02)
