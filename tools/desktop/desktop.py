# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""A private desktop for demo and end-to-end tests: X server, session bus, a real panel with its tray, a home folder.

On demand there are a window manager or a Wayland compositor, what screen readers need, and a system bus.

Nothing of the user's own session is used or touched, and nothing but an empty lock file is left when the `with` block
ends. Only a killed test process leaves its folders in the temporary one.
The programs' sockets have fixed paths, so a desktop waits until no other one of this user is open.

    with Desktop(panel="dark") as desktop:
        agent = desktop.start([build / "fv2-agent"])
        print(desktop.tray_item().tooltip())
        desktop.picture(folder / "tray.png", desktop.PANEL)
"""

import contextlib
import fcntl
import os
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

import dbus
import dbus.bus

from programs import Program
from tray import WATCHER, main_colour, wait_for_item
from waiting import wait_until
from wayland import WaylandSession
from windows import Geometry, Screen

PANEL_HEIGHT = 32

BUS_CONFIG = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>{kind}</type>
  <listen>unix:dir={folder}</listen>
  <auth>EXTERNAL</auth>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
    <allow user="root"/>
  </policy>
</busconfig>
"""

PANEL_CONFIG = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="{dark}"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="double" value="100"/>
      <property name="size" type="uint" value="{height}"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-2" type="string" value="systray">
      <property name="icon-size" type="int" value="24"/>
      <property name="square-icons" type="bool" value="true"/>
      <property name="hide-new-items" type="bool" value="false"/>
    </property>
  </property>
</channel>
"""

# The panel's own companion. Its prevention of focus stealing is off as it is shipped, but on in what most people use.
# Compositing keeps windows whole for pictures where others lie above them.
WINDOW_MANAGER_CONFIG = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfwm4" version="1.0">
  <property name="general" type="empty">
    <property name="prevent_focus_stealing" type="bool" value="true"/>
    <property name="use_compositing" type="bool" value="true"/>
    <property name="vblank_mode" type="string" value="off"/>
    <property name="workspace_count" type="int" value="1"/>
  </property>
</channel>
"""


class Desktop:
    """One desktop; see the head of this file. panel is "light", "dark" or None for a session without any tray.

    window_manager: windows have frames and one of them the keyboard. wayland: what is started in it belongs to a Wayland
    session, see `wayland`; the panel does not. accessible: programs started in it speak to screen readers. system_bus:
    there is one, empty, and system_bus is connected to it. account: whose desktop it is; ours without one."""

    SIZE = (1280, 800)
    PANEL = (1280, PANEL_HEIGHT, 0, 0)
    TRAY = (200, PANEL_HEIGHT, 1080, 0)

    def __init__(self, panel="light", env=None, window_manager=False, wayland=False, accessible=False,
                 system_bus=False, account=None):
        self.account = account
        self.uid = account.uid if account else os.getuid()
        self._panel = panel
        self._window_manager = window_manager
        self._wayland = wayland
        self._accessible = accessible
        self._system_bus = system_bus
        self._extra = dict(env or {})
        self._closing = contextlib.ExitStack()
        self.folder = self.home = self.env = self.server = self.screen = None
        self.bus = self.system_bus = self.panel = self.wayland = None

    def __enter__(self):
        try:
            self._wait_for_turn()
            self._make_folders()
            self._closing.callback(self._end_strays)
            self._start_screen()
            self._start_session_bus()
            if self._system_bus:
                self.system_bus = self._start_bus("system", "DBUS_SYSTEM_BUS_ADDRESS")
            if self._window_manager:
                self._start_window_manager()
            if self._panel:
                self.start_panel()
            if self._accessible:
                self._start_accessibility()
            if self._wayland:
                below_panel = Geometry(0, PANEL_HEIGHT, self.SIZE[0], self.SIZE[1] - PANEL_HEIGHT)
                self.wayland = WaylandSession(self, below_panel)
                self.env.update(self.wayland.env())
        except BaseException:
            self._closing.close()
            raise
        return self

    def __exit__(self, *_):
        self._closing.close()

    def at_end(self, callback):
        """Has something called before everything that was started by now is stopped."""
        self._closing.callback(callback)

    def start(self, command, env=None, name=None, as_us=False, account=None):
        """Starts a program in this desktop; it is stopped with the desktop at the latest. as_us: as who runs this, even
        if the desktop is somebody else's. account: as its user."""
        program = Program(command, {**self.env, **(env or {})}, name, None if as_us else account or self.account)
        self._closing.callback(program.stop)
        return program

    def start_panel(self):
        """Starts the panel and returns once its tray is ready for items."""
        dark = "true" if self._panel == "dark" else "false"
        self._write_settings("xfce4-panel", PANEL_CONFIG.format(dark=dark, height=PANEL_HEIGHT))
        self.panel = self.start(["xfce4-panel", "--disable-wm-check"])
        wait_until(lambda: self.panel.running() and self.bus.name_has_owner(WATCHER), "the panel's tray", 30)

    def tray_item(self, seconds=15.0):
        return wait_for_item(self.bus, seconds)

    def picture(self, file, crop=None):
        """Saves a picture of the screen, or of crop = (width, height, x, y)."""
        file.parent.mkdir(parents=True, exist_ok=True)
        area = ["-crop", "{}x{}+{}+{}".format(*crop), "+repage"] if crop else []
        subprocess.run(["import", "-window", "root", *area, str(file)], env=self.env, check=True, timeout=20)

    def shown_colour(self, crop=TRAY):
        """The main colour of a part of the screen, by default where the panel paints its tray."""
        area = "{}x{}+{}+{}".format(*crop)
        command = ["import", "-window", "root", "-crop", area, "+repage", "-depth", "8", "rgba:-"]
        data = subprocess.run(command, env=self.env, check=True, timeout=20, capture_output=True).stdout
        return main_colour(data[0::4], data[1::4], data[2::4], data[3::4])

    def _wait_for_turn(self):
        lock = self._closing.enter_context(open(Path(tempfile.gettempdir(), f"fv2-desktop-{os.getuid()}.lock"), "w"))

        def taken():
            with contextlib.suppress(BlockingIOError):
                fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
                return True

        wait_until(taken, "another desktop of this user to end", 300)

    def _make_folders(self):
        self.folder = Path(tempfile.mkdtemp(prefix="fv2-desktop-"))
        self._closing.callback(shutil.rmtree, self.folder, ignore_errors=True)
        self.home = self.folder / "home"
        runtime = self.folder / "run"
        for folder in (self.home, runtime):
            folder.mkdir(mode=0o700)
        (self.home / "logs").mkdir()
        # The services that are played here run as the user.
        settings = self.settings = self.folder / "installed/etc/fv2-agent/agent.conf"
        settings.parent.mkdir(parents=True)
        settings.write_text("[credentials]\nrootOnly=false\n", encoding="utf-8")
        if self.account:
            for folder in (self.folder, *self.folder.rglob("*")):
                os.chown(folder, self.uid, self.account.gid)
        # Made from nothing, so that it is the same on every machine.
        self.env = {
            "PATH": os.environ.get("PATH", "/usr/bin:/bin"),
            "LANG": "C.UTF-8",
            "HOME": str(self.home),
            "TMPDIR": str(self.folder),
            "XDG_RUNTIME_DIR": str(runtime),
            "XDG_CONFIG_HOME": str(self.home / ".config"),
            "XDG_CACHE_HOME": str(self.home / ".cache"),
            "XDG_DATA_HOME": str(self.home / ".local/share"),
            "XDG_CURRENT_DESKTOP": "XFCE",
            "XDG_SESSION_TYPE": "x11",
            "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={runtime}/no-system-bus",
            "GSETTINGS_BACKEND": "memory",
            "NO_AT_BRIDGE": "1",
            "FV2_DESKTOP": str(self.folder),
            **{name: os.environ[name] for name in ("ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS")
               if name in os.environ},
        }

    def _start_screen(self):
        size = "{}x{}x24".format(*self.SIZE)
        self.server = self.start(["Xvfb", "-displayfd", "1", "-screen", "0", size, "-nolisten", "tcp", "-noreset"])
        self.env["DISPLAY"] = ":" + self.server.expect(r"^(\d+)$", 30).group(1)
        self.screen = Screen(self.env)
        self.at_end(self.screen.close)
        self.env.update(self._extra)

    def _start_session_bus(self):
        # Only the panel's settings service may be started by asking for it: what else the machine has installed
        # must not change what the programs under test find.
        xfconf = Path("/usr/share/dbus-1/services/org.xfce.Xfconf.service")
        services = self.folder / "session-services"
        services.mkdir()
        (services / xfconf.name).symlink_to(xfconf)
        self.bus = self._start_bus("session", "DBUS_SESSION_BUS_ADDRESS")

    def _start_bus(self, kind, variable):
        text = BUS_CONFIG.format(kind=kind, folder=self.env["XDG_RUNTIME_DIR"],
                                 services=self.folder / f"{kind}-services")
        config = self.folder / f"{kind}-bus.conf"
        config.write_text(text, encoding="utf-8")
        daemon = self.start(["dbus-daemon", f"--config-file={config}", "--nofork", "--nopidfile", "--print-address"])
        self.env[variable] = daemon.expect(r"^(unix:.+)$").group(1)
        bus = dbus.bus.BusConnection(self.env[variable])
        self.at_end(bus.close)
        return bus

    def _start_window_manager(self):
        self._write_settings("xfwm4", WINDOW_MANAGER_CONFIG)
        self._manager = self.start(["xfwm4"])
        wait_until(lambda: self._manager.running() and self.screen.managed(), "the window manager", 30)

    def revive_window_manager(self):
        """Starts the window manager again if it has crashed, as a session does, and tells whether it had."""
        crashed = not self._manager.running()
        if crashed:
            self._start_window_manager()
        return crashed

    def _start_accessibility(self):
        launcher = self.start(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])
        wait_until(lambda: launcher.running() and self.bus.name_has_owner("org.a11y.Bus"), "the accessibility bus", 30)
        del self.env["NO_AT_BRIDGE"]
        self.env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"

    def _write_settings(self, channel, text):
        folder = self.home / ".config/xfce4/xfconf/xfce-perchannel-xml"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / f"{channel}.xml").write_text(text, encoding="utf-8")

    def _end_strays(self):
        """Ends what the stopped programs left behind: every process that carries this desktop's mark."""
        mark = f"FV2_DESKTOP={self.folder}".encode()

        def none_is_left():
            found = False
            for entry in Path("/proc").glob("[0-9]*"):
                with contextlib.suppress(OSError):
                    if mark in (entry / "environ").read_bytes().split(b"\0"):
                        found = True
                        os.kill(int(entry.name), signal.SIGKILL)
            return not found

        wait_until(none_is_left, "the end of what the programs left behind")
