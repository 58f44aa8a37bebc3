# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What the desktop's notifications tell while no window is seen, and what their buttons do."""

import time
import unittest

import dbus
import dbus.bus
import dbus.lowlevel

from agent import start_agent, start_service
from desktop import Desktop
from mocks import NotificationServer
from waiting import wait_until

FAILED, FINISHED = "Synchronization did not succeed", "Your disk is encrypted"


class NotificationsTest(unittest.TestCase):
    def start(self, *lines, panel="light", **server):
        self.desktop = self.enterContext(Desktop(panel=panel, window_manager=True))
        self.server = NotificationServer(self.desktop, **server)
        self.service = start_service(self.desktop, *lines)
        self.agent = start_agent(self.desktop)
        self.agent.expect("updateFromModel syncSource == Startup")

    def shown(self, count):
        return wait_until(lambda: len(self.server.shown()) >= count and self.server.shown(), f"{count} notifications")

    def tell(self, line):
        self.service.send(line)
        self.service.expect("^status for uid")

    def test_one_at_a_time_is_replaced_and_taken_away_with_its_reason(self):
        self.start("state 5", "onsync refuse")
        self.tell("state 6")
        self.shown(1)
        self.desktop.tray_item().choose("Synchronize now")
        (_, first), (replaced, second) = self.shown(2)[:2]
        self.assertEqual([FINISHED, FAILED], [first, second])
        self.assertNotEqual(replaced, 0, "the first one is replaced")
        self.server.choose("default")
        self.desktop.screen.window(self.agent.pid)
        wait_until(self.server.closed, "the window to take it away")

    def test_a_password_kept_from_its_window_is_entered_or_put_off_by_the_notification_alone(self):
        self.start("state 6", "policy postpone 30")
        self.desktop.tray_item().choose("Open window")
        main = self.desktop.screen.window(self.agent.pid)
        main.minimise()
        wait_until(lambda: self.desktop.tray_item().menu()[0].label == "Open window", "the agent to know it")
        self.service.send("state 3")
        title = "Your password is needed for encryption"
        self.assertEqual(self.shown(1), [(0, title)])
        stranger = dbus.bus.BusConnection(self.desktop.env["DBUS_SESSION_BUS_ADDRESS"])
        self.desktop.at_end(stranger.close)
        signal = dbus.lowlevel.SignalMessage(self.server.PATH, self.server.INTERFACE, "ActionInvoked")
        signal.append(dbus.UInt32(1), "enter", signature="us")
        stranger.send_message(signal)
        stranger.flush()
        self.server.choose("enter", number=7)
        time.sleep(0.5)
        self.assertFalse(any("EnterPasswordWindow" in line for line in self.agent.lines), "somebody else's")
        self.server.choose("later")
        wait_until(self.server.closed, "it to be taken away")
        self.tell("state 6")
        self.service.send("state 3")
        self.assertEqual(self.shown(2)[1][1], title, "a new wish")
        self.server.choose("enter")
        self.agent.expect(r"EnterPasswordWindowWindowController\.init")

    def test_nothing_is_told_in_quiet_times(self):
        self.start("state 5", inhibited=True)
        self.tell("state 6")
        time.sleep(1)
        self.assertEqual(self.server.shown(), [])
        self.server.set_inhibited(False)
        self.assertEqual(self.shown(1)[0][1], FINISHED, "later, as it still holds")

    def test_without_a_tray_a_user_is_told_once_where_the_agent_is(self):
        self.start("state 6", panel=None)
        stamp = self.desktop.home / ".local/state/fv2-agent/told-where-without-tray"
        self.assertFalse(stamp.exists())
        wait_until(self.server.shown, "where it is found", 20)
        wait_until(stamp.exists, "it to be remembered")
        self.agent.stop()
        self.agent = start_agent(self.desktop)
        time.sleep(12)
        self.assertEqual(len(self.server.shown()), 1, self.server.shown())
