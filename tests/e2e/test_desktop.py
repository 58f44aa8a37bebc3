# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The harness itself: what it starts ends with it, and what does not happen is said in time."""

import os
import pwd
import signal
import sys
import time
import unittest
from pathlib import Path

from desktop import Desktop
from mocks import LoginSession
from waiting import NotInTime, wait_until


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

    @unittest.skipUnless(os.getuid() == 0, "only root can make users")
    def test_a_made_user_is_gone_even_if_its_maker_is_killed(self):
        code = ("import accounts, time\nwith accounts.real_account() as user:\n"
                "    print(user.name, flush=True)\n    time.sleep(60)")
        with Desktop(panel=None) as desktop:
            maker = desktop.start([sys.executable, "-B", "-c", code], {"PYTHONPATH": os.pathsep.join(sys.path)})
            name = maker.expect("^fv2-").string
            self.assertEqual(pwd.getpwnam(name).pw_dir, "/nonexistent")
            maker.signal(signal.SIGKILL)
            wait_until(lambda: name not in {entry.pw_name for entry in pwd.getpwall()}, "the user to be removed")

    def test_a_line_that_does_not_come_is_a_failure_with_the_lines_that_did(self):
        with Desktop(panel=None) as desktop:
            program = desktop.start(["sh", "-c", "echo first; read line; echo \"got $line\"; exit 3"])
            program.expect("^first$")
            started = time.monotonic()
            with self.assertRaisesRegex(NotInTime, "(?s)within 0.2 s.*first"):
                program.expect("second", 0.2)
            self.assertLess(time.monotonic() - started, 5)
            program.send("a line")
            program.expect("^got a line$")
            with self.assertRaisesRegex(NotInTime, "ended before"):
                program.expect("third")
            self.assertEqual(program.wait(), 3)


if __name__ == "__main__":
    unittest.main()
