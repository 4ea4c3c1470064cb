#!/usr/bin/env python3
"""Fails unless each message of the catalogue is either named by a function and expected by a test with its whole text, or
listed in unused.txt, which names those that no function raises or returns.

    check_messages.py PROJECT_ROOT"""

import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
LIBRARIES = ("OVRIXMath", "OVRIXSerialization", "OVRIXUtil")
STRING = r'"(?:[^"\\\n]|\\.)*"'
NUMBERED_TEXT = re.compile(r"/\* (\d+) \*/((?:\s*" + STRING + ")+)")


def join(literals):
    """The text of string literals that stand beside each other."""
    return "".join(literal[1:-1] for literal in re.findall(STRING, literals))


def read_catalogue():
    """Texts by domain and number."""
    catalogue = {}
    for library in LIBRARIES:
        for source in (ROOT / library).rglob("*LogMessages.cpp"):
            domain = source.stem.removesuffix("LogMessages")
            for number, literals in NUMBERED_TEXT.findall(source.read_text()):
                catalogue[domain, int(number)] = join(literals)
    return catalogue


def read_sources(folder):
    """The texts of the C++ files that define no messages, without comments, by path."""
    paths = [path for path in folder.rglob("*") if path.suffix in (".h", ".cpp") and "LogMessages" not in path.name]
    return {path: re.sub(r"//[^\n]*", "", path.read_text()) for path in paths}


def read_arguments(source, start):
    """The arguments of a call whose opening bracket is in front of `start`."""
    arguments = [""]
    depth = 0
    for char in re.sub(STRING, lambda literal: " " * len(literal[0]), source)[start:]:
        if char in ")]}" and depth == 0:
            break
        depth += (char in "([{") - (char in ")]}")
        if char == "," and depth == 0:
            arguments.append("")
        else:
            arguments[-1] += char
    return [argument.strip() for argument in arguments]


def find_used():
    """The messages that functions name, as domain and number."""
    used = set()
    for library in LIBRARIES:
        for path, source in read_sources(ROOT / library).items():
            named = re.findall(r"\be(\w+?)(?:Message|Errors)(?:,|>\(|::domain>\(\s*\w+,)\s*(\d+)\b", source)
            # Code that the transforms of the plane and of space share.
            shared = re.findall(r"\bFamily::Messages,\s*(\d+)\b", source)
            named += [(domain, number) for domain in ("Transform2d", "Transform3d") for number in shared]
            if path.name == "NonLinearSolver.cpp":
                named += [("Optimization", number) for number in re.findall(r"\{eOS_\w+, (\d+)\}", source)]
            for call in re.finditer(r"\b(?:OVRIXSERIALIZATION_RAISE_UNLESS|raiseFailure)\(", source):
                arguments = read_arguments(source, call.end())
                if len(arguments) > 1 and arguments[1].isdigit():
                    named.append(("OVRIXSerialization", arguments[1]))
            used.update((domain, int(number)) for domain, number in named)
    return used


def find_expected(catalogue):
    """The messages whose whole texts tests expect."""
    literals = []
    for source in read_sources(ROOT / "tests").values():
        source = re.sub(r'R"\((.*?)\)"', lambda raw: '"' + raw[1].replace('"', r"\"") + '"', source)
        # What a test puts between two literals stands for a value.
        source = re.sub(r'"\s*\+[^";]*\+\s*"', "VALUE", source)
        literals += [join(run) for run in re.findall("(?:" + STRING + r"\s*)+", source)]

    def is_expected(text):
        parts = [re.escape(part) for part in re.split("%[dfs]", text)]
        pattern = re.compile(".*".join(parts), re.S)
        return any(pattern.fullmatch(literal) for literal in literals)

    return {message for message, text in catalogue.items() if is_expected(text)}


def main():
    catalogue = read_catalogue()
    unused = set()
    for line in (ROOT / "tests/messages/unused.txt").read_text().splitlines():
        domain, number = line.split()
        unused.add((domain, int(number)))
    used = find_used()
    expected = find_expected(catalogue)
    faults = [f"{message} is not in the catalogue" for message in sorted((used | unused) - set(catalogue))]
    faults += [f"{message} is used, but listed in unused.txt" for message in sorted(used & unused)]
    faults += [f"{message} is used by no function" for message in sorted(set(catalogue) - used - unused)]
    faults += [f"{message} is expected by no test: {catalogue[message]}" for message in sorted(used - expected)]
    print("\n".join(faults))
    sys.exit(bool(faults) or len(catalogue) == 0)


main()
