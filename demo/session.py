#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Runs the demo service and the agent in the user's own session until one of them ends or Ctrl+C is pressed.

usage: session.py <folder of the two programs>"""

import os
import shutil
import subprocess
import sys
import tempfile
import threading
from pathlib import Path

WELCOME = """
Look for the agent's icon in your tray: it follows the disk that the demo service plays, which is to be encrypted.
You will be asked for the password that you log in with. This computer checks it, and then it goes to the demo service
only, which neither keeps nor prints it, and encrypts nothing. Whatever else you type is answered as a wrong password.
Lines typed here go to the service: `next` for the next step, `state 6` for an encrypted disk, `sync start` for a
synchronisation, `help` for the rest. Ctrl+C ends both programs.
"""


def show(lines):
    for line in lines:
        print("service:", line, end="", flush=True)


def run(build):
    with tempfile.TemporaryDirectory(prefix="fv2-demo-") as folder:
        return play(build, Path(folder))


def lenient(build, folder):
    """A copy of the agent that hands passwords to a service that runs as the user, as the demo's does."""
    file = folder / "etc/fv2-agent/agent.conf"
    file.parent.mkdir(parents=True)
    file.write_text("[credentials]\nrootOnly=false\n", encoding="utf-8")
    shutil.copytree(build / "pam.d", folder / "pam.d")
    return shutil.copy(build / "fv2-agent", folder)


def play(build, folder):
    service = subprocess.Popen([build / "fv2-demo-service", "--scenario", "encrypt"], stdout=subprocess.PIPE, text=True)
    running = {service.pid: service}
    try:
        # The agent is started once it finds the service; otherwise it would begin with an alert.
        first = service.stdout.readline()
        show([first])
        if not first.startswith("listening on "):
            return service.wait() or 1
        agent = subprocess.Popen([lenient(build, folder)])
        running[agent.pid] = agent
        print(WELCOME, flush=True)
        threading.Thread(target=show, args=(service.stdout,), daemon=True).start()
        ended, status = os.wait()
        program = running.pop(ended)
        program.returncode = os.waitstatus_to_exitcode(status)
        if program is agent:
            print(f"The agent ended with {program.returncode}. Does another copy of it run in this session?")
        return 1 if program is agent else program.returncode
    except KeyboardInterrupt:
        return 0
    finally:
        for program in running.values():
            program.terminate()
            program.wait()


if __name__ == "__main__":
    sys.exit(run(Path(sys.argv[1]).resolve()))
