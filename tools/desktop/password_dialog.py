# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The agent's password dialog and its alerts, used by keyboard as somebody would who sits in front."""

from waiting import wait_until

#: Narrower than this is the dialog, wider the main window; both have the same title.
NARROW = 600


class PasswordDialog:
    """Of one running agent in a Desktop(window_manager=True), open or not."""

    def __init__(self, desktop, agent):
        self._screen, self._pid = desktop.screen, agent.pid

    def windows(self):
        return [window for window in self._screen.windows(self._pid)
                if "DIALOG" not in window.types() and window.managed() and window.geometry().width < NARROW]

    def alerts(self):
        return [window for window in self._screen.windows(self._pid) if "DIALOG" in window.types()]

    def window(self, seconds=10.0):
        """Waits for it and gives it the keyboard, as a click into it would."""
        found = wait_until(self.windows, "the password dialog", seconds)[0]
        wait_until(lambda: not self.alerts(), "the alerts to be answered")
        if not found.active():
            found.activate()
        return found

    def type(self, text):
        self.window()
        self._screen.keyboard.type(text)

    def enter(self, password):
        """Types it and presses Enter."""
        self.type(password)
        self._screen.press("Return")

    def postpone(self):
        """Chooses the button beside OK, and returns its question's window."""
        self.window()
        self._screen.press("shift+Tab", "space")
        return self.alert()

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
