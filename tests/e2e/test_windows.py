# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The main window among other programs' windows, and the menu that opens and hides it."""

import time
import unittest

import dbus

from accounts import listed_account
from agent import BUILD, notify, program, start_agent, start_service
from desktop import PANEL_HEIGHT, Desktop
from mocks import Portal
from password_dialog import PasswordDialog
from waiting import wait_until
from wayland import BACKGROUND

OPEN, HIDE, SYNCHRONISE = "Open window", "Hide window", "Synchronize now"
PASSWORD_LINK = "Enter your password"
#: Where the panel paints the one item of its tray.
ICON, AT_ICON = (1263, 16), (32, 32, 1247, 0)


class WindowsTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop(window_manager=True))
        self.screen = self.desktop.screen
        self.service = start_service(self.desktop)
        self.agent = start_agent(self.desktop)
        self.item = self.desktop.tray_item()

    def shown(self, managed=True):
        """The agent's windows that are on the screen; or its menu, which the window manager leaves alone."""
        return [window for window in self.screen.windows(self.agent.pid) if window.managed() == managed]

    def window(self):
        return wait_until(self.shown, "the agent's window")[0]

    def press(self, *keys):
        wait_until(self.window().active, "the window to have the keyboard")
        self.screen.press(*keys)

    def start_second_copy(self):
        self.assertEqual(self.desktop.start([BUILD / "fv2-agent"]).wait(), 0)

    def activate(self):
        """What the desktop does when its entry of the agent is chosen."""
        agent = self.desktop.bus.get_object("org.fv2agent.Agent", "/org/fv2agent/Agent", introspect=False)
        agent.Activate(dbus.Dictionary({}, signature="sv"), dbus_interface="org.freedesktop.Application")

    def test_the_menu_says_what_can_be_done_after_every_change(self):
        def tell(*lines):
            for line in lines:
                self.service.send(line)
                self.service.expect("^" + line)

        steps = (
            ("opened", lambda: self.item.choose(OPEN), HIDE, True),
            ("closed by its button", lambda: self.window().close(), OPEN, True),
            ("opened by a second copy", self.start_second_copy, HIDE, True),
            ("closed by its key", lambda: self.press("ctrl+w"), OPEN, True),
            ("opened by the desktop", self.activate, HIDE, True),
            ("minimised", lambda: self.window().minimise(), OPEN, True),
            ("brought back", lambda: self.item.choose(OPEN), HIDE, True),
            ("the service synchronises", lambda: tell("sync start"), HIDE, False),
            ("hidden", lambda: self.item.choose(HIDE), OPEN, False),
            ("synchronised", lambda: tell("sync ok"), OPEN, True),
            ("the service is slow", lambda: tell("onsync refuse", "fault slow 4"), OPEN, True),
            ("the agent waits for the service", lambda: self.item.choose(SYNCHRONISE), OPEN, False),
            ("the service has refused", lambda: tell("fault none"), OPEN, True),
            ("the service synchronises again", lambda: tell("sync start"), OPEN, False),
            ("the service is lost", lambda: (self.service.stop(), notify(b"{}")), OPEN, True),
        )
        self.agent.expect("updateFromModel syncSource == Startup")
        self.assertEqual(self.shown(), [], "a plain start")
        for what, change, label, possible in steps:
            with self.subTest(what):
                change()
                wanted = [(label, True), (SYNCHRONISE, possible)]
                wait_until(lambda: [(entry.label, entry.enabled) for entry in self.item.menu()] == wanted, wanted)
                wait_until(lambda: bool(self.shown()) == (label == HIDE), "the window to do what the menu says")

    def test_a_left_click_shows_the_menu_and_the_keyboard_chooses(self):
        wait_until(lambda: self.desktop.shown_colour(AT_ICON) == "yellow", "the icon")
        for keys, log in ((("Down", "Return"), "FV2Window first paint"),
                          (("Down", "Return"), "StatusBarMenu Hide Application Window"),
                          (("Down", "Down", "Return"), "Syncing proxy"), (("Escape",), "StatusBarMenu Closed")):
            self.screen.point_at(1200, 100)
            self.screen.click(*ICON)
            wait_until(lambda: self.shown(managed=False), "the menu")
            self.screen.press(*keys)
            self.agent.expect(log)
            wait_until(lambda: not self.shown(managed=False), "the menu to go")
        for place in (ICON, ICON, ICON, (600, 400), ICON):
            self.screen.click(*ICON)
            wait_until(lambda: self.shown(managed=False), "the menu")
            self.screen.press_and_release(*place)
            self.agent.expect("StatusBarMenu Closed")
            time.sleep(0.5)  # in which a menu would come back
            self.assertEqual(self.shown(managed=False), [], f"after a click at {place}")

    def test_what_the_user_asked_for_is_in_front_and_has_the_keyboard(self):
        self.desktop.start(["xfce4-panel", "--preferences"])
        other = self.screen.window(title="Panel Preferences")
        asks = [self.start_second_copy, self.activate, lambda: self.item.choose(OPEN)]
        self.activate()
        # The menu offers to hide a window that is shown, even behind others.
        for left, leave, ways in (("closed", lambda: self.window().close(), asks), ("behind", other.activate, asks[:2]),
                                  ("minimised", lambda: self.window().minimise(), asks)):
            for number, ask in enumerate(ways):
                with self.subTest(left, way=number):
                    leave()
                    wait_until(other.active, "the other program to have the keyboard")
                    self.screen.press("Tab")
                    ask()
                    wait_until(lambda: self.window().active() and self.window().above(other), "the window in front")


class AlertsTest(unittest.TestCase):
    def test_an_alert_is_above_and_has_the_keyboard_however_its_window_comes_back(self):
        desktop = self.enterContext(Desktop(window_manager=True, accessible=True,
                                            account=self.enterContext(listed_account())))
        service = start_service(desktop, "state 3", "credentials refuse 7")
        agent = start_agent(desktop, "--show-window")
        dialog, item, main = PasswordDialog(desktop, agent), desktop.tray_item(), desktop.screen.window(agent.pid)
        desktop.start(["xfce4-panel", "--preferences"])
        other = desktop.screen.window(title="Panel Preferences")

        def comes_back_by(way, front):
            other.activate()
            desktop.screen.press("Tab")
            way()
            wait_until(lambda: front().active() and front().above(main) and main.above(other), "all of it in front")

        dialog.elements().find("link", PASSWORD_LINK, ["showing"]).do("Press")
        dialog.type(desktop.account.password)
        service.send("fault slow 1")
        service.expect("^fault slow")
        desktop.screen.press("Return")
        time.sleep(0.5)
        item.choose(HIDE)
        service.expect("^credentials of uid .*: refused")
        agent.expect("FV2SocketCommsBase deinit")
        self.assertEqual(dialog.alerts(), [])
        item.choose(OPEN)
        self.assertTrue(dialog.alert().above(dialog.windows()[0]))
        def second_copy():
            desktop.start([program(desktop, "fv2-agent")]).wait()

        comes_back_by(second_copy, dialog.alert)
        for way in (second_copy, lambda: item.choose(OPEN)):
            main.minimise()
            wait_until(lambda: not main.visible(), "the windows to be minimised")
            comes_back_by(way, dialog.alert)
        dialog.answer()
        comes_back_by(second_copy, lambda: dialog.windows()[0])


class WaylandTest(unittest.TestCase):
    """The agent as a Wayland client. Where its windows are, and what lies above, only a screen reader can ask."""

    def test_windows_come_back_in_colours_of_their_own_and_the_dialog_can_be_put_off(self):
        with Desktop(wayland=True, accessible=True) as desktop:
            start_service(desktop, "state 3")
            portal = Portal(desktop, 1)
            agent = start_agent(desktop, "--show-window")
            reader, item = PasswordDialog(desktop, agent).elements(), desktop.tray_item()
            self.assertEqual(item.title(), "Disk Encryption Agent")

            def with_keyboard():
                return [element.name() for element in reader.children() if "active" in element.states()]

            def active(*names):
                wait_until(lambda: with_keyboard() == [*names], f"{names} to have the keyboard")

            active(item.title())
            def maximise():
                """So that the place of its frame is known."""
                desktop.screen.press("super+shift+m")
                wait_until(lambda: frame() != BACKGROUND, "the window to be maximised")

            def frame():
                return desktop.screen.colour(300, PANEL_HEIGHT + 5)

            maximise()
            for scheme, is_dark in ((1, True), (2, False)):
                portal.set_color_scheme(scheme)
                wait_until(lambda: (sum(frame()) < 300) == is_dark, "the frame")
            for choose in (lambda: item.choose(OPEN), item.click):
                desktop.wayland.other_program()  # nobody tells whether the window is seen
                active()
                choose()
                active(item.title())
            reader.find("link", PASSWORD_LINK, ["showing"]).do("Press")
            active("Enter password")
            desktop.screen.press("ctrl+w")
            active("Enter your password later?")
            desktop.wayland.other_program()
            active()
            item.choose(OPEN)
            active("Enter your password later?")
            desktop.screen.press("Return")
            active(item.title())
            agent.stop()
            # Through the X server of the session it is as little able to place a menu.
            agent = start_agent(desktop, QT_QPA_PLATFORM="xcb")
            desktop.tray_item().click()
            agent.expect("StatusBarMenu Open Application Window")
