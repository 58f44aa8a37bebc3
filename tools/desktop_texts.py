#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
"""Fills the program's own texts into a file of the desktop, in every language that the program has.

usage: desktop_texts.py <template> <file> <table.ts>...

A line of the template may hold one @IDUS_...@. It is written in English and then once for each other language, marked
as that language's: Key[de]=... in a desktop entry, <tag xml:lang="de"> in XML. The commas of a list of key words become
the semicolons of a desktop entry."""

import re
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path
from xml.sax.saxutils import escape

#: Desktop entries name a country where the tables name a script.
COUNTRIES = {"zh_Hans": "zh_CN", "zh_Hant": "zh_TW"}


def texts_of(table):
    return {message.get("id"): message.findtext("translation", "")
            for message in ElementTree.parse(table).iter("message")}


def written(line, mark, text, language, is_xml):
    if is_xml:
        marked = line if language == "en" else re.sub(r"<(\w+)>", rf'<\1 xml:lang="{language.replace("_", "-")}">', line, count=1)
        return marked.replace(mark, escape(text))
    if line.startswith("Keywords="):
        text = text.replace(", ", ";") + ";"
    return (line if language == "en" else line.replace("=", f"[{COUNTRIES.get(language, language)}]=", 1)).replace(mark, text)


def main():
    template, target, *tables = map(Path, sys.argv[1:])
    languages = {table.stem.split("_", 1)[1]: texts_of(table) for table in tables}
    order = sorted(languages, key=lambda language: (language != "en", language))
    lines = []
    for line in template.read_text(encoding="utf-8").splitlines(keepends=True):
        found = re.search(r"@(IDUS_\w+)@", line)
        if found:
            lines += [written(line, found.group(), languages[each][found.group(1)], each, ".xml" in template.name) for each in order]
        else:
            lines.append(line)
    target.write_text("".join(lines), encoding="utf-8")


main()
