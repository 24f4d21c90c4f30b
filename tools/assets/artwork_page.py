"""docs/artwork.md and its pictures: every character in its three pictures,
at 1x and 4x, and the projectile frames and selector icons enlarged.

The projectile pictures live in the game's C++ source, so they are read back
by compiling and running a tiny dump program (needs g++)."""
import os
import subprocess
import tempfile

from characters import CHARACTERS
from imageio import WHITE, blank, paste, scale, write_png

SKY = (118, 168, 220)
GAP = 6


def keyed(rows):
    """Show the see-through white the way the game does: as the sky behind."""
    return [[SKY if px == WHITE else px for px in row] for row in rows]


def character_sheet(zoom):
    pictures = [[keyed(draw(p)) for p in range(3)] for draw in CHARACTERS.values()]
    cell_w = max(len(row[0][0]) for row in pictures) + GAP
    cell_h = max(len(row[0]) for row in pictures) + GAP
    sheet = blank(cell_w * 8 + GAP, cell_h * 3 + GAP, SKY)
    for i, poses in enumerate(pictures):
        for p, pic in enumerate(poses):
            # stand everyone on the same floor line, as the title screen does
            paste(sheet, pic, GAP + i * cell_w, GAP + p * cell_h + (cell_h - GAP - len(pic)))
    return scale(sheet, zoom)


def projectile_sprites(root):
    with tempfile.TemporaryDirectory() as tmp:
        exe = os.path.join(tmp, "dump")
        subprocess.run(["g++", "-std=c++20", "-I", os.path.join(root, "src"),
                        os.path.join(root, "tools", "assets", "projectile_dump.cpp"),
                        os.path.join(root, "src", "media", "ProjectileArt.cpp"), "-o", exe], check=True)
        text = subprocess.run([exe], check=True, capture_output=True, text=True).stdout.splitlines()
    sprites = {}
    i = 0
    while i < len(text):
        kind, frame, w, h = (int(v) for v in text[i].split())
        rows = []
        for line in text[i + 1:i + 1 + h]:
            rows.append([tuple(int(v, 16).to_bytes(3, "big")) for v in line.split()])
        sprites[kind, frame] = rows
        i += 1 + h
    return sprites


def projectile_sheet(sprites, zoom=8):
    cell = 14
    sheet = blank(cell * 5 + 2, cell * 4 + 2, SKY)
    for kind in range(4):
        for col, frame in enumerate((-1, 0, 1, 2, 3)):
            paste(sheet, keyed(sprites[kind, frame]) if frame >= 0 else sprites[kind, frame], 2 + col * cell, 2 + kind * cell)
    return scale(sheet, zoom)


PAGE = """# Artwork

All pictures are made by `tools/assets/make_all.py` (characters, marker) or
drawn in `src/media/ProjectileArt.cpp` (projectiles). The sky colour behind the
pictures stands in for the see-through white.

## Characters

Rows: standing picture, throwing pose 1 (arm to the right), throwing pose 2
(arm to the left). Columns: {names}.

Actual size:

![characters at 1x](characters-1x.png)

Enlarged 4x:

![characters at 4x](characters-4x.png)

On the title screen, poses 1 and 2 take turns every 150 ms, which makes the
characters dance.

## Turn marker

![turn marker at 4x](marker-4x.png)

## Projectiles

Rows: normal, nuke, war, magnetic. Columns: the 12 x 12 selector icon (on
its white button face), then flight frames 0 to 3 (each a quarter turn
clockwise), enlarged 8x.

![projectiles at 8x](projectiles-8x.png)
"""


def write_page(root):
    from marker import turn_marker
    docs = os.path.join(root, "docs")
    os.makedirs(docs, exist_ok=True)
    write_png(os.path.join(docs, "characters-1x.png"), character_sheet(1))
    write_png(os.path.join(docs, "characters-4x.png"), character_sheet(4))
    write_png(os.path.join(docs, "marker-4x.png"), scale(keyed(turn_marker()), 4))
    write_png(os.path.join(docs, "projectiles-8x.png"), projectile_sheet(projectile_sprites(root)))
    names = ", ".join(CHARACTERS)
    with open(os.path.join(docs, "artwork.md"), "w") as f:
        f.write(PAGE.format(names=names))
