#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Everything at once, for as long as you like: a user who clicks and types, a service that changes, breaks and dies,
storms of notifications, hostile peers, second copies, a desktop that changes its appearance and its session.

usage: soak.py <minutes> <preset>; see ./dev soak

Fails when a sanitizer finds something, when the agent ends by itself or not cleanly, when its descriptors, threads or
memory are not what they were after a fifth of the time (two minutes at the most), or when its main thread kept a caller
waiting. FV2_SEED repeats a run as far as the machine does.

Memory is judged without a sanitizer only: both sanitizers hold freed memory back and shadow what is used, so the
process's size says little; AddressSanitizer finds leaks itself at the end. A sanitizer also slows the agent down:
twice, its makers say, with AddressSanitizer, five to fifteen times with ThreadSanitizer."""

import contextlib
import os
import random
import signal
import subprocess
import sys
import threading
import time
import traceback
from collections import Counter
from pathlib import Path

import dbus
from Xlib.error import XError

from accounts import listed_account
from agent import (AGENT_SOCKET, NOT_UNDERSTOOD, UNDERSTOOD, notify, program, resources_at_rest, start_agent,
                   start_service)
from desktop import Desktop
from mocks import LoginSession, Portal, set_do_not_disturb
from neighbour import KINDS, start_neighbour
from password_dialog import PasswordDialog
from waiting import NotInTime, wait_until
from watching import Heartbeat, resident_mib
from windows import Window

PROJECT = Path(__file__).resolve().parents[2]
# libxkbcommon copies parts of texts that have no end, which it may.
OPTIONS = {"ASAN": "strict_string_checks=0", "LSAN": f"suppressions={PROJECT}/tests/support/lsan.supp",
           "TSAN": f"suppressions={PROJECT}/tests/support/tsan.supp"}
#: Seconds for which the main thread may keep a caller waiting; under a sanitizer only a hang is a fault.
STALL = {"release": 0.1, "asan": 1.0, "tsan": 1.0}
MIB = 2.0
FINDINGS = ("Sanitizer", "runtime error:")
#: What must have happened, or the run proves little; from the lines of agent, services and copies.
EVIDENCE = {"window shown": "FV2Window first paint", "page switched": "Switched content view",
            "password accepted": "credentials of uid", "password refused": "wrong password",
            "session left": "sessionResigned()", "second copy": "Found another instance",
            "refresh": "updateFromModel syncSource", "service's fault": "connection meets fault"}
LINES = (*(f"state {number}" for number in (0, 1, 3, 3, 4, 5, 6, 7, 8, 10, 13, 99)), "sync start", "sync ok",
         "sync fail", "sync last 1764500000", "onsync ok 1", "onsync fail 1", "onsync refuse 5", "progress 50",
         "notify", "credentials accept", "credentials refuse 7", "policy postpone none", "policy postpone 0")
FAULTS = ("silent", "slow 1", "garbage", "half", "close", "endless", "error 3")
KEYS = ("ctrl+1", "ctrl+2", "Up", "Down", "Tab", "Return", "Return", "Escape", "space", "ctrl+w", "a", "BackSpace")
#: With the answer that each must get, and how often it comes.
MESSAGES = ((b"{}", UNDERSTOOD, 60), (b'{ "command": "status_changed" }', UNDERSTOOD, 20),
            (b'{ "command": "show_ui" }', UNDERSTOOD, 1), (b"[" * 3000, NOT_UNDERSTOOD, 5),
            (b"\xff", NOT_UNDERSTOOD, 5), (b'{"a":7', NOT_UNDERSTOOD, 5))
#: What may rightly go wrong for one who uses what has just gone.
GONE = (XError, dbus.DBusException, subprocess.CalledProcessError, AssertionError, OSError)


class Soak:
    """One desktop with one agent, and all who trouble it."""

    def __init__(self, preset, seed):
        self.preset, self.seed = preset, seed
        self.failures, self.seen, self.turns = [], Counter(), Counter()
        self._busy, self._ended = threading.Event(), threading.Event()
        self._actors = {"service": self.serve, "storm": self.storm, "peers": self.bring_peers,
                        "copies": self.start_copy}
        self._programs, self._acting = [], threading.Semaphore(len(self._actors))

    def run(self, seconds):
        with listed_account() as account, \
                Desktop(window_manager=True, system_bus=True, account=account) as self.desktop:
            self.login, self.portal = LoginSession(self.desktop), Portal(self.desktop)
            self.service = self.noted(start_service(self.desktop))
            self.agent = self.noted(start_agent(self.desktop, levels="release,error,ui"))
            self.item = self.desktop.tray_item()
            for name, turn in self._actors.items():
                threading.Thread(target=self.act, args=(name, turn), name=name, daemon=True).start()
            self.desktop.at_end(self._ended.set)
            with Heartbeat(self.desktop, self.item, self.agent) as heart:
                before, memory = self.trouble(min(120, seconds / 5))
                after, memory_after = self.trouble(max(seconds - 120, seconds * 4 / 5), before)
            self.agent.signal(signal.SIGTERM)
            status = self.agent.wait(30)
            self.read_lines()
            print(f"turns: {dict(self.turns)}\nseen: {dict(self.seen)}\n"
                  f"descriptors, threads: {before}, after {after}; memory: {memory:.1f} MiB, after {memory_after:.1f}\n"
                  f"longest wait for the main thread: {heart.longest * 1000:.0f} ms, until {heart.when}, in "
                  f"{heart.beats} beats")
            checks = {f"the agent ended with {status}": status == 0,
                      "descriptors or threads are not what they were": after == before,
                      "memory has grown": self.preset != "release" or memory_after - memory <= MIB,
                      "the main thread stood still": heart.longest <= STALL[self.preset],
                      **{f"never happened: {what}": self.seen[what] > 0 for what in EVIDENCE},
                      "a crowd may throw a message out, but not every tenth one":
                          self.turns["answered"] > 10 * self.turns["thrown out"],
                      **{f"never had a turn: {name}": self.turns[name] > 0 for name in self._actors}}
            self.failures += [what for what, good in checks.items() if not good]

    def noted(self, program_):
        self._programs.append(program_)
        return program_

    def read_lines(self):
        for each in self._programs[:]:
            ended, count = not each.running(), len(each.lines)
            for line in each.lines[:count]:
                self.seen.update(what for what, text in EVIDENCE.items() if text in line)
                if any(finding in line for finding in FINDINGS):
                    self.failures.append("\n".join(each.lines))
                    break
            del each.lines[:count]
            if ended:
                self._programs.remove(each)

    def trouble(self, seconds, wanted=None):
        """Lets all of them act for a while, then waits for rest; descriptors and threads there, and memory."""
        self.desktop.revive_window_manager()
        self.give_passwords()
        chance, until = random.Random(f"{self.seed} {seconds}"), time.monotonic() + seconds
        self._busy.set()
        while time.monotonic() < until and not self.failures:
            # xfwm4 4.18 falls over windows that go in the wrong moment, once in half an hour.
            self.turns["window manager's crashes"] += self.desktop.revive_window_manager()
            with contextlib.suppress(*GONE):
                self.use(chance)
            self.read_lines()
            if not self.agent.running():
                raise SystemExit("\n".join([*self.failures, "the agent has ended by itself", *self.agent.lines]))
            if self.turns["user"] % 1000 == 0:
                (self.desktop.home / "logs/mac-fv2-ui.log").unlink(missing_ok=True)
        self._busy.clear()
        for _ in self._actors:
            self._acting.acquire(timeout=60)
        try:
            return self.rest(wanted)
        finally:
            self._acting.release(len(self._actors))

    def give_passwords(self):
        self.service.send("state 3")
        dialog = PasswordDialog(self.desktop, self.agent)
        dialog.enter("wrong")
        dialog.answer()
        dialog.enter(self.desktop.account.password)
        dialog.wait_until_gone(30)

    def rest(self, wanted):
        self.desktop.revive_window_manager()
        self.restart_service(signal.SIGTERM, "state 6")  # whatever hangs on a silent one is let go
        self.change_desktop(1, True, False)
        # What was freed is given back when the last window closes.
        wait_until(lambda: notify(b'{ "command": "show_ui" }') and self.windows(), "a window", 30)
        deadline = time.monotonic() + 60
        while (windows := self.windows()) and time.monotonic() < deadline:
            with contextlib.suppress(*GONE):
                self.desktop.screen.press("Escape")
                windows[-1].close()
        # Qt ends the threads of its own pool when they have had nothing to do for half a minute.
        wait_until(lambda: not any("pooled" in name for name in self.thread_names()), "Qt's threads to end", 90)
        with contextlib.suppress(NotInTime):  # what lingers ends in time
            wait_until(lambda: resources_at_rest(self.agent) == wanted or not wanted, "the same as before", 30)
        return resources_at_rest(self.agent), resident_mib(self.agent)

    def thread_names(self):
        for thread in Path(f"/proc/{self.agent.pid}/task").iterdir():
            with contextlib.suppress(OSError):  # it has ended since
                yield (thread / "comm").read_text()

    def act(self, name, turn):
        chance = random.Random(f"{self.seed} {name}")
        while not self._ended.is_set():
            if self._busy.wait(0.1):
                with self._acting:
                    try:
                        turn(chance)
                        self.turns[name] += 1
                    except Exception as error:
                        if name in ("copies", "service") or not isinstance(error, GONE):
                            self.failures.append(f"{name}: {traceback.format_exc()}")

    def restart_service(self, how, *lines):
        self.service.signal(how)
        self.service.wait()
        self.service = self.noted(start_service(self.desktop, *lines))

    def serve(self, chance):
        lines = [(line, 0.2) for line in chance.choices(LINES, k=5)]
        if chance.random() < 0.3:
            lines.append((f"state {chance.choice((3, 7))}", 4))
        if chance.random() < 0.3:
            lines += [(f"fault {chance.choice(FAULTS)}", 2), ("fault none", 0)]
        for line, seconds in lines:
            self.service.send(line)
            time.sleep(chance.uniform(0, seconds))
        if chance.random() < 0.1:
            self.restart_service(chance.choice((signal.SIGKILL, signal.SIGTERM)))

    def storm(self, chance):
        for _ in range(chance.randrange(1, 200)):
            message, wanted, _ = chance.choices(MESSAGES, [weight for *_, weight in MESSAGES])[0]
            try:
                answer = notify(message)
            except TimeoutError:
                answer = b"with silence"
            except OSError:
                answer = b""
            self.turns["answered" if answer == wanted else "thrown out"] += 1
            if answer not in (wanted, b""):
                self.failures.append(f"{message} was answered {answer}")
        time.sleep(chance.uniform(0, 2))

    def bring_peers(self, chance):
        peers = start_neighbour(self.desktop, "peers", chance.choice(list(KINDS)), AGENT_SOCKET)
        time.sleep(chance.uniform(0, 3))
        peers.stop()

    def start_copy(self, chance):
        copy = self.noted(self.desktop.start([program(self.desktop, "fv2-agent")], {"FV2_LOG_LEVELS": "release"}))
        assert copy.wait(30) == 0, "a second copy failed"
        time.sleep(chance.uniform(0, 4))

    def windows(self):
        """The agent's, minimised ones included."""
        found, screen = [], self.desktop.screen
        for number in screen.root_property("_NET_CLIENT_LIST"):
            with contextlib.suppress(XError):
                if (window := Window(screen, number)).pid() == self.agent.pid:
                    found.append(window)
        return found

    def use(self, chance):
        """One move of the user, or of the desktop."""
        self.turns["user"] += 1
        screen, moves = self.desktop.screen, {
            lambda: screen.press(*chance.choices(KEYS, k=3)): 8,
            lambda: self.click(chance): 4,
            lambda: self.enter_password(chance): 4,
            lambda: self.item.choose(chance.choice([entry.label for entry in self.item.menu()])): 2,
            lambda: [chance.choice((each.close, each.minimise, each.activate))() for each in self.windows()]: 1,
            lambda: self.change_desktop(chance.randrange(3), chance.random() < 0.7, chance.choice((True, False))): 1}
        chance.choices(list(moves), moves.values())[0]()

    def click(self, chance):
        for window in self.windows()[-1:]:
            window.click(chance.randrange(-400, 400), chance.randrange(-300, 300), chance.choice((1, 1, 1, 3)))

    def enter_password(self, chance):
        dialog = PasswordDialog(self.desktop, self.agent)
        for window in [] if dialog.alerts() else dialog.windows():
            window.activate()
            self.desktop.screen.press("ctrl+a")
            self.desktop.screen.keyboard.type(chance.choice((self.desktop.account.password, "wrong", "")))
            self.desktop.screen.press("Return")

    def change_desktop(self, scheme, active, quiet):
        self.portal.set_color_scheme(scheme)
        self.login.set_active(active)
        set_do_not_disturb(self.desktop, quiet)


def main():
    seed = int(os.environ.get("FV2_SEED", random.randrange(1 << 32)))
    print(f"FV2_SEED={seed}", flush=True)
    for sanitizer, option in OPTIONS.items():
        os.environ[f"{sanitizer}_OPTIONS"] = os.environ.get(f"{sanitizer}_OPTIONS", "") + f":{option}"
    soak = Soak(sys.argv[2], seed)
    try:
        soak.run(float(sys.argv[1]) * 60)
    except NotInTime:
        soak.failures.append(traceback.format_exc())
        soak.read_lines()
    print("\n".join(["FAILED:", *soak.failures] if soak.failures else ["passed"]))
    return 1 if soak.failures else 0


if __name__ == "__main__":
    sys.exit(main())
