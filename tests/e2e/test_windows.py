# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The main window among other programs' windows, and the menu that opens and hides it."""

import unittest

import dbus

from agent import BUILD, end, notify, start_agent, start_service
from desktop import Desktop
from waiting import wait_until

OPEN, HIDE, SYNCHRONISE = "Open window", "Hide window", "Synchronize now"


class WindowsTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop(window_manager=True))
        self.screen = self.desktop.screen
        self.service = start_service(self.desktop)
        self.agent = start_agent(self.desktop)
        self.item = self.desktop.tray_item()

    def shown(self, managed=True):
        """The agent's windows that are on the screen; or its menu, which the window manager leaves alone."""
        return [window for window in self.screen.windows(self.agent.pid) if window.managed() == managed]

    def window(self):
        return wait_until(self.shown, "the agent's window")[0]

    def press(self, *keys):
        wait_until(self.window().active, "the window to have the keyboard")
        self.screen.press(*keys)

    def start_second_copy(self):
        self.assertEqual(self.desktop.start([BUILD / "fv2-agent"]).wait(), 0)

    def activate(self):
        """What the desktop does when its entry of the agent is chosen."""
        agent = self.desktop.bus.get_object("org.fv2agent.Agent", "/org/fv2agent/Agent", introspect=False)
        agent.Activate(dbus.Dictionary({}, signature="sv"), dbus_interface="org.freedesktop.Application")

    def test_the_menu_says_what_can_be_done_after_every_change(self):
        def tell(*lines):
            for line in lines:
                self.service.send(line)
                self.service.expect("^" + line)

        steps = (
            ("opened", lambda: self.item.choose(OPEN), HIDE, True),
            ("closed by its button", lambda: self.window().close(), OPEN, True),
            ("opened by a second copy", self.start_second_copy, HIDE, True),
            ("closed by its key", lambda: self.press("ctrl+w"), OPEN, True),
            ("opened by the desktop", self.activate, HIDE, True),
            ("minimised", lambda: self.window().minimise(), OPEN, True),
            ("brought back", lambda: self.item.choose(OPEN), HIDE, True),
            ("the service synchronises", lambda: tell("sync start"), HIDE, False),
            ("hidden", lambda: self.item.choose(HIDE), OPEN, False),
            ("synchronised", lambda: tell("sync ok"), OPEN, True),
            ("the service is slow", lambda: tell("onsync refuse", "fault slow 4"), OPEN, True),
            ("the agent waits for the service", lambda: self.item.choose(SYNCHRONISE), OPEN, False),
            ("the service has refused", lambda: tell("fault none"), OPEN, True),
            ("the service synchronises again", lambda: tell("sync start"), OPEN, False),
            ("the service is lost", lambda: (self.service.stop(), notify(b"{}")), OPEN, True),
        )
        for what, change, label, possible in steps:
            with self.subTest(what):
                change()
                wanted = [(label, True), (SYNCHRONISE, possible)]
                wait_until(lambda: [(entry.label, entry.enabled) for entry in self.item.menu()] == wanted, wanted)
                wait_until(lambda: bool(self.shown()) == (label == HIDE), "the window to do what the menu says")

    def test_a_left_click_shows_the_menu_and_the_keyboard_chooses(self):
        for keys, log in ((("Down", "Return"), "FV2Window first paint"),
                          (("Down", "Return"), "StatusBarMenu Hide Application Window"),
                          (("Down", "Down", "Return"), "Syncing proxy"), (("Escape",), "StatusBarMenu Closed")):
            self.screen.point_at(1200, 100)
            self.item.click(1200, 10)
            wait_until(lambda: self.shown(managed=False), "the menu")
            self.screen.press(*keys)
            self.agent.expect(log)
            wait_until(lambda: not self.shown(managed=False), "the menu to go")

    def test_what_the_user_asked_for_is_in_front_and_has_the_keyboard(self):
        self.desktop.start(["xfce4-panel", "--preferences"])
        other = self.screen.window(title="Panel Preferences")
        asks = [self.start_second_copy, self.activate, lambda: self.item.choose(OPEN)]
        self.activate()
        # The menu offers to hide a window that is shown, even behind others.
        for left, leave, ways in (("closed", lambda: self.window().close(), asks), ("behind", other.activate, asks[:2]),
                                  ("minimised", lambda: self.window().minimise(), asks)):
            for number, ask in enumerate(ways):
                with self.subTest(left, way=number):
                    leave()
                    wait_until(other.active, "the other program to have the keyboard")
                    self.screen.press("Tab")
                    ask()
                    wait_until(lambda: self.window().active() and self.window().above(other), "the window in front")

    def test_keys_switch_pages_and_close_the_window_but_do_not_end_the_agent(self):
        self.agent.expect("updateFromModel syncSource == Startup")
        self.assertEqual(self.shown(), [], "a plain start")
        self.assertEqual(end(self.agent), 0)
        self.agent = self.desktop.start([BUILD / "fv2-agent", "--show-window"], {"FV2_LOG_LEVELS": "all"})
        for key, page in (("ctrl+2", "About"), ("Up", "Protection Status"), ("Down", "About"),
                          ("ctrl+1", "Protection Status")):
            self.press(key)
            self.agent.expect(f"Switched content view to {page}")
        self.window().click(60, 72)
        self.agent.expect("Switched content view to About")
        self.press("ctrl+q", "ctrl+w")
        wait_until(lambda: not self.shown(), "the window to close")
        self.activate()
        self.window()
        self.assertEqual(end(self.agent), 0)


if __name__ == "__main__":
    unittest.main()
