#!/usr/bin/env python3
"""Draws the pictures of the guides to geometry and to transforms as SVG files into a folder.

    tools/draw_geometry_pictures.py docs/pictures

What a picture shows is computed by the formulas that the guides tell.
"""

import math
import pathlib
import sys

from svg_picture import BLUE, FILL, INK, PALE, RED, Picture


class Plane:
    """Axes x to the right and y upwards around an origin."""

    def __init__(self, picture, origin, unit):
        self.picture, self.origin, self.unit = picture, origin, unit

    def at(self, x, y):
        return self.origin[0] + self.unit * x, self.origin[1] - self.unit * y

    def axes(self, left, right, bottom, top, named=True):
        self.picture.arrow(self.at(left, 0), self.at(right, 0), PALE)
        self.picture.arrow(self.at(0, bottom), self.at(0, top), PALE)
        if named:
            x, y = self.at(right, 0)
            self.picture.text((x - 4, y + 18), "x", PALE, italic=True)
            x, y = self.at(0, top)
            self.picture.text((x - 12, y + 10), "y", PALE, italic=True)

    def arc(self, radius, start, end, centre=(0, 0), color=INK, headed=True, squeeze=1.0, turn=0.0):
        """Points of the arc; `squeeze` makes an ellipse of it whose axis is turned."""
        points = []
        for i in range(41):
            angle = start + (end - start) * i / 40
            x, y = radius * math.cos(angle), squeeze * radius * math.sin(angle)
            points.append(self.at(centre[0] + math.cos(turn) * x - math.sin(turn) * y,
                                  centre[1] + math.sin(turn) * x + math.cos(turn) * y))
        self.picture.curve(points, color, 1.5, headed)


class Space:
    """Axes y to the right, z upwards and x towards the reader, drawn to the lower left."""

    def __init__(self, picture, origin, unit):
        self.picture, self.origin, self.unit = picture, origin, unit

    def at(self, x, y, z):
        return (self.origin[0] + self.unit * (y - 0.55 * x), self.origin[1] - self.unit * (z - 0.42 * x))

    def axes(self, length=1.25):
        for tip, name, shift in (((length, 0, 0), "x", (-12, 8)), ((0, length, 0), "y", (2, 19)),
                                 ((0, 0, length), "z", (-13, 8))):
            self.picture.arrow(self.at(0, 0, 0), self.at(*tip), PALE)
            x, y = self.at(*tip)
            self.picture.text((x + shift[0], y + shift[1]), name, PALE, italic=True)

    def arc(self, a, b, angle, radius, color=RED, headed=True):
        """From the unit vector a towards the unit vector b."""
        points = []
        for i in range(41):
            t = angle * i / 40
            points.append(self.at(*(radius * (math.cos(t) * p + math.sin(t) * q) for p, q in zip(a, b))))
        self.picture.curve(points, color, 1.8, headed)


def draw_plane():
    picture = Picture(930, 300)

    plane = Plane(picture, (95, 215), 125)
    picture.text((155, 28), "Rotation", bold=True)
    plane.axes(-0.4, 1.35, -0.35, 1.35)
    theta = 0.7
    c, s = math.cos(theta), math.sin(theta)
    picture.arrow(plane.at(0, 0), plane.at(1, 0), INK, 2)
    picture.arrow(plane.at(0, 0), plane.at(c, s), BLUE, 2)
    plane.arc(0.5, 0.0, theta, color=RED)
    picture.text(plane.at(0.62, 0.2), "θ", RED, italic=True)
    picture.text(plane.at(c + 0.06, s + 0.09), "(cos θ, sin θ)", BLUE, anchor="start", size=14)
    picture.text((155, 286), "θ &gt; 0 turns x towards y", size=14)

    plane = Plane(picture, (385, 215), 125)
    picture.text((465, 28), "Line", bold=True)
    plane.axes(-0.35, 1.5, -0.35, 1.35)
    theta, rho = 0.75, 0.85
    c, s = math.cos(theta), math.sin(theta)
    foot = (rho * c, rho * s)
    picture.line(plane.at(foot[0] - 0.85 * s, foot[1] + 0.85 * c), plane.at(foot[0] + 0.95 * s, foot[1] - 0.95 * c), BLUE, 2)
    picture.arrow(plane.at(0, 0), plane.at(*foot), INK, 2)
    corner = 0.08
    picture.curve([plane.at(foot[0] - corner * c, foot[1] - corner * s),
                   plane.at(foot[0] - corner * c - corner * s, foot[1] - corner * s + corner * c),
                   plane.at(foot[0] - corner * s, foot[1] + corner * c)], INK, 1)
    plane.arc(0.38, 0.0, theta, color=RED)
    picture.text(plane.at(0.48, 0.17), "θ", RED, italic=True)
    picture.text(plane.at(0.5 * foot[0] - 0.12, 0.5 * foot[1] + 0.12), "ρ", italic=True)
    picture.text((465, 286), "x cos θ + y sin θ = ρ", size=14)

    plane = Plane(picture, (665, 245), 125)
    picture.text((780, 28), "Ellipse", bold=True)
    plane.axes(-0.15, 2.0, -0.1, 1.55)
    centre, theta, r1, r2 = (0.95, 0.72), 0.42, 0.78, 0.42
    plane.arc(r1, 0.0, 2 * math.pi, centre, BLUE, False, r2 / r1, theta)
    c, s = math.cos(theta), math.sin(theta)
    picture.line(plane.at(*centre), plane.at(centre[0] + 0.8, centre[1]), PALE, 1.2, True)
    picture.arrow(plane.at(*centre), plane.at(centre[0] + r1 * c, centre[1] + r1 * s), INK, 2)
    picture.arrow(plane.at(*centre), plane.at(centre[0] - r2 * s, centre[1] + r2 * c), INK, 2)
    plane.arc(0.5, 0.0, theta, centre, RED)
    picture.text(plane.at(centre[0] + 0.6, centre[1] + 0.08), "θ", RED, italic=True)
    picture.text(plane.at(centre[0] + 0.42 * c - 0.04, centre[1] + 0.42 * s + 0.1), "r1", italic=True)
    picture.text(plane.at(centre[0] - 0.25, centre[1] + 0.15), "r2", italic=True)
    picture.dot(plane.at(*centre))
    picture.text(plane.at(centre[0] - 0.03, centre[1] - 0.16), "(cx, cy)", size=14)
    picture.text((780, 286), "θ: direction of the radius r1", size=14)
    return picture


def draw_euler_angles():
    picture = Picture(930, 300)
    x, y, z = (1, 0, 0), (0, 1, 0), (0, 0, 1)
    panels = (("1. rx about x", x, y, z, "y towards z"), ("2. ry about y", y, z, x, "z towards x"), ("3. rz about z", z, x, y, "x towards y"))
    for i, (title, axis, start, end, sense) in enumerate(panels):
        space = Space(picture, (140 + 310 * i, 178), 110)
        picture.text((155 + 310 * i, 28), title, bold=True)
        space.axes()
        picture.arrow(space.at(0, 0, 0), space.at(*axis), BLUE, 2.5)
        space.arc(start, end, 1.25, 0.72)
        picture.text((155 + 310 * i, 286), "turns " + sense, size=14)
    return picture


def draw_directions():
    picture = Picture(930, 330)
    theta, phi = 0.75, 1.05
    n = (math.sin(theta) * math.cos(phi), math.sin(theta) * math.sin(phi), math.cos(theta))
    flat = (math.cos(phi), math.sin(phi), 0)

    space = Space(picture, (170, 215), 140)
    picture.text((215, 28), "Direction (θ, φ)", bold=True)
    space.axes(1.15)
    shadow = (n[0], n[1], 0)
    picture.line(space.at(0, 0, 0), space.at(*(1.35 * v for v in shadow)), PALE, 1.2, True)
    picture.line(space.at(*shadow), space.at(*n), PALE, 1.2, True)
    picture.arrow(space.at(0, 0, 0), space.at(*n), BLUE, 2.5)
    space.arc((0, 0, 1), flat, theta, 0.5)
    space.arc((1, 0, 0), (0, 1, 0), phi, 0.45)
    picture.text(space.at(0.0, 0.2, 0.6), "θ", RED, italic=True)
    picture.text(space.at(0.5, 0.26, -0.06), "φ", RED, italic=True)
    picture.text(space.at(n[0], n[1] + 0.08, n[2] + 0.06), "n", BLUE, bold=True)
    picture.text((215, 316), "n = (sin θ cos φ, sin θ sin φ, cos θ)", size=14)

    space = Space(picture, (610, 230), 145)
    picture.text((690, 28), "Plane (ρ, θ, φ)", bold=True)
    rho = 0.75
    across = (-math.sin(phi), math.cos(phi), 0)
    up = (-math.cos(theta) * math.cos(phi), -math.cos(theta) * math.sin(phi), math.sin(theta))
    corners = []
    for p, q in ((-0.62, -0.5), (0.62, -0.5), (0.62, 0.5), (-0.62, 0.5)):
        corners.append(space.at(*(rho * a + p * b + q * c for a, b, c in zip(n, across, up))))
    space.axes(1.15)
    picture.polygon(corners, BLUE, FILL)
    foot = tuple(rho * v for v in n)
    picture.line(space.at(0, 0, 0), space.at(*foot), INK, 2)
    picture.arrow(space.at(*foot), space.at(*((rho + 0.4) * v for v in n)), BLUE, 2.5)
    picture.dot(space.at(*foot))
    picture.text(space.at(0.45 * n[0], 0.45 * n[1] + 0.1, 0.45 * n[2] - 0.08), "ρ", italic=True)
    picture.text(space.at((rho + 0.4) * n[0], (rho + 0.4) * n[1] + 0.09, (rho + 0.4) * n[2]), "n", BLUE, bold=True)
    picture.text((690, 316), "x · n = ρ", size=14)
    return picture


def draw_segments():
    picture = Picture(930, 300)

    picture.text((225, 28), "Point and segment", bold=True)
    a, b = (150, 190), (320, 140)
    length = math.hypot(b[0] - a[0], b[1] - a[1])
    u = ((b[0] - a[0]) / length, (b[1] - a[1]) / length)
    across = (-u[1], u[0])
    for end in (a, b):
        picture.line((end[0] - 110 * across[0], end[1] - 110 * across[1]), (end[0] + 70 * across[0], end[1] + 70 * across[1]),
                     PALE, 1.2, True)
    picture.line(a, b, INK, 2.5)
    foot = (a[0] + 95 * u[0], a[1] + 95 * u[1])
    beside = (foot[0] - 85 * across[0], foot[1] - 85 * across[1])
    before, behind = (70, 150), (405, 165)
    for point, closest in ((before, a), (beside, foot), (behind, b)):
        picture.line(point, closest, RED, 1.5)
        picture.dot(point, RED)
        picture.dot(closest, BLUE)
    picture.text((a[0] - 4, a[1] + 22), "a", italic=True)
    picture.text((b[0] + 4, b[1] - 12), "b", italic=True)
    picture.text((before[0], before[1] - 11), "p", RED, italic=True)
    picture.text((beside[0] + 12, beside[1] - 6), "p", RED, italic=True)
    picture.text((behind[0] + 4, behind[1] - 11), "p", RED, italic=True)
    picture.text((225, 286), "to an end in the arithmetic of T, between them in double", size=14)

    space = Space(picture, (660, 190), 115)
    picture.text((700, 28), "Segments of space", bold=True)
    space.axes(1.2)
    low = ((0.15, 0.15, 0), (0.9, 1.15, 0))
    high = ((0.95, 0.25, 0.75), (0.2, 1.05, 0.75))
    ground = [(x, y, 0) for x, y, _ in high]
    for p, q in zip(high, ground):
        picture.line(space.at(*p), space.at(*q), PALE, 1.2, True)
    picture.line(space.at(*ground[0]), space.at(*ground[1]), PALE, 1.5, True)
    picture.line(space.at(*low[0]), space.at(*low[1]), INK, 2.5)
    picture.line(space.at(*high[0]), space.at(*high[1]), BLUE, 2.5)
    # Where they cross when seen along z.
    dx, dy = low[1][0] - low[0][0], low[1][1] - low[0][1]
    ex, ey = high[1][0] - high[0][0], high[1][1] - high[0][1]
    t = ((high[0][0] - low[0][0]) * ey - (high[0][1] - low[0][1]) * ex) / (dx * ey - dy * ex)
    cross = (low[0][0] + t * dx, low[0][1] + t * dy)
    picture.line(space.at(*cross, 0), space.at(*cross, 0.75), RED, 1.5, True)
    picture.dot(space.at(*cross, 0), RED)
    picture.dot(space.at(*cross, 0.75), RED)
    x, y = space.at(*low[1])
    picture.text((x + 16, y + 8), "ab", italic=True)
    x, y = space.at(*high[1])
    picture.text((x + 16, y - 4), "cd", BLUE, italic=True)
    picture.text((700, 286), "crossing along z counts: distance 0, at the height of ab", size=14)
    return picture


LETTER = [(0.0, 0.0), (0.28, 0.0), (0.28, 0.42), (0.66, 0.42), (0.66, 0.68), (0.28, 0.68), (0.28, 0.94), (0.8, 0.94),
          (0.8, 1.2), (0.0, 1.2)]


def draw_transforms():
    picture = Picture(930, 500)
    theta, scale = 0.45, 0.7
    c, s = math.cos(theta), math.sin(theta)
    kinds = (
        ("Translation2d", "(tx, ty)", lambda x, y: (x + 0.7, y + 0.4)),
        ("Rotation2d", "(θ)", lambda x, y: (c * x - s * y, s * x + c * y)),
        ("Rigid2d", "(θ, tx, ty)", lambda x, y: (c * x - s * y + 0.9, s * x + c * y + 0.2)),
        ("Scale2d", "(scale)", lambda x, y: (1.4 * x, 1.4 * y)),
        ("Similarity2d", "(scale, θ, tx, ty)",
         lambda x, y: (scale * (c * x - s * y) + 0.95, scale * (s * x + c * y) + 0.3)),
        ("AnisotropicScale2d", "(sx, sy)", lambda x, y: (1.9 * x, 0.7 * y)),
        ("Affine2d", "(a00, a01, a10, a11, tx, ty)", lambda x, y: (1.1 * x + 0.5 * y + 0.3, -0.2 * x + 0.9 * y + 0.3)),
        ("Homography2d", "(h00, h01, ..., h22)",
         lambda x, y: tuple(v / (0.5 * x + 0.15 * y + 1.0) for v in (1.9 * x + 0.1 * y + 0.3, 0.25 * x + 1.6 * y))),
    )
    for i, (name, params, transform) in enumerate(kinds):
        left, top = 232 * (i % 4), 250 * (i // 4)
        plane = Plane(picture, (left + 50, top + 205), 90)
        plane.axes(-0.25, 1.95, -0.2, 1.75, False)
        picture.polygon([plane.at(x, y) for x, y in LETTER], PALE, "none", 1.5, True, True)
        picture.polygon([plane.at(*transform(x, y)) for x, y in LETTER], BLUE, FILL, 2)
        picture.text((left + 120, top + 22), name, bold=True)
        picture.text((left + 120, top + 240), params, size=13)
    return picture


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: tools/draw_geometry_pictures.py FOLDER")
    folder = pathlib.Path(sys.argv[1])
    for name, picture in (("geometry_plane", draw_plane()), ("geometry_euler_angles", draw_euler_angles()),
                          ("geometry_directions", draw_directions()), ("geometry_segments", draw_segments()),
                          ("transforms", draw_transforms())):
        picture.save(folder / f"{name}.svg")


if __name__ == "__main__":
    main()
