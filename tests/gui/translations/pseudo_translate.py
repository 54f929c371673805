#!/usr/bin/env python3
"""Writes a pseudo-translation of a Qt Linguist file, for layout tests.

    pseudo_translate.py SOURCE.ts PSEUDO.ts

Every source text is translated into itself with its letters accented and
40 % longer, between the markers ⟦ and ⟧, so a test can tell a translated
text from one the translations never reached, and sees what a longer
language does to the layout. Placeholders (%1, %L1, %n, %Ln), markup
(<b>), file-name tokens ([FileName]) and the mnemonic's & stay as they are.
Plural messages get as many forms as the source file's language has.
"""

import math
import re
import sys
import xml.etree.ElementTree as ET

OPEN, CLOSE, PAD = "\u27e6", "\u27e7", "\u00b7"
ACCENTS = str.maketrans(
    "aceinosuyzAEINOUYCSZ",
    "áçéíñöšüýžÅÉÍÑÖÜÝÇŠŽ",
)
# Kept whole: placeholders, markup, name tokens and the mnemonic marker.
KEPT = re.compile(r"%L?(?:\d+|n)|<[^>]*>|\[[A-Za-z]+\]|&&|&")


def pseudo(text: str) -> str:
    lead = text[: len(text) - len(text.lstrip())]
    trail = text[len(text.rstrip()):]
    core = text.strip()
    if not core:
        return text
    pieces, shown, last = [], 0, 0
    for kept in KEPT.finditer(core):
        plain = core[last:kept.start()]
        pieces.append(plain.translate(ACCENTS))
        shown += len(plain)
        pieces.append(kept.group(0))
        last = kept.end()
    plain = core[last:]
    pieces.append(plain.translate(ACCENTS))
    shown += len(plain)
    # The markers count toward the 40 %; the rest is padding.
    padding = max(0, math.ceil(shown * 0.4) - 2)
    return lead + OPEN + "".join(pieces) + PAD * padding + CLOSE + trail


def main(source: str, target: str) -> None:
    tree = ET.parse(source)
    for message in tree.getroot().iter("message"):
        text = pseudo(message.find("source").text or "")
        translation = message.find("translation")
        translation.attrib.pop("type", None)
        if message.get("numerus") == "yes":
            for form in translation.findall("numerusform"):
                form.text = text
        else:
            translation.text = text
    tree.write(target, encoding="utf-8", xml_declaration=True)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
