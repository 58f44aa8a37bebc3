# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""From exec to a registered tray item, memory, and what an agent at rest uses; against a bare Qt tray program."""

import re
import subprocess
import time
from pathlib import Path

from agent import resources_at_rest, start_agent, start_service
from desktop import Desktop
from tray import WATCHER, tray_items
from waiting import wait_until

KIB = re.compile(r"^(Rss|Pss|Private_Dirty): +(\d+) kB", re.MULTILINE)


def memory_mib(pid):
    """Resident, proportional and written memory; the last are private pages that no file can give back."""
    text = Path(f"/proc/{pid}/smaps_rollup").read_text(encoding="utf-8")
    kib = {name: int(number) for name, number in KIB.findall(text)}
    return tuple(kib[name] / 1024 for name in ("Rss", "Pss", "Private_Dirty"))


def use_of_processor(pid):
    """How often the tasks of a process have given a processor back or lost it, and their milliseconds on one."""
    switches = nanoseconds = 0
    for task in Path(f"/proc/{pid}/task").iterdir():
        status = (task / "status").read_text(encoding="utf-8")
        switches += sum(map(int, re.findall(r"voluntary_ctxt_switches:\s+(\d+)", status)))
        nanoseconds += int((task / "schedstat").read_text(encoding="utf-8").split()[0])
    return switches, nanoseconds / 1e6


class Starts:
    """Starts tray programs on a desktop and times them by what the bus notes of its own clock."""

    def __init__(self, desktop):
        self._desktop = desktop
        rule = f"type='signal',interface='{WATCHER}',member='StatusNotifierItemRegistered'"
        self._monitor = desktop.start(["dbus-monitor", "--session", "--profile", rule])
        self._monitor.expect("NameAcquired")

    def start(self, program):
        """The program, its tray item registered, and the milliseconds that this took."""
        started = time.time()
        # Not by the desktop, whose helper would be timed as well; the desktop ends it all the same.
        running = subprocess.Popen([program], env=self._desktop.env)
        registered = self._monitor.expect(r"^sig\t([\d.]+)\t.*StatusNotifierItemRegistered").group(1)
        return running, (float(registered) - started) * 1000


def starts_and_memory(table):
    ours, bare = programs = table.build / "fv2-agent", table.build / "bare_tray"
    times, used, memory = ({program: [] for program in programs} for _ in range(3))
    with Desktop(system_bus=True) as desktop:
        start_service(desktop)
        starts = Starts(desktop)
        for _ in range(table.rounds):
            for program in programs:
                running, milliseconds = starts.start(program)
                resources_at_rest(running)
                times[program].append(milliseconds)
                used[program].append(use_of_processor(running.pid)[1])
                memory[program].append(memory_mib(running.pid))
                running.terminate()
                running.wait()
                wait_until(lambda: not tray_items(desktop.bus), "the item to go")
    table.against("exec to registered tray item, agent / bare Qt tray", times[ours], times[bare], "ms", 1.3)
    table.against("processor time until rest, agent / bare Qt tray", used[ours], used[bare], "ms", None)
    for index, kind in enumerate(("resident", "proportional")):
        table.against(f"{kind} memory without a window, agent / bare", [each[index] for each in memory[ours]],
                      [each[index] for each in memory[bare]], "MiB", 1.25)


def rest(table):
    """What an agent does whose service is well, while nobody wants anything."""
    seconds, qt_tidies_up = (60, 32) if table.rounds >= 15 else (15, 0)
    with Desktop(system_bus=True) as desktop:
        start_service(desktop)
        agent = start_agent(desktop, levels="")
        desktop.tray_item()
        resources_at_rest(agent)
        # Half a minute after a Qt program has painted its first picture, Qt looks once for pictures to throw away.
        time.sleep(qt_tidies_up)
        before = use_of_processor(agent.pid)
        time.sleep(seconds)
        switches, milliseconds = (after - then for after, then in zip(use_of_processor(agent.pid), before))
    table.at_most(f"wake-ups in {seconds} s at rest", f"{switches}", switches, 0)
    table.at_most(f"processor time in {seconds} s at rest", f"{milliseconds:g} ms", milliseconds, 0)


def options(table):
    """What answers without a display and without a service, from exec to exit."""
    with Desktop(panel=None) as desktop:
        for option in ("--version", "--check-config", "--status", "--quit"):
            times = []
            for _ in range(10 * table.rounds):
                started = time.perf_counter()
                subprocess.run([table.build / "fv2-agent", option], env=desktop.env, capture_output=True)
                times.append((time.perf_counter() - started) * 1000)
            table.at_most(f"fv2-agent {option}, fastest run", f"{min(times):.1f} ms", min(times), 50)


def run(table):
    starts_and_memory(table)
    options(table)
    rest(table)
