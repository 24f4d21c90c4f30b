"""The desktop icon: Classic Grumbo throws a banana over a city at night.

The game is pixel art, and so is its icon.  The 32-pixel picture is the master:
it uses the real Classic Grumbo sprite in his throwing pose, and 64, 128 and
256 are that picture enlarged 2, 4 and 8 times.  The sprite's head alone is
19 pixels wide, so 16, 22 and 24 get a smaller bust drawn pixel by pixel for
their own grid; 48 is the 24 doubled.  Outside the rounded tile the icon is
see-through.
"""
import os

from body import DARK, EYE_WHITE, MOUTH, SKIN
from characters import (CLASSIC_CAP, CLASSIC_CAP_BUTTON, CLASSIC_SHIRT, CLASSIC_SHIRT_BUTTON,
                        classic)
from drawkit import OUTLINE, RIM_DARK, RIM_LIGHT, mix
from imageio import WHITE, scale, write_png

# The match screen's night sky (top and bottom of its gradient), its building
# greys (top and bottom of each building's gradient) and its window colours.
NIGHT_TOP, NIGHT_BOTTOM = (46, 11, 71), (76, 7, 147)
BUILDING_GREYS = ((98, 78), (85, 67), (75, 59), (150, 128), (170, 140), (125, 100))
WINDOW_LIT, WINDOW_DARK = (229, 244, 182), (50, 50, 50)

STAR = (250, 244, 210)
FRAME = (22, 8, 36)
CLEAR = (0, 0, 0, 0)

# One letter per colour in the hand-drawn pictures below; '.' leaves the scene
# behind visible.  The banana's letters and colours are those of the game's
# normal banana: y body, l light edge, z shaded edge, t stem, q stem end.
INK = {
    "O": OUTLINE,
    "C": CLASSIC_CAP, "c": mix(CLASSIC_CAP, RIM_LIGHT), "k": mix(CLASSIC_CAP, RIM_DARK),
    "B": CLASSIC_CAP_BUTTON, "b": CLASSIC_SHIRT_BUTTON,
    "S": SKIN, "h": mix(SKIN, RIM_LIGHT), "s": mix(SKIN, RIM_DARK),
    "E": DARK, "W": EYE_WHITE, "M": MOUTH,
    "J": CLASSIC_SHIRT, "L": mix(CLASSIC_SHIRT, RIM_LIGHT), "j": mix(CLASSIC_SHIRT, RIM_DARK),
    "y": (0xEC, 0xEE, 0x04), "l": (0xD8, 0xCE, 0x16), "z": (0xAB, 0xA4, 0x12),
    "t": (0x54, 0x54, 0x01), "q": (0x04, 0x02, 0x04),
}

# The banana of the 32-pixel master, just out of Grumbo's hand.
BANANA_32 = [
    ".l..........",
    ".yl.........",
    "zyyl........",
    "zyyyl.......",
    "zyyyyll.....",
    ".zyyyyyll...",
    ".zzyyyyyylt.",
    "..zzzyyyyytq",
    "....zzzzzz..",
]

BUST_16 = [
    "................",
    "..........l.....",
    ".........zyl....",
    ".........zyyllt.",
    "...OOOOO..zzzzq.",
    "..OccBCCO.......",
    "..OkkkkkkkO..OO.",
    "..OShSSSSO..OSSO",
    "..OSESSESO..OSsO",
    "..OSSSSSSO.OJjO.",
    "..OSsMMsSOOJjO..",
    "...OsssssOJjO...",
    "..OJJOOOJJjO....",
    ".OLJJJJJJJjO....",
    ".OJJJbJJJjO.....",
    "................",
]

BUST_22 = [
    "......................",
    ".............l........",
    "............zyl.......",
    "............zyyl......",
    "............zyyyll....",
    "....OOOOO....zyyyyllt.",
    "...OccccCCO...zzzzzzq.",
    "..OcccBccCCO..........",
    "..OkkkkkkkkkOO...OOO..",
    "..OShhSSSSsO....OSSSO.",
    "..OSWESWESsO....OSSsO.",
    "..OSWESWESsO....OSssO.",
    "..OSSMSSMSsO...OJJjO..",
    "..OsSSMMSssO..OJJjO...",
    "...OsSSSssO..OJJjO....",
    "....OOssOO..OJJjO.....",
    "...OJJOOJJOOJJjO......",
    "..OLJJJJJJJJJjO.......",
    ".OLJJJJbJJJJjO........",
    ".OJJJJJJJJJJjO........",
    ".OJJJJJbJJJJjO........",
    "......................",
]

BUST_24 = [
    "........................",
    "........................",
    "...............l........",
    "..............zyl.......",
    "..............zyyl......",
    "..............zyyyll....",
    "....OOOOOO.....zyyyyllt.",
    "...OcccccCCO....zzzzzzq.",
    "..OcccBcccCCO...........",
    "..OkkkkkkkkkkOO...OOO...",
    "..OShhSSSSSsO....OSSSO..",
    "..OSWESSWESsO....OSSsO..",
    "..OSWESSWESsO....OSssO..",
    "..OSSSSSSSSsO...OJJjO...",
    "..OSSMSSSMSsO...OJJjO...",
    "..OsSSMMMSssO..OJJjO....",
    "...OsSSSSssO..OJJjO.....",
    "....OOsssOO..OJJjO......",
    "...OJJOOOJJOOJJjO.......",
    "..OLJJJJJJJJJJjO........",
    ".OLJJJJJbJJJJjO.........",
    ".OJJJJJJJJJJJjO.........",
    ".OJJJJJJbJJJJjO.........",
    "........................",
]


class Layout:
    """One natively drawn size.

    `buildings` are (left, right, height) with inclusive columns, standing on
    the row above the frame; windows sit every other column and every
    `window_step` rows.  `art` is a list of (left, top, letter rows)."""

    def __init__(self, size, corner, buildings, window_step, stars, art, sprite=None):
        self.size = size
        self.corner = corner
        self.buildings = buildings
        self.window_step = window_step
        self.stars = stars
        self.art = art
        self.sprite = sprite


# The master shows the sprite's bust from the cap to the chest, the raised
# hand included: columns 14 to 40 and rows 12 to 38 of the throwing pose.
MASTER_BUST = dict(pose=1, box=(14, 12, 40, 38), at=(1, 6))

LAYOUTS = {
    16: Layout(16, 2, [(1, 4, 6), (5, 8, 9), (9, 11, 5), (12, 14, 8)], 2,
               [(3, 2), (6, 1), (13, 6)], [(0, 0, BUST_16)]),
    22: Layout(22, 3, [(1, 4, 8), (5, 9, 13), (10, 13, 6), (14, 17, 11), (18, 20, 7)], 3,
               [(3, 3), (8, 2), (10, 4), (19, 9)], [(0, 0, BUST_22)]),
    24: Layout(24, 3, [(1, 5, 9), (6, 10, 14), (11, 15, 7), (16, 19, 12), (20, 22, 8)], 3,
               [(3, 3), (8, 2), (11, 5), (21, 10)], [(0, 0, BUST_24)]),
    32: Layout(32, 4, [(1, 6, 14), (7, 12, 20), (13, 18, 12), (19, 25, 17), (26, 30, 11)], 3,
               [(4, 3), (9, 6), (14, 2), (3, 9), (11, 11)], [(18, 2, BANANA_32)], MASTER_BUST),
}

# Sizes made by enlarging a native picture: size -> (native size, factor).
ENLARGED = {48: (24, 2), 64: (32, 2), 128: (32, 4), 256: (32, 8)}
SIZES = (16, 22, 24, 32, 48, 64, 128, 256)


def lerp(a, b, t):
    return tuple(round(x + (y - x) * t) for x, y in zip(a, b))


def sky(n):
    return [[lerp(NIGHT_TOP, NIGHT_BOTTOM, y / (n - 1))] * n for y in range(n)]


def window_lit(x, y, building):
    """About three windows in four are lit, in a pattern that looks random."""
    return (5 * x + 3 * y + building) % 4 != 0


def draw_city(px, layout):
    ground = layout.size - 1  # the frame's row
    for i, (left, right, height) in enumerate(layout.buildings):
        top_grey, bottom_grey = BUILDING_GREYS[i % len(BUILDING_GREYS)]
        roof = ground - height
        for y in range(roof, ground):
            grey = round(top_grey + (bottom_grey - top_grey) * (y - roof) / max(1, height - 1))
            px[y][left:right + 1] = [(grey, grey, grey)] * (right - left + 1)
        first = roof + (2 if layout.window_step > 2 else 1)
        for wy in range(first, ground - 1, layout.window_step):
            for wx in range(left + 1, right, 2):
                px[wy][wx] = WINDOW_LIT if window_lit(wx, wy, i) else WINDOW_DARK


def draw_art(px, left, top, rows):
    for y, row in enumerate(rows):
        for x, key in enumerate(row):
            if key != ".":
                px[top + y][left + x] = INK[key]


def draw_sprite_bust(px, pose, box, at):
    sprite = classic(pose)
    x0, y0, x1, y1 = box
    n = len(px)
    for y in range(y0, y1 + 1):
        for x in range(x0, x1 + 1):
            tx, ty = at[0] + x - x0, at[1] + y - y0
            if sprite[y][x] != WHITE and 0 <= tx < n and 0 <= ty < n:
                px[ty][tx] = sprite[y][x]


def cut_tile(px, corner):
    """Rounded tile with a one pixel frame; RGBA rows, clear outside."""
    n = len(px)
    out = []
    for y in range(n):
        row = []
        for x in range(n):
            # distance from the centre of this corner's rounding, zero along the straight edges
            dx = max(corner - 0.5 - x, x - (n - 0.5 - corner), 0)
            dy = max(corner - 0.5 - y, y - (n - 0.5 - corner), 0)
            d = (dx * dx + dy * dy) ** 0.5
            if d > corner:
                row.append(CLEAR)
            elif d > corner - 1 or x in (0, n - 1) or y in (0, n - 1):
                row.append(FRAME + (255,))
            else:
                row.append(px[y][x] + (255,))
        out.append(row)
    return out


def draw(layout):
    px = sky(layout.size)
    for x, y in layout.stars:
        px[y][x] = STAR
    draw_city(px, layout)
    if layout.sprite:
        draw_sprite_bust(px, **layout.sprite)
    for left, top, rows in layout.art:
        draw_art(px, left, top, rows)
    return cut_tile(px, layout.corner)


def icon(size):
    if size in ENLARGED:
        native, factor = ENLARGED[size]
        return scale(draw(LAYOUTS[native]), factor)
    return draw(LAYOUTS[size])


def write_all(folder):
    os.makedirs(folder, exist_ok=True)
    for size in SIZES:
        write_png(os.path.join(folder, "grumbo2-%d.png" % size), icon(size))
