#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Shows the agent at work without anybody at the screen: a private desktop with a real panel, the demo service, the agent.

With a dark panel all of the desktop is dark. Walks through the story of story.py, password included: one that this desktop alone knows. Checks over D-Bus and in the
picture of the panel that the tray item follows, and saves a picture of every step. Ends with 0 if everything was as it
should be, otherwise says what was not."""

import argparse
import signal
import subprocess
import sys
import time
from pathlib import Path

import dbus

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools/desktop"))

from accounts import installed, listed_account  # noqa: E402
from desktop import PANEL_HEIGHT, Desktop  # noqa: E402
from mocks import Portal  # noqa: E402
from story import STEPS, Player, scenario_by_hand  # noqa: E402
from tray import tray_items  # noqa: E402
from waiting import NotInTime, wait_until  # noqa: E402

#: Nobody should have to wait longer to learn that something hangs; seconds.
LONGEST_WALK = 110
#: What the settings portal says of the appearance.
PREFERS_DARK = 1


class SmallDesktop(Desktop):
    """Has just room for the agent's window, so that pictures show little else."""

    SIZE = (880, 640)
    TRAY = (200, PANEL_HEIGHT, SIZE[0] - 200, 0)


def out_of_time(*_):
    raise NotInTime(f"not done after {LONGEST_WALK} s")


def start(desktop, build):
    service = desktop.start([build / "fv2-demo-service", "--scenario", str(scenario_by_hand(desktop.folder))])
    service.expect("^listening on ")
    agent = desktop.start([installed(build / "fv2-agent", desktop)], {"FV2_LOG_LEVELS": "release,error"})
    # A copy that finds another one running hands over to it and ends.
    wait_until(lambda: not agent.running() or tray_items(desktop.bus), "the agent's tray item", 15)
    if not agent.running():
        raise NotInTime(f"the agent ended at once with {agent.wait()}:\n" + "\n".join(agent.lines))
    return service, agent


def walk(build, pictures, panel):
    with listed_account() as account, SmallDesktop(panel=panel, window_manager=True, accessible=True,
                                                   account=account) as desktop:
        if panel == "dark":
            Portal(desktop, PREFERS_DARK)
        service, agent = start(desktop, build)
        player = Player(desktop, service, agent)
        item = player.item
        print(f"The agent's item '{item.title()}' is in the {panel} panel's tray.")
        for number, step in enumerate(STEPS, 1):
            step.act(player)
            wait_until(lambda: item.icon_colour() == step.colour, f"a {step.colour} icon when {step.about}")
            title = player.says(step.overall)
            wait_until(lambda: title in item.tooltip(), f"the tooltip '{title}' when {step.about}")
            wait_until(lambda: desktop.shown_colour(desktop.TRAY) == step.colour, f"the panel to show {step.colour}")
            time.sleep(0.3)  # what has been decided still has to be painted
            picture = pictures / f"{panel}-{number:02}-{step.name}.png"
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
