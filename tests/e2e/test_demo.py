# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The demo without a display tells its story with the real programs."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from agent import BUILD

WALK = Path(__file__).resolve().parents[2] / "demo/walk.py"


class DemoTest(unittest.TestCase):
    def test_the_walk_tells_the_whole_story_and_leaves_its_pictures(self):
        folder = Path(self.enterContext(tempfile.TemporaryDirectory()), "pictures")
        done = subprocess.run([sys.executable, "-B", WALK, BUILD, folder, "--panel", "dark"], stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, timeout=120)
        self.assertEqual(done.returncode, 0, done.stdout)
        pictures = {file.name for file in folder.iterdir()}
        story = ("unencrypted", "password", "wrong", "later", "right", "preparing", "encrypting", "encrypted",
                 "sync-failed", "syncing", "about")
        self.assertLessEqual({f"dark-{number:02}-{name}.png" for number, name in enumerate(story, 1)}, pictures)
        for colour in ("green", "yellow", "red", "blue"):
            self.assertIn(f"tray-dark-{colour}.png", pictures)
            self.assertIn(f"{colour} icon", done.stdout)
