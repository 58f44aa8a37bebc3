#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Checks that every room knows only the rooms below it, and the few other rules of the house that a compiler can't see.

Prints one line per fault and exits with 1 if there is any; the project's root may be given as the only argument."""

import re
import sys
from pathlib import Path

# From the ground up. A room may include every room of a lower floor and none of its own floor.
FLOORS = (
    ("base",),
    ("logging",),
    ("comms", "resources"),
    ("model",),
    ("platform", "toolkit"),
    ("shell", "commands"),
    ("screens",),
    ("app",),
)
# Lower rooms that are none of a room's business all the same.
NEVER = {"toolkit": {"model"}}
# Rooms of plain C++ and POSIX.
GROUND = {"base", "logging", "comms", "resources", "model"}
# The demo service's rooms, and what each may include.
SERVICE = {
    "protocol": {"base", "comms"},
    "simulation": {"base", "comms", "protocol"},
}

# What a folder inside a room may include of the room's other folders; no other one may include any. The files beside
# the folders are everybody's.
FOLDERS = {("screens", "main"): {"status", "about", "setup"}}
# A widget and what screen readers see of it know each other.
PAIRS = {frozenset({"toolkit/NxTextAndLinksView", "toolkit/NxTextAndLinksAccessible"})}

MOST_LINES = 350
MOST_HEADER_LINES = 120

SOURCES = {".h", ".cpp"}
OWNED_FOLDERS = ("src", "service", "tests", "bench", "fuzz", "demo", "tools")
# REUSE-IgnoreStart
LICENCE = "SPDX-License-Identifier: Apache-2.0"
# REUSE-IgnoreEnd

COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)
QT_HEADER = re.compile(r"Q[A-Z]\w*(\.h)?$|Qt\w*/|q[a-z]+\.h$")
QT_WORD = re.compile(r"\bQ_[A-Z]+\b|\b(?:public|protected|private)\s+slots\s*:|\bsignals\s*:|\bemit\s+\w+\s*\(")
ROOM_LINK = re.compile(r"\bfv2_([a-z]+)\b")


def allowed_rooms():
    """Which rooms each room may include, its own left out."""
    allowed = {}
    below = set()
    for floor in FLOORS:
        for room in floor:
            allowed[room] = below - NEVER.get(room, set())
        below = below | set(floor)
    return allowed


def without_comments(text):
    return COMMENT.sub(lambda match: "\n" * match.group().count("\n"), text)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def folder_of(path):
    """The folder inside its room, if any, of a file that is named with its room."""
    return path.parts[1] if len(path.parts) > 2 else ""


def in_circles(uses):
    """Those of uses = {name: names} that can't be put into an order: what uses nothing of the rest, or is not used by it,
    is left out again and again."""
    left = dict(uses)
    while True:
        used = set().union(*(left[name] & left.keys() for name in left))
        kept = {name: names for name, names in left.items() if name in used and names & left.keys()}
        if len(kept) == len(left):
            return sorted(kept)
        left = kept


class House:
    """The rooms under one root, and the faults found in them."""

    def __init__(self, root):
        self.root = Path(root)
        self.faults = []
        self.allowed = allowed_rooms()

    def check(self):
        self._check_rooms(self.root / "src", self.allowed, "")
        self._check_rooms(self.root / "service", SERVICE, "service/")
        for folder in OWNED_FOLDERS:
            for file in sorted((self.root / folder).rglob("*")):
                if file.suffix in SOURCES | {".py"}:
                    self._check_licence(file)
        return self.faults

    def _fault(self, file, line, text):
        self.faults.append(f"{file.relative_to(self.root)}:{line}: {text}")

    def _check_rooms(self, folder, rooms, prefix):
        for entry in sorted(folder.glob("*")):
            if not entry.is_dir():
                # The service's own main may know both of its rooms; nothing else lives between the rooms.
                if prefix and entry.suffix in SOURCES:
                    self._check_source(entry, "", self.allowed["model"] | set(rooms), prefix)
                elif entry.suffix in SOURCES:
                    self._fault(entry, 1, "lies outside of every room")
            elif entry.name in rooms:
                self._check_room(entry, rooms[entry.name], prefix)
            elif any(file.suffix in SOURCES or file.name == "CMakeLists.txt" for file in entry.rglob("*")):
                self._fault(entry, 1, f"unknown room '{entry.name}'")

    def _check_room(self, room, allowed, prefix):
        for file in sorted(room.rglob("*")):
            if file.suffix in SOURCES:
                self._check_source(file, room.name, allowed, prefix)
            elif file.name == "CMakeLists.txt":
                self._check_links(file, room.name, allowed, prefix)
        self._check_circles(room, prefix)

    def _check_circles(self, room, prefix):
        """A header and its source count as one."""
        uses = {}
        for file in sorted(room.rglob("*")):
            if file.suffix in SOURCES:
                name = f"{room.name}/{file.relative_to(room).with_suffix('')}"
                code = without_comments(file.read_text(encoding="utf-8"))
                included = {header.removeprefix(prefix).rpartition(".")[0] for _, header in INCLUDE.findall(code)}
                uses.setdefault(name, set()).update(
                    other for other in included if other != name and frozenset({name, other}) not in PAIRS)
        circle = in_circles(uses)
        if circle:
            self._fault(room, 1, f"has a circle among {', '.join(circle)}")

    def _check_source(self, file, room, allowed, prefix):
        text = file.read_text(encoding="utf-8")
        most = MOST_HEADER_LINES if file.suffix == ".h" else MOST_LINES
        lines = text.count("\n")
        if lines > most:
            self._fault(file, lines, f"has {lines} lines, more than {most}")
        code = without_comments(text)
        for match in INCLUDE.finditer(code):
            kind, header = match.groups()
            line = line_of(code, match.start())
            if room in GROUND and not prefix and QT_HEADER.match(header):
                self._fault(file, line, f"includes {header}: '{room}' is a ground floor and knows no Qt")
            elif kind == '"':
                self._check_include(file, line, header, room, allowed, prefix)
        if room in GROUND and not prefix:
            for match in QT_WORD.finditer(code):
                self._fault(file, line_of(code, match.start()),
                            f"says {match.group()}: '{room}' is a ground floor and knows no Qt")

    def _check_include(self, file, line, header, room, allowed, prefix):
        target, slash, _ = header.removeprefix(prefix).partition("/")
        if not slash:
            # Beside rooms there are only what the build generates, and the headers of the service's main.
            generated = re.match(r"ui_\w+\.h$|\w+\.moc$|moc_\w+\.cpp$", header)
            if not generated and (room or not (file.parent / header).exists()):
                self._fault(file, line, f'includes "{header}" without naming its room')
        elif target != room and target not in allowed:
            self._fault(file, line, f'includes "{header}": \'{room or "service"}\' may not know \'{target}\'')
        elif target == room:
            own, other = folder_of(file.relative_to(self.root / (prefix or "src/"))), folder_of(Path(header))
            if own and other not in {"", own} | FOLDERS.get((room, own), set()):
                self._fault(file, line, f'includes "{header}": \'{room}/{own}\' may not know \'{room}/{other}\'')

    def _check_links(self, file, room, allowed, prefix):
        text = re.sub(r"#[^\n]*", "", file.read_text(encoding="utf-8"))
        for match in ROOM_LINK.finditer(text):
            target = match.group(1)
            if target in self.allowed and target != room and target not in allowed:
                self._fault(file, line_of(text, match.start()), f"links '{target}', which '{room}' may not know")
        if room in GROUND and not prefix:
            for match in re.finditer(r"\bQt6?(::|\b)\w*", text):
                self._fault(file, line_of(text, match.start()),
                            f"says {match.group()}: '{room}' is a ground floor and knows no Qt")

    def _check_licence(self, file):
        head = file.read_text(encoding="utf-8").splitlines()[:3]
        if not any(LICENCE in line for line in head) or not any("SPDX-FileCopyrightText:" in line for line in head):
            self._fault(file, 1, "has no SPDX head")


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent
    faults = House(root).check()
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
