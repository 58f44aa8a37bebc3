# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What the walk shows, step by step: somebody's disk is encrypted, from the first prompt to a synchronisation that
fails and is tried again."""

import json
from collections.abc import Callable
from dataclasses import dataclass
from pathlib import Path
from xml.etree import ElementTree

from password_dialog import PasswordDialog

ROOT = Path(__file__).resolve().parent.parent


def texts(language="en"):
    """A language's texts by identifier."""
    table = ElementTree.parse(ROOT / f"src/resources/strings/fv2-agent_{language}.ts")
    return {message.get("id"): message.findtext("translation") for message in table.iter("message")}


def scenario_by_hand(folder):
    """The shipped scenario, but every step that ends by itself waits for the line `next`."""
    scenario = json.loads((ROOT / "service/scenarios/encrypt.json").read_text(encoding="utf-8"))
    for step in scenario["steps"][:-1]:
        if step.pop("for", None):
            step["until"] = "next"
        if ramp := step.pop("ramp", None):
            step["set"].append(f"progress {sum(ramp) // 2}")
    file = folder / "encrypt.json"
    file.write_text(json.dumps(scenario), encoding="utf-8")
    return file


class Player:
    """The one who sits in front of the demo's desktop."""

    def __init__(self, desktop, service, agent):
        self.item = desktop.tray_item()
        self._desktop, self._service, self._agent = desktop, service, agent
        self._texts = texts()
        self._dialog = PasswordDialog(desktop, agent)

    def says(self, overall):
        """The title that goes with a traffic light."""
        return self._texts["IDUS_MGUI_STATUS_TITLE_" + overall]

    def tell(self, line):
        self._service.send(line)
        # A step that leaves the icon's colour as it was would be true before the agent heard of it.
        self._service.expect("^status for uid ")

    def sees_the_prompt(self):
        self.tell("next")
        self._dialog.window()

    def mistypes(self):
        self._dialog.enter("not my password")
        self._expect_alert("IDUS_ALERT_TITLE_PASSWORD_VALIDATION")

    def hesitates(self):
        self._dialog.answer()
        self._dialog.press(self._texts["IDUS_BUTTON_POSTPONE"])
        self._expect_alert("IDUS_ALERT_TITLE_PASSWORD_WARNING")

    def types_the_password(self):
        self._dialog.answer("Escape")
        self._dialog.type(self._desktop.account.password)

    def presses_enter(self):
        self._dialog.window()
        self._desktop.screen.press("Return")
        self._service.expect("^credentials of uid .*: accepted")
        self._dialog.wait_until_gone()
        self.item.choose(self._texts["IDUS_MGUI_MENUBAR_OPEN_ORM"])
        self._desktop.screen.window(self._agent.pid)
        self._shows("IDUS_ORM_SM_INIT")

    def waits(self):
        self.tell("next")

    def meets_a_failed_synchronisation(self):
        self.tell("sync fail")
        self._link()

    def clicks_the_link(self):
        self._service.send("onsync ok 60")
        self._desktop.screen.click(*self._link().middle())
        self._service.expect("^sync of uid .*: accepted")

    def reads_about(self):
        self.tell("sync ok")
        self._desktop.screen.press("ctrl+2")
        self._shows("IDUS_MGUI_COPYRIGHT_WARNING_FIRST_PART_ORM")

    def _link(self):
        return self._dialog.elements().find("link", self._texts["IDUS_LINK_RETRY_SYNC"], ["showing"])

    def _shows(self, identifier):
        self._dialog.elements().find("label", self._texts[identifier], ["showing"])

    def _expect_alert(self, title):
        self._dialog.alert()
        self._dialog.elements().find("dialog", self._texts[title])


@dataclass(frozen=True)
class Step:
    name: str
    about: str
    act: Callable[[Player], None]
    colour: str  # of the tray icon
    overall: str  # the traffic light that the tooltip tells in words


STEPS = (
    Step("unencrypted", "the disk is not encrypted", lambda player: None, "yellow", "YELLOW"),
    Step("password", "the password is asked for", Player.sees_the_prompt, "red", "RED"),
    Step("wrong", "a wrong one is typed", Player.mistypes, "red", "RED"),
    Step("later", "it is to be typed later, or rather not", Player.hesitates, "red", "RED"),
    Step("right", "the right one is typed", Player.types_the_password, "red", "RED"),
    Step("preparing", "the disk is being prepared", Player.presses_enter, "yellow", "YELLOW"),
    Step("encrypting", "the disk is being encrypted", Player.waits, "yellow", "YELLOW"),
    Step("encrypted", "the disk is encrypted", Player.waits, "green", "GREEN"),
    Step("sync-failed", "a synchronisation fails", Player.meets_a_failed_synchronisation, "yellow", "YELLOW"),
    Step("syncing", "its link is clicked", Player.clicks_the_link, "blue", "YELLOW"),
    Step("about", "it has synchronised", Player.reads_about, "green", "GREEN"),
)
