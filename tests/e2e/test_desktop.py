# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The harness itself: what it starts ends with it, and what does not happen is said in time."""

import functools
import os
import pwd
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

from desktop import Desktop
from mocks import XFCE_SWITCH, LoginSession, Notifications, Portal, gnome_banners, set_do_not_disturb
from tray import PROPERTIES
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


def ask(bus, name, path, interface, method, *arguments):
    return bus.get_object(name, path, introspect=False).get_dbus_method(method, interface)(*arguments)


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

    def test_a_session_without_a_panel_has_no_tray(self):
        with Desktop(panel=None, logs_folder=False) as desktop:
            self.assertFalse(desktop.bus.name_has_owner("org.kde.StatusNotifierWatcher"))
            self.assertFalse((desktop.home / "logs").exists())

    def test_the_mocks_say_and_announce_what_was_set(self):
        with Desktop(panel=None, system_bus=True) as desktop:
            login, portal, alerts = LoginSession(desktop, active=False), Portal(desktop, 1), Notifications(desktop)
            session = ask(desktop.system_bus, login.NAME, login.PATH, login.INTERFACE, "GetSession", "auto")
            system, user = (desktop.start(["dbus-monitor", bus]) for bus in ("--system", "--session"))
            for monitor in (system, user):
                monitor.expect("NameAcquired")
            scheme = (desktop.bus, portal.NAME, portal.PATH, portal.INTERFACE, "Read", *portal.SETTING)
            xfconf = (desktop.bus, "org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf")
            switch = functools.partial(set_do_not_disturb, desktop)
            cases = (
                (login.set_active, True, system, f"^signal .*path={session};.*PropertiesChanged", True,
                 (desktop.system_bus, login.NAME, session, PROPERTIES, "Get", login.SESSION_INTERFACE, "Active")),
                (alerts.set_inhibited, True, user, f"^signal .*path={alerts.PATH};.*PropertiesChanged", True,
                 (desktop.bus, alerts.NAME, alerts.PATH, PROPERTIES, "Get", alerts.INTERFACE, "Inhibited")),
                (portal.set_color_scheme, 2, user, "member=SettingChanged", 2, scheme),
                (switch, True, user, "member=PropertyChanged", True, (*xfconf, "GetProperty", *XFCE_SWITCH)),
                (switch, None, user, "member=PropertyRemoved", False, (*xfconf, "PropertyExists", *XFCE_SWITCH)),
            )
            for change, value, monitor, announced, read, question in cases:
                with self.subTest(announced):
                    change(value)
                    monitor.expect(announced)
                    self.assertEqual(ask(*question), read)
            self.assertEqual(ask(*scheme).variant_level, 2)
            shown = subprocess.run(["gsettings", "get", "org.gnome.desktop.notifications", "show-banners"],
                                   env={**desktop.env, **gnome_banners(desktop, False)}, capture_output=True, text=True)
            self.assertEqual(shown.stdout, "false\n")


if __name__ == "__main__":
    unittest.main()
