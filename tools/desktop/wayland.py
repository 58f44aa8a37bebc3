# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""A Wayland session in a window on a Desktop's screen: a compositor with real keys, and another program to type into.

    with Desktop() as desktop:
        session = WaylandSession(desktop)
        typed = session.other_program()
        agent = session.start([build / "fv2-agent"])
        session.screen.keyboard.type("to whoever has the keyboard")
"""

import contextlib
import itertools

from Xlib import X
from Xlib.error import XError

from desktop import PANEL_HEIGHT, Desktop
from waiting import wait_until
from windows import Geometry

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

    def __init__(self, desktop):
        self._desktop = desktop
        self._numbers = itertools.count(1)
        self.screen = desktop.screen
        self.place = Geometry(0, PANEL_HEIGHT, Desktop.SIZE[0], Desktop.SIZE[1] - PANEL_HEIGHT)
        self.env = {"WAYLAND_DISPLAY": self.SOCKET, "XDG_SESSION_TYPE": "wayland"}
        config = desktop.folder / "weston.ini"
        config.write_text(COMPOSITOR_CONFIG, encoding="utf-8")
        self.program = desktop.start(["weston", "--backend=x11-backend.so", "--use-pixman", f"--socket={self.SOCKET}",
                                      f"--config={config}", f"--width={self.place.width}",
                                      f"--height={self.place.height}"])
        window = wait_until(self._window, "the compositor's window", 30)
        window.configure(x=self.place.x, y=self.place.y)
        window.set_input_focus(X.RevertToParent, X.CurrentTime)
        self.screen.display.sync()
        socket = desktop.folder / "run" / self.SOCKET
        wait_until(lambda: self.program.running() and socket.exists(), "the compositor's socket", 30)

    def start(self, command, env=None, **options):
        """Starts a program of this session; see Desktop.start."""
        return self._desktop.start(command, {**self.env, **(env or {})}, **options)

    def other_program(self):
        """Starts a terminal, which takes the keyboard. What is typed into it can be read from what is returned."""
        recorder = Recorder(self._desktop.folder / f"recorder-{next(self._numbers)}")
        self.start(["weston-terminal", f"--shell={recorder.script}"], {"SHELL": "/bin/sh"})
        wait_until(recorder.ready.exists, "the terminal", 30)
        return recorder

    def picture(self, file):
        self._desktop.picture(file, (self.place.width, self.place.height, self.place.x, self.place.y))

    def _window(self):
        for window in self.screen.root.query_tree().children:
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
