#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Holds the string tables against each other and against the code that names their identifiers.

Usage: check_strings.py SOURCE_ROOT. Prints one line for every fault and then ends with status 1.
"""

import re
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

IDENTIFIER = re.compile(r"IDC?US_")
# A whole identifier in quotes, or between the tags of an interface file; patterns and bare prefixes don't match.
USED = re.compile(r'(?<=[">])(IDC?US_\w*[A-Za-z0-9])(?=["<])')
PLACEHOLDER = re.compile(r"%(?:L?\d+|[A-Za-z@])")
TAG = re.compile(r"<[^<>]*>")
LINK = re.compile(r'<A TYPE="COMMAND" COMMAND="[A-Z-]+" TITLE">([^<>]*)</A>')
#: Every table has it, though no message of ours has such a link.
WITHOUT_USE = {"IDUS_LINK_SHOW_ENTER_PASSWORD_DIALOG"}
WITH_PLACEHOLDER = {
    "IDUS_ORM_SM_PERCENT_FMT",
    "IDUS_ALERT_ASKED_AGAIN",
    "IDUS_SUPPORT_CONTACT",
}


def used_identifiers(src):
    """Every identifier in code and interface files, with the first place that names it."""
    used = {}
    for path in sorted(src.rglob("*")):
        if path.suffix not in {".h", ".cpp", ".ui"} or path.is_relative_to(src / "resources/strings"):
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            for name in USED.findall(line):
                used.setdefault(name, f"{path.relative_to(src.parent)}:{number}")
    for path in sorted((src.parent / "packaging").rglob("*.in")):
        for name in re.findall(r"@(IDUS_\w+)@", path.read_text(encoding="utf-8")):
            used.setdefault(name, str(path.relative_to(src.parent)))
    return used


def read_table(path, faults):
    """The texts and the sources of one language file, each by identifier."""
    texts, sources = {}, {}
    try:
        messages = ElementTree.parse(path).findall(".//message")
    except ElementTree.ParseError as error:
        faults.append(f"{path.name}: {error}")
        messages = []
    for message in messages:
        name = message.get("id", "")
        where = f"{path.name}: {name or 'message without id'}"
        if not IDENTIFIER.match(name):
            faults.append(f"{where}: not an identifier")
        if name in texts:
            faults.append(f"{where}: stands twice")
        translation = message.find("translation")
        if translation is None or len(translation) or translation.attrib:
            faults.append(f"{where}: no finished plain translation")
        texts[name] = "" if translation is None else translation.text or ""
        sources[name] = message.findtext("source")
    return texts, sources


def check_text(name, text, captions):
    """What is wrong with one text by itself."""
    if not text.strip():
        yield "empty"
    if IDENTIFIER.search(text):
        yield "holds an identifier"
    if PLACEHOLDER.findall(text) != (["%1"] if name in WITH_PLACEHOLDER else []):
        yield f"placeholders {PLACEHOLDER.findall(text)}"
    rest = LINK.sub("", text)
    if "<" in rest or ">" in rest:
        yield "mark-up that is not a whole command link"
    for caption in LINK.findall(text):
        if caption not in captions:
            yield f"link caption '{caption}' is none of the IDUS_LINK texts"


def check_like(text, other):
    """Where a text differs in shape from the same text of another language."""
    if sorted(PLACEHOLDER.findall(text)) != sorted(PLACEHOLDER.findall(other)):
        yield "other placeholders"
    if TAG.findall(text) != TAG.findall(other):
        yield "other mark-up"
    if re.search(r"\s*$", text).group() != re.search(r"\s*$", other).group():
        yield "other blanks at its end"


def check(root):
    faults = []
    paths = sorted((root / "src/resources/strings").glob("*.ts"))
    if len(paths) < 2:
        return [f"{len(paths)} language files in src/resources/strings: nothing to compare"]
    tables = {path.name: read_table(path, faults) for path in paths}
    faults += [f"{path.name}: not named fv2-agent_<language>.ts, so the program can't find it"
               for path in paths if not re.fullmatch(r"fv2-agent_\w+\.ts", path.name)]
    used = used_identifiers(root / "src")
    if not used:
        faults.append("no identifier found in src: is the search at fault?")
    known = set().union(*(texts for texts, _ in tables.values()))
    first_file, (first_texts, first_sources) = next(iter(tables.items()))
    for file, (texts, sources) in tables.items():
        captions = {text for name, text in texts.items() if name.startswith("IDUS_LINK_")}
        in_links = set().union(*map(LINK.findall, texts.values()))
        faults += [f"{file}: {name}: used nowhere" for name, text in texts.items()
                   if name not in WITHOUT_USE | set(used) and not (text in captions and text in in_links)]
        for name in sorted(known | set(used)):
            if name not in texts:
                faults.append(f"{file}: {name}: missing" + (f", used in {used[name]}" if name in used else ""))
                continue
            faults += [f"{file}: {name}: {fault}" for fault in check_text(name, texts[name], captions)]
            if name in first_texts:
                faults += [f"{file}: {name}: {fault} than {first_file}"
                           for fault in check_like(texts[name], first_texts[name])]
                if sources[name] != first_sources[name]:
                    faults.append(f"{file}: {name}: other source text than {first_file}")
    if not faults:
        print(f"{len(known)} texts in {len(tables)} languages, {len(used)} of them used in src")
    return faults


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    faults = check(Path(sys.argv[1]).resolve())
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
