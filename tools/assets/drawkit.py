"""A small pixel-art kit for the characters.

Shapes are painted as flat colours, each shape remembering which "part" it
belongs to.  `shade()` then darkens the lower-right rim of every part and
lifts its upper-left rim, which gives rounded limbs and a visible seam between
touching parts of similar colour.  Details (eyes, stars, buttons) are painted
after shading so they stay crisp, and `outline()` finally puts a one pixel
dark border against the see-through background.  That border is what keeps
the game's white keying clean: no body pixel ever touches the background.
"""
from imageio import WHITE

OUTLINE = (34, 26, 30)
RIM_DARK = 0.74   # lower-right rim of a part
RIM_LIGHT = 1.16  # upper-left rim


def mix(colour, factor):
    return tuple(max(0, min(248, int(round(c * factor)))) for c in colour)


class Canvas:
    def __init__(self, width, height):
        self.w = width
        self.h = height
        self.px = [[None] * width for _ in range(height)]
        self.part = [[0] * width for _ in range(height)]
        self.parts = 0

    def _new_part(self, part):
        if part is not None:
            return part
        self.parts += 1
        return self.parts

    def plot(self, x, y, colour, part=-1):
        x, y = int(x), int(y)
        if 0 <= x < self.w and 0 <= y < self.h:
            self.px[y][x] = colour
            self.part[y][x] = part

    def fill(self, inside, box, colour, part=None):
        part = self._new_part(part)
        x0, y0, x1, y1 = (int(v) for v in box)
        for y in range(max(0, y0), min(self.h, y1 + 1)):
            for x in range(max(0, x0), min(self.w, x1 + 1)):
                if inside(x + 0.5, y + 0.5):
                    self.plot(x, y, colour, part)
        return part

    def rect(self, x0, y0, x1, y1, colour, part=None):
        """Inclusive pixel rectangle."""
        return self.fill(lambda x, y: True, (x0, y0, x1, y1), colour, part)

    def ellipse(self, cx, cy, rx, ry, colour, part=None):
        return self.fill(lambda x, y: ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1.0,
                         (cx - rx - 1, cy - ry - 1, cx + rx + 1, cy + ry + 1), colour, part)

    def polygon(self, pts, colour, part=None):
        def inside(x, y):
            hit = False
            for (ax, ay), (bx, by) in zip(pts, pts[1:] + pts[:1]):
                if (ay > y) != (by > y) and x < ax + (y - ay) * (bx - ax) / (by - ay):
                    hit = not hit
            return hit
        xs = [p[0] for p in pts]
        ys = [p[1] for p in pts]
        return self.fill(inside, (min(xs) - 1, min(ys) - 1, max(xs) + 1, max(ys) + 1),
                         colour, part)

    def limb(self, pts, radius, colour, part=None):
        """A thick poly-line with round joints (arms, legs, tails)."""
        part = self._new_part(part)

        def inside(x, y):
            for (ax, ay), (bx, by) in zip(pts, pts[1:]):
                dx, dy = bx - ax, by - ay
                t = max(0.0, min(1.0, ((x - ax) * dx + (y - ay) * dy) / (dx * dx + dy * dy or 1)))
                if (x - ax - t * dx) ** 2 + (y - ay - t * dy) ** 2 <= radius * radius:
                    return True
            return False
        xs = [p[0] for p in pts]
        ys = [p[1] for p in pts]
        return self.fill(inside, (min(xs) - radius - 1, min(ys) - radius - 1,
                                  max(xs) + radius + 1, max(ys) + radius + 1), colour, part)

    def shade(self):
        px, part = self.px, self.part
        boxes = {}
        for y in range(self.h):
            for x in range(self.w):
                p = part[y][x]
                if px[y][x] is not None and p > 0:
                    b = boxes.setdefault(p, [x, x])
                    b[0], b[1] = min(b[0], x), max(b[1], x)
        out = [row[:] for row in px]

        def same(x, y, p):
            return 0 <= x < self.w and 0 <= y < self.h and part[y][x] == p and px[y][x] is not None
        for y in range(self.h):
            for x in range(self.w):
                p = part[y][x]
                if px[y][x] is None or p <= 0:
                    continue
                if not same(x + 1, y, p) or not same(x, y + 1, p):
                    f = RIM_DARK
                elif not same(x - 1, y, p) or not same(x, y - 1, p):
                    f = RIM_LIGHT
                else:
                    x0, x1 = boxes[p]
                    f = 1.06 - 0.14 * (x - x0) / max(1, x1 - x0)
                out[y][x] = mix(px[y][x], f)
        self.px = out
        self.part = [[-1 if c is not None else 0 for c in row] for row in out]

    def outline(self, colour=OUTLINE):
        add = []
        for y in range(self.h):
            for x in range(self.w):
                if self.px[y][x] is not None:
                    continue
                for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1)):
                    nx, ny = x + dx, y + dy
                    if 0 <= nx < self.w and 0 <= ny < self.h and self.px[ny][nx] is not None:
                        add.append((x, y))
                        break
        for x, y in add:
            self.px[y][x] = colour

    def rows(self):
        """Finished picture; pure white is kept for the see-through background only."""
        return [[WHITE if c is None else (c if c != WHITE else (250, 250, 245)) for c in row]
                for row in self.px]
