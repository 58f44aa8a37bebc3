# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What a screen reader learns of a program: its elements with their roles, names and states, read over AT-SPI.

Asks the accessibility bus of one Desktop(accessible=True) directly: the usual client library keeps to one bus as long
as its process lives."""

import contextlib
import re

import dbus
import dbus.bus

from waiting import NotInTime, wait_until

ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
COMPONENT = "org.a11y.atspi.Component"
TEXT = "org.a11y.atspi.Text"
PROPERTIES = "org.freedesktop.DBus.Properties"
REGISTRY = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")

#: By the number of their bit.
STATES = (
    "invalid", "active", "armed", "busy", "checked", "collapsed", "defunct", "editable", "enabled", "expandable",
    "expanded", "focusable", "focused", "has tooltip", "horizontal", "iconified", "modal", "multi line",
    "multiselectable", "opaque", "pressed", "resizable", "selectable", "selected", "sensitive", "showing",
    "single line", "stale", "transient", "vertical", "visible", "manages descendants", "indeterminate", "required",
    "truncated", "animated", "invalid entry", "supports autocompletion", "selectable text", "is default", "visited",
    "checkable", "has popup", "read only",
)


class ScreenReader:
    def __init__(self, desktop):
        launcher = desktop.bus.get_object("org.a11y.Bus", "/org/a11y/bus", introspect=False)
        address = str(launcher.GetAddress(dbus_interface="org.a11y.Bus"))
        self.bus = dbus.bus.BusConnection(address)
        desktop.at_end(self.bus.close)
        registry = self.bus.get_object("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", introspect=False)
        registry.RegisterEvent("object:state-changed:focused", dbus.Array([], "s"), "",
                               dbus_interface="org.a11y.atspi.Registry")
        self._focus = desktop.start(
            ["dbus-monitor", "--address", address, "type='signal',member='StateChanged',arg0='focused'"])
        self._focus.expect("member=NameLost")  # by which it has become an observer

    def application(self, pid, seconds=10.0):
        """The root of a process' elements, once it has announced itself."""
        def announced():
            with contextlib.suppress(dbus.DBusException):  # a program that has just ended
                return next((root for root in Element(self.bus, *REGISTRY).children() if root.pid() == pid), None)

        return wait_until(announced, f"process {pid} to speak to screen readers", seconds)

    def told_focus(self):
        """The paths of the elements that programs have told to have the keyboard, one after the other."""
        return re.findall(r' path=(\S+); [^\n]*\n *string "focused"\n *int32 1\n', "\n".join(self._focus.lines) + "\n")


class Element:
    """One element. Every question goes to the program anew; one that has gone answers with a DBusException."""

    def __init__(self, bus, owner, path):
        self._bus = bus
        self._owner = owner
        self.path = path
        self._object = bus.get_object(owner, path, introspect=False)

    def __eq__(self, other):
        return isinstance(other, Element) and (self._owner, self.path) == (other._owner, other.path)

    def __hash__(self):
        return hash((self._owner, self.path))

    def pid(self):
        bus = self._bus.get_object("org.freedesktop.DBus", "/org/freedesktop/DBus", introspect=False)
        return int(bus.GetConnectionUnixProcessID(self._owner, dbus_interface="org.freedesktop.DBus"))

    def role(self):
        """As the screen reader calls it, e.g. "push button", "check box", "label"."""
        return str(self._object.GetRoleName(dbus_interface=ACCESSIBLE))

    def name(self):
        return str(self._property("Name"))

    def description(self):
        return str(self._property("Description"))

    def states(self):
        low, high = self._object.GetState(dbus_interface=ACCESSIBLE)
        bits = int(low) | int(high) << 32
        return {name for number, name in enumerate(STATES) if bits >> number & 1}

    def value(self):
        """How far a progress bar is."""
        return float(self._object.Get("org.a11y.atspi.Value", "CurrentValue", dbus_interface=PROPERTIES))

    def children(self):
        answer = self._object.GetChildren(dbus_interface=ACCESSIBLE)
        return [Element(self._bus, str(owner), str(path)) for owner, path in answer]

    def text(self):
        """What is read out of it character by character; an element without such a text answers with an error."""
        return str(self._object.GetText(dbus.Int32(0), dbus.Int32(-1), dbus_interface=TEXT))

    def length(self):
        """How many characters its text has, also where they are not told."""
        return int(self._object.Get(TEXT, "CharacterCount", dbus_interface=PROPERTIES))

    def middle(self):
        """The place on the screen where somebody would click it."""
        x, y, width, height = self._object.GetExtents(dbus.UInt32(0), dbus_interface=COMPONENT)
        return int(x) + int(width) // 2, int(y) + int(height) // 2

    def actions(self):
        """Names of what can be done with it."""
        return [str(name) for name, _, _ in self._object.GetActions(dbus_interface=ACTION)]

    def do(self, action):
        """Does what one of its actions does, e.g. "Press"."""
        actions = self.actions()
        if action not in actions:
            raise AssertionError(f"{self.role()} '{self.name()}' has no action '{action}', only {actions}")
        self._object.DoAction(dbus.Int32(actions.index(action)), dbus_interface=ACTION)

    def tab_to(self, element, screen):
        """Presses Tab until an element below this one has the keyboard."""
        for _ in range(30):
            before = self._focused()
            if element in before:
                return
            screen.press("Tab")
            wait_until(lambda: self._focused() != before, "Tab to lead elsewhere")
        raise NotInTime(f"Tab does not lead to the {element.role()} '{element.name()}'")

    def all(self):
        """The element and everything below it, from top to bottom."""
        yield self
        with contextlib.suppress(dbus.DBusException):  # gone meanwhile
            for child in self.children():
                yield from child.all()

    def find_all(self, role=None, name=None, states=()):
        """What of it and below has that role and name and at least those states."""
        found = []
        for element in self.all():
            with contextlib.suppress(dbus.DBusException):  # gone meanwhile
                if role in (None, element.role()) and name in (None, element.name()):
                    if set(states) <= element.states():
                        found.append(element)
        return found

    def says(self, text):
        """Whether the name of anything of it or below holds a text."""
        for element in self.all():
            with contextlib.suppress(dbus.DBusException):  # gone meanwhile
                if text in element.name():
                    return True
        return False

    def find(self, role=None, name=None, states=(), seconds=10.0):
        """Waits for the first one; see find_all."""
        what = f"{role or 'anything'} called {name!r} with {set(states) or 'any state'}"

        return wait_until(lambda: self.find_all(role, name, states), what, seconds)[0]

    def _focused(self):
        return set(self.find_all(states=["focused", "showing"]))

    def _property(self, name):
        return self._object.Get(ACCESSIBLE, name, dbus_interface=PROPERTIES)
