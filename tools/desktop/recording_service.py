# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""A service that wants a password and keeps the credentials that it is sent, which the demo service never does."""

import contextlib
import json
import os
import socket
import threading

PATH = "/tmp/orm_ui.sock"
REPLIES = {
    "get_token": {"success": True, "error_code": 0, "token": "a token"},
    "get_status": {"result": True, "error_code": 0, "status": {"state": 3, "sync_ok": 1}},
}


class RecordingService:
    """Serves in a `with` block. `credentials`: the parameters of what was sent, in order."""

    def __init__(self):
        self.credentials = []
        self._server = socket.socket(socket.AF_UNIX)

    def __enter__(self):
        with contextlib.suppress(FileNotFoundError):  # a killed service leaves it
            os.unlink(PATH)
        self._server.bind(PATH)
        os.chmod(PATH, 0o666)
        self._server.listen(20)
        threading.Thread(target=self._serve, name="recording service", daemon=True).start()
        return self

    def __exit__(self, *_):
        self._server.shutdown(socket.SHUT_RDWR)
        os.unlink(PATH)

    def _serve(self):
        while True:
            try:
                caller = self._server.accept()[0]
            except OSError:
                return self._server.close()
            with caller, contextlib.suppress(OSError):  # a caller that is slow or has gone
                caller.settimeout(5)
                request = self._read(caller)
                if request.get("command") == "set_user_credentials":
                    self.credentials.append(request["parameters"])
                caller.sendall(json.dumps(REPLIES.get(request.get("command"), {"result": True})).encode())

    @staticmethod
    def _read(caller):
        received = b""
        while chunk := caller.recv(4096):
            received += chunk
            try:
                return json.loads(received)
            except ValueError:  # not all of it yet
                pass
        return {}
