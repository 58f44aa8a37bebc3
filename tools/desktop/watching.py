# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What can be learnt of a running program from outside without its help: what lies in its memory, how long its main
thread keeps others waiting."""

import contextlib
import re
import threading
import time
from pathlib import Path

import dbus
import dbus.bus

from tray import TrayItem

#: Tries to read a process as debuggers and dumpers do, and says what each attempt met.
READER = """
import ctypes, sys
pid, libc = int(sys.argv[1]), ctypes.CDLL(None, use_errno=True)
class Span(ctypes.Structure):
    _fields_ = [("start", ctypes.c_void_p), ("size", ctypes.c_size_t)]
here = ctypes.create_string_buffer(8)
local, remote = Span(ctypes.addressof(here), 8), Span(int(sys.argv[2], 16), 8)
got = libc.process_vm_readv(pid, ctypes.byref(local), 1, ctypes.byref(remote), 1, 0)
answers = ["read" if got == 8 else ctypes.get_errno()]
for name in ("maps", "environ", "mem"):
    try:
        open(f"/proc/{pid}/{name}", "rb").close()
        answers.append("read")
    except OSError as error:
        answers.append(error.errno)
print("met:", *answers, sep=",")
"""

#: Read at once; a text that lies across two pieces is found as well.
PIECE = 1 << 22
BEAT_SECONDS = 0.02


def memory_of(pid):
    """The writable memory of a process, in pieces. As root, or of a child of ours while it lets itself be read."""
    with open(f"/proc/{pid}/maps", encoding="utf-8") as maps, open(f"/proc/{pid}/mem", "rb", buffering=0) as memory:
        for line in maps:
            start, end = (int(number, 16) for number in line.split(maxsplit=1)[0].split("-"))
            if line.split()[1].startswith("rw"):
                for place in range(start, end, PIECE):
                    with contextlib.suppress(OSError):  # pages that are there for a device, or have just gone
                        memory.seek(place)
                        yield memory.read(min(PIECE + 1024, end - place))


def copies_in_memory(pid, *texts):
    """How often any of the texts lies in a process's memory, by the way in which it is written there."""
    counts = {}
    for encoding in ("utf-8", "utf-16-le"):
        wanted = re.compile(b"|".join(re.escape(text.encode(encoding)) for text in texts))
        counts[encoding] = sum(match.start() < PIECE for piece in memory_of(pid) for match in wanted.finditer(piece))
    return counts


class ReadingAttempts:
    """What another process of a desktop's user meets that tries to read a process: its memory directly, then the files
    maps, environ and mem of /proc."""

    def __init__(self, desktop, pid):
        self._desktop, self._pid = desktop, pid
        with open(f"/proc/{pid}/maps", encoding="utf-8") as maps:
            self._place = maps.read().partition("-")[0]

    def results(self):
        """For each attempt "read" or the number of its error."""
        reader = self._desktop.start(["/usr/bin/python3", "-c", READER, self._pid, self._place], name="reader")
        return [word if word == "read" else int(word) for word in reader.expect("^met:,(.*)").group(1).split(",")]


def seconds_of(ask, *arguments):
    started = time.monotonic()
    ask(*arguments)
    return time.monotonic() - started


def starved_seconds(pid):
    """How long the main thread of a process has been ready to run without a processor to run on, so far."""
    return int(Path(f"/proc/{pid}/task/{pid}/schedstat").read_text(encoding="utf-8").split()[1]) / 1e9


class Heartbeat:
    """Asks a tray item for its title, over and over, in a `with` block: Qt answers that on the program's main thread.
    `longest` is the longest time that an answer took, in seconds, without what a busy machine made the thread wait;
    `longest_of_bus` is the same of the bus itself."""

    def __init__(self, desktop, item, program):
        self.longest, self.longest_of_bus, self.beats = 0.0, 0.0, 0
        self._address, self._item, self._pid = desktop.env["DBUS_SESSION_BUS_ADDRESS"], item, program.pid
        self._done = threading.Event()
        self._thread = threading.Thread(target=self._beat, name="heartbeat", daemon=True)
        self._failure = None

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, kind, *_):
        self._done.set()
        self._thread.join(30)
        if kind is None and (self._failure or not self.beats):
            raise AssertionError(f"no heartbeat after {self.beats} beats: {self._failure}")

    def _beat(self):
        bus = dbus.bus.BusConnection(self._address)
        item = TrayItem(bus, self._item.address)
        try:
            while not self._done.wait(BEAT_SECONDS):
                self.longest_of_bus = max(self.longest_of_bus, seconds_of(bus.get_name_owner, "org.freedesktop.DBus"))
                starved = starved_seconds(self._pid)
                took = seconds_of(item.title)
                self.longest = max(self.longest, took - (starved_seconds(self._pid) - starved))
                self.beats += 1
        except (dbus.DBusException, OSError) as failure:
            self._failure = failure
        finally:
            bus.close()
