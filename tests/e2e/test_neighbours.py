# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What hostile or broken processes on the same machine can do to the agent: nothing that its user would notice."""

import itertools
import os
import random
import re
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from accounts import Account, real_account
from agent import (AGENT_SOCKET, AGENT_SOCKETS, BUILD, NOT_UNDERSTOOD, SERVICE_SOCKET, UNDERSTOOD, end, notify, program,
                   resources_at_rest, start_agent, start_service)
from desktop import Desktop
from neighbour import KINDS, start_neighbour
from password_dialog import PasswordDialog
from waiting import wait_until
from watching import Heartbeat, busy_seconds_of, resident_mib, thread_of

NOBODY = Account("nobody", "", 65534, 65534)
#: How the service misbehaves while peers do.
FAULTS = ("silent", "slow 1", "garbage", "endless", "half")


def garbage(number, chance):
    """One of many kinds of message that mean nothing."""
    kinds = (
        lambda: chance.randbytes(chance.randrange(1, 5000)),
        lambda: b'{ "command": "show_ui' + b"x" * chance.randrange(3000),
        lambda: b"[" * chance.randrange(1, 40000),
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

            def send(share):
                chance = random.Random(share)
                return [notify(garbage(number, chance)) for number in range(2500)]

            with ThreadPoolExecutor(4) as senders:
                answers = list(itertools.chain(*senders.map(send, range(4))))
            self.assertEqual(answers, [NOT_UNDERSTOOD] * 10000)
            self.assertEqual(resources_at_rest(agent), before, "descriptors and threads")
            self.assertEqual(notify(b"{}"), UNDERSTOOD)

    def expect_answer(self):
        self.assertEqual(notify(b"{}"), UNDERSTOOD)

    def test_a_hundred_hostile_peers_and_a_broken_service_are_not_noticed(self):
        with Desktop() as desktop:
            service = start_service(desktop)
            agent = start_agent(desktop, levels="")
            item, threads = desktop.tray_item(), (thread_of(os.getpid()), thread_of(agent.pid, "fv2-listener"))
            for _ in range(20):
                notify(b"warm up")
            before, memory = resources_at_rest(agent), resident_mib(agent)
            for kind, fault in zip(KINDS, FAULTS, strict=True):
                with self.subTest(kind):
                    service.send(f"fault {fault}")
                    service.expect(f"^fault {fault}")
                    with Heartbeat(desktop, item, agent) as heart:
                        peers = start_neighbour(desktop, "peers", kind, AGENT_SOCKET)
                        times = [busy_seconds_of(threads, self.expect_answer) for _ in range(50)]
                        grown = resident_mib(agent) - memory
                    peers.stop()
                    service.send("fault none")
                    print(f"{kind} peers, service {fault}: answered within {max(times) * 1000:.0f} ms, longest wait for "
                          f"the main thread {heart.longest * 1000:.0f} ms, memory {grown:+.1f} MiB")
                    self.assertLess(max(times), 0.1)
                    self.assertLess(heart.longest, 0.1)
                    self.assertLess(grown, 8)
                    self.assertLessEqual({line for line in peers.lines if "heard" in line},
                                         {f"heard {NOT_UNDERSTOOD.decode()}"})
                    wait_until(lambda: resources_at_rest(agent) == before, "descriptors and threads as before", 60)
            self.assertEqual(end(agent), 0)


class SquatterTest(unittest.TestCase):
    @unittest.skipUnless(os.getuid() == 0, "only root can play other users")
    def test_what_another_user_puts_in_the_agents_way_gets_nothing_and_harms_nothing(self):
        with real_account() as user, Desktop(window_manager=True, account=user) as desktop:
            own, elsewhere = AGENT_SOCKETS.format(user.uid), Path("/tmp/fv2-elsewhere.sock")
            victim, log = desktop.home / "victim", desktop.home / "logs/mac-fv2-ui.log"
            for target in (None, victim, desktop.home / "missing", elsewhere):
                with self.subTest(target=target):
                    victim.write_text("untouched", encoding="utf-8")
                    os.chown(victim, user.uid, user.gid)
                    self.doCleanups()  # what an earlier case has left
                    squatters = [self.plant(desktop, str(elsewhere)), self.plant(desktop, own, target),
                                 self.plant(desktop, SERVICE_SOCKET, target)]
                    log.unlink(missing_ok=True)
                    log.symlink_to(target or victim)
                    agent = desktop.start([program(desktop, "fv2-agent")], {"FV2_LOG_LEVELS": "error"})
                    agent.expect(f"no notifications: can't bind {own}")
                    wait_until(lambda: desktop.tray_item().icon_colour() == "red", "a red icon")
                    log.unlink()
                    if target:
                        log.symlink_to(target)
                    else:
                        log.write_text("untouched", encoding="utf-8")
                        os.chown(log, NOBODY.uid, NOBODY.gid)
                        log.chmod(0o666)
                    desktop.tray_item().choose("Synchronize now")
                    agent.expect(f"refused a stranger at {SERVICE_SOCKET}, uid:{NOBODY.uid}")
                    self.assertEqual(end(agent), 0)
                    self.assertEqual([file.read_text() for file in (victim, victim if target else log)],
                                     ["untouched"] * 2)
                    self.assertFalse((desktop.home / "missing").exists())
                    lines = {line for squatter in filter(None, squatters) for line in squatter.lines}
                    self.assertEqual(lines, {"at work"})

    def plant(self, desktop, path, target=None):
        """Another user's socket at the path, or a link of theirs to a target."""
        self.addCleanup(Path(path).unlink, missing_ok=True)
        if target is None:
            return start_neighbour(desktop, "squat", path, account=NOBODY)
        os.symlink(target, path)
        os.lchown(path, NOBODY.uid, NOBODY.gid)

    @unittest.skipUnless(os.getuid() == 0, "only root can play another user")
    def test_a_service_that_is_replaced_while_the_password_is_typed_gets_nothing_of_it(self):
        with real_account() as user, Desktop(window_manager=True, account=user) as desktop:
            service = start_service(desktop, "state 3")
            agent = start_agent(desktop)
            dialog = PasswordDialog(desktop, agent)
            dialog.type(user.password)
            service.stop()
            squatter = self.plant(desktop, SERVICE_SOCKET)
            peers = start_neighbour(desktop, "peers", "silent", AGENT_SOCKETS.format(user.uid))
            desktop.screen.press("Return")
            dialog.answer()
            self.assertEqual(squatter.lines, ["at work"])
            log = (desktop.home / "logs/mac-fv2-ui.log").read_text()
            self.assertIn("refused a stranger", log)
            said = [log, *(line for each in (agent, squatter, peers) for line in each.lines)]
            self.assertEqual([line for line in said if user.password in line or re.search("sent [1-9]", line)], [])
            squatter.stop()
            os.unlink(SERVICE_SOCKET)
            service = start_service(desktop, "state 3")
            dialog.enter(user.password)
            service.expect("^credentials of .* accepted")

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
