# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The window's second page: help, an ID to copy, the synchronisation and its button."""

import subprocess
import unittest

from agent import notify, start_agent, start_service
from desktop import Desktop
from screen_reader import ScreenReader
from waiting import wait_until

BROWSER = '#!/bin/sh\necho "$@" >>"$HOME/opened"\n'
ADDRESS = "http://help.intra.example:8080/getHelp?product=orm_client&version=5&lang=1031&topic=index"


class AboutTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop(window_manager=True, accessible=True))
        self.service = start_service(self.desktop, "uuid 01ab-cd\"ef", "sync last 1764500000", "onsync ok 600")
        settings = self.desktop.folder / "xdg/fv2-agent/agent.conf"
        browser = self.desktop.folder / "bin/xdg-open"
        for file, text in ((settings, "[help]\nhost=help.intra.example:8080\n"), (browser, BROWSER)):
            file.parent.mkdir(parents=True)
            file.write_text(text, encoding="utf-8")
        browser.chmod(0o755)
        self.agent = start_agent(self.desktop, "--show-window", LANGUAGE="de", XDG_CONFIG_DIRS=str(settings.parents[1]),
                                 PATH=f"{browser.parent}:{self.desktop.env['PATH']}")
        self.page = ScreenReader(self.desktop).application(self.agent.pid)
        self.desktop.screen.window(self.agent.pid).activate()
        self.desktop.screen.press("ctrl+2")

    def clipboard(self):
        command = ["xclip", "-out", "-selection", "clipboard"]
        return subprocess.run(command, env=self.desktop.env, capture_output=True, text=True, timeout=20).stdout

    def test_help_opens_one_address_in_the_users_language_at_the_administrators_host(self):
        screen, opened = self.desktop.screen, self.desktop.home / "opened"
        button = self.page.find("push button", "Hilfe", ["showing"])

        def focus_and_press():
            self.page.tab_to(button, screen)
            screen.press("Return")

        for times, ask in enumerate((lambda: button.do("Press"), lambda: screen.click(*button.middle()),
                                     focus_and_press), 1):
            ask()
            wait_until(lambda: opened.exists() and opened.read_text().count("\n") >= times, f"browser {times}")
            self.assertEqual(opened.read_text().splitlines(), [ADDRESS] * times)

    def test_the_workstation_id_can_be_copied_by_keyboard_and_by_mouse(self):
        screen = self.desktop.screen
        field = self.page.find("text", "Workstation ID:", ["showing"])

        def by_keyboard():
            self.page.tab_to(field, screen)
            screen.press("ctrl+a", "ctrl+c")

        def by_mouse():
            screen.click(*field.middle(), button=3)
            menu = wait_until(lambda: [window for window in screen.windows(self.agent.pid) if not window.managed()], "menu")
            menu[0].click(menu[0].geometry().width // 2, menu[0].geometry().height // 2)

        for copy in (by_keyboard, by_mouse):
            subprocess.run(["xclip", "-selection", "clipboard"], input=b"before", env=self.desktop.env, timeout=20)
            copy()
            wait_until(lambda: self.clipboard() == "01ab-cd\"ef", "the ID in the clipboard")

    def test_the_button_starts_one_synchronisation_and_says_how_it_goes(self):
        button = self.page.find("push button", "Jetzt synchronisieren", ["showing"])

        def tell(*lines):
            for line in lines:
                self.service.send(line)

        def lose_the_service():
            self.service.stop()
            notify(b"{}")

        steps = (
            ("it rests", lambda: None, True, "Nov 30"),
            ("the button is pressed", lambda: button.do("Press"), False, "Läuft"),
            ("it is done", lambda: tell("sync ok", "sync last 1764586400"), True, "Dec 1"),
            ("the disk is being prepared", lambda: tell("state 4", "sync start"), False, "Wartet"),
            ("the disk is prepared", lambda: tell("state 5"), False, "Läuft"),
            ("the service is lost", lose_the_service, False, "Unbekannt"),
        )
        for what, change, enabled, value in steps:
            change()
            wait_until(lambda: ("enabled" in button.states()) == enabled and self.last(value), f"'{value}' when {what}")
        accepted = [line for line in self.service.lines if line.startswith("sync of uid")]
        self.assertEqual(len(accepted), 1, self.service.lines)

    def last(self, value):
        return [element for element in self.page.find_all("filler", states=["showing"])
                if element.name().startswith("Letzte Synchronisierung") and value in element.name()]


if __name__ == "__main__":
    unittest.main()
