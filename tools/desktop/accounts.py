# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Accounts whose password is known: a real user of this computer, or ourselves with a password for the test alone.

    with account() as someone, Desktop(account=someone) as desktop:
        agent = desktop.start([installed(build / "fv2-agent", desktop)])
"""

import contextlib
import os
import pwd
import secrets
import shutil
import subprocess
import tempfile
from dataclasses import dataclass
from pathlib import Path

#: Checks against a list of names and passwords; of the test library for PAM.
LISTED = """auth     required pam_matrix.so passdb={passwords}
account  required pam_matrix.so passdb={passwords}
"""


@dataclass(frozen=True)
class Account:
    name: str
    password: str
    uid: int
    gid: int
    #: What takes the place of the PAM rules that belong to the agent, if anything does.
    rules: str = ""

    def become(self):
        """What setpriv needs to run a program as this user."""
        if self.uid == os.getuid():
            return []
        return ["--reuid", str(self.uid), "--regid", str(self.gid), "--init-groups"]


@contextlib.contextmanager
def real_account(password=None, rules=""):
    """A new user of this computer, who is gone after the block, or when this process has ended somehow. Needs root."""
    name = "fv2-" + secrets.token_hex(6)
    password = password or secrets.token_urlsafe(12)
    # Whom it tells of trouble may be the one who was killed.
    remover = subprocess.Popen(["sh", "-c", 'trap "" PIPE; cat; userdel --force "$0" 2>&1', name],
                               start_new_session=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    try:
        subprocess.run(["useradd", "--no-create-home", "--home-dir", "/nonexistent", "--shell", "/usr/sbin/nologin",
                        name], check=True, timeout=30)
        subprocess.run(["chpasswd"], input=f"{name}:{password}\n".encode(), check=True, timeout=30)
        entry = pwd.getpwnam(name)
        yield Account(name, password, entry.pw_uid, entry.pw_gid, rules)
    finally:
        said, _ = remover.communicate(timeout=30)
        if remover.returncode != 0:
            raise OSError(f"user {name} was not removed: {said}")


@contextlib.contextmanager
def listed_account(password=None, gate=None):
    """Ourselves. The password is one that only this account's programs know. gate: no check of it ends while there is
    a file of that path, for a minute at most."""
    password = password or secrets.token_urlsafe(12)
    name = pwd.getpwuid(os.getuid()).pw_name
    with tempfile.TemporaryDirectory(prefix="fv2-account-") as folder:
        passwords = Path(folder, "passwords")
        passwords.write_text(f"{name}:{password}:fv2-agent\n", encoding="utf-8")
        module = next(Path("/usr/lib").glob("*/pam_wrapper/pam_matrix.so"))
        rules = LISTED.replace("pam_matrix.so", str(module)).format(passwords=passwords)
        if gate:
            script = Path(folder, "wait")
            script.write_text(f"#!/bin/sh\nfor i in $(seq 600); do [ -e {gate} ] || exit 0; sleep 0.1; done\n",
                              encoding="utf-8")
            script.chmod(0o755)
            rules += f"auth required pam_exec.so quiet {script}\n"
        yield Account(name, password, os.getuid(), os.getgid(), rules)


def account(password=None):
    """A real one where that can be had."""
    return real_account(password) if os.getuid() == 0 else listed_account(password)


def installed(program, desktop):
    """A copy of a program that the desktop's user can run, with the rules beside it that its account goes by."""
    folder = desktop.folder / "installed"
    rules = folder / "pam.d/fv2-agent"
    if not rules.exists():
        rules.parent.mkdir(parents=True)
        rules.write_text(desktop.account.rules or (program.parent / "pam.d/fv2-agent").read_text(), encoding="utf-8")
    if not (folder / program.name).exists():
        shutil.copy(program, folder)
    return folder / program.name
