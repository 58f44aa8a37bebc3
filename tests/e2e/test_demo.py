# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The demo without a display tells the truth: it ends well with the real programs, and says what is wrong otherwise."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from agent import BUILD

WALK = Path(__file__).resolve().parents[2] / "demo/walk.py"
DEAF = "#!/bin/sh\necho listening on nothing\nexec sleep 60\n"
DEAD = "#!/bin/sh\necho no\nexit 7\n"


class DemoTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def walk(self, build, panel="light"):
        command = [sys.executable, "-B", WALK, build, self.folder / "pictures", "--panel", panel]
        return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=120)

    def test_the_walk_tells_the_whole_story_and_leaves_its_pictures(self):
        done = self.walk(BUILD, "dark")
        self.assertEqual(done.returncode, 0, done.stdout)
        pictures = {file.name for file in (self.folder / "pictures").iterdir()}
        story = ("unencrypted", "password", "wrong", "later", "right", "preparing", "encrypting", "encrypted",
                 "sync-failed", "syncing", "about")
        self.assertLessEqual({f"dark-{number:02}-{name}.png" for number, name in enumerate(story, 1)}, pictures)
        for colour in ("green", "yellow", "red", "blue"):
            self.assertIn(f"tray-dark-{colour}.png", pictures)
            self.assertIn(f"{colour} icon", done.stdout)

    def test_the_walk_says_what_is_wrong(self):
        cases = (
            ("an agent that ends", {"fv2-agent": DEAD}, "(?s)the agent ended at once with 7.*no"),
            ("a service that ends", {"fv2-demo-service": DEAD}, "fv2-demo-service ended before"),
            ("a service that does nothing", {"fv2-demo-service": DEAF}, "in vain for a yellow icon"),
        )
        for what, stand_ins, message in cases:
            with self.subTest(what), tempfile.TemporaryDirectory() as build:
                for name in ("fv2-agent", "fv2-demo-service"):
                    program = Path(build, name)
                    if name in stand_ins:
                        program.write_text(stand_ins[name], encoding="utf-8")
                        program.chmod(0o755)
                    else:
                        os.symlink(BUILD / name, program)
                done = self.walk(Path(build))
                self.assertEqual(done.returncode, 1, done.stdout)
                self.assertRegex(done.stdout, message)


if __name__ == "__main__":
    unittest.main()
