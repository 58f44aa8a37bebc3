#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Shows the agent at work without anybody at the screen: a private desktop with a real panel, the demo service, the agent.

Leads the service from state to state, checks over D-Bus and in the picture of the panel that the tray item follows, and
saves a picture of every state. Ends with 0 if everything was as it should be, otherwise says what was not."""

import argparse
import json
import signal
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path
from xml.etree import ElementTree

import dbus

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools/desktop"))

from desktop import Desktop  # noqa: E402
from tray import tray_items  # noqa: E402
from waiting import NotInTime, wait_until  # noqa: E402


@dataclass(frozen=True)
class Step:
    name: str
    about: str
    line: str  # for the service's standard input
    colour: str  # of the tray icon
    overall: str  # the traffic light that the tooltip tells in words


#: The scenario `encrypt`, led on by hand as nobody types the password, and what comes after it.
STEPS = (
    Step("unencrypted", "the disk is not encrypted", "", "yellow", "YELLOW"),
    Step("password", "the password is needed", "next", "red", "RED"),
    Step("preparing", "the disk is being prepared", "next", "yellow", "YELLOW"),
    Step("encrypting", "the disk is being encrypted", "next", "yellow", "YELLOW"),
    Step("encrypted", "the disk is encrypted", "next", "green", "GREEN"),
    Step("syncing", "the service synchronises", "sync start", "blue", "YELLOW"),
    Step("synced", "it has synchronised", "sync ok", "green", "GREEN"),
    Step("unmanaged", "the encryption is managed elsewhere", "state 12", "red", "RED"),
)
#: Nobody should have to wait longer to learn that something hangs; seconds.
LONGEST_WALK = 110


def texts():
    """The English texts by identifier."""
    table = ElementTree.parse(ROOT / "src/resources/strings/fv2-agent_en.ts")
    return {message.get("id"): message.findtext("translation") for message in table.iter("message")}


def scenario_by_hand(folder):
    """The shipped scenario, but every step waits for the line `next`."""
    scenario = json.loads((ROOT / "service/scenarios/encrypt.json").read_text(encoding="utf-8"))
    for step in scenario["steps"][:-1]:
        step.pop("for", None)
        step["until"] = "next"
        if ramp := step.pop("ramp", None):
            step["set"].append(f"progress {sum(ramp) // 2}")
    file = folder / "encrypt.json"
    file.write_text(json.dumps(scenario), encoding="utf-8")
    return file


def out_of_time(*_):
    raise NotInTime(f"not done after {LONGEST_WALK} s")


def walk(build, pictures, panel):
    titles = texts()
    with Desktop(panel=panel) as desktop:
        service = desktop.start([build / "fv2-demo-service", "--scenario", str(scenario_by_hand(desktop.folder))])
        service.expect("^listening on ")
        agent = desktop.start([build / "fv2-agent"], {"FV2_LOG_LEVELS": "release,error"})
        # A copy that finds another one running hands over to it and ends.
        wait_until(lambda: not agent.running() or tray_items(desktop.bus), "the agent's tray item", 15)
        if not agent.running():
            raise NotInTime(f"the agent ended at once with {agent.wait()}:\n" + "\n".join(agent.lines))
        item = desktop.tray_item()
        print(f"The agent's item '{item.title()}' is in the {panel} panel's tray.")
        for number, step in enumerate(STEPS, 1):
            if step.line:
                service.send(step.line)
                # A step that leaves the icon's colour as it was would be true before the agent heard of it.
                service.expect("^status for uid ")
            wait_until(lambda: item.icon_colour() == step.colour, f"a {step.colour} icon when {step.about}")
            title = titles["IDUS_MGUI_STATUS_TITLE_" + step.overall]
            wait_until(lambda: item.tooltip().endswith(title), f"the tooltip '{title}' when {step.about}")
            wait_until(lambda: desktop.shown_colour() == step.colour, f"the panel to show {step.colour}")
            picture = pictures / f"{panel}-{number}-{step.name}.png"
            desktop.picture(picture)
            desktop.picture(pictures / f"tray-{panel}-{step.colour}.png", desktop.TRAY)
            print(f"{step.about}: {step.colour} icon, tooltip {item.tooltip()!r}, picture {picture.name}")
        status = agent.stop()
        if status != 0:
            raise NotInTime(f"the agent ended with {status} when asked to end")


def main():
    parser = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    parser.add_argument("build", type=Path, help="folder of the two programs")
    parser.add_argument("pictures", type=Path, help="folder for the pictures")
    parser.add_argument("--panel", choices=("light", "dark"), default="light")
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    signal.signal(signal.SIGALRM, out_of_time)
    signal.alarm(LONGEST_WALK)
    try:
        walk(options.build.resolve(), options.pictures.resolve(), options.panel)
    except (NotInTime, OSError, subprocess.SubprocessError, dbus.DBusException) as failure:
        print(f"The demo failed: {failure}", file=sys.stderr)
        return 1
    print(f"Done; the pictures are in {options.pictures}.")
    return 0


if __name__ == "__main__":
    sys.exit(main())
