# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Agents of many users on one machine: what one more of them costs in memory, and where that lies."""

import collections
import os
import re
import time
from pathlib import Path

from agent import AGENT_SOCKET, SERVICE_SOCKET, start_service
from desktop import Desktop
from start_and_memory import memory_mib, use_of_processor
from tray import tray_items
from waiting import wait_until

LARGEST = 8

#: Takes a folder of its own for /tmp, in which the desktop's folder is where it was.
IN_OWN_FOLDER = 'mount --rbind "$1" "$2/${1##*/}" && mount --rbind "$2" /tmp && exec "$3"'
MAPPING = re.compile(r"^[0-9a-f]+-[0-9a-f]+ (\S+) \S+ \S+ \d+ *(.*)$")
PRIVATE = re.compile(r"^Private_(?:Clean|Dirty): +(\d+) kB")


def start_one(desktop, program, number):
    """An agent that meets no other one: its folders, its socket and its place for the service's are its own."""
    own = desktop.folder / "agents" / str(number)
    for name in ("home", "run", desktop.folder.name):
        (own / name).mkdir(parents=True, mode=0o700)
    os.link(SERVICE_SOCKET, own / Path(SERVICE_SOCKET).name)
    command = ["unshare", "--mount", "sh", "-c", IN_OWN_FOLDER, "sh", desktop.folder, own, program]
    agent = desktop.start(command, {"HOME": str(own / "home"), "XDG_RUNTIME_DIR": str(own / "run")})
    wait_until(lambda: (own / Path(AGENT_SOCKET).name).exists(), "the agent's socket")
    return agent


def wait_for_rest(agents):
    def used():
        return [use_of_processor(agent.pid) for agent in agents]

    def rested():
        before = used()
        time.sleep(0.5)
        return used() == before

    wait_until(rested, "all agents to come to rest", 60)


def private_by_mapping(pid):
    """MiB of private pages by what they are mapped from."""
    found = collections.Counter()
    with open(f"/proc/{pid}/smaps", encoding="utf-8") as smaps:
        for line in smaps:
            if mapping := MAPPING.match(line):
                access, name = mapping.groups()
                group = Path(name).name or "anonymous: threads' stacks and heaps"
                if name.startswith("/"):
                    group += " (data)" if "w" in access else " (relocated)" if "x" not in access else " (code)"
            elif private := PRIVATE.match(line):
                found[group] += int(private.group(1)) / 1024
    return found


def run(table):
    count = 100 if table.rounds >= 15 else 20
    if os.geteuid() != 0:
        table.report(f"memory of one further agent of {count}", "needs root")
        return
    sums = []
    with Desktop() as desktop:
        start_service(desktop)
        agents = []
        for number in range(count):
            agents.append(start_one(desktop, table.build / "fv2-agent", number))
            if len(agents) in (count // 2, count):
                wait_until(lambda: len(tray_items(desktop.bus)) == len(agents), "all tray items", 60)
                wait_for_rest(agents)
                mappings = sum((private_by_mapping(agent.pid) for agent in agents), collections.Counter())
                sums.append((mappings.total(), sum(memory_mib(agent.pid)[1] for agent in agents)))
    private, proportional = ((all_ - half) / (count - count // 2) for half, all_ in zip(*sums))
    table.report(f"memory of one further agent of {count}",
                 f"private {private:.2f}, proportional {proportional:.2f} MiB")
    for name, size in mappings.most_common(LARGEST):
        table.report(f"  private pages of {name}", f"{size / count:.2f} MiB")
    files = sum(size for name, size in mappings.items() if name.endswith(")"))
    table.report("  private pages of all files together", f"{files / count:.2f} MiB")
