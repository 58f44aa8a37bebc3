# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What the desktop says of its user: gone and back, dark or light, not to be disturbed."""

import itertools
import signal
import statistics
import time
import unittest

from agent import BUILD, end, notify, start_agent, start_service
from desktop import Desktop
from mocks import BANNERS, LoginSession, Notifications, Portal, banners, set_do_not_disturb
from waiting import wait_until

#: The background of the window's pages.
LIGHT, DARK = (255, 255, 255), (34, 36, 39)


class LoginTest(unittest.TestCase):
    def test_the_service_hears_when_the_user_goes_and_comes_back(self):
        for bound, env in ((True, {}), (False, {"XDG_SESSION_ID": "1"})):
            with self.subTest(bound=bound), Desktop(panel=None, system_bus=True) as desktop:
                service, login = start_service(desktop), LoginSession(desktop, bound=bound)
                agent = start_agent(desktop, **env)
                agent.expect("updateFromModel syncSource == Startup")
                login.program.expect(" Get .*Active")
                login.set_active(False)
                service.expect("^unsubscribed uid")
                login.stop()
                login = LoginSession(desktop, active=True, bound=bound)
                service.expect("^status for uid")
                agent.expect("updateFromModel syncSource == Moved")
                login.set_active(False)
                service.expect("^unsubscribed uid")
                agent.expect(r"sessionResigned\(\)")
                changes = [line for line in agent.lines if "sessionResigned()" in line or "sessionBecame" in line]
                self.assertEqual(len(changes), 3, changes)


class AppearanceTest(unittest.TestCase):
    def test_the_open_window_follows_the_portal_as_it_comes_and_goes(self):
        with Desktop(window_manager=True) as desktop:
            start_service(desktop)
            agent = desktop.start([BUILD / "fv2-agent", "--show-window"])
            window = desktop.screen.window(agent.pid)

            def follow(colour, when):
                wait_until(lambda: window.colour(-20, -100) == colour, f"the page to be {colour}, {when}")

            follow(LIGHT, "without a portal")
            portal = Portal(desktop, 1)
            follow(DARK, "with a portal that came late")
            portal.set_color_scheme(2)
            follow(LIGHT, "when light is wanted")
            times = []
            for scheme, colour in ((1, DARK), (2, LIGHT)) * 3 + ((1, DARK),):
                started = time.monotonic()
                portal.set_color_scheme(scheme)
                wait_until(lambda: window.colour(-20, -100) == colour, f"the page to be {colour}")
                times.append(time.monotonic() - started)
            print(f"from a switch to the dark or light window: {statistics.median(times) * 1000:.0f} ms")
            self.assertLess(statistics.median(times), 0.2)
            follow(DARK, "when dark is wanted")
            portal.stop()
            follow(LIGHT, "after the portal has gone")


class DoNotDisturbTest(unittest.TestCase):
    def test_no_window_comes_by_itself_while_the_user_is_not_to_be_disturbed(self):
        cases = [("KDE", lambda desktop: Notifications(desktop).set_inhibited),
                 ("Xfce", lambda desktop: lambda wanted: set_do_not_disturb(desktop, wanted))]
        cases += [(name, lambda desktop, name=name: lambda wanted: banners(desktop, name, not wanted))
                  for name in BANNERS]
        for name, prepare in cases:
            with self.subTest(name), Desktop(panel=None) as desktop:
                switch = prepare(desktop)
                env = switch(True) or {}
                service = start_service(desktop)
                service.send("state 3")
                service.expect("^state 3")
                agent = start_agent(desktop, **env)
                agent.expect("updateFromModel syncSource == Startup")
                agent.expect(r"canShow\(\) returning")
                states = itertools.cycle((7, 3))

                def may_disturb():
                    service.send(f"state {next(states)}")
                    return agent.expect(r"IsDNDMode\(\) returning (\w+)").group(1) == "false"

                self.assertFalse(may_disturb())
                self.assertFalse(may_disturb())
                switch(False)
                wait_until(may_disturb, "windows to be allowed again")
                agent.expect(r"canShow\(\) returning true")

    def test_a_start_waits_a_moment_for_what_the_desktop_says_and_no_longer(self):
        with Desktop(panel=None) as desktop:
            alerts, service = Notifications(desktop, inhibited=True), start_service(desktop)
            service.send("state 3")
            service.expect("^state 3")

            def answer_comes_in_time():
                alerts.program.signal(signal.SIGSTOP)
                agent = start_agent(desktop)
                time.sleep(0.1)
                alerts.program.signal(signal.SIGCONT)
                answer = agent.expect(r"IsDNDMode\(\) returning (\w+)").group(1)
                self.assertEqual(end(agent), 0)
                return answer == "true"

            # The machine may be too busy for a tenth of a second to be one.
            self.assertTrue(any(answer_comes_in_time() for _ in range(5)))
            alerts.program.signal(signal.SIGSTOP)
            start_agent(desktop).expect("updateFromModel syncSource == Startup", 5)

    def test_nobody_is_asked_without_need_and_no_service_is_started_by_asking(self):
        with Desktop(panel=None) as desktop:
            service = start_service(desktop)
            agent = start_agent(desktop)
            agent.expect("no action required")
            notify(b'{ "command": "show_ui" }')
            agent.expect("FV2Window first paint")
            service.send("state 3")
            agent.expect("syncSource == Service")
            agent.expect("not checked for action required due to source")
            self.assertFalse([line for line in agent.lines if "IsDNDMode" in line])
            names = {str(name) for name in desktop.bus.list_names() if not name.startswith((":", "org.kde."))}
            self.assertEqual(names, {"org.freedesktop.DBus", "org.fv2agent.Agent"})
