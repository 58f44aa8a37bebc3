# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""What can be learnt of a running program from outside without its help: what lies in its memory, how long its main
thread keeps others waiting."""

import array
import contextlib
import ctypes
import os
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

#: Opens a process's memory at once, and looks for pieces of a text in it whenever it is given one.
EARLY_READER = """
import os, sys
pid, page, span = sys.argv[1], os.sysconf("SC_PAGE_SIZE"), 1 << 22
memory = os.open(f"/proc/{pid}/mem", os.O_RDONLY)
areas = [[int(number, 16) for number in line.split()[0].split("-")] for line in open(f"/proc/{pid}/maps")
         if "vsyscall" not in line]
print("opened", flush=True)
for text in map(str.strip, sys.stdin):
    pieces, found, place = [text[at:at + 6].encode() for at in range(len(text) - 5)], 0, areas[0][0]
    for start, end in areas:
        # What is mapped later lies in a gap, if not in one of gigabytes.
        place = place if start - place < 1 << 30 else start
        while place < end:
            try:
                data = os.pread(memory, span, place)
            except OSError:
                data = b""
            found += any(piece in data for piece in pieces)
            place += max(page, len(data))
    print("found", found, flush=True)
"""

#: Read at once; a text that lies across two pieces is found as well.
PIECE = 1 << 22
PAGE = os.sysconf("SC_PAGE_SIZE")
DBUS = "org.freedesktop.DBus"
BEAT_SECONDS = 0.02


def memory_of(pid):
    """The writable memory of a process, in pieces. As root, or of a child of ours while it lets itself be read."""
    with open(f"/proc/{pid}/maps", encoding="utf-8") as maps, open(f"/proc/{pid}/mem", "rb", buffering=0) as memory, \
            open(f"/proc/{pid}/pagemap", "rb", buffering=0) as pagemap:
        for line in maps:
            start, end = (int(number, 16) for number in line.split(maxsplit=1)[0].split("-"))
            if line.split()[1].startswith("rw"):
                for first, last in used_spans(pagemap, start, end):
                    for place in range(first, last, PIECE):
                        with contextlib.suppress(OSError):  # pages that are there for a device, or have just gone
                            memory.seek(place)
                            yield memory.read(min(PIECE + 1024, last - place))


def used_spans(pagemap, start, end):
    """The parts of an area of memory that were ever written to, in memory or in swap."""
    pagemap.seek(start // PAGE * 8)
    spans = []
    for number, entry in enumerate(array.array("Q", pagemap.read((end - start) // PAGE * 8))):
        if entry >> 62:
            place = start + number * PAGE
            if spans and spans[-1][1] == place:
                spans[-1][1] = place + PAGE
            else:
                spans.append([place, place + PAGE])
    return spans


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


def has_secret_pages():
    """Whether programs can have memory here that the kernel hands out to nobody."""
    descriptor = ctypes.CDLL(None).syscall(447, 0)  # memfd_secret, on all architectures
    if descriptor >= 0:
        os.close(descriptor)
    return descriptor >= 0


class EarlyReader:
    """Another process of a desktop's user, which has opened a process's memory before there was anything to hide."""

    def __init__(self, desktop, pid):
        self._reader = desktop.start(["/usr/bin/python3", "-c", EARLY_READER, pid], name="early reader")
        self._reader.expect("^opened")

    def finds(self, text):
        """Whether it reads any six characters of the text in a row."""
        self._reader.send(text)
        return self._reader.expect(r"^found (\d+)", 60).group(1) != "0"


def seconds_of(ask, *arguments):
    started = time.monotonic()
    ask(*arguments)
    return time.monotonic() - started


def resident_mib(program):
    """How much memory a program has in use."""
    pages = int(Path(f"/proc/{program.pid}/statm").read_text(encoding="utf-8").split()[1])
    return pages * PAGE / (1 << 20)


def thread_of(pid, name=None):
    """A process's thread of that name, or its main thread; for busy_seconds_of."""
    threads = Path(f"/proc/{pid}/task").iterdir()
    return next(thread for thread in threads
                if (thread.name == str(pid) if name is None else (thread / "comm").read_text() == name + "\n"))


def busy_seconds_of(threads, ask, *arguments):
    """The same without the time for which one of the threads was ready to run and had no processor to run on."""
    def starved():
        return sum(int((thread / "schedstat").read_text().split()[1]) for thread in threads) / 1e9

    before = starved()
    return seconds_of(ask, *arguments) - (starved() - before)


class Heartbeat:
    """Asks a tray item for its title, over and over, in a `with` block: Qt answers that on the program's main thread.
    `longest` is the longest time that an answer took, in seconds, without what a busy machine made us, the bus, the X
    server and that thread wait; `when` is the time of day after it. `longest_of_bus` is the same of the bus itself,
    waits and all."""

    def __init__(self, desktop, item, program):
        self.longest, self.when, self.longest_of_bus, self.beats = 0.0, None, 0.0, 0
        self._address, self._item = desktop.env["DBUS_SESSION_BUS_ADDRESS"], item
        self._threads = [thread_of(program.pid), thread_of(desktop.server.pid)]
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
        daemon = bus.get_object(DBUS, "/org/freedesktop/DBus", introspect=False)
        self._threads += [thread_of(daemon.GetConnectionUnixProcessID(DBUS, dbus_interface=DBUS)),
                          Path(f"/proc/self/task/{threading.get_native_id()}")]
        try:
            while not self._done.wait(BEAT_SECONDS):
                self.longest_of_bus = max(self.longest_of_bus, seconds_of(bus.get_name_owner, DBUS))
                took, now = busy_seconds_of(self._threads, item.title), time.strftime("%H:%M:%S")
                if took > self.longest:
                    self.longest, self.when = took, now
                self.beats += 1
        except (dbus.DBusException, OSError) as failure:
            self._failure = failure
        finally:
            bus.close()
