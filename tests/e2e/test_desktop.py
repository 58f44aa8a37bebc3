# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The harness itself: what it starts ends with it."""

import unittest
from pathlib import Path

from desktop import Desktop
from mocks import LoginSession


def marked_processes(folder):
    """Command lines of the processes that carry the mark of the desktop in that folder."""
    mark = f"FV2_DESKTOP={folder}".encode()
    found = []
    for entry in Path("/proc").glob("[0-9]*"):
        try:
            if mark in (entry / "environ").read_bytes().split(b"\0"):
                found.append((entry / "cmdline").read_bytes().replace(b"\0", b" ").decode())
        except OSError:
            pass  # not ours, or gone meanwhile
    return found


class DesktopTest(unittest.TestCase):
    def test_nothing_is_left_when_a_test_fails_in_the_middle(self):
        desktop = Desktop(window_manager=True, accessible=True, system_bus=True)
        with self.assertRaises(ZeroDivisionError), desktop:
            desktop.start(["sh", "-c", "trap '' TERM; setsid sleep 600 & echo up; wait"]).expect("up")
            LoginSession(desktop)
            self.assertEqual(desktop.screen.window(desktop.panel.pid).types(), {"DOCK"})
            running = " ".join(marked_processes(desktop.folder))
            for name in ("Xvfb", "dbus-daemon", "xfce4-panel", "xfwm4", "at-spi-bus", "dbusmock --system", "sleep 600"):
                self.assertIn(name, running)
            raise ZeroDivisionError
        self.assertEqual(marked_processes(desktop.folder), [])
        self.assertFalse(desktop.folder.exists())


if __name__ == "__main__":
    unittest.main()
