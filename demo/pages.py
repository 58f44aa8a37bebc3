#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Takes a picture of every page of the main window in every state, appearance, size and language.

usage: pages.py <folder of the two programs> <folder for the pictures>"""

import itertools
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools/desktop"))

from desktop import Desktop  # noqa: E402
from mocks import Portal  # noqa: E402
from waiting import wait_until  # noqa: E402

APPEARANCES = {"light": (2, (255, 255, 255)), "dark": (1, (34, 36, 39))}
SCALES = (1, 1.5, 2)
LANGUAGES = ("en", "de")
#: What the service says, by the traffic light that follows from it.
STATES = {"green": ["state 6"], "yellow": ["state 5", "progress 42"], "red": ["state 3", "sync fail"]}
PAGES = {"status": "ctrl+1", "about": "ctrl+2"}
#: A place on both pages where there is nothing but their background; of the window at 100 %.
BACKGROUND = (680, 440)


class LargeDesktop(Desktop):
    """Has room for the window at 200 %."""

    SIZE = (1600, 1200)


def session(build, pictures, appearance, scale, language):
    scheme, background = APPEARANCES[appearance]
    with LargeDesktop(window_manager=True) as desktop:
        portal = Portal(desktop, scheme)
        service = desktop.start([build / "fv2-demo-service"])
        service.expect("^listening on ")
        agent = desktop.start([build / "fv2-agent", "--show-window"],
                              {"FV2_LOG_LEVELS": "all", "LANGUAGE": language, "QT_SCALE_FACTOR": str(scale)})
        window = desktop.screen.window(agent.pid)
        place = [round(scale * length) for length in BACKGROUND]
        wait_until(lambda: window.colour(*place) == background, f"a {appearance} window")
        agent.expect("updateFromModel syncSource == Startup")
        for state, lines in STATES.items():
            for line in lines:
                service.send(line)
                agent.expect("updateModelSempahore - signal")
            for page, key in PAGES.items():
                desktop.screen.press(key)
                time.sleep(0.3)  # what has been decided still has to be painted
                window.picture(pictures / f"{page}-{state}-{appearance}-{round(100 * scale)}-{language}.png")
        agent.stop()
        portal.stop()


def main():
    build, pictures = (Path(argument).resolve() for argument in sys.argv[1:3])
    for combination in itertools.product(APPEARANCES, SCALES, LANGUAGES):
        session(build, pictures, *combination)
        print("pictures taken:", *combination)


if __name__ == "__main__":
    main()
