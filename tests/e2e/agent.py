# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The two programs under test, and what can be seen of them from outside."""

import os
import signal
import socket
from pathlib import Path

from accounts import installed
from waiting import wait_until

BUILD = Path(os.environ.get("FV2_BUILD", Path(__file__).resolve().parents[2] / "build/release"))
SERVICE_SOCKET = "/tmp/orm_ui.sock"
AGENT_SOCKETS = "/tmp/ormfv2_ui_{}.sock"
AGENT_SOCKET = AGENT_SOCKETS.format(os.getuid())
UNDERSTOOD = b'"{ "result": 0 }"'
NOT_UNDERSTOOD = b'"{ "result": 1 }"'

#: The colour of the tray icon in each state of the service, synchronisation aside.
STATE_COLOURS = {
    0: "red", 1: "yellow", 2: "yellow", 3: "red", 4: "yellow", 5: "yellow", 6: "green", 7: "yellow", 8: "yellow",
    9: "yellow", 10: "green", 11: "red", 12: "red", 13: "red", 99: "green",
}


def program(desktop, name):
    """The program of that name where the desktop's user can run it: with FV2_INSTALLED the agent in that folder."""
    if name == "fv2-agent" and "FV2_INSTALLED" in os.environ:
        return Path(os.environ["FV2_INSTALLED"]) / name
    return installed(BUILD / name, desktop) if desktop.account else BUILD / name


def start_agent(desktop, *options, levels="all", **env):
    """Starts the agent and returns once it listens on its own socket."""
    agent = desktop.start([program(desktop, "fv2-agent"), *options], {"FV2_LOG_LEVELS": levels, **env})
    path = AGENT_SOCKETS.format(desktop.uid)
    wait_until(lambda: not agent.running() or listens(path), "the agent's socket")
    return agent


def start_service(desktop, *lines):
    """Starts the service, as root if we are root, and has it told some lines before the agent asks."""
    service = desktop.start([BUILD / "fv2-demo-service"], as_us=True)
    service.expect("^listening on ")
    for line in (*lines, "next"):
        service.send(line)
    service.expect("^no scenario plays")  # what is said to the last line
    return service


def connected(path=AGENT_SOCKET):
    peer = socket.socket(socket.AF_UNIX)
    try:
        peer.connect(path)  # waits for a place in the backlog, which it would not with a time-out
    except OSError:
        peer.close()
        raise
    peer.settimeout(20)
    return peer


def listens(path=AGENT_SOCKET):
    try:
        connected(path).close()
        return True
    except OSError:
        return False


def notify(message):
    """Sends one message to the agent's socket and returns its whole answer."""
    with connected() as peer:
        try:
            peer.sendall(message)
        except BrokenPipeError:
            pass  # answered and closed before it had everything
        answer = b""
        while chunk := peer.recv(4096):
            answer += chunk
        return answer


def resources_at_rest(program):
    """The program's open descriptors and threads, once their numbers have stayed the same for a while. Timers that run
    are no leak: how many there are is the model's state."""
    readings = []

    def descriptors():
        links = (os.readlink(entry) for entry in os.scandir(f"/proc/{program.pid}/fd"))
        return sum("timerfd" not in link for link in links)

    def settled():
        try:
            readings.append((descriptors(), len(os.listdir(f"/proc/{program.pid}/task"))))
        except FileNotFoundError:  # closed while we looked
            return False
        return len(readings) >= 20 and len(set(readings[-20:])) == 1

    wait_until(settled, f"process {program.pid} to come to rest", 30)
    return readings[-1]


def end(program, number=signal.SIGTERM, seconds=1.0):
    """Sends a signal that ends the agent; returns its exit status, or raises when it takes longer than a second."""
    program.signal(number)
    return program.wait(seconds)
