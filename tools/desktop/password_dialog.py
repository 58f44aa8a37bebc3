# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The agent's password dialog and its alerts, used by keyboard as somebody would who sits in front."""

import contextlib

from Xlib.error import XError

from screen_reader import ScreenReader
from waiting import wait_until

#: Narrower than this is the dialog, wider the main window.
NARROW = 600


class PasswordDialog:
    """Of one running agent in a Desktop(window_manager=True), open or not."""

    def __init__(self, desktop, agent):
        self._desktop, self._screen, self._pid = desktop, desktop.screen, agent.pid
        self._elements = None

    def windows(self):
        return self._fitting(lambda window: "MODAL" not in window.states() and window.managed()
                             and window.geometry().width < NARROW)

    def alerts(self):
        return self._fitting(lambda window: "MODAL" in window.states())

    def window(self, seconds=10.0):
        """Waits for it and clicks into it: before that a dialog that nobody asked for takes no key."""
        found = wait_until(self.windows, "the password dialog", seconds)[0]
        wait_until(lambda: not self.alerts(), "the alerts to be answered")
        if not found.active():
            found.activate()
        found.click(3, -3)
        return found

    def type(self, text):
        self.window()
        self._screen.keyboard.type(text)

    def enter(self, password):
        """Types it and presses Enter."""
        self.type(password)
        self._screen.press("Return")

    def press(self, button):
        """Presses a button by its name; in a Desktop(accessible=True)."""
        self.window()
        self.elements().find("push button", button, ["showing", "enabled"]).do("Press")

    def elements(self):
        """What a screen reader finds in the agent's windows."""
        if self._elements is None:
            self._elements = ScreenReader(self._desktop).application(self._pid)
        return self._elements

    def alert(self, seconds=15.0):
        """Waits for an alert, which has the keyboard with the dialog."""
        found = wait_until(self.alerts, "an alert", seconds)[0]
        wait_until(found.active, "the alert to have the keyboard")
        return found

    def answer(self, *keys):
        """Answers the alert by keys; Return for its first button."""
        found = self.alert()
        self._screen.press(*(keys or ("Return",)))
        wait_until(lambda: not found.visible(), "the alert to go")

    def wait_until_gone(self, seconds=10.0):
        wait_until(lambda: not self.windows(), "the password dialog to close", seconds)

    def _fitting(self, fits):
        found = []
        for window in self._screen.windows(self._pid):
            with contextlib.suppress(XError):  # closed meanwhile
                if fits(window):
                    found.append(window)
        return found
