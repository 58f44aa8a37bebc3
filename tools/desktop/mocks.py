# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Stand-ins for what the login manager, the desktop's portal and its notifications say, on a desktop's private buses.

Each runs in a child program of its own, as it answers while the test waits for something else. What it was asked is in
its lines."""

import subprocess
import sys

import dbus

from waiting import wait_until

MOCK = "org.freedesktop.DBus.Mock"
#: Channel and property.
XFCE_SWITCH = ("xfce4-notifyd", "/do-not-disturb")
#: Group and key of the settings of desktops that keep it there, by their names.
BANNERS = {"GNOME": ("org/gnome/desktop/notifications", "show-banners"),
           "X-Cinnamon": ("org/cinnamon/desktop/notifications", "display-notifications")}
SCHEMA = """<schemalist><schema id="{id}" path="/{path}/"><key name="{key}" type="b"><default>true</default></key></schema>
</schemalist>"""


class Mock:
    """One service with one object to begin with. May be stopped; a new one takes its place."""

    #: Of the service and its object; each kind of mock says its own.
    NAME = PATH = INTERFACE = None

    def __init__(self, desktop, bus):
        kind = "--system" if bus is desktop.system_bus else "--session"
        self._bus, self._own_name = bus, f"mock.{self.NAME}"
        command = [sys.executable, "-m", "dbusmock", kind, self._own_name, self.PATH, self.INTERFACE]
        self.program = desktop.start(command, name=f"mock of {self.NAME}")
        wait_until(lambda: self.program.running() and bus.name_has_owner(self._own_name), self.program.name)

    def stop(self):
        self.program.stop()

    def _appear(self):
        """Takes the public name, once it can answer: who waits for the name asks at once."""
        self._tell("AddMethod", MOCK, "Appear", "", "", f"self.connection.request_name('{self.NAME}')")
        self._tell("Appear")

    def _tell(self, method, *arguments, path=None):
        target = self._bus.get_object(self._own_name, path or self.PATH, introspect=False)
        target.get_dbus_method(method, MOCK)(*arguments)


class LoginSession(Mock):
    """The login manager with one session, ours, on the bus of a Desktop(system_bus=True).

    bound=False: as it answers to a program that lies in no session; such a one must know the session's number."""

    NAME = "org.freedesktop.login1"
    PATH = "/org/freedesktop/login1"
    INTERFACE = "org.freedesktop.login1.Manager"
    #: Session "1", as the login manager writes it.
    SESSION_PATH = PATH + "/session/_31"
    SESSION_INTERFACE = "org.freedesktop.login1.Session"

    def __init__(self, desktop, active=True, bound=True):
        super().__init__(desktop, desktop.system_bus)
        known = ("auto", "1") if bound else ("1",)
        self._answer_path("GetSession", "s", f"args[0] in {known!r}", "NoSuchSession")
        self._answer_path("GetSessionByPID", "u", repr(bound), "NoSessionForPID")
        properties = dbus.Dictionary({"Id": "1", "Active": dbus.Boolean(active), "LockedHint": dbus.Boolean(False)},
                                     signature="sv")
        methods = dbus.Array([], signature="(ssss)")
        self._tell("AddObject", self.SESSION_PATH, self.SESSION_INTERFACE, properties, methods)
        self._appear()

    def set_active(self, active):
        self._set("Active", active)

    def set_locked_hint(self, locked):
        """What a locker tells once the screen is locked."""
        self._set("LockedHint", locked)

    def ask_to_lock(self):
        self._tell("EmitSignal", self.SESSION_INTERFACE, "Lock", "", dbus.Array([], "v"), path=self.SESSION_PATH)

    def _set(self, name, value):
        changed = {name: dbus.Boolean(value)}
        self._tell("UpdateProperties", self.SESSION_INTERFACE, changed, path=self.SESSION_PATH)

    def _answer_path(self, method, signature, condition, error):
        code = (f"if not ({condition}):\n"
                f"    raise dbus.exceptions.DBusException('no session', name='{self.NAME}.{error}')\n"
                f"ret = '{self.SESSION_PATH}'")
        self._tell("AddMethod", self.INTERFACE, method, signature, "o", code)


class Portal(Mock):
    """The desktop's portal with the one setting that it tells: 0 no preference, 1 dark, 2 light."""

    NAME = "org.freedesktop.portal.Desktop"
    PATH = "/org/freedesktop/portal/desktop"
    INTERFACE = "org.freedesktop.portal.Settings"
    SETTING = ("org.freedesktop.appearance", "color-scheme")

    def __init__(self, desktop, color_scheme=0):
        super().__init__(desktop, desktop.bus)
        self._answer(color_scheme)
        self._appear()

    def set_color_scheme(self, color_scheme):
        self._answer(color_scheme)
        values = dbus.Array([*self.SETTING, dbus.UInt32(color_scheme)], signature="v")
        self._tell("EmitSignal", self.INTERFACE, "SettingChanged", "ssv", values)

    def _answer(self, color_scheme):
        # Read wraps its answer twice, ever since the first portal did by mistake.
        code = (f"if tuple(args) != {self.SETTING!r}:\n"
                "    raise dbus.exceptions.DBusException('no', name='org.freedesktop.portal.Error.NotFound')\n"
                f"ret = dbus.UInt32({color_scheme}, variant_level=2)")
        self._tell("AddMethod", self.INTERFACE, "Read", "ss", "v", code)


class Notifications(Mock):
    """The service that shows notifications, as KDE has it: it tells when they are held back."""

    NAME = INTERFACE = "org.freedesktop.Notifications"
    PATH = "/org/freedesktop/Notifications"

    def __init__(self, desktop, inhibited=False):
        super().__init__(desktop, desktop.bus)
        self._tell("AddProperty", self.INTERFACE, "Inhibited", dbus.Boolean(inhibited))
        self._appear()

    def set_inhibited(self, inhibited):
        self._tell("UpdateProperties", self.INTERFACE, {"Inhibited": dbus.Boolean(inhibited)})


def set_do_not_disturb(desktop, wanted):
    """Xfce's switch, in the desktop's real settings service."""
    settings = desktop.bus.get_object("org.xfce.Xfconf", "/org/xfce/Xfconf", introspect=False)
    value = dbus.Boolean(wanted, variant_level=1)
    settings.SetProperty(*XFCE_SWITCH, value, dbus_interface="org.xfce.Xfconf")


def banners(desktop, session, shown):
    """Sets whether GNOME or Cinnamon shows notifications; returns the environment in which a program looks there."""
    group, key = BANNERS[session]
    settings, schemas = desktop.home / ".config/glib-2.0/settings", desktop.home / "schemas"
    for folder in (settings, schemas):
        folder.mkdir(parents=True, exist_ok=True)
    value = "true" if shown else "false"
    (settings / "keyfile").write_text(f"[{group}]\n{key}={value}\n", encoding="utf-8")
    # Cinnamon's own is not installed where its desktop isn't.
    (schemas / "banners.gschema.xml").write_text(SCHEMA.format(id=group.replace("/", "."), path=group, key=key),
                                                 encoding="utf-8")
    subprocess.run(["glib-compile-schemas", "--strict", str(schemas)], check=True, timeout=20)
    return {"GSETTINGS_BACKEND": "keyfile", "GSETTINGS_SCHEMA_DIR": str(schemas), "XDG_CURRENT_DESKTOP": session}


class NotificationServer(Notifications):
    """One that shows notifications too, and numbers them from 1; as the real ones it keeps a replaced one's number."""

    def __init__(self, desktop, inhibited=False, capabilities=("body", "body-markup", "actions")):
        super().__init__(desktop, inhibited)
        self._desktop = desktop
        code = "ret = " + repr(list(capabilities))
        self._tell("AddMethod", self.INTERFACE, "GetCapabilities", "", "as", code)
        self._tell("AddMethod", self.INTERFACE, "Notify", "susssasa{sv}i", "u", "ret = args[1] or 1")
        self._tell("AddMethod", self.INTERFACE, "CloseNotification", "u", "", "")

    def _calls(self, method):
        target = self._bus.get_object(self._own_name, self.PATH, introspect=False)
        return [arguments for _, name, arguments in target.GetCalls(dbus_interface=MOCK) if name == method]

    def shown(self):
        """The number that each one replaces, and its title."""
        return [(int(call[1]), str(call[3])) for call in self._calls("Notify")]

    def closed(self):
        return [int(call[0]) for call in self._calls("CloseNotification")]

    def choose(self, action, number=1):
        values = dbus.Array([dbus.UInt32(number), action], signature="v")
        self._tell("EmitSignal", self.INTERFACE, "ActionInvoked", "us", values)
