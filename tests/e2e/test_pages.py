# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What the window's two pages do for the one who uses them, and that nothing there ever waits for the service."""

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

BROWSER = '#!/bin/sh\necho "$@" >>"$HOME/opened"\n'
ADDRESS = "http://help.intra.example:8080/getHelp?product=orm_client&version=5&lang=1031&topic=index"
PASSWORD_LINK, AGAIN = "Enter your password", "Try again"
DIALOG_OPENS = r"EnterPasswordWindowWindowController\.init"


class OpenWindow(unittest.TestCase):
    def open(self, *lines, **env):
        self.desktop = self.enterContext(Desktop(window_manager=True, accessible=True,
                                                 account=self.enterContext(listed_account())))
        self.screen, self.service = self.desktop.screen, start_service(self.desktop, *lines)
        settings, browser = self.desktop.settings, self.desktop.folder / "bin/xdg-open"
        settings.write_text(settings.read_text() + "[help]\nhost=help.intra.example:8080\n", encoding="utf-8")
        browser.parent.mkdir()
        browser.write_text(BROWSER, encoding="utf-8")
        browser.chmod(0o755)
        self.agent = start_agent(self.desktop, "--show-window", PATH=f"{browser.parent}:{self.desktop.env['PATH']}",
                                 **env)
        self.agent.expect("updateFromModel syncSource == Startup")
        self.dialog = PasswordDialog(self.desktop, self.agent)
        self.page = self.dialog.elements()
        self.main = self.screen.window(self.agent.pid)
        self.main.activate()
        self.ways = {"mouse": lambda element: self.screen.click(*element.middle()), "keyboard": self.by_keyboard,
                     "screen reader": lambda element: element.do("Press")}

    def by_keyboard(self, element):
        self.page.tab_to(element, self.screen)
        self.screen.press("Return")

    def tell(self, *lines):
        for line in lines:
            self.service.send(line)

    def lose_the_service(self):
        self.service.stop()
        notify(b"{}")


class AboutTest(OpenWindow):
    def test_help_opens_one_address_in_the_users_language_at_the_administrators_host(self):
        self.open(LANGUAGE="de")
        self.screen.press("ctrl+2")
        opened = self.desktop.home / "opened"
        button = self.page.find("push button", "Hilfe", ["showing"])
        for times, (way, use) in enumerate(self.ways.items(), 1):
            use(button)
            wait_until(lambda: opened.exists() and opened.read_text().count("\n") >= times, f"the browser by {way}")
            self.assertEqual(opened.read_text().splitlines(), [ADDRESS] * times)


class MessagesTest(OpenWindow):
    def setUp(self):
        self.open("onsync ok 0")

    def link(self, name):
        return self.page.find("link", name, ["showing"])

    def test_each_link_does_what_it_says_once(self):
        def wanted(state):
            self.service.send("state 6")  # closes a dialog that is open
            self.service.expect("^status for uid")
            self.dialog.wait_until_gone()
            self.service.send(f"state {state}")

        cases = (
            ("synchronisation failed", lambda: self.service.send("sync fail"), AGAIN, self.service, "^sync of uid"),
            ("encryption wanted", lambda: wanted(3), PASSWORD_LINK, self.agent, DIALOG_OPENS),
            ("decryption wanted", lambda: wanted(7), PASSWORD_LINK, self.agent, DIALOG_OPENS),
            ("service lost", self.lose_the_service, AGAIN, self.agent, "syncSource == User"),
        )
        for what, prepare, name, program, pattern in cases:
            for way, use in self.ways.items():
                with self.subTest(what, way=way):
                    prepare()
                    self.link(name)
                    wait_until(self.main.active, "the window to have the keyboard")
                    time.sleep(0.5)  # whatever else is under way must not be counted
                    before = len(program.lines)
                    use(self.link(name))
                    if what == "service lost":
                        self.dialog.answer()

                    def done():
                        return [line for line in program.lines[before:] if re.search(pattern, line)]

                    wait_until(done, f"{pattern} of {program.name}")
                    time.sleep(0.5)  # in which a second one would come
                    self.assertEqual(len(done()), 1, done())

    def test_nothing_that_is_clicked_keeps_the_window_waiting_for_a_silent_service(self):
        self.tell("sync fail", "state 3")
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
            self.dialog.alert(70)
            waited = time.monotonic() - started
        print(f"longest wait for the main thread: {heart.longest * 1000:.0f} ms in {heart.beats} beats, {waited:.0f}"
              f" s; for the bus itself: {heart.longest_of_bus * 1000:.0f} ms")
        self.assertGreater(waited, 45, "five attempts of ten seconds")
        self.assertLess(heart.longest, 0.1)
        with Heartbeat(self.desktop, self.desktop.tray_item(), self.agent) as heart: # sees a wait where there is one
            self.agent.signal(signal.SIGSTOP)
            time.sleep(0.5)
            self.agent.signal(signal.SIGCONT)
            wait_until(lambda: heart.longest > 0.4, "the pause to be noticed")
        self.assertEqual(end(self.agent), 0)
