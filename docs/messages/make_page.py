#!/usr/bin/env python3
"""Makes the documentation's page of all messages: the texts come from the sources, the advice from advice.txt.

    docs/messages/make_page.py > messages.md

Run from the project's root folder. Fails where a message has no advice or advice has no message."""

import html
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).parent
NUMBERED_TEXT = re.compile(r'/\* (\d+) \*/((?:\s*"(?:[^"\\]|\\.)*")+)')

INTRODUCTION = r"""# Messages {#messages}

Every text that the libraries raise, return or log, by domain and number, in one table. In a text, <code>\%d</code>,
<code>\%f</code> and <code>\%s</code> stand for the values that are filled in. A raise is logged before it is
thrown, on the logger of the library; see the main page for the three outcomes of a check.
"""


def read_texts(source):
    """Texts of a source file by their number."""
    texts = {}
    for number, literals in NUMBERED_TEXT.findall(source.read_text()):
        texts[int(number)] = "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals))
    return texts


def read_advice():
    """Advice by domain and number."""
    advice = {}
    for line in (HERE / "advice.txt").read_text().splitlines():
        if line and not line.startswith("#"):
            key, text = line.split(": ", 1)
            domain, number = key.split()
            advice[domain, int(number)] = text
    return advice


def quote(text):
    """A text as it stands, within a table. Doxygen takes a percent sign for its own, also within a code span."""
    text = html.escape(text.replace(r"\"", '"').replace(r"\n", " ↵ "), quote=False)
    return "<code>" + text.replace("%", r"\%").replace("|", r"\|") + "</code>"


def main():
    advice = read_advice()
    print(INTRODUCTION)
    print("| Domain | Library | Class of its numbers |\n|---|---|---|")
    rows = []
    for library in ("OVRIXMath", "OVRIXSerialization", "OVRIXUtil"):
        for source in sorted(pathlib.Path(library).rglob("*LogMessages.cpp")):
            domain = source.stem.removesuffix("LogMessages")
            texts = read_texts(source)
            if sorted(texts) != list(range(len(texts))) or not texts:
                sys.exit(f"{source}: the numbers of the texts are not 0 to {len(texts) - 1}")
            class_name = re.search(r"struct (\w+)", source.with_suffix(".h").read_text())[1]
            print(f'| <a href="#{domain}">{domain}</a> | {library} | `{class_name}` |')
            for number, text in sorted(texts.items()):
                if (domain, number) not in advice:
                    sys.exit(f"{HERE}/advice.txt: advice on {domain} {number} is missing")
                place = f'<a id="{domain}"></a>' if number == 0 else ""
                rows.append(f"| {place}{domain} | {number} | {quote(text)} | {advice.pop((domain, number))} |")
    print("\n| Domain | Number | Text | What to do |\n|---|---|---|---|")
    print("\n".join(rows))
    if advice:
        sys.exit(f"{HERE}/advice.txt: no such message: {sorted(advice)}")


main()
