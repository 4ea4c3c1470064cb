#!/usr/bin/env python3
"""Chooses the seeds of a fuzz target anew from the inputs that its runs have found, from the root of the project:

    fuzz/choose_seeds.py TARGET [COUNT]

Of build/fuzz/found/TARGET those COUNT inputs are taken (12 unless told otherwise) that show most features together, one
after the other, and become fuzz/corpus/TARGET. A feature is a place of the code that is reached so many times.
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile


def read_features(target, found):
    """The features that each input shows, as libFuzzer notes them when it merges corpora."""
    with tempfile.TemporaryDirectory() as folder:
        merged = pathlib.Path(folder, "merged")
        merged.mkdir()
        control = pathlib.Path(folder, "control")
        program = f"build/fuzz/fuzz/fuzz_{target}"
        subprocess.run([program, "-set_cover_merge=1", f"-merge_control_file={control}", merged, found], check=True,
                       stderr=subprocess.DEVNULL)
        lines = control.read_text().splitlines()
    nb_files = int(lines[0])
    files = lines[2:2 + nb_files]
    features = {file: set() for file in files}
    for line in lines[2 + nb_files:]:
        kind, index, *shown = line.split()
        if kind == "FT":
            features[files[int(index)]].update(shown)
    return features


def choose(features, count):
    """Greedily: each input is the one that adds most, the shortest of equally good ones."""
    chosen = []
    known = set()
    while features and len(chosen) < count:
        best = max(features, key=lambda file: (len(features[file] - known), -pathlib.Path(file).stat().st_size, file))
        if not features[best] - known:
            break
        known |= features.pop(best)
        chosen.append(best)
    return chosen


def main():
    target = sys.argv[1]
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 12
    chosen = choose(read_features(target, pathlib.Path("build/fuzz/found", target)), count)
    corpus = pathlib.Path("fuzz/corpus", target)
    shutil.rmtree(corpus, ignore_errors=True)
    corpus.mkdir(parents=True)
    for number, file in enumerate(chosen, 1):
        shutil.copy(file, corpus / f"{number:02}.bin")


main()
