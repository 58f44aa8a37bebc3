# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""The options that answer on the command line, without a display, alone and beside a running copy."""

import json
import shutil
import signal
import stat
import subprocess
import time
import unittest

import dbus
import jsonschema

from agent import BUILD, STATE_COLOURS, listens, start_agent, start_service
from desktop import Desktop
from waiting import wait_until

SCHEMA = json.loads((BUILD.parents[1] / "docs/status.schema.json").read_text(encoding="utf-8"))
LIGHTS = {"green": 0, "yellow": 1, "red": 2}
NOT_REACHED, NO_WAY = 3, 4
NO_COPY = "^fv2-agent: no copy of the agent runs$"

#: Options; what becomes of them without a copy and beside one: exit status, standard output and error.
TABLE = (
    (["--help"], (0, r"\AUsage: fv2-agent(.*\n)+.*--diagnose \[FILE\]", ""), None),
    (["-v"], (0, r"\Afv2-agent \d+\.\d+\.\d+\n\Z", ""), None),
    (["--status"], (3, r"\Ared: Your attention is needed\n  The encryption service is .*\n.*: Unknown\n\Z", ""),
     (1, r"\Ayellow: Please read the messages\n  Your disk is not encrypted: .*\n.*\n\Z", "")),
    (["--check-config"], (0, "", ""), None),
    (["--diagnose"], (0, r"\nrunning copy = no\n(.*\n)+tray's host = no answer\n",
                      ""), (0, r"\nrunning copy = yes\n(.*\n)+tray's host = true\n", "")),
    (["--sync"], (1, "", NO_COPY), (0, "", "")),
    (["--quit"], (1, "", NO_COPY), (0, "", "")),
)
MISUSED = (["--nonsense"], ["--a\nb"], ["-x"], ["file"], ["--json"], ["--status", "--quit"], ["--status=1"],
           ["--diagnose", "a", "b"], ["--background", "--show-window"], ["-session"])


class CommandLineTest(unittest.TestCase):
    def desktop(self, **how):
        self.env = (desktop := self.enterContext(Desktop(**how))).env.copy()
        del self.env["DISPLAY"]
        return desktop

    def answer(self, options, program=BUILD / "fv2-agent", **env):
        return subprocess.run([program, *options], env={**self.env, **env}, capture_output=True, text=True,
                              timeout=20)

    def expect(self, options, status, output, error, **env):
        with self.subTest(options=options):
            answer = self.answer(options, **env)
            self.assertEqual(answer.returncode, status, answer)
            for printed, pattern in ((answer.stdout, output), (answer.stderr, error)):
                self.assertRegex(printed, pattern or r"\A\Z")

    def status(self, **env):
        answer = self.answer(["--status", "--json"], **env)
        return answer.returncode, json.loads(answer.stdout)

    def test_each_option_without_a_copy_and_without_a_display(self):
        desktop = self.desktop(panel=None)
        for options, alone, _ in TABLE:
            self.expect(options, *alone)
        for options in MISUSED:
            self.expect(options, 2, "", r"\Afv2-agent: .+\n\Z")
        for options in ([], ["--background"]):
            self.expect(options, 5, "", r"\nfv2-agent: there is no display to show anything on\n\Z")
        self.assertFalse(listens(), "a copy was started")
        copy = shutil.copy(BUILD / "fv2-agent", desktop.settings.parents[2])  # reads the settings beside itself
        desktop.settings.write_text("[ui]\nlanguage=de\n")
        self.expect(["--status"], 3, "\n  Letzte Synchronisierung: ", "", program=copy)
        desktop.settings.write_text("[ui]\nlanguage=de\n[help]\nhost=h/i\ncolour=red\n")
        mistakes = "".join(f"{desktop.settings}:{line}: .+\n" for line in (4, 5))
        self.expect(["--check-config"], 1, rf"\A{mistakes}\Z", "", program=copy)

    def test_each_option_beside_a_running_copy_opens_no_window(self):
        desktop = self.desktop()
        service = start_service(desktop)
        agent = start_agent(desktop)
        item = desktop.tray_item()
        wait_until(lambda: item.icon_colour() == "yellow", "the icon")
        before = len(service.lines)
        for options, alone, beside in TABLE[:-2]:
            self.expect(options, *beside or alone)
        self.answer(["--status"])
        for options in (["--background"], ["-session", "id"]):
            self.expect(options, 0, "", "")
        asked = {line.split(" for uid ")[0] for line in service.lines[before:]}
        self.assertEqual(asked, {"status"}, "the running copy's subscription was touched")
        service.send("state 6")
        wait_until(lambda: item.icon_colour() == "green", "a notification to reach the running copy")
        for env, error in (({"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"}, "no session bus"), ({}, "")):
            for options, _, _ in TABLE[-2:] if env else TABLE[-2:-1]:
                self.expect(options, NO_WAY if error else 0, "", error, **env)
        service.expect("^sync of uid .*: accepted")
        with self.assertRaisesRegex(dbus.DBusException, "unknown action"):
            desktop.bus.get_object("org.fv2agent.Agent", "/org/fv2agent/Agent", introspect=False).ActivateAction(
                "other", dbus.Array([], "v"), dbus.Dictionary({}, "sv"), dbus_interface="org.freedesktop.Application")
        self.assertEqual(desktop.screen.windows(agent.pid), [])
        self.expect(["--show-window"], 0, "", "")
        desktop.screen.window(agent.pid)
        agent.signal(signal.SIGSTOP)
        started = time.monotonic()
        self.expect(["--quit"], NOT_REACHED, "", "does not answer")
        self.assertLess(time.monotonic() - started, 3)
        agent.signal(signal.SIGCONT)
        self.assertEqual(agent.wait(2), 0)
        service.expect("^unsubscribed uid")
        agent = start_agent(desktop)
        agent.expect("updateFromModel syncSource == Startup")
        service.send("fault silent")  # nobody hears the farewell, which takes half a second then
        service.expect("^fault silent")
        self.expect(["--quit"], 0, "", "")
        self.assertEqual(agent.wait(0.2), 0)

    def test_a_status_is_as_the_schema_says_in_every_state(self):
        desktop = self.desktop(panel=None)
        seen = []

        def checked(light, code, **env):
            returned, status = self.status(**env)
            jsonschema.validate(status, SCHEMA)
            self.assertEqual((status["light"], returned), (light, code), status)
            self.assertEqual(status.keys(), SCHEMA["properties"].keys())
            seen.append(status["state"]["name"])
            return status

        self.assertIsNone(checked("red", NOT_REACHED)["sync"])
        service = start_service(desktop, "version 5.1.0", "progress 42", "sync last 1764500000")
        for state, light in STATE_COLOURS.items():
            service.send(f"state {state}")
            service.expect(f"^state {state}$")
            status = checked(light, LIGHTS[light])
        self.assertEqual(set(seen), set(SCHEMA["properties"]["state"]["properties"]["name"]["enum"]))
        self.assertEqual((status["progress"], status["service"], status["agent"]["running"]),
                         (42, {"version": "5.1.0"}, False))
        self.assertEqual(status["sync"], {"ok": True, "active": False, "last": "2025-11-30T10:53:20Z"})
        for line, sync in (("sync fail", (False, False)), ("sync start", (False, True))):
            service.send(line)
            service.expect("^" + line)
            status, german = checked("yellow", 1), checked("yellow", 1, LANGUAGE="de")
            self.assertEqual((status["sync"]["ok"], status["sync"]["active"]), sync)
            ids, titles = ([[message[key] for message in told["messages"]] for told in (status, german)]
                           for key in ("id", "title"))
            self.assertEqual(ids[0], ids[1])
            self.assertNotEqual(titles[0], titles[1])
        for fault in ("garbage", "error 7", "close"):
            service.send(f"fault {fault}")
            service.expect("^fault")
            checked("red", NOT_REACHED)

    def test_a_diagnosis_is_its_users_alone_and_tells_no_secret(self):
        desktop = self.desktop(panel=None)
        start_service(desktop, "uuid 8A7C-hidden", "version 5.1.0")
        target, link, report = (desktop.folder / name for name in ("target", "link", "report"))
        target.write_text("mine")
        link.symlink_to(target)
        for taken in (target, link, desktop.folder / "missing/report"):
            self.expect(["--diagnose", str(taken)], 1, "", str(taken))
        self.assertEqual(target.read_text(), "mine")
        copy, home = shutil.copy(BUILD / "fv2-agent", desktop.settings.parents[2]), str(desktop.folder)
        self.expect(["--diagnose", str(report)], 0, "read it before you send it", "", program=copy, HOME=home)
        self.assertEqual(stat.S_IMODE(report.stat().st_mode), 0o600)
        text = report.read_text(encoding="utf-8")
        for part in ("identifier = 8A7C…\n", '"version": "5.1.0"', "orm_ui.sock: socket, owner root",
                     "\nrules = /etc/pam", "(~/installed/etc/"):
            self.assertIn(part, text)
        for secret in ("hidden", home, subprocess.check_output(["uname", "-n"], text=True).strip()):
            self.assertNotIn(secret, text)
