#!/usr/bin/env python3
"""Regenerate every data file of the game into data/ (and the artwork page).

    python3 tools/assets/make_all.py            # everything
    python3 tools/assets/make_all.py sounds     # only some groups

Groups: characters, marker, sounds, music, credits, icons, docs.  Output is
deterministic, so rerunning without changes leaves git clean.
"""
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
ROOT = os.path.dirname(os.path.dirname(HERE))
DATA = os.path.join(ROOT, "data")


def make_characters():
    from characters import CHARACTERS
    from imageio import write_bmp24
    folder = os.path.join(DATA, "characters")
    os.makedirs(folder, exist_ok=True)
    for name, draw in CHARACTERS.items():
        for pose, suffix in ((0, ""), (1, "1"), (2, "2")):
            write_bmp24(os.path.join(folder, name + suffix + ".bmp"), draw(pose))


def make_marker():
    from imageio import write_bmp24
    from marker import turn_marker
    write_bmp24(os.path.join(DATA, "pIndication.bmp"), turn_marker())


def make_sounds():
    import sounds
    sounds.write_all(DATA)


def make_music():
    import music
    music.write_all(os.path.join(DATA, "midi"))


def make_credits():
    from credits import write_credits
    write_credits(os.path.join(DATA, "Credits.txt"))


def make_icons():
    import icon
    icon.write_all(os.path.join(DATA, "icons"))


def make_docs():
    import artwork_page
    artwork_page.write_page(ROOT)


GROUPS = {
    "characters": make_characters,
    "marker": make_marker,
    "sounds": make_sounds,
    "music": make_music,
    "credits": make_credits,
    "icons": make_icons,
    "docs": make_docs,
}

if __name__ == "__main__":
    wanted = sys.argv[1:] or list(GROUPS)
    for group in wanted:
        if group not in GROUPS:
            sys.exit("unknown group %r; choose from %s" % (group, ", ".join(GROUPS)))
        print("making", group)
        GROUPS[group]()
