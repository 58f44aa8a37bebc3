# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The Wayland session of a Desktop(wayland=True): a compositor with real keys in a window of the desktop's screen.

    with Desktop(wayland=True) as desktop:
        typed = desktop.wayland.other_program()
        agent = desktop.start([build / "fv2-agent"])
        desktop.screen.keyboard.type("to whoever has the keyboard")
"""

import contextlib
import itertools

from Xlib import X
from Xlib.error import XError

from waiting import wait_until

#: The colour beside all windows.
BACKGROUND = (0x33, 0x66, 0x99)

# No panel and nothing that moves: the windows alone.
COMPOSITOR_CONFIG = """[core]
idle-time=0
[shell]
panel-position=none
locking=false
animation=none
startup-animation=none
close-animation=none
focus-animation=none
background-color=0xff{:02x}{:02x}{:02x}
""".format(*BACKGROUND)

RECORDER = """#!/bin/sh
stty -icanon -echo
echo "$0" >"$0.ready"
exec cat >"$0.typed"
"""


class WaylandSession:
    """The compositor, which covers the screen below the panel and has the X server's keyboard: keys that are pressed on
    the desktop's screen go to whatever program has the keyboard in this session."""

    SOCKET = "wayland-fv2"

    def __init__(self, desktop, place):
        self._desktop = desktop
        self._screen = desktop.screen
        self._numbers = itertools.count(1)
        config = desktop.folder / "weston.ini"
        config.write_text(COMPOSITOR_CONFIG, encoding="utf-8")
        self.program = desktop.start(["weston", "--backend=x11-backend.so", "--use-pixman", f"--socket={self.SOCKET}",
                                      f"--config={config}", f"--width={place.width}", f"--height={place.height}"])
        window = wait_until(self._window, "the compositor's window", 30)
        window.configure(x=place.x, y=place.y)
        window.set_input_focus(X.RevertToParent, X.CurrentTime)
        self._screen.display.sync()
        socket = desktop.folder / "run" / self.SOCKET
        wait_until(lambda: self.program.running() and socket.exists(), "the compositor's socket", 30)

    def env(self):
        """What makes a program one of this session."""
        return {"WAYLAND_DISPLAY": self.SOCKET, "XDG_SESSION_TYPE": "wayland"}

    def other_program(self):
        """Starts a terminal, which takes the keyboard. What is typed into it can be read from what is returned."""
        recorder = Recorder(self._desktop.folder / f"recorder-{next(self._numbers)}")
        self._desktop.start(["weston-terminal", f"--shell={recorder.script}"], {"SHELL": "/bin/sh"})
        wait_until(recorder.ready.exists, "the terminal", 30)
        return recorder

    def _window(self):
        for window in self._screen.root.query_tree().children:
            with contextlib.suppress(XError):
                if (window.get_wm_class() or ("",))[0].startswith("weston"):
                    return window
        return None


class Recorder:
    """What was typed into one program, key by key."""

    def __init__(self, script):
        self.script = script
        self.ready, self._typed = (script.with_name(script.name + end) for end in (".ready", ".typed"))
        script.write_text(RECORDER, encoding="utf-8")
        script.chmod(0o755)

    def text(self):
        return self._typed.read_text(encoding="utf-8")
