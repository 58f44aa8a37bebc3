#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Takes a picture of the password dialog in each of its conditions and of every alert, light and dark, in each language.

usage: prompts.py <folder of the two programs> <folder for the pictures>"""

import itertools
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools/desktop"))

from accounts import installed, listed_account  # noqa: E402
from desktop import Desktop  # noqa: E402
from mocks import Portal  # noqa: E402
from pages import APPEARANCES, LANGUAGES  # noqa: E402
from password_dialog import PasswordDialog  # noqa: E402
from story import texts  # noqa: E402
from waiting import wait_until  # noqa: E402

#: What is shown around a window.
MARGIN = 60
TOO_LONG = "x" * 520


class Session:
    """One desktop with one appearance and language, and the way through the prompts."""

    def __init__(self, desktop, build, language, picture):
        self._desktop, self._picture, self._texts = desktop, picture, texts(language)
        self._service = desktop.start([build / "fv2-demo-service"])
        self._service.expect("^listening on ")
        self._agent = desktop.start([installed(build / "fv2-agent", desktop)], {"LANGUAGE": language})
        self._item = desktop.tray_item()
        self._dialog = PasswordDialog(desktop, self._agent)

    def tell(self, *lines):
        for line in lines:
            self._service.send(line)
            self._service.expect("^" + line)

    def take(self, name, window):
        time.sleep(0.3)  # what has been decided still has to be painted
        place = window.geometry()
        self._picture(name, (place.width + 2 * MARGIN, place.height + 2 * MARGIN, place.x - MARGIN, place.y - MARGIN))

    def take_alert(self, name, *answer):
        self._dialog.alert()
        self.take("alert-" + name, self._dialog.windows()[0])
        self._dialog.answer(*answer)

    def dialog(self):
        self.tell("state 3", "credentials refuse 7")
        self.take("dialog-unasked", wait_until(self._dialog.windows, "the password dialog")[0])
        window = self._dialog.window()
        keyboard = self._desktop.screen.keyboard
        self.take("dialog-idle", window)
        keyboard.set_caps_lock(True)
        self.take("dialog-caps-lock", window)
        keyboard.set_caps_lock(False)
        self._dialog.type(TOO_LONG)
        self._dialog.elements().find(name=self._texts["IDUS_PASSWORDDIALOG_REFUSED"], states=["showing"])
        self.take("dialog-too-long", window)
        self._desktop.screen.press("ctrl+a", "BackSpace")
        self._dialog.type(self._desktop.account.password)
        self._dialog.press(self._texts["IDUS_BUTTON_SHOW_PASSWORD"])
        self.take("dialog-revealed", window)
        self.tell("fault slow 2")
        self._desktop.screen.press("Return")
        self.take("dialog-waiting", window)
        self.take_alert("refused-by-service")
        self.tell("fault none")
        self._dialog.enter("wrong")
        self.take_alert("wrong-password")
        self.postpone("encrypt")
        self.tell("state 6")
        self._dialog.wait_until_gone()
        self.tell("state 7")
        self.postpone("decrypt")

    def postpone(self, direction):
        self._dialog.press(self._texts["IDUS_BUTTON_POSTPONE"])
        self.take_alert("later-" + direction, "Escape")

    def window(self):
        self.tell("state 6", "onsync refuse 3")
        self._dialog.wait_until_gone()
        self._item.choose(self._texts["IDUS_MGUI_MENUBAR_OPEN_ORM"])
        window = self._desktop.screen.window(self._agent.pid)
        window.activate()
        self._desktop.screen.press("ctrl+2")
        synchronise = self._texts["IDUS_MGUI_MENUBAR_PROXYSYNC_ORM"]
        for name, prepare in (("synchronisation", lambda: None), ("no-service", self._service.stop)):
            prepare()
            self._dialog.elements().find("push button", synchronise, ["showing", "enabled"]).do("Press")
            self._dialog.alert()
            self.take("alert-" + name, window)
            self._dialog.answer()


def main():
    build, pictures = (Path(argument).resolve() for argument in sys.argv[1:3])
    for appearance, language in itertools.product(APPEARANCES, LANGUAGES):
        with listed_account() as account, Desktop(window_manager=True, accessible=True, account=account) as desktop:
            Portal(desktop, APPEARANCES[appearance][0])

            def picture(name, crop, desktop=desktop, suffix=f"{appearance}-{language}"):
                desktop.picture(pictures / f"{name}-{suffix}.png", crop)

            session = Session(desktop, build, language, picture)
            session.dialog()
            session.window()
        print("pictures taken:", appearance, language)


if __name__ == "__main__":
    main()
