# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The main window as its user waits for it, and what memory is left of it once it is closed."""

import select
import time

from Xlib import XK, X
from Xlib.display import Display
from Xlib.ext import damage, xtest

from agent import resources_at_rest, start_agent, start_service
from desktop import Desktop
from start_and_memory import memory_mib
from waiting import NotInTime, wait_until

OPENINGS = 100
LEFT_MIB = 2


class AgentWindow:
    """The main window of an agent that logs its first paint."""

    def __init__(self, desktop, agent, item):
        self._screen, self._agent, self._item = desktop.screen, agent, item
        self._toggle = item.menu()[0]

    def open(self):
        """Milliseconds from the click in the menu to the first paint."""
        started = time.monotonic()
        self._item.trigger(self._toggle)
        self._agent.expect("FV2Window first paint")
        return (time.monotonic() - started) * 1000

    def shown(self):
        return [window for window in self._screen.windows(self._agent.pid) if window.managed()]

    def close(self):
        wait_until(self.shown, "the window")
        self._item.trigger(self._toggle)
        wait_until(lambda: not self.shown(), "the window to close")


class Painting:
    """Presses keys and waits for what they paint, on a connection of its own."""

    #: Nothing more is painted after as long a silence; seconds.
    SILENCE = 0.15

    def __init__(self, desktop, window):
        self._display = Display(desktop.env["DISPLAY"])
        self._display.damage_query_version()
        self._display.create_resource_object("window", window.number).damage_create(damage.DamageReportRawRectangles)
        self._display.sync()

    def close(self):
        self._display.close()

    def milliseconds(self, key):
        """From a key to the last of what it painted."""
        code = self._display.keysym_to_keycode(key)
        self._last_paint()
        started = time.monotonic()
        xtest.fake_input(self._display, X.KeyPress, code)
        self._display.flush()
        painted = self._last_paint()
        xtest.fake_input(self._display, X.KeyRelease, code)
        self._display.sync()
        if painted is None:
            raise NotInTime("a key painted nothing")
        return (painted - started) * 1000

    def _last_paint(self):
        last = None
        while self._display.pending_events() or select.select([self._display], [], [], self.SILENCE)[0]:
            arrived = time.monotonic()
            while self._display.pending_events():
                self._display.next_event()
                last = arrived
        return last


def times(table):
    first, again, switches = [], [], []
    with Desktop(window_manager=True) as desktop:
        start_service(desktop)
        for _ in range(table.rounds):
            agent = start_agent(desktop, levels="ui")
            window = AgentWindow(desktop, agent, desktop.tray_item())
            resources_at_rest(agent)
            first.append(window.open())
            wait_until(window.shown()[0].active, "the window to have the keyboard")
            painting = Painting(desktop, window.shown()[0])
            switches += [painting.milliseconds(key) for key in (XK.XK_Down, XK.XK_Up) * 2]
            painting.close()
            window.close()
            again.append(window.open())
            window.close()
            agent.stop()
    table.median_at_most("click to first paint, first window of a process", first, "ms", 50)
    table.median_at_most("click to first paint, later windows", again, "ms", 50)
    table.median_at_most("key to painted other page", switches, "ms", 16)


def memory(table):
    with Desktop(window_manager=True) as desktop:
        start_service(desktop)
        agent = start_agent(desktop, levels="ui")
        window = AgentWindow(desktop, agent, desktop.tray_item())
        resources_at_rest(agent)
        readings = [memory_mib(agent.pid)]
        for _ in range(OPENINGS):
            window.open()
            window.close()
            readings.append(memory_mib(agent.pid))
        resources_at_rest(agent)
        readings.append(memory_mib(agent.pid))
    none, one, all_ = (readings[place] for place in (0, 1, -1))
    for index, kind in enumerate(("resident", "proportional")):
        table.at_most(f"{kind} memory after {OPENINGS} windows, above that after one",
                      f"{one[index]:.1f}, {all_[index]:.1f} MiB", all_[index] - one[index], LEFT_MIB)
    table.at_most(f"written memory after {OPENINGS} windows, above that before any",
                  f"{none[2]:.1f}, {all_[2]:.1f} MiB", all_[2] - none[2], LEFT_MIB)
    # Code and fonts that the first window brings in stay in the page cache's pages, for whoever needs them.
    table.report("  resident memory before any window and after all", f"{none[0]:.1f}, {all_[0]:.1f} MiB")


def run(table):
    times(table)
    memory(table)
