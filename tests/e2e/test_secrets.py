# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What becomes of a typed password: it arrives unchanged, and nobody else finds it."""

import contextlib
import errno
import itertools
import os
import resource
import secrets
import signal
import time
import unittest
from pathlib import Path

from accounts import account, real_account
from agent import program, start_agent, start_service
from desktop import Desktop
from password_dialog import PasswordDialog
from recording_service import RecordingService
from waiting import wait_until
from watching import EarlyReader, ReadingAttempts, copies_in_memory, has_secret_pages

#: Of passwords, right and wrong ones in turn.
ROUNDS = 40
#: The usual rules without the two seconds of a wrong password.
QUICK = "auth required pam_unix.so nodelay\naccount required pam_unix.so\n"
YAMA = Path("/proc/sys/kernel/yama/ptrace_scope")
UNUSUAL = {
    "quotes, backslashes, controls of JSON": ' "q" \'s\' \\n\\u0041 {"password"=""} $(id) %s ',
    "umlauts, emoji, marks that stand over letters": "Äöüß€ñ 😀👍🏽 e\u0301",
    "long": "pAss wörd-" * 46,
}
#: How often a text is found that is nowhere in memory.
NONE = {"utf-8": 0, "utf-16-le": 0}


def pieces(text):
    """All of its parts of six characters."""
    return [text[start:start + 6] for start in range(len(text) - 5)]


class SecretsTest(unittest.TestCase):
    def start(self, who, service=True):
        self.doCleanups()  # what an earlier case has left
        self.account = self.enterContext(who)
        self.desktop = self.enterContext(Desktop(window_manager=True, account=self.account))
        self.service = start_service(self.desktop, "state 3") if service else self.enterContext(RecordingService())
        self.agent = start_agent(self.desktop)
        self.dialog = PasswordDialog(self.desktop, self.agent)

    def test_an_unusual_password_reaches_pam_and_service_unchanged(self):
        for what, password in UNUSUAL.items():
            with self.subTest(what):
                if os.getuid() != 0:
                    password = password.strip()  # a list of passwords knows no blanks around one
                self.start(account(password), service=False)
                self.dialog.enter(password)
                self.dialog.wait_until_gone()
                self.assertEqual(self.service.credentials, [{"username": self.account.name, "password": password}])

    def test_a_typed_password_is_written_nowhere(self):
        self.start(account(secrets.token_urlsafe(48)))  # longer than what a heap writes into what is given back
        self.dialog.enter(self.account.password)
        self.service.expect("^credentials of .* accepted")
        self.dialog.wait_until_gone()
        self.agent.expect("windowWillClose")
        files = [file for file in self.desktop.home.rglob("*") if file.is_file()]
        texts = {file: file.read_bytes() for file in (*files, *(Path(f"/proc/{self.agent.pid}", name)
                                                               for name in ("cmdline", "environ")))}
        texts["output"] = "\n".join([*self.agent.lines, *self.service.lines]).encode()
        for place in ("output", self.desktop.home / "logs/mac-fv2-ui.log"):
            self.assertIn(b"chg -> Password is = ***", texts[place])
        self.assertEqual([place for place, text in texts.items() if self.account.password.encode() in text], [])
        self.assertEqual(copies_in_memory(self.service.pid, *pieces(self.account.password)), NONE, "of the service")

    @unittest.skipIf(YAMA.exists() and YAMA.read_text() != "0\n", "no process may look at another one here")
    def test_no_other_process_of_the_user_can_look_while_it_is_typed(self):
        for limit, is_found in ((["prlimit", "--memlock=0:0"], True), ([], not has_secret_pages())):
            with self.subTest(limit):
                self.start(account())
                self.agent.stop()
                self.agent = self.desktop.start([*limit, program(self.desktop, "fv2-agent")], {"FV2_LOG_LEVELS": "all"})
                self.dialog = PasswordDialog(self.desktop, self.agent)
                self.dialog.window()
                attempts, early = (kind(self.desktop, self.agent.pid) for kind in (ReadingAttempts, EarlyReader))
                self.assertEqual(attempts.results(), ["read"] * 4, "without a password")
                self.assertFalse(early.finds(self.account.password))
                self.dialog.type(self.account.password)
                wait_until(lambda: sum("chg -> Password" in line for line in self.agent.lines) ==
                           len(self.account.password), "all of it")
                self.assertEqual(attempts.results(), [errno.EPERM] + [errno.EACCES] * 3)
                self.assertEqual(early.finds(self.account.password), is_found, "by who has opened the memory before")
                self.desktop.screen.press("ctrl+a", "BackSpace")
                wait_until(lambda: attempts.results() == ["read"] * 4, "the process to be as before")

    @unittest.skipIf(Path("/proc/sys/kernel/core_pattern").read_text()[:1] in "|/\n", "no core dumps in working folders")
    @unittest.skipIf(resource.getrlimit(resource.RLIMIT_CORE)[1] == 0, "no core dumps at all")
    def test_no_core_dump_is_left_while_it_is_typed(self):
        soft, hard = resource.getrlimit(resource.RLIMIT_CORE)
        resource.setrlimit(resource.RLIMIT_CORE, (hard, hard))
        try:
            for typed, number in itertools.product(("", "secret"), (signal.SIGSEGV, signal.SIGABRT)):
                with self.subTest(typed=typed, number=number):
                    self.start(account())
                    self.dialog.type(typed)
                    wait_until(lambda: sum("chg -> Password" in line for line in self.agent.lines) == len(typed), "it")
                    self.agent.signal(number)
                    self.assertEqual(self.agent.wait(30), -number)
                    cores = [file.name for file in self.desktop.home.iterdir() if file.name.startswith("core")]
                    self.assertEqual(len(cores), 0 if typed else 1, cores)
        finally:
            resource.setrlimit(resource.RLIMIT_CORE, (soft, hard))

    def test_a_second_after_each_answer_none_is_left_in_memory(self):
        for rules, rounds in ((None, 6), (QUICK, ROUNDS)) if os.getuid() == 0 else ((None, ROUNDS),):
            with self.subTest(rules=rules):
                self.start(real_account(rules=rules) if rules else account())
                self.control()
                item, slowest = self.desktop.tray_item(), {"right": 0.0, "wrong": 0.0}
                wrong = "not-the-password-" + self.account.password[::-1]
                for number in range(rounds):
                    what = "right" if number % 2 == 0 else "wrong"
                    self.service.send("state 3")
                    self.dialog.enter(self.account.password if what == "right" else wrong)
                    if what == "right":
                        self.service.expect("^credentials of .* accepted")
                    else:
                        self.agent.expect("verifyPassword failed: wrong password")
                    slowest[what] = max(slowest[what], self.seconds_until_gone(what, wrong))
                    if what == "right":
                        self.dialog.wait_until_gone()
                        self.service.send("state 1")
                        wait_until(lambda: item.icon_colour() == "yellow", "the agent to know")
                    else:
                        self.dialog.answer()
                print(f"{rounds} rounds; from an answer to a search that found none at most",
                      *(f"{seconds * 1000:.1f} ms ({what})" for what, seconds in slowest.items()))

    def control(self):
        """The search finds what is there, if it may: nobody but root looks into a process that holds a password."""
        if os.getuid() == 0:
            self.dialog.type(self.account.password)
            wait_until(lambda: "VmLck:\t       4 kB" in Path(f"/proc/{self.agent.pid}/status").read_text(), "a locked page")
            copies = 0 if "secretmem" in Path(f"/proc/{self.agent.pid}/maps").read_text() else 1
            wait_until(lambda: copies_in_memory(self.agent.pid, self.account.password) ==
                       {"utf-8": copies, "utf-16-le": 0}, "the one copy that is needed, unless it can't be read")
            self.desktop.screen.press("ctrl+a", "BackSpace")
        self.assertGreater(copies_in_memory(self.agent.pid, *pieces("Disk Encryption"))["utf-16-le"], 0)

    def seconds_until_gone(self, what, wrong):
        """How long after now a search began that found nothing."""
        if what == "right" and self.account.uid == os.getuid():
            return 0.0  # the list of a listed account is read by PAM, into the agent's memory
        wanted = pieces(self.account.password if what == "right" else wrong[-12:])
        answered, found = time.monotonic(), None
        while found != NONE:
            began = time.monotonic() - answered
            self.assertLess(began, 1, found)
            with contextlib.suppress(PermissionError):  # while it holds a password only root may look
                found = copies_in_memory(self.agent.pid, *wanted)
        return began

    @unittest.skipUnless(os.getuid() == 0, "needs a service of another user")
    def test_a_service_of_the_user_gets_no_password_unless_the_administrator_says_so(self):
        for root_only in (True, False):
            with self.subTest(root_only), real_account() as user, Desktop(window_manager=True, account=user) as desktop:
                if root_only:  # as it is unless something else is said
                    desktop.settings.unlink()
                service = desktop.start([program(desktop, "fv2-demo-service")])
                service.send("state 3")
                service.expect("^state 3")
                agent = start_agent(desktop)
                dialog = PasswordDialog(desktop, agent)
                dialog.enter(user.password)
                if root_only:
                    dialog.answer()
                    agent.expect(f"refused a stranger at /tmp/orm_ui.sock, uid:{user.uid}")
                    self.assertTrue(dialog.windows())
                else:
                    dialog.wait_until_gone()
                sent = [line for line in service.lines if line.startswith("credentials of")]
                self.assertEqual(len(sent), 0 if root_only else 1, service.lines)
