# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The X screen as somebody sees and uses it who sits in front: windows, keyboard, mouse, colours, pictures."""

import contextlib
import subprocess
from dataclasses import dataclass

from Xlib import X, Xutil
from Xlib.display import Display
from Xlib.error import XError
from Xlib.protocol.event import ClientMessage

from keyboard import Keyboard
from waiting import wait_until

#: What the window manager takes for the wish of a pager, which does what the user says; not of a program.
FROM_THE_USER = 2


@dataclass(frozen=True)
class Geometry:
    """A place on the screen; of a window without the window manager's frame."""

    x: int
    y: int
    width: int
    height: int


class Screen:
    """One screen, and what its user does there. Needs a window manager for all that is said of windows."""

    def __init__(self, env):
        self.env = env
        self.display = Display(env["DISPLAY"])
        self.root = self.display.screen().root
        self.keyboard = Keyboard(self.display)

    def close(self):
        self.display.close()

    def managed(self):
        """Whether a window manager has taken over the screen."""
        with contextlib.suppress(XError):
            for number in self.root_property("_NET_SUPPORTING_WM_CHECK"):
                child = self.display.create_resource_object("window", number)
                return list(self.property_of(child, "_NET_SUPPORTING_WM_CHECK")) == [number]
        return False

    def windows(self, pid=None, title=None):
        """The programs' visible windows, lowest first; of one process or with that title only. Menus and tooltips are
        windows as well."""
        managed = set(self.root_property("_NET_CLIENT_LIST"))
        found = []
        for top in self.root.query_tree().children:
            with contextlib.suppress(XError):
                # A managed window lies in its frame, everything else directly on the screen.
                inner = [child.id for child in top.query_tree().children if child.id in managed]
                window = Window(self, inner[0] if inner else top.id)
                if window.visible() and (owner := window.pid()) and pid in (None, owner):
                    if title in (None, window.title()):
                        found.append(window)
        return found

    def window(self, pid=None, title=None, seconds=10.0):
        """Waits for the one visible window that fits; the highest if there are several."""
        what = f"a window of process {pid or 'any'} with the title {title or 'any'}"
        return wait_until(lambda: self.windows(pid, title), what, seconds)[-1]

    def active(self):
        """The window that has the user's attention and the keyboard, or None."""
        number = next(iter(self.root_property("_NET_ACTIVE_WINDOW")), 0)
        return Window(self, number) if number else None

    def press(self, *keys):
        """Presses keys as xdotool names them, e.g. "ctrl+w", "Escape"; what is active gets them."""
        self._xdotool("key", *keys)

    def point_at(self, x, y):
        self._xdotool("mousemove", x, y)

    def click(self, x, y, button=1):
        """Clicks at a place of the screen; button 3 is the right one."""
        self._xdotool("mousemove", x, y, "click", button)

    def press_and_release(self, x, y):
        """Clicks as a hand does: the button stays down for a moment."""
        self._xdotool("mousemove", x, y, "mousedown", 1, "sleep", 0.2, "mouseup", 1)

    def colour(self, x, y):
        """Red, green and blue of one pixel of the screen, 0 to 255 each."""
        blue, green, red = self.root.get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFF).data[:3]
        return red, green, blue

    def root_property(self, name):
        return self.property_of(self.root, name)

    def property_of(self, window, name):
        """A property's items: numbers, or the bytes of a text; empty without one."""
        answer = window.get_full_property(self.display.get_atom(name), X.AnyPropertyType)
        return answer.value if answer else ()

    def _xdotool(self, *command):
        subprocess.run(["xdotool", *map(str, command)], env=self.env, check=True, timeout=20)


class Window:
    """One window of a program. Every question goes to the X server anew; a closed window answers with an XError."""

    def __init__(self, screen, number):
        self.number = number
        self._screen = screen
        self._window = screen.display.create_resource_object("window", number)

    def __eq__(self, other):
        return isinstance(other, Window) and self.number == other.number

    def __hash__(self):
        return hash(self.number)

    def __repr__(self):
        with contextlib.suppress(XError):
            return f"<window {self.number:#x} '{self.title()}' of process {self.pid()}>"
        return f"<closed window {self.number:#x}>"

    def property(self, name):
        return self._screen.property_of(self._window, name)

    def title(self):
        return bytes(self.property("_NET_WM_NAME")).decode()

    def pid(self):
        return next(iter(self.property("_NET_WM_PID")), None)

    def visible(self):
        """Whether it is on the screen; False as well once it is closed. What lies above it does not count."""
        with contextlib.suppress(XError):
            return self._window.get_attributes().map_state == X.IsViewable
        return False

    def active(self):
        return self._screen.active() == self

    def managed(self):
        """Whether it has a frame and stands in lists of windows, as menus and tooltips do not."""
        return self.number in self._screen.root_property("_NET_CLIENT_LIST")

    def states(self):
        """Names of what the window manager says of it, e.g. {"ABOVE", "MODAL", "DEMANDS_ATTENTION"}."""
        return self._names("_NET_WM_STATE")

    def types(self):
        """Names of its kinds, e.g. {"DIALOG"}."""
        return self._names("_NET_WM_WINDOW_TYPE")

    def above(self, other):
        """Whether it lies higher than the other one, which is visible as well."""
        order = self._screen.windows()
        return order.index(self) > order.index(other)

    def geometry(self):
        size = self._window.get_geometry()
        place = self._screen.root.translate_coords(self._window, 0, 0)
        return Geometry(place.x, place.y, size.width, size.height)

    def close(self):
        """What the close button in the window's frame does: the program is asked, and may do something else."""
        self._ask("_NET_CLOSE_WINDOW", X.CurrentTime, FROM_THE_USER)

    def minimise(self):
        """What the minimise button in the window's frame does."""
        self._ask("WM_CHANGE_STATE", Xutil.IconicState)

    def activate(self):
        """Brings it to the front as a click in a list of windows does."""
        self._ask("_NET_ACTIVE_WINDOW", FROM_THE_USER, X.CurrentTime)
        wait_until(self.active, f"{self} to become active")

    def click(self, x, y, button=1):
        """Clicks at a place inside of it; negative ones count from its right and lower edge."""
        place = self.geometry()
        self._screen.click(place.x + x % place.width, place.y + y % place.height, button)

    def colour(self, x, y):
        """The screen's colour at a place inside of it; see click."""
        place = self.geometry()
        return self._screen.colour(place.x + x % place.width, place.y + y % place.height)

    def picture(self, file):
        """Saves a picture of it without its frame, whole even where other windows lie above it."""
        file.parent.mkdir(parents=True, exist_ok=True)
        command = ["import", "-silent", "-window", str(self.number), str(file)]
        subprocess.run(command, env=self._screen.env, check=True, timeout=20)

    def _names(self, prop):
        names = (self._screen.display.get_atom_name(atom) for atom in self.property(prop))
        return {name.removeprefix(prop + "_") for name in names}

    def _ask(self, message, *values):
        event = ClientMessage(window=self._window, client_type=self._screen.display.get_atom(message),
                              data=(32, [*values, *[0] * (5 - len(values))]))
        self._screen.root.send_event(event, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._screen.display.flush()
