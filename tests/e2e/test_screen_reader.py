# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The main window as a screen reader tells it and leads through it."""

import unittest

from agent import BUILD, start_service
from desktop import Desktop
from screen_reader import ScreenReader
from waiting import wait_until

#: One language is enough: what is not translated shows in any but English.
STATES = ((1, "1, Status: Warnung. ", "Bitte beachten Sie die Meldungen"),
          (3, "2, Status: Problem. ", "Ihre Aufmerksamkeit ist gefragt"), (6, "", "Keine Probleme gemeldet"))
MESSAGES = "Öffnet die Meldungen zum Schutz Ihrer Daten; die Zahl sagt, wie viele es sind."


class ScreenReaderTest(unittest.TestCase):
    def test_the_window_is_told_and_led_in_the_users_language(self):
        with Desktop(window_manager=True, accessible=True) as desktop:
            service = start_service(desktop)
            agent = desktop.start([BUILD / "fv2-agent", "--show-window"], {"LANGUAGE": "de"})
            reader = ScreenReader(desktop)
            application = reader.application(agent.pid)
            window = application.find(name="Disk Encryption Agent", states=["active"])
            status, about = window.find("list").children()
            self.assertEqual([status.name(), about.name()], ["Schutzstatus", "Über"])
            self.assertIn("selected", status.states())
            for state, description, title in STATES:
                service.send(f"state {state}")
                wait_until(lambda: status.description() == description + MESSAGES, f"'{description}' in state {state}")
                window.find("filler", title, ["showing"])
                window.find("label", title, ["showing"])
            self.assertEqual(about.description(), "Öffnet die Angaben zu diesem Programm und diesem Computer.")
            about.do("Toggle")
            wait_until(lambda: "selected" in about.states(), "the row to be selected")
            self.assertNotIn("selected", status.states())
            window.find("filler", "Über dieses Programm", ["showing"])
            self.assertNotIn("showing", window.find("filler", title).states())
            desktop.screen.press("Up")
            window.find("filler", title, ["showing"])
            nameless = [element.role() for element in window.find_all(states=["focusable", "showing"])
                        if not element.name()]
            self.assertEqual(nameless, [])
            service.send("state 5")
            service.send("progress 42")
            bar = window.find("progress bar", "Ihre Festplatte wird verschlüsselt", ["showing"])
            wait_until(lambda: bar.value() == 42, "the progress")
            service.send("progress 43")
            wait_until(lambda: bar.value() == 43, "the same bar to go on")
            window.find("label", "43\N{NO-BREAK SPACE}%", ["showing"])
            window.find(name="Warnung", states=["showing"])
            service.send("state 6")
            window.find("label", "Ihre Festplatte ist verschlüsselt", ["showing"])
            service.send("sync fail")
            link = window.find("link", "Versuchen Sie es erneut", ["focusable", "showing"])
            desktop.screen.press("Tab")
            wait_until(lambda: "focused" in link.states(), "the keyboard to come to the link")
            text = next(each for each in window.find_all("paragraph")
                        if link.path in [child.path for child in each.children()])
            wait_until(lambda: reader.told_focus()[-2:] == [text.path, link.path], "the link to be told of last")
            self.assertIn(window.role(), ("frame", "window"))
