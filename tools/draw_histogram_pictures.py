#!/usr/bin/env python3
"""Draws the pictures of the guide to histograms as SVG files into a folder.

    tools/draw_histogram_pictures.py docs/pictures

What a picture shows is computed by the rules that the guide tells.
"""

import pathlib
import sys

from svg_picture import BLUE, FILL, INK, PALE, RED, Picture

NB_CLASSES = 4
WARM = "#f6d5c8"

# Populations of what lies below the interval, in its four classes and above it.
BELOW, INSIDE, ABOVE = 3, (2, 5, 4, 1), 2

# By policy: bins that count what lies below and above, bin of class 0, number of bins.
POLICIES = (
    ("eHOOBP_Ignored", None, None, 0, NB_CLASSES),
    ("eHOOBP_Nearest", 0, NB_CLASSES - 1, 0, NB_CLASSES),
    ("eHOOBP_Dedicated", 0, NB_CLASSES + 1, 1, NB_CLASSES + 2),
    ("eHOOBP_DedicatedUpper", NB_CLASSES, NB_CLASSES, 0, NB_CLASSES + 1),
)


class Bars:
    """Bars of a width over an axis of values, which begins at 0."""

    def __init__(self, picture, origin, width, unit):
        self.picture, self.origin, self.width, self.unit = picture, origin, width, unit

    def at(self, value, population):
        return self.origin[0] + self.width * value, self.origin[1] - self.unit * population

    def bar(self, value, begin, end, color, fill):
        """From one population to another over [value, value + 1]."""
        self.picture.polygon([self.at(value, begin), self.at(value, end), self.at(value + 1, end),
                              self.at(value + 1, begin)], color, fill)


def draw_policies():
    picture = Picture(930, 570)
    for i, (name, lower, upper, offset, nb_bins) in enumerate(POLICIES):
        left, top = 465 * (i % 2), 285 * (i // 2)
        bars = Bars(picture, (left + 110, top + 205), 62, 24)
        picture.text((left + 232, top + 26), name, bold=True)
        picture.line(bars.at(-1.35, 0), bars.at(NB_CLASSES + 1.35, 0), PALE)

        outside = [0] * nb_bins
        for bin_idx, population in ((lower, BELOW), (upper, ABOVE)):
            if bin_idx is not None:
                outside[bin_idx] += population
        for b in range(nb_bins):
            k = b - offset
            inside = INSIDE[k] if 0 <= k < NB_CLASSES else 0
            if inside:
                bars.bar(k, 0, inside, BLUE, FILL)
            if outside[b]:
                bars.bar(k, inside, inside + outside[b], RED, WARM)
            x, y = bars.at(k + 0.5, inside + outside[b])
            picture.text((x, y - 6), str(inside + outside[b]), size=14)
            x, y = bars.at(k + 0.5, 0)
            picture.text((x, y + 40), str(b), bold=True)
            if 0 <= k < NB_CLASSES:
                picture.text((x, y + 61), str(k), PALE)
        for value, text in ((0, "first"), (NB_CLASSES, "last")):
            x, y = bars.at(value, 0)
            picture.line((x, y), (x, y + 6), INK)
            picture.text((x, y + 19), text, size=13, italic=True)
        picture.text((left + 14, top + 245), "bin", anchor="start", size=14, bold=True)
        picture.text((left + 14, top + 266), "class", PALE, anchor="start", size=14)
    return picture


def find_strict_maxima(values):
    """As findLocalStrictExtrema() under eEBP_Exclude."""
    return [i for i in range(1, len(values) - 2) if values[i - 1] < values[i] > values[i + 1]]


def find_plateaus(values):
    """The ranges of findLocalExtrema() for maxima under eEBP_Exclude."""
    ranges = []
    begin = 0
    for end in range(1, len(values) + 1):
        if end == len(values) or values[end] != values[begin]:
            if begin > 0 and end < len(values) and values[begin - 1] < values[begin] > values[end]:
                ranges.append((begin, end - begin))
            begin = end
    return ranges


def reconstruct(values, factor):
    """The sequence that findLocalDilatedExtrema() searches."""
    marker = [value - factor for value in values]
    n = len(values)
    for i in list(range(1, n)) + list(range(n - 2, -1, -1)) + list(range(1, n)):
        neighbours = [marker[j] for j in (i - 1, i + 1) if 0 <= j < n]
        marker[i] = min(values[i], max([marker[i]] + neighbours))
    return marker


def draw_searches():
    values = (1, 2, 1, 3, 6, 5, 7, 4, 2, 2, 5, 5, 5, 3, 1, 1, 2, 2, 1, 4, 9, 6, 3, 4, 3, 1)
    factor = 3
    picture = Picture(930, 420)
    bars = Bars(picture, (60, 215), 26, 19)
    reconstructed = reconstruct(values, factor)
    for i, value in enumerate(values):
        bars.bar(i, 0, value, BLUE, FILL)
    steps = []
    for i, value in enumerate(reconstructed):
        steps += [bars.at(i, value), bars.at(i + 1, value)]
    picture.curve(steps, RED, 2.5)
    x, y = bars.at(len(values), 6)
    picture.text((x + 6, y - 8), "reconstructed", RED, anchor="start", size=14)
    picture.text((x + 6, y + 10), f"with factor {factor}", RED, anchor="start", size=14)

    rows = (("strict", [(i, 1) for i in find_strict_maxima(values)], INK),
            ("plateaus", find_plateaus(values), INK),
            ("dilated, 1", find_plateaus(reconstruct(values, 1)), INK),
            (f"dilated, {factor}", find_plateaus(reconstructed), RED))
    for row, (name, ranges, color) in enumerate(rows):
        y = 250 + 38 * row
        picture.line(bars.at(0, 0)[:1] + (y,), bars.at(len(values), 0)[:1] + (y,), PALE, 1)
        picture.text((bars.at(len(values), 0)[0] + 6, y + 5), name, color, anchor="start", size=14)
        for begin, length in ranges:
            left, right = bars.at(begin, 0)[0] + 3, bars.at(begin + length, 0)[0] - 3
            picture.polygon([(left, y - 7), (right, y - 7), (right, y + 7), (left, y + 7)], color, color, 1)
    picture.text((60, 403), "maxima under eEBP_Exclude", anchor="start", size=14)
    return picture


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: tools/draw_histogram_pictures.py FOLDER")
    folder = pathlib.Path(sys.argv[1])
    for name, picture in (("histogram_policies", draw_policies()), ("histogram_searches", draw_searches())):
        picture.save(folder / f"{name}.svg")


if __name__ == "__main__":
    main()
