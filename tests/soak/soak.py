#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Everything at once, for as long as you like: a user who clicks and types, a service that changes, breaks and dies,
storms of notifications, hostile peers, second copies, a desktop that changes its appearance and its session.

usage: soak.py <build folder> <minutes> <preset>

Fails when a sanitizer finds something, when the agent ends by itself or not cleanly, when its descriptors, threads or
memory are not what they were after a fifth of the time (two minutes at the most), or when its main thread kept a caller
waiting. FV2_SEED repeats a run as far as the machine does.

Memory is judged without a sanitizer only: both checkers keep freed memory back and shadow what is used, so what the
process has says little there; leaks the address checker finds itself at the end. A checker also slows the agent down:
twice, its makers say, with addresses, five to fifteen times with threads."""

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

os.environ["FV2_BUILD"] = str(Path(sys.argv[1]).resolve())
PROJECT = Path(__file__).resolve().parents[2]
# libxkbcommon copies parts of texts that have no end, which it may.
for checker, options in (("ASAN", "strict_string_checks=0"), ("LSAN", f"suppressions={PROJECT}/tests/support/lsan.supp"),
                         ("TSAN", f"suppressions={PROJECT}/tests/support/tsan.supp")):
    os.environ[f"{checker}_OPTIONS"] = os.environ.get(f"{checker}_OPTIONS", "") + f":{options}"
sys.path[:0] = [str(PROJECT / "tools/desktop"), str(PROJECT / "tests/e2e")]

import dbus  # noqa: E402
from Xlib.error import XError  # noqa: E402

from accounts import listed_account  # noqa: E402
from agent import AGENT_SOCKET, notify, program, resources_at_rest, start_agent, start_service  # noqa: E402
from desktop import Desktop  # noqa: E402
from mocks import LoginSession, Portal, set_do_not_disturb  # noqa: E402
from neighbour import KINDS, start_neighbour  # noqa: E402
from password_dialog import PasswordDialog  # noqa: E402
from waiting import NotInTime, wait_until  # noqa: E402
from watching import Heartbeat, resident_mib  # noqa: E402

#: Seconds for which the main thread may keep a caller waiting.
STALL = {"release": 0.1, "asan": 0.3, "tsan": 0.5}
MIB = 2.0
FINDINGS = ("Sanitizer", "runtime error:")
#: What must have happened, or the run proves little; from the lines of agent, services and copies.
EVIDENCE = {"window shown": "FV2Window first paint", "page switched": "Switched content view",
            "password accepted": "credentials of uid", "password refused": "wrong password",
            "session left": "sessionResigned()", "second copy": "Found another instance",
            "refresh": "updateFromModel syncSource", "service's fault": "connection meets fault"}
FAULTS = ("silent", "slow 1", "garbage", "half", "close", "endless", "error 3")
KEYS = ("ctrl+1", "ctrl+2", "Up", "Down", "Tab", "Return", "Return", "Escape", "space", "ctrl+w", "a", "BackSpace")
MESSAGES = (b"{}", b'{ "command": "status_changed" }', b'{ "command": "show_ui" }', b"[" * 3000, b"\xff", b'{"a":7')
#: What may rightly go wrong for one who uses what has just gone.
GONE = (XError, dbus.DBusException, subprocess.CalledProcessError, AssertionError, OSError)


class Soak:
    """One desktop with one agent, and all who trouble it."""

    def __init__(self, preset, seed):
        self.preset, self.seed = preset, seed
        self.failures, self.seen, self.turns = [], Counter(), Counter()
        self._busy, self._ended = threading.Event(), threading.Event()
        self._programs, self._acting = [], threading.Semaphore(len(self.actors()))

    def actors(self):
        return {"service": self.serve, "storm": self.storm, "peers": self.bring_peers, "copies": self.start_copy}

    def run(self, seconds):
        with contextlib.ExitStack() as stack:
            account = stack.enter_context(listed_account())
            self.desktop = stack.enter_context(Desktop(window_manager=True, system_bus=True, account=account))
            self.login, self.portal = LoginSession(self.desktop), Portal(self.desktop)
            self.service = self.noted(start_service(self.desktop))
            self.agent = self.noted(start_agent(self.desktop, levels="release,error,ui"))
            self.item = self.desktop.tray_item()
            for name, turn in self.actors().items():
                threading.Thread(target=self.act, args=(name, turn), name=name, daemon=True).start()
            stack.callback(self._ended.set)
            with Heartbeat(self.desktop, self.item, self.agent) as heart:
                warm_up = min(120, seconds / 5)
                before, memory = self.trouble(warm_up)
                after, memory_after = self.trouble(seconds - warm_up, before)
            self._ended.set()
            self.agent.signal(signal.SIGTERM)
            status = self.agent.wait(30)
            self.read_lines()
            print(f"turns: {dict(self.turns)}\nseen: {dict(self.seen)}\n"
                  f"descriptors, threads: {before}, after {after}; memory: {memory:.1f} MiB, after {memory_after:.1f}\n"
                  f"longest wait for the main thread: {heart.longest * 1000:.0f} ms, until {heart.when}, in "
                  f"{heart.beats} beats")
            self.check(status == 0, f"the agent ended with {status}")
            self.check(after == before, "descriptors or threads are not what they were")
            self.check(self.preset != "release" or memory_after - memory <= MIB, "memory has grown")
            self.check(heart.longest <= STALL[self.preset], "the main thread stood still")
            for what in EVIDENCE:
                self.check(self.seen[what] > 0, f"never happened: {what}")

    def check(self, good, what):
        if not good:
            self.failures.append(what)

    def noted(self, program_):
        """Remembers a program whose lines are read."""
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
        self.give_passwords()
        chance, until = random.Random(f"{self.seed} {seconds}"), time.monotonic() + seconds
        self._busy.set()
        while time.monotonic() < until and not self.failures:
            with contextlib.suppress(*GONE):
                self.use(chance)
            self.read_lines()
            if not self.agent.running():
                raise SystemExit("\n".join([*self.failures, "the agent has ended by itself", *self.agent.lines]))
            if self.turns["user"] % 1000 == 0:
                (self.desktop.home / "logs/mac-fv2-ui.log").unlink(missing_ok=True)
        self._busy.clear()
        for _ in self.actors():
            self._acting.acquire(timeout=60)
        try:
            return self.rest(wanted)
        finally:
            self._acting.release(len(self.actors()))

    def give_passwords(self):
        """A wrong one and the right one, while nothing else goes on."""
        self.service.send("state 3")
        dialog = PasswordDialog(self.desktop, self.agent)
        dialog.enter("wrong")
        dialog.answer()
        dialog.enter(self.desktop.account.password)
        dialog.wait_until_gone(30)

    def rest(self, wanted):
        self.restart_service("state 6")  # whatever hangs on a silent one is let go
        self.login.set_active(True)
        self.portal.set_color_scheme(1)
        set_do_not_disturb(self.desktop, False)
        notify(b"{}")

        def closed():
            for window in self.windows():
                with contextlib.suppress(*GONE):
                    self.desktop.screen.press("Escape")
                    window.close()
            return not self.windows()

        wait_until(closed, "the windows to close", 60)
        # Qt ends the threads of its own pool when they have had nothing to do for half a minute.
        threads = Path(f"/proc/{self.agent.pid}/task")
        wait_until(lambda: not any("pooled" in (thread / "comm").read_text() for thread in threads.iterdir()),
                   "Qt's threads to end", 90)
        with contextlib.suppress(NotInTime):  # what lingers ends in time
            wait_until(lambda: resources_at_rest(self.agent) == wanted or not wanted, "the same as before", 30)
        return resources_at_rest(self.agent), resident_mib(self.agent)

    def act(self, name, turn):
        chance = random.Random(f"{self.seed} {name}")
        while not self._ended.is_set():
            if self._busy.wait(0.1):
                with self._acting:
                    try:
                        turn(chance)
                        self.turns[name] += 1
                    except (*GONE, ValueError):
                        if name == "copies" or self._busy.is_set() and name == "service":
                            self.failures.append(f"{name}: {traceback.format_exc()}")

    def restart_service(self, *lines):
        self.service.signal(random.choice((signal.SIGKILL, signal.SIGTERM)))
        self.service.wait()
        self.service = self.noted(start_service(self.desktop, *lines))

    def serve(self, chance):
        lines = [f"state {chance.choice((0, 1, 3, 3, 4, 5, 6, 7, 8, 10, 13, 99))}", f"progress {chance.randrange(101)}",
                 "sync " + chance.choice(("start", "ok", "fail", f"last {chance.randrange(1 << 31)}")),
                 f"onsync {chance.choice(('ok 0', 'ok 1', 'fail 1', 'refuse 5'))}", "notify", "uuid " + "x" * 40,
                 f"credentials {chance.choice(('accept', 'accept', 'refuse 7'))}",
                 f"policy postpone {chance.choice(('none', '0', '30'))}"]
        for line in chance.choices(lines, k=5):
            self.service.send(line)
            time.sleep(chance.uniform(0, 0.2))
        if chance.random() < 0.3:
            self.service.send(f"state {chance.choice((3, 7))}")
            time.sleep(chance.uniform(0, 4))
        if chance.random() < 0.3:
            self.service.send(f"fault {chance.choice(FAULTS)}")
            time.sleep(chance.uniform(0, 2))
            self.service.send("fault none")
        if chance.random() < 0.1:
            self.restart_service()

    def storm(self, chance):
        for _ in range(chance.randrange(1, 200)):
            with contextlib.suppress(OSError):
                notify(chance.choices(MESSAGES, (60, 20, 1, 5, 5, 5))[0])
        time.sleep(chance.uniform(0, 2))

    def bring_peers(self, chance):
        peers = start_neighbour(self.desktop, "peers", chance.choice(list(KINDS)), AGENT_SOCKET)
        time.sleep(chance.uniform(0, 2))
        peers.stop()
        time.sleep(chance.uniform(0, 5))

    def start_copy(self, chance):
        copy = self.noted(self.desktop.start([program(self.desktop, "fv2-agent")], {"FV2_LOG_LEVELS": "release"}))
        if copy.wait(30) != 0:
            raise ValueError("a second copy failed")
        time.sleep(chance.uniform(0, 4))

    def windows(self):
        return [window for window in self.desktop.screen.windows(self.agent.pid) if window.managed()]

    def use(self, chance):
        """One move of the user, or of the desktop."""
        self.turns["user"] += 1
        moves = {self.press_keys: 8, self.click: 4, self.enter_password: 4, self.choose: 2, self.leave_window: 1,
                 self.change_desktop: 1}
        chance.choices(list(moves), moves.values())[0](chance)

    def press_keys(self, chance):
        self.desktop.screen.press(*chance.choices(KEYS, k=3))

    def click(self, chance):
        for window in self.windows()[-1:]:
            place = window.geometry()
            window.click(chance.randrange(place.width), chance.randrange(place.height), chance.choice((1, 1, 1, 3)))

    def enter_password(self, chance):
        dialog = PasswordDialog(self.desktop, self.agent)
        for window in [] if dialog.alerts() else dialog.windows():
            window.activate()
            self.desktop.screen.press("ctrl+a")
            self.desktop.screen.keyboard.type(chance.choice((self.desktop.account.password, "wrong", "")))
            self.desktop.screen.press("Return")

    def choose(self, chance):
        self.item.choose(chance.choice([entry.label for entry in self.item.menu()]))

    def leave_window(self, chance):
        for window in self.windows():
            chance.choice((window.close, window.minimise, window.activate))()

    def change_desktop(self, chance):
        self.portal.set_color_scheme(chance.randrange(3))
        self.login.set_active(chance.random() < 0.7)
        set_do_not_disturb(self.desktop, chance.choice((True, False, None)))


def main():
    seed = int(os.environ.get("FV2_SEED", random.randrange(1 << 32)))
    print(f"FV2_SEED={seed}", flush=True)
    soak = Soak(sys.argv[3], seed)
    try:
        soak.run(float(sys.argv[2]) * 60)
    except NotInTime:
        soak.failures.append(traceback.format_exc())
        soak.read_lines()
    print("\n".join(["FAILED:", *soak.failures] if soak.failures else ["passed"]))
    return 1 if soak.failures else 0


if __name__ == "__main__":
    sys.exit(main())
