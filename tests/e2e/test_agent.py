# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The agent as its user meets it: icon, tooltip, one copy a user, a clean end."""

import contextlib
import fcntl
import os
import random
import signal
import stat
import subprocess
import time
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import dbus

from accounts import account
from agent import (AGENT_SOCKET, BUILD, STATE_COLOURS, UNDERSTOOD, end, listens, notify, program, start_agent,
                   start_service)
from desktop import Desktop
from password_dialog import PasswordDialog
from tray import ITEM, WATCHER, tray_items
from waiting import wait_until

BLUE_SQUARE = '<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"><path fill="#00f" d="M0 0h9v9H0z"/></svg>'
FIRST_PAINT = "FV2Window first paint"


class SessionKindTest(unittest.TestCase):
    def test_an_encryption_from_the_start_to_the_end_under_x11_and_wayland(self):
        for wayland in (False, True):
            with self.subTest(wayland=wayland), account() as user, Desktop(
                    window_manager=not wayland, wayland=wayland, accessible=True, account=user) as desktop:
                service = start_service(desktop)
                agent = start_agent(desktop, "--background")
                item, windows = desktop.tray_item(), PasswordDialog(desktop, agent).elements()
                wait_until(lambda: item.icon_colour() == "yellow", "the item")
                self.assertEqual(windows.children(), [])
                self.activate(desktop)
                main = windows.find(name=item.title(), states=["active"])
                main.find("filler", "Please read the messages", ["showing"])
                status, about = main.find("list").children()
                about.do("Toggle")
                main.find("filler", "About this program", ["showing"])
                status.do("Toggle")
                service.send("state 3")
                main.find("link", "Enter your password", ["showing"]).do("Press")
                windows.find("text", "Password:", ["focused"])
                desktop.screen.keyboard.type(user.password)
                desktop.screen.press("Return")
                service.expect("^credentials of .*: accepted")
                wait_until(lambda: not windows.find_all(name="Enter password"), "the dialog to go")
                quitting = desktop.start([program(desktop, "fv2-agent"), "--quit"])
                self.assertEqual((quitting.wait(), agent.wait(1)), (0, 0))
                self.assertEqual(tray_items(desktop.bus), [])

    @staticmethod
    def activate(desktop):
        """What the desktop does when its entry of the agent is chosen."""
        agent = desktop.bus.get_object("org.fv2agent.Agent", "/org/fv2agent/Agent", introspect=False)
        agent.Activate(dbus.Dictionary({}, signature="sv"), dbus_interface="org.freedesktop.Application")


class TrayTest(unittest.TestCase):
    def follow(self, item, colour, when):
        wait_until(lambda: item.icon_colour() == colour, f"a {colour} icon {when}")

    def test_the_icon_tells_the_truth_from_before_the_service_to_after_it(self):
        with Desktop() as desktop:
            agent = start_agent(desktop)
            item = desktop.tray_item()
            self.follow(item, "red", "without a service")
            self.assertEqual(item.tooltip(), "Disk Encryption Agent: Your attention is needed")
            service = start_service(desktop)
            self.follow(item, "yellow", "once the service has announced itself")
            for state, colour in STATE_COLOURS.items():
                other, other_colour = (3, "red") if colour == "green" else (6, "green")
                service.send(f"state {other}")
                self.follow(item, other_colour, f"in state {other}")
                service.send(f"state {state}")
                self.follow(item, colour, f"in state {state}")
            service.send("sync start")
            self.follow(item, "blue", "during a synchronisation")
            service.send("state 4")
            self.follow(item, "yellow", "when synchronising is blocked")
            service.stop()
            notify(b'{ "command": "status_changed" }')
            self.follow(item, "red", "after the service has gone")
            self.assertTrue(agent.running())

    def test_a_theme_can_have_icons_of_its_own(self):
        with Desktop() as desktop:
            icon = desktop.home / ".local/share/icons/hicolor/scalable/status/org.fv2agent.Agent-status-alert.svg"
            icon.parent.mkdir(parents=True)
            icon.write_text(BLUE_SQUARE, encoding="utf-8")
            start_agent(desktop)
            item = desktop.tray_item()
            wait_until(lambda: desktop.shown_colour() == "blue", "the theme's icon")
            self.assertEqual(item.icon_colour(), "red", "ours, for a panel that has no such icon")

    def test_an_unchanged_status_leaves_the_tray_alone(self):
        with Desktop() as desktop:
            service = start_service(desktop)
            start_agent(desktop)
            item = desktop.tray_item()
            self.follow(item, "yellow", "in state 1")
            monitor = desktop.start(["dbus-monitor", "--session", f"type='signal',interface='{ITEM}'"])
            monitor.expect("NameAcquired|signal")
            for _ in range(10):
                service.send("notify")
                service.expect("answered")
                service.expect("status for uid")
            service.send("state 6")
            self.follow(item, "green", "in state 6")
            monitor.expect("member=NewIcon")
            self.assertEqual(sum("member=NewIcon" in line for line in monitor.lines), 1)

    def test_the_item_comes_with_a_late_panel_and_comes_back_with_a_new_one(self):
        with Desktop(panel=None) as desktop:
            start_service(desktop)
            agent = start_agent(desktop)
            time.sleep(12)  # past the agent's patience with the newer kind of tray
            self.assertTrue(agent.running())
            desktop.start_panel()
            self.follow(desktop.tray_item(), "yellow", "in a late panel")
            desktop.panel.stop()
            wait_until(lambda: not desktop.bus.name_has_owner(WATCHER), "the panel to go")
            desktop.start_panel()
            self.follow(desktop.tray_item(), "yellow", "in a new panel")
            self.assertEqual(len(tray_items(desktop.bus)), 1)


class LogSwitchTest(unittest.TestCase):
    def test_nothing_is_written_until_a_level_is_switched_on(self):
        with Desktop(panel=None) as desktop:
            log = desktop.home / "logs/mac-fv2-ui.log"
            quiet = start_agent(desktop, levels="")
            self.assertEqual(end(quiet), 0)
            self.assertEqual(quiet.lines, [])
            self.assertFalse(log.exists())
            loud = start_agent(desktop, levels="release,nonsense")
            loud.expect('FV2_LOG_LEVELS: unknown level "nonsense"')
            loud.expect(r"^1\) \d\d:\d\d:\d\d\.\d{3} \[release\] Application started\. $")
            self.assertEqual(end(loud), 0)
            self.assertEqual(stat.S_IMODE(log.stat().st_mode), 0o600)
            text = log.read_text(encoding="utf-8")
            self.assertNotIn("[trace]", text)
            self.assertIn("applicationWillTerminate()", text)


class OneCopyTest(unittest.TestCase):
    def test_a_second_copy_hands_over_and_leaves_the_first_ones_log_alone(self):
        with Desktop(panel=None) as desktop:
            first = start_agent(desktop)
            log = desktop.home / "logs/mac-fv2-ui.log"
            inode, before = log.stat().st_ino, log.read_bytes()
            second = desktop.start([BUILD / "fv2-agent"], {"FV2_LOG_LEVELS": "all"})
            self.assertEqual(second.wait(), 0)
            self.assertTrue(any("ERROR: Found another instance." in line for line in second.lines))
            first.expect("StatusBarMenu Open Application Window")
            self.assertTrue(first.running())
            self.assertEqual(log.stat().st_ino, inode)
            self.assertTrue(log.read_bytes().startswith(before))

    def test_a_copy_in_another_session_of_the_user_says_where_the_window_is_and_opens_none(self):
        with Desktop(panel=None) as desktop:
            first = start_agent(desktop, "--background")
            for option, status in (("--background", 0), ("--show-window", 1)):
                there = desktop.start([BUILD / "fv2-agent", option], {"DISPLAY": ":4711"})
                self.assertEqual(there.wait(), status, option)
                self.assertTrue(any("runs in another session of this user" in line for line in there.lines), option)
            here = desktop.start([BUILD / "fv2-agent", "--show-window"], {"DISPLAY": desktop.env["DISPLAY"] + ".0"})
            self.assertEqual(here.wait(), 0)
            first.expect(FIRST_PAINT)
            self.assertEqual(sum("StatusBarMenu Open" in line for line in first.lines), 1)

    def test_of_two_copies_started_in_the_same_instant_one_stays(self):
        with Desktop(panel=None) as desktop:
            for round_number in range(50):
                copies = self.started_together(desktop, 2)
                wait_until(lambda: sum(copy.poll() is None for copy in copies) == 1, f"one to go, round {round_number}")
                gone, stays = sorted(copies, key=lambda copy: copy.poll() is None)
                self.assertEqual(gone.returncode, 0)
                self.assertEqual(notify(b'{ "command": "show_ui" }'), UNDERSTOOD)
                self.assertIsNone(stays.poll())
                stays.terminate()
                self.assertEqual(stays.wait(2), 0)

    @staticmethod
    def started_together(desktop, count):
        with ThreadPoolExecutor(count) as starters:
            return list(starters.map(lambda _: subprocess.Popen([BUILD / "fv2-agent"], env=desktop.env), range(count)))


class CrashTest(unittest.TestCase):
    def test_whenever_the_agent_is_killed_the_next_one_works_and_nothing_gathers(self):
        seed = int(os.environ.get("FV2_SEED", random.randrange(1 << 32)))
        print("FV2_SEED:", seed)
        chance = random.Random(seed)
        with Desktop(panel=None) as desktop:
            start_service(desktop)
            lock = desktop.folder / "run/fv2-agent.lock"
            log = desktop.home / "logs/mac-fv2-ui.log"
            left, shown = [], 0
            started, agent = time.monotonic(), self.start(desktop)
            wait_until(lambda: log.exists() and FIRST_PAINT in log.read_text(), "the window")
            span = (time.monotonic() - started) * 1.4
            agent.kill()
            agent.wait()
            for number in range(200):
                agent = self.start(desktop)
                deadline = time.monotonic() + chance.uniform(0, span)
                while (rest := deadline - time.monotonic()) > 0:
                    if listens():
                        with contextlib.suppress(OSError):
                            notify(chance.choice((b"{}", b'{ "command": "show_ui" }')))
                    time.sleep(min(rest, 0.01))
                agent.kill()
                agent.wait()
                text = log.read_text() if log.exists() else ""
                shown += FIRST_PAINT in text
                self.assertRegex(text, r"\A(\d+\) \d\d:\d\d:\d\d\.\d{3} \[\w+\] .*\n)*\Z", number)
                agent = self.start(desktop)
                wait_until(lambda: agent.poll() is not None or listens(), f"the next one, round {number}")
                self.assertEqual(notify(b"{}"), UNDERSTOOD)
                with lock.open() as file, self.assertRaises(BlockingIOError):
                    fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
                left.append(sorted(path for path in (*desktop.folder.rglob("*"), *Path("/tmp").glob("*fv2*"))))
                agent.terminate()
                self.assertEqual(agent.wait(5), 0)
            print(f"killed 200 times within {span * 1000:.0f} ms, {shown} times with the window shown")
            self.assertGreater(min(shown, 200 - shown), 20, "not at every stage")
            self.assertEqual(left[-1], left[10])

    @staticmethod
    def start(desktop):
        return subprocess.Popen([BUILD / "fv2-agent", "--show-window"], env={**desktop.env, "FV2_LOG_LEVELS": "all"},
                                stdout=subprocess.DEVNULL)


class EndTest(unittest.TestCase):
    def test_every_ending_signal_unsubscribes_and_removes_the_socket(self):
        with Desktop(panel=None) as desktop:
            service = start_service(desktop)
            for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
                agent = start_agent(desktop)
                agent.expect("updateFromModel syncSource == Startup")
                self.assertEqual(end(agent, number), 0, number)
                service.expect("^unsubscribed uid")
                self.assertFalse(os.path.exists(AGENT_SOCKET))

    def test_the_end_takes_under_a_second_whatever_the_service_does(self):
        with Desktop(panel=None) as desktop:
            self.assertEqual(end(start_agent(desktop)), 0)
            service = start_service(desktop)
            for fault in ("silent", "slow 5", "endless", "close", "garbage"):
                service.send(f"fault {fault}")
                service.expect(f"^fault {fault}")
                agent = start_agent(desktop)
                for _ in range(3):
                    self.assertEqual(notify(b"{}"), UNDERSTOOD)
                self.assertEqual(end(agent), 0, fault)
                self.assertFalse(listens())
