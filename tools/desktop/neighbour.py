# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""A hostile process on the same machine. It runs from its text alone, as a user who may not read the project.

usage: squat <path>          serves the path, passes each caller a descriptor that lingers and says how much it sent
       peers <kind> <path>   keeps a hundred connections to it and says what it heard"""

import os
import socket
import struct
import sys
import time
from pathlib import Path

COUNT = 100
KEPT = []
#: What a peer sends when it has connected, and what on every later turn; without the latter it hangs up.
KINDS = {
    "silent": (b"", b""),
    "dribbling": (b"{", b" "),
    "hoarding": (b"[" * 31 * 2048, b""),
    "streaming": (b"x" * 65536, b"x" * 65536),
    "dying": (b'{ "command": "show_u', None),
}


def start_neighbour(desktop, *arguments, account=None):
    """Starts it as the account's user, or as the desktop's, and returns once it is at work."""
    text = Path(__file__).read_text(encoding="utf-8")
    neighbour = desktop.start(["/usr/bin/python3", "-c", text, *arguments], name=arguments[0], account=account)
    neighbour.expect("^at work")
    return neighbour


def squat(path):
    server = socket.socket(socket.AF_UNIX)
    server.bind(path)
    os.chmod(path, 0o666)
    server.listen(COUNT)
    print("at work", flush=True)
    while True:
        caller = server.accept()[0]
        pass_lingering(caller)
        print("caller sent", len(caller.recv(4096)), flush=True)
        caller.close()


def pass_lingering(peer):
    """Sends a byte and a TCP connection that its last owner can't close for an hour, as nobody reads what it holds."""
    server = socket.create_server(("127.0.0.1", 0))
    if os.fork() == 0:  # our own copy goes with a process, whose end waits for nothing
        passed = socket.create_connection(server.getsockname())
        passed.setblocking(False)
        while try_to(passed.send, b"x" * 65536):
            pass
        passed.setblocking(True)
        passed.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 3600))
        try:
            socket.send_fds(peer, [b"{"], [passed.fileno()])
        finally:
            os._exit(0)
    KEPT.append(server.accept()[0])


def peers(kind, path):
    first, again = KINDS[kind]
    connected, heard = [], {b""}
    while True:
        while len(connected) < COUNT:
            peer = socket.socket(socket.AF_UNIX)
            peer.connect(path)
            peer.setblocking(False)
            connected.append(peer)
            try_to(peer.send, first)
        if heard == {b""}:
            heard.add(None)
            print("at work", flush=True)
        for peer in connected[:]:
            answer = try_to(peer.recv, 4096)
            if answer not in heard:
                heard.add(answer)
                print("heard", answer.decode(), flush=True)
            if again is None or not again and answer == b"" or again and try_to(peer.send, again) == 0:
                peer.close()
                connected.remove(peer)
        time.sleep(0 if kind in ("streaming", "dying") else 0.02)


def try_to(call, argument):
    """None while it would have to wait, something empty when the other end has gone."""
    try:
        return call(argument)
    except BlockingIOError:
        return None
    except OSError:
        return b"" if call.__name__ == "recv" else 0


if __name__ == "__main__":
    {"squat": squat, "peers": peers}[sys.argv[1]](*sys.argv[2:])
