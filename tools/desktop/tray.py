# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Tray items as the panel sees them: status notifier items and their menus, read over D-Bus."""

import colorsys
from dataclasses import dataclass

import dbus

from waiting import wait_until

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
PROPERTIES = "org.freedesktop.DBus.Properties"


@dataclass(frozen=True)
class MenuEntry:
    number: int
    label: str
    enabled: bool


class TrayItem:
    """One registered item. Every question goes to the program anew; nothing is kept."""

    def __init__(self, bus, address):
        self.address = address
        owner, slash, path = address.partition("/")
        self._bus = bus
        self._owner = owner
        self._object = bus.get_object(owner, slash + path if slash else "/StatusNotifierItem", introspect=False)

    def property(self, name):
        return self._object.Get(ITEM, name, dbus_interface=PROPERTIES)

    def title(self):
        return str(self.property("Title"))

    def tooltip(self):
        """The tooltip's title and text as one text."""
        _, _, title, text = self.property("ToolTip")
        return "\n".join(part for part in (str(title), str(text)) if part)

    def icon_pixels(self):
        """Width, height and ARGB bytes of the largest picture; (0, 0, b"") without one."""
        pixmaps = [(int(width), int(height), bytes(data)) for width, height, data in self.property("IconPixmap")]
        return max(pixmaps, default=(0, 0, b""))

    def icon_colour(self):
        """The name of the icon's main colour; see main_colour."""
        data = self.icon_pixels()[2]
        return main_colour(data[1::4], data[2::4], data[3::4], data[0::4])

    def click(self, x=0, y=0):
        """What the panel tells the item when somebody clicks it with the left button."""
        self._object.Activate(dbus.Int32(x), dbus.Int32(y), dbus_interface=ITEM)

    def menu(self):
        """The entries of the item's menu, separators left out, as they are right after it is opened."""
        menu = self._menu_object()
        menu.AboutToShow(dbus.Int32(0), dbus_interface=MENU)
        _, (_, _, children) = menu.GetLayout(dbus.Int32(0), dbus.Int32(-1), dbus.Array([], "s"), dbus_interface=MENU)
        return [MenuEntry(int(number), str(values["label"]), bool(values.get("enabled", True)))
                for number, values, _ in children if values.get("type") != "separator"]

    def choose(self, label):
        """Clicks the menu entry of that label."""
        entries = {entry.label: entry for entry in self.menu()}
        if label not in entries:
            raise AssertionError(f"the tray menu has no entry '{label}', only {sorted(entries)}")
        self.trigger(entries[label])

    def trigger(self, entry):
        """Clicks a menu entry that is known already, whatever its label is now."""
        self._menu_object().Event(dbus.Int32(entry.number), "clicked", dbus.String("", variant_level=1),
                                  dbus.UInt32(0), dbus_interface=MENU)

    def _menu_object(self):
        return self._bus.get_object(self._owner, self.property("Menu"), introspect=False)


def main_colour(red, green, blue, alpha):
    """Which of "red", "yellow", "green" and "blue" most coloured pixels have; "none" if all are grey or transparent."""
    limits = (("red", 22), ("yellow", 72), ("green", 172), ("blue", 282), ("red", 361))
    votes = {name: 0 for name, _ in limits}
    for *colour, opacity in zip(red, green, blue, alpha):
        hue, saturation, value = colorsys.rgb_to_hsv(*(channel / 255 for channel in colour))
        if opacity >= 128 and saturation >= 0.3 and value >= 0.4:
            votes[next(name for name, limit in limits if hue * 360 < limit)] += 1
    return max(votes, key=votes.get) if any(votes.values()) else "none"


def tray_items(bus):
    """Every item that the panel knows of now."""
    watcher = bus.get_object(WATCHER, "/StatusNotifierWatcher", introspect=False)
    addresses = watcher.Get(WATCHER, "RegisteredStatusNotifierItems", dbus_interface=PROPERTIES)
    return [TrayItem(bus, str(address)) for address in addresses]


def wait_for_item(bus, seconds=15.0):
    """The one tray item of a desktop that runs one agent."""
    return wait_until(lambda: tray_items(bus), "a tray item", seconds)[0]
