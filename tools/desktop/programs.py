# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Child processes whose lines can be waited for, and which never outlive the one who started them."""

import os
import re
import signal
import subprocess
import threading
import time
from pathlib import Path

from waiting import NotInTime


class Program:
    """One running child. Its standard output and error are collected together, line by line.

    setpriv makes the kernel end the child when this process dies without a chance to clean up; the child leads its own
    process group, so that Ctrl+C reaches us alone and stopping it takes along what it started. It runs as us, or as the
    user of an account."""

    def __init__(self, command, env, name=None, account=None):
        self.name = name or Path(command[0]).name
        self.lines = []
        self._seen = 0
        self._ended = False
        self._changed = threading.Condition()
        become = account.become() if account else []
        self._process = subprocess.Popen(
            ["setpriv", *become, "--pdeathsig", "KILL", "--", *map(str, command)],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            text=True, errors="replace", bufsize=1, env=env, cwd=env.get("HOME"), start_new_session=True)
        self._reader = threading.Thread(target=self._collect, name=f"reader of {self.name}", daemon=True)
        self._reader.start()

    def _collect(self):
        with self._process.stdout as output:
            for line in output:
                with self._changed:
                    self.lines.append(line.rstrip("\n"))
                    self._changed.notify_all()
        with self._changed:
            self._ended = True
            self._changed.notify_all()

    @property
    def pid(self):
        return self._process.pid

    def running(self):
        return self._process.poll() is None

    def send(self, line):
        """Writes one line to the program's standard input; what it printed before no longer answers expect()."""
        with self._changed:
            self._seen = len(self.lines)
        try:
            self._process.stdin.write(line + "\n")
        except BrokenPipeError:
            raise NotInTime(f"{self.name} reads no more lines (sent: {line}){self._tail()}") from None

    def expect(self, pattern, seconds=10.0):
        """Waits for the next line that matches the regular expression, and returns the match."""
        wanted = re.compile(pattern)
        deadline = time.monotonic() + seconds
        with self._changed:
            while True:
                while self._seen < len(self.lines):
                    self._seen += 1
                    match = wanted.search(self.lines[self._seen - 1])
                    if match:
                        return match
                if self._ended:
                    raise NotInTime(f"{self.name} ended before it printed /{pattern}/{self._tail()}")
                if not self._changed.wait(deadline - time.monotonic()):
                    raise NotInTime(f"{self.name} did not print /{pattern}/ within {seconds:g} s{self._tail()}")

    def wait(self, seconds=10.0):
        """Waits for the program's own end and returns its exit status (negative: the signal that ended it)."""
        try:
            status = self._process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise NotInTime(f"{self.name} did not end within {seconds:g} s{self._tail()}") from None
        self._reader.join(seconds)
        return status

    def signal(self, number):
        self._process.send_signal(number)

    def stop(self, seconds=5.0):
        """Asks the program to end, insists after a while, and returns its exit status. May be called again."""
        if self.running():
            self.signal(signal.SIGTERM)
            try:
                self._process.wait(seconds)
            except subprocess.TimeoutExpired:
                pass
        try:
            os.killpg(self.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        status = self._process.wait()
        # A grandchild that left the group may still hold the pipe; the reader ends with it.
        self._reader.join(1)
        try:
            self._process.stdin.close()
        except BrokenPipeError:
            pass
        return status

    def _tail(self):
        return "".join(f"\n    {self.name}: {line}" for line in self.lines[-15:]) or f"\n    {self.name} printed nothing"
