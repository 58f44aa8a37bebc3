# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What hostile or broken processes on the same machine can do to the agent: nothing that its user would notice."""

import os
import random
import socket
import threading
import time
import unittest

from agent import (AGENT_SOCKET, BUILD, NOT_UNDERSTOOD, SERVICE_SOCKET, UNDERSTOOD, connected, end, notify,
                   resources_at_rest, start_agent, start_service)
from desktop import Desktop
from waiting import wait_until

NOBODY = 65534


def garbage(number, chance):
    """One of many kinds of message that mean nothing."""
    kinds = (
        lambda: chance.randbytes(chance.randrange(1, 5000)),
        lambda: b'{ "command": "show_ui' + b"x" * chance.randrange(3000),
        lambda: b"[" * chance.randrange(1, 40000),
        lambda: b'{"a":' * 6000,
        lambda: b'{ "command": 7 }',
        lambda: b"\0" * chance.randrange(1, 100),
        lambda: b'{ "command": "\xff\xfe" }',
        lambda: b"{} trailing",
    )
    return chance.randbytes(1 << 20) if number % 50 == 0 else kinds[number % len(kinds)]()


class NotificationsTest(unittest.TestCase):
    def test_ten_thousand_garbage_messages_get_as_many_answers_and_leave_no_trace(self):
        with Desktop() as desktop:
            start_service(desktop)
            agent = start_agent(desktop, levels="")
            desktop.tray_item()
            for _ in range(20):
                notify(b"warm up")
            before = resources_at_rest(agent)
            answers = []

            def send(share):
                chance = random.Random(share)
                for number in range(2500):
                    answers.append(notify(garbage(number, chance)))

            senders = [threading.Thread(target=send, args=(share,)) for share in range(4)]
            for sender in senders:
                sender.start()
            for sender in senders:
                sender.join()
            self.assertEqual(answers, [NOT_UNDERSTOOD] * 10000)
            self.assertEqual(resources_at_rest(agent), before, "descriptors and threads")
            self.assertEqual(notify(b"{}"), UNDERSTOOD)

    def test_silent_peers_do_not_keep_a_real_notification_waiting(self):
        with Desktop(panel=None) as desktop:
            agent = start_agent(desktop, levels="")
            silent = [connected() for _ in range(100)]
            slowest = 0.0
            for _ in range(20):
                started = time.monotonic()
                self.assertEqual(notify(b"{}"), UNDERSTOOD)
                slowest = max(slowest, time.monotonic() - started)
            self.assertLess(slowest, 0.1)
            for peer in silent:
                peer.close()
            self.assertTrue(agent.running())


class SquatterTest(unittest.TestCase):
    @unittest.skipUnless(os.getuid() == 0, "only root can play another user")
    def test_another_user_at_the_services_path_receives_nothing(self):
        with Desktop() as desktop:
            ready, report = os.pipe()
            squatter = os.fork()
            if squatter == 0:
                self.squat(report)
            self.assertEqual(os.read(ready, 1), b"!")
            try:
                agent = start_agent(desktop, levels="error")
                agent.expect(f"refused a stranger at {SERVICE_SOCKET}, uid:{NOBODY}")
                wait_until(lambda: desktop.tray_item().icon_colour() == "red", "a red icon")
                # Startup asks for a token and the status, and so does the retry that a failed start calls for.
                self.assertEqual([os.read(ready, 1) for _ in range(4)], [b"0"] * 4)
                self.assertEqual(end(agent), 0)
            finally:
                os.kill(squatter, 9)
                os.waitpid(squatter, 0)
                os.unlink(SERVICE_SOCKET)

    @staticmethod
    def squat(report):
        """Runs in a child: serves the path as another user and reports a "0" for every caller that sent no byte."""
        os.setgid(NOBODY)
        os.setuid(NOBODY)
        server = socket.socket(socket.AF_UNIX)
        server.bind(SERVICE_SOCKET)
        os.chmod(SERVICE_SOCKET, 0o666)
        server.listen(20)
        os.write(report, b"!")
        while True:
            with server.accept()[0] as caller:
                os.write(report, b"0" if caller.recv(1) == b"" else b"1")

    def test_a_path_that_cannot_be_had_costs_the_notifications_and_nothing_else(self):
        with Desktop() as desktop:
            start_service(desktop)
            os.mkdir(AGENT_SOCKET)
            try:
                agent = desktop.start([BUILD / "fv2-agent"], {"FV2_LOG_LEVELS": "error"})
                agent.expect(f"no notifications: can't bind {AGENT_SOCKET}")
                wait_until(lambda: desktop.tray_item().icon_colour() == "yellow", "the state's icon")
                self.assertEqual(end(agent), 0)
            finally:
                os.rmdir(AGENT_SOCKET)


if __name__ == "__main__":
    unittest.main()
