# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The service wants the user's password: the dialog, its alerts, and what can go wrong on the way."""

import json
import time
import unittest
from pathlib import Path

from accounts import account, listed_account
from agent import end, start_agent, start_service
from desktop import Desktop
from mocks import LoginSession
from password_dialog import PasswordDialog
from waiting import wait_until

#: Of a service that wants the password in a state, prepares in a second, works through two others.
DIRECTIONS = {"encrypt": (3, 4, 5, 6), "decrypt": (7, 8, 9, 10)}
BAD_PASSWORD, BAD_COMMS = "The password was not accepted", "The encryption service is not answering"
FAIL_PASSWORD, UNCHECKED = "Your password could not be used", "Your password could not be checked"
MOVE_IN = "Click here or press Tab to type your password."


def scenario(desktop, wants, prepares, works, done):
    """A file with a disk that gets ready quickly, and stays at 100 percent until the line `next`."""
    steps = [{"set": [f"state {wants}"], "until": "credentials"}, {"set": [f"state {prepares}"], "for": 0.5},
             {"set": [f"state {works}"], "ramp": [0, 100], "for": 1}, {"until": "next"}, {"set": [f"state {done}"]}]
    file = desktop.folder / "quick.json"
    file.write_text(json.dumps({"about": "quick", "set": ["policy postpone none"], "steps": steps}), encoding="utf-8")
    return file


class PasswordTest(unittest.TestCase):
    def start(self, *lines, who=listed_account, system_bus=False):
        self.doCleanups()  # what an earlier case has left
        self.account = self.enterContext(who())
        self.desktop = self.enterContext(Desktop(window_manager=True, accessible=True, account=self.account,
                                                 system_bus=system_bus))
        self.service = start_service(self.desktop, *lines)
        self.agent = start_agent(self.desktop)
        self.dialog = PasswordDialog(self.desktop, self.agent)

    def alert_says(self, title, text=""):
        self.assertGreater(self.dialog.alert().geometry().width, 300)
        self.assertIn(text, self.dialog.elements().find("dialog", title).description())
        self.dialog.answer()

    def credentials(self):
        return [line for line in self.service.lines if line.startswith("credentials of")]

    def test_the_right_password_starts_the_work_and_a_wrong_one_does_not(self):
        for direction, states in DIRECTIONS.items():
            with self.subTest(direction):
                self.start(who=account)
                self.service.send(f"scenario {scenario(self.desktop, *states)}")
                self.dialog.enter("x" + self.account.password)
                self.alert_says(BAD_PASSWORD)
                self.agent.expect("wrong password")
                self.assertEqual(self.credentials(), [], "a wrong password must not leave the agent")
                self.dialog.enter(self.account.password)
                self.dialog.wait_until_gone()
                self.service.expect("step 4 of 5", 20)
                self.desktop.tray_item().choose("Open window")
                wait_until(lambda: self.dialog.elements().says("100%"), "all to be encrypted")
                self.assertEqual(self.credentials(), [f"credentials of uid {self.desktop.uid}: accepted"])
                self.service.send("next")
                wait_until(lambda: self.desktop.tray_item().icon_colour() == "green", "a green icon")
                self.assertEqual(self.dialog.windows(), [])
                self.assertEqual(end(self.agent), 0)

    def test_a_prompt_that_nobody_asked_for_takes_no_key_before_the_user_has_moved_into_it(self):
        for wayland in (False, True):
            with self.subTest(wayland=wayland), Desktop(window_manager=not wayland, wayland=wayland,
                                                               accessible=True) as desktop:
                service = start_service(desktop, "state 1")
                keyboard, press = desktop.screen.keyboard, desktop.screen.press
                if wayland:
                    elsewhere = desktop.wayland.other_program()
                agent = start_agent(desktop)
                agent.expect("updateFromModel syncSource == Startup")
                service.send("state 3")
                dialog = PasswordDialog(desktop, agent)
                for number in range(40):
                    keyboard.type("abcd "[number % 5])
                    if number == 20:
                        agent.expect("FV2Window first paint")
                        if not wayland:  # where no window that comes unasked has the keyboard at once
                            dialog.windows()[0].activate()
                    time.sleep(0.02)
                press("space", "Return", "Tab", "Return", "alt+o", "ctrl+w")
                if wayland:
                    self.assertLess(len(elsewhere.text()), 40, "the compositor gives the keyboard to the dialog")
                typed = [line for line in agent.lines if "chg -> Password" in line or "verifyPassword" in line]
                self.assertEqual(typed, [])
                hint = dialog.elements().find("label", MOVE_IN, ["focused", "showing"])
                time.sleep(0.6)
                press("Tab")
                wait_until(lambda: "focused" not in hint.states(), "the keyboard to come into the field")
                keyboard.type("wrong")
                press("Return")
                agent.expect("verifyPassword failed")
                self.assertEqual(sum("chg -> Password" in line for line in agent.lines), 5)

    def test_what_was_typed_is_forgotten_when_the_user_leaves(self):
        self.start("state 3", system_bus=True)
        login = LoginSession(self.desktop)
        wait_until(lambda: any("LockedHint" in line for line in login.program.lines), "the agent to follow the session")
        field = self.dialog.window() and self.dialog.elements().find("text", "Password:")
        for leave in (login.ask_to_lock, lambda: login.set_locked_hint(True), lambda: login.set_active(False)):
            self.dialog.type("geheim")
            self.dialog.press("Show")
            self.dialog.elements().find("push button", "Hide", ["enabled"])
            leave()
            self.dialog.elements().find("label", MOVE_IN, ["showing"])
            self.dialog.elements().find("push button", "Show", ["showing"])
            wait_until(lambda: field.length() == 0, "the field to be empty")
            self.desktop.screen.press("a", "Return")
            self.assertEqual(field.length(), 0, "whoever comes back has not asked for it")

    def test_a_check_that_does_not_end_can_be_left_and_what_comes_of_it_is_dropped(self):
        gate = Path("/tmp/fv2-gate")
        self.start("policy postpone 0", "state 3", who=lambda: listed_account(gate=gate))
        gate.touch()
        self.addCleanup(gate.unlink, missing_ok=True)
        self.dialog.enter(self.account.password)
        self.dialog.elements().find("label", "Checking your password…", ["showing", "focused"])
        self.dialog.press("Later")
        self.dialog.answer()
        self.dialog.wait_until_gone()
        for state in (1, 3):
            self.service.send(f"state {state}")
            self.service.expect("^status for uid")
        self.dialog.enter(self.account.password)
        self.alert_says(UNCHECKED)
        gate.unlink()
        time.sleep(1)
        self.assertEqual(self.credentials(), [])
        self.dialog.enter(self.account.password)
        self.dialog.wait_until_gone()
        self.assertEqual(len(self.credentials()), 1)

    def test_later_is_asked_about_and_does_as_was_answered(self):
        for policy, state in (("0", 3), ("none", 7)):
            with self.subTest(policy):
                self.start(f"policy postpone {policy}", f"state {state}")
                for keys in (("Escape",), ("Tab", "space")):
                    self.dialog.press("Later")
                    self.dialog.answer(*keys)
                    self.dialog.window()
                self.dialog.press("Later")
                self.dialog.answer()
                self.dialog.wait_until_gone()
                for line in ("notify", "progress 1", "notify"):
                    self.service.send(line)
                    self.service.expect("^status for uid")
                    time.sleep(1)
                    self.assertEqual(self.dialog.windows(), [])
                # What was postponed is asked for again once it was not wanted for a while.
                self.service.send("state 1")
                self.service.expect("^status for uid")
                self.service.send(f"state {state}")
                self.dialog.window()
                self.assertEqual(self.credentials(), [])

    def test_what_goes_wrong_with_the_service_is_said_and_the_dialog_stays(self):
        self.start("state 3")
        for line, alert, text in (("credentials refuse 7", FAIL_PASSWORD, "(0x7)"), ("fault close", BAD_COMMS, "")):
            self.dialog.type(self.account.password)
            self.service.send(line)
            self.service.expect("^" + line)
            before = len(self.service.lines)
            self.desktop.screen.press("Return")
            self.alert_says(alert, text)
            met = [line for line in self.service.lines[before:] if line.startswith("connection meets")]
            self.assertEqual(len(met), 5 if line == "fault close" else 0)
            self.service.send("fault none")
        self.dialog.type(self.account.password)
        self.service.stop()
        self.desktop.screen.press("Return")
        self.alert_says(BAD_COMMS)
        self.service = start_service(self.desktop, "state 3")
        self.dialog.enter(self.account.password)
        self.service.expect("^credentials of uid .*: accepted")
        self.dialog.wait_until_gone()
