# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The links in the window's messages, and that nothing the user does ever waits for the service."""

import re
import signal
import time
import unittest

from accounts import listed_account
from agent import end, notify, start_agent, start_service
from desktop import Desktop
from password_dialog import PasswordDialog
from waiting import wait_until
from watching import Heartbeat

PASSWORD_LINK, AGAIN = "Enter your password", "Try again"
DIALOG_OPENS = r"EnterPasswordWindowWindowController\.init"


class LinksTest(unittest.TestCase):
    def setUp(self):
        account = self.enterContext(listed_account())
        self.desktop = self.enterContext(Desktop(window_manager=True, accessible=True, account=account))
        self.screen = self.desktop.screen
        self.service = start_service(self.desktop, "onsync ok 0")
        self.agent = start_agent(self.desktop, "--show-window")
        self.agent.expect("updateFromModel syncSource == Startup")
        self.dialog = PasswordDialog(self.desktop, self.agent)
        self.page = self.dialog.elements()
        self.main = self.screen.window(self.agent.pid)
        self.main.activate()

    def link(self, name):
        return self.page.find("link", name, ["showing"])

    def by_keyboard(self, link):
        self.page.tab_to(link, self.screen)
        self.screen.press("Return")

    def test_each_link_does_what_it_says_once(self):
        def wanted(state):
            self.service.send("state 6")  # closes a dialog that is open
            self.service.expect("^status for uid")
            self.dialog.wait_until_gone()
            self.service.send(f"state {state}")

        def lose_the_service():
            self.service.stop()
            notify(b"{}")

        cases = (
            ("synchronisation failed", lambda: self.service.send("sync fail"), AGAIN, self.service, "^sync of uid"),
            ("encryption wanted", lambda: wanted(3), PASSWORD_LINK, self.agent, DIALOG_OPENS),
            ("decryption wanted", lambda: wanted(7), PASSWORD_LINK, self.agent, DIALOG_OPENS),
            ("service lost", lose_the_service, AGAIN, self.agent, "syncSource == User"),
        )
        ways = {"mouse": lambda link: self.screen.click(*link.middle()), "keyboard": self.by_keyboard,
                "screen reader": lambda link: link.do("Press")}
        for what, prepare, name, program, pattern in cases:
            for way, use in ways.items():
                with self.subTest(what, way=way):
                    prepare()
                    self.link(name)
                    wait_until(self.main.active, "the window to have the keyboard")
                    time.sleep(0.5)  # whatever else is under way must not be counted
                    before = len(program.lines)
                    use(self.link(name))
                    if what == "service lost":
                        self.dialog.answer()
                    time.sleep(0.5)
                    done = [line for line in program.lines[before:] if re.search(pattern, line)]
                    self.assertEqual(len(done), 1, done)

    def test_nothing_that_is_clicked_keeps_the_window_waiting_for_a_silent_service(self):
        self.service.send("sync fail")
        self.service.send("state 3")
        self.link(PASSWORD_LINK)
        self.service.send("fault silent")
        self.service.expect("^fault silent")
        item = self.desktop.tray_item()
        with Heartbeat(self.desktop, item, self.agent) as heart:
            started = time.monotonic()
            self.link(AGAIN).do("Press")
            item.choose("Hide window")
            item.choose("Open window")
            self.main = self.screen.window(self.agent.pid)
            self.main.activate()
            for keys in ("ctrl+2", "ctrl+1", "Down", "Up", "Tab", "Return"):
                self.screen.press(keys)
            notify(b"{}")
            self.link(PASSWORD_LINK).do("Press")
            self.dialog.enter(self.desktop.account.password)
            self.page.find(name="Checking your password…", states=["showing"])
            # One for the synchronisation, one for the password.
            wait_until(lambda: len(self.dialog.alerts()) == 2, "both failures to be said", 70)
            waited = time.monotonic() - started
        print(f"longest wait for the main thread: {heart.longest * 1000:.0f} ms in {heart.beats} beats over {waited:.0f}"
              f" s; for the bus itself: {heart.longest_of_bus * 1000:.0f} ms")
        self.assertGreater(waited, 45, "five attempts of ten seconds")
        self.assertLess(heart.longest, 0.1)
        self.assertEqual(end(self.agent), 0)

    def test_the_heartbeat_tells_when_the_agent_stands_still(self):
        with Heartbeat(self.desktop, self.desktop.tray_item(), self.agent) as heart:
            self.agent.signal(signal.SIGSTOP)
            time.sleep(0.5)
            self.agent.signal(signal.SIGCONT)
            wait_until(lambda: heart.longest > 0.4, "the pause to be noticed")


if __name__ == "__main__":
    unittest.main()
