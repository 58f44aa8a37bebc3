# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""From a notification to the icon, how many notifications are answered, and what a storm of them leads to."""

import random
import time

from agent import STATE_COLOURS, listens, start_service
from desktop import Desktop
from tray import ITEM
from waiting import NotInTime, wait_until

#: The agent asks at most every 25 ms; who comes earlier would measure that.
PAUSE = 0.05
CHANGES = 10
ANSWERED = 10000
STORM, SMALL_STORM = 100000, 2000
MOST_REFRESHES = 400


def start(desktop, program):
    """One of the programs that take notifications, once it listens."""
    running = desktop.start([program])
    wait_until(listens, f"{program.name} to listen")
    return running


class Changes:
    """Changes the state of the service, and waits until the bus has noted a signal of a new icon."""

    def __init__(self, desktop, service):
        self._service, self._green = service, False
        rule = f"type='signal',interface='{ITEM}',member='NewIcon'"
        self._monitor = desktop.start(["dbus-monitor", "--session", "--profile", rule])
        self._monitor.expect("NameAcquired")

    def milliseconds(self):
        time.sleep(PAUSE)
        self._monitor.send("")  # what came before is no answer
        self._green = not self._green
        started = time.time()
        self._service.send("state 6" if self._green else "state 5")
        return (float(self._monitor.expect(r"^sig\t([\d.]+)\t.*NewIcon").group(1)) - started) * 1000


def notification_to_icon(table):
    programs = table.build / "fv2-agent", table.build / "bare_client"
    times = {program: [] for program in programs}
    with Desktop() as desktop:
        service = start_service(desktop)
        changes = Changes(desktop, service)
        for _ in range(table.rounds):
            for program in programs:
                service.send("next")
                running = start(desktop, program)
                service.expect("^status for uid", 30)  # it is told of changes from now on
                if program == programs[0]:
                    desktop.tray_item()
                changes.milliseconds()
                times[program] += [changes.milliseconds() for _ in range(CHANGES)]
                running.stop()
    table.against("notification to changed icon, agent / bare client", *times.values(), "ms", 1.5)


def answered(table):
    programs = table.build / "fv2-agent", table.build / "bare_echo"
    rates = {(program, senders): [] for senders in (1, 8) for program in programs}
    with Desktop() as desktop:
        start_service(desktop)
        for _ in range(table.rounds):
            for program in programs:
                running = start(desktop, program)
                for senders in (1, 8):
                    rates[program, senders].append(blast(desktop, table, senders, ANSWERED))
                running.stop()
    for senders in (1, 8):
        what = f"notifications answered a second, {senders} senders, agent / bare"
        table.against(what, *(rates[program, senders] for program in programs), "", 0.7, more_is_better=True)


def blast(desktop, table, senders, count):
    """The notifications that were answered in a second."""
    blaster = desktop.start([table.build / "blaster", senders, count])
    rate = float(blaster.expect(r"^\d+$", 120).group())
    blaster.stop()
    return rate


def storms(table):
    with Desktop() as desktop:
        service = start_service(desktop)
        start(desktop, table.build / "fv2-agent")
        item = desktop.tray_item()
        shown = 0
        for _ in range(table.rounds):
            refreshes, colour = storm(desktop, table, service, SMALL_STORM)
            shown += shows(item, colour)
        refreshes, colour = storm(desktop, table, service, STORM)
        shown += shows(item, colour)
    table.at_most(f"refreshes in a storm of {STORM}", str(refreshes), refreshes, MOST_REFRESHES)
    table.holds("storms after which the icon shows the last state", f"{shown} of {table.rounds + 1}", "all",
                shown == table.rounds + 1)


def storm(desktop, table, service, count):
    """Changes the state all through a storm; how often the agent asked for it, and the colour of the last one."""
    def asked():
        return sum(line.startswith("status for uid") for line in service.lines)

    before = asked()
    blaster = desktop.start([table.build / "blaster", 8, count])
    states = (1, 6, 11)
    while blaster.running():
        state = random.choice(states)
        service.send(f"state {state}")
        time.sleep(random.uniform(0, 0.1))
    blaster.expect(r"^\d+$")
    return asked() - before, STATE_COLOURS[state]


def shows(item, colour):
    try:
        return wait_until(lambda: item.icon_colour() == colour, f"a {colour} icon", 2)
    except NotInTime:
        return False


def run(table):
    notification_to_icon(table)
    answered(table)
    storms(table)
