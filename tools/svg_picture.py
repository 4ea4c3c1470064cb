"""What the programs that draw the pictures of the guides share."""

import math

INK = "#24292f"
PALE = "#9aa4ae"
BLUE = "#0b62c4"
RED = "#c4320b"
FILL = "#dbe9f9"


class Picture:
    """Collects shapes; coordinates are pixels with y downwards."""

    def __init__(self, width, height):
        self.size = (width, height)
        self.shapes = []

    def add(self, text):
        self.shapes.append(text)

    def line(self, a, b, color=INK, width=1.5, dashed=False):
        dash = ' stroke-dasharray="5 4"' if dashed else ""
        self.add(f'<line x1="{a[0]:.1f}" y1="{a[1]:.1f}" x2="{b[0]:.1f}" y2="{b[1]:.1f}" '
                 f'stroke="{color}" stroke-width="{width}"{dash}/>')

    def polygon(self, points, color=INK, fill="none", width=1.5, closed=True, dashed=False):
        dash = ' stroke-dasharray="5 4"' if dashed else ""
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        self.add(f'<{"polygon" if closed else "polyline"} points="{path}" fill="{fill}" stroke="{color}" '
                 f'stroke-width="{width}" stroke-linejoin="round"{dash}/>')

    def head(self, tip, along, color):
        """The head of an arrow that ends at `tip` and runs along a direction."""
        length = math.hypot(*along)
        ux, uy = along[0] / length, along[1] / length
        base = (tip[0] - 9 * ux, tip[1] - 9 * uy)
        self.polygon([tip, (base[0] - 4 * uy, base[1] + 4 * ux), (base[0] + 4 * uy, base[1] - 4 * ux)], color, color, 1)

    def arrow(self, a, b, color=INK, width=1.5):
        along = (b[0] - a[0], b[1] - a[1])
        length = math.hypot(*along)
        self.line(a, (b[0] - 7 * along[0] / length, b[1] - 7 * along[1] / length), color, width)
        self.head(b, along, color)

    def curve(self, points, color=INK, width=1.5, headed=False):
        self.polygon(points, color, "none", width, closed=False)
        if headed:
            self.head(points[-1], (points[-1][0] - points[-3][0], points[-1][1] - points[-3][1]), color)

    def dot(self, a, color=INK):
        self.add(f'<circle cx="{a[0]:.1f}" cy="{a[1]:.1f}" r="3.5" fill="{color}"/>')

    def text(self, a, text, color=INK, size=15, anchor="middle", bold=False, italic=False):
        weight = ' font-weight="bold"' if bold else ""
        style = ' font-style="italic"' if italic else ""
        self.add(f'<text x="{a[0]:.1f}" y="{a[1]:.1f}" fill="{color}" font-size="{size}" text-anchor="{anchor}"'
                 f"{weight}{style}>{text}</text>")

    def save(self, path):
        width, height = self.size
        body = "\n".join(self.shapes)
        path.write_text(f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
                        f'viewBox="0 0 {width} {height}" font-family="DejaVu Sans, Verdana, sans-serif">\n'
                        f'<rect width="{width}" height="{height}" fill="white"/>\n{body}\n</svg>\n')
