"""The eight playable characters, each drawn in three poses.

Every function takes the pose (0 standing, 1 arm raised to the right, 2 arm
raised to the left) and returns finished rows of pixels.
"""
import math

from body import Body, DARK, SKIN
from drawkit import Canvas

W = 44


def finish(c):
    c.shade()
    return c


def star(c, x, y, colour):
    for dx, dy in ((0, 0), (1, 0), (-1, 0), (0, 1), (0, -1)):
        c.plot(x + dx, y + dy, colour)


# Classic Grumbo's colours; the desktop icon draws him too.
CLASSIC_SHIRT = (64, 160, 62)
CLASSIC_CAP = (40, 116, 44)
CLASSIC_CAP_BUTTON = (240, 220, 90)
CLASSIC_SHIRT_BUTTON = (30, 90, 34)


def classic(pose):
    c = Canvas(W, 70)
    b = Body(c, pose)
    b.legs((58, 86, 160), (112, 70, 38))
    b.torso(CLASSIC_SHIRT)
    b.belt((92, 58, 30), (226, 190, 60))
    b.neck(SKIN)
    b.head(SKIN)
    b.arms(CLASSIC_SHIRT, SKIN)
    # cap: dome over the top of the head and a brim to the front (right)
    c.ellipse(b.hx, b.hy - 4.5, 7.2, 4.5, CLASSIC_CAP)
    c.rect(int(b.hx) - 7, int(b.hy) - 4, int(b.hx) + 9, int(b.hy) - 3, CLASSIC_CAP)
    finish(c)
    b.face(nose=(204, 140, 110), grin=True)
    c.plot(int(b.hx), int(b.hy) - 7, CLASSIC_CAP_BUTTON)
    for dy in (4, 9, 14):
        c.plot(int(b.hx), b.top + dy, CLASSIC_SHIRT_BUTTON)
    c.outline()
    return c.rows()


def rapper(pose):
    c = Canvas(W, 70)
    b = Body(c, pose, half=8)
    hoodie, gold, skin = (122, 60, 170), (240, 196, 40), (176, 118, 80)
    b.legs((50, 80, 150), (238, 236, 226), radius=2.9, shoe_len=4)
    b.torso(hoodie)
    b.neck(skin)
    b.head(skin)
    b.arms(hoodie, skin, radius=2.3)
    # backwards cap: the brim sticks out behind, to the left
    red = (214, 40, 40)
    c.ellipse(b.hx, b.hy - 4.5, 7.2, 4.6, red)
    c.rect(int(b.hx) - 11, int(b.hy) - 5, int(b.hx) - 5, int(b.hy) - 4, (170, 26, 30))
    finish(c)
    x, y = int(b.hx), int(b.hy)
    for sx in range(x - 4, x + 5):  # shades
        c.plot(sx, y - 1, (20, 20, 24))
        c.plot(sx, y, (20, 20, 24))
    c.plot(x - 3, y - 1, (120, 140, 170))
    c.plot(x + 2, y - 1, (120, 140, 170))
    for mx in range(x - 2, x + 3):
        c.plot(mx, y + 4, (110, 40, 40))
    c.plot(x + 1, y + 4, gold)  # gold tooth
    c.plot(x, y - 5, (250, 250, 240))  # snap strap opening
    c.plot(x + 1, y - 5, (250, 250, 240))
    # heavy gold chain with a medallion
    cx, top = b.cx + b.lean, b.top
    for i in range(11):
        t = i / 10
        px = cx - 5 + 10 * t
        py = top + 1 + 8 * math.sin(math.pi * t)
        c.plot(round(px), round(py), gold)
    c.rect(cx - 2, top + 9, cx + 2, top + 13, gold)
    c.rect(cx - 1, top + 10, cx + 1, top + 12, (200, 150, 20))
    c.plot(cx, top + 11, (250, 230, 120))
    c.outline()
    return c.rows()


def robo(pose):
    c = Canvas(W, 72)
    b = Body(c, pose)
    steel, light, joint = (150, 160, 172), (190, 198, 208), (96, 104, 116)
    # antenna first so the head covers its foot
    x, y = int(b.hx), int(b.hy)
    c.rect(x, y - 15, x, y - 7, joint)
    c.ellipse(b.hx, y - 15.5, 2.3, 2.3, (230, 40, 40))
    b.legs(steel, joint, radius=2.2)
    b.torso(light)
    b.neck(joint)
    c.rect(x - 7, y - 7, x + 7, y + 6, steel)       # box head
    c.rect(x - 9, y - 2, x - 8, y + 2, joint)       # ear bolts
    c.rect(x + 8, y - 2, x + 9, y + 2, joint)
    for k in (-1, 1):
        pts = b.hands[k]
        c.limb(pts[:2], 1.9, steel)
        c.limb(pts[1:], 1.9, steel)
        c.ellipse(pts[1][0], pts[1][1], 1.8, 1.8, joint)
        c.ellipse(pts[2][0], pts[2][1], 2.4, 2.4, joint)
    finish(c)
    cyan = (60, 230, 240)
    c.rect(x - 5, y - 3, x + 5, y - 1, (20, 40, 60))  # visor
    c.plot(x - 3, y - 2, cyan)
    c.plot(x - 2, y - 2, cyan)
    c.plot(x + 2, y - 2, cyan)
    c.plot(x + 3, y - 2, cyan)
    for mx in range(x - 3, x + 4):  # grille mouth
        c.plot(mx, y + 3, (40, 44, 52) if mx % 2 else (110, 118, 130))
    for rx, ry in ((x - 6, y - 6), (x + 6, y - 6), (x - 6, y + 5), (x + 6, y + 5)):
        c.plot(rx, ry, (80, 86, 96))
    cx, top = b.cx + b.lean, b.top
    c.rect(cx - 4, top + 4, cx + 4, top + 11, (60, 66, 80))  # chest panel
    for i, col in enumerate(((240, 60, 50), (250, 210, 40), (70, 220, 90))):
        c.plot(cx - 2 + 2 * i, top + 6, col)
    c.rect(cx - 3, top + 9, cx + 3, top + 9, cyan)
    for ry in range(top + 2, b.hip, 4):
        c.plot(cx - b.half + 1, ry, (110, 118, 130))
        c.plot(cx + b.half - 1, ry, (110, 118, 130))
    c.outline()
    return c.rows()


def sorcerer(pose):
    c = Canvas(W, 80)
    b = Body(c, pose)
    robe, hat, beard = (74, 52, 168), (60, 40, 150), (236, 236, 228)
    b.legs(robe, (90, 60, 40))
    b.torso(robe, bottom=b.ground - 2, flare=4)
    b.neck(SKIN)
    b.head(SKIN)
    x, y = b.hx, b.hy
    c.polygon([(x - 6, y + 1), (x + 6, y + 1), (x + 4, y + 11), (x, y + 14), (x - 4, y + 11)], beard)
    b.arms(robe, SKIN, radius=2.3)
    # tall hat whose tip flops towards the back
    tip = (x - 5 - b.side * 2, y - 27)
    c.polygon([(x - 7, y - 5), (x + 7, y - 5), (x + 2, y - 17), tip, (x - 3, y - 16)], hat)
    c.ellipse(x, y - 5, 10, 2.2, hat)
    finish(c)
    yellow = (250, 220, 60)
    ix, iy = int(x), int(y)
    for sx, sy in ((ix - 2, iy - 11), (ix + 1, iy - 17), (ix - 5, iy - 21)):
        star(c, sx, sy, yellow)
    cx = b.cx + b.lean
    for sx, sy in ((cx - 5, b.top + 15), (cx + 4, b.top + 22), (cx - 3, b.top + 28)):
        star(c, sx, sy, yellow)
    b.face(mouth=(150, 140, 140), brows=(210, 210, 204), nose=(204, 140, 110))
    c.outline()
    return c.rows()


def space(pose):
    c = Canvas(W, 72)
    b = Body(c, pose)
    suit, trim, glass = (226, 228, 232), (232, 110, 40), (70, 130, 200)
    cx, top = b.cx + b.lean, b.top
    c.rect(cx - b.half - 2, top + 2, cx + b.half + 2, top + 15, (150, 154, 164))  # backpack
    b.legs(suit, (90, 94, 108), radius=2.7)
    b.torso(suit)
    b.belt((150, 154, 164))
    b.arms(suit, (230, 120, 50), radius=2.4, hand_r=2.6)
    c.ellipse(b.hx, b.hy, 9.2, 9.4, (206, 212, 222))  # helmet shell
    finish(c)
    c.ellipse(b.hx, b.hy, 6.6, 6.8, glass, part=0)
    c.px = [[p for p in row] for row in c.px]
    x, y = int(b.hx), int(b.hy)
    for sx in range(x - 3, x + 4):  # the face behind the visor glass
        for sy in range(y - 3, y + 5):
            if (sx - x) ** 2 + (sy - y - 0.5) ** 2 <= 12:
                c.plot(sx, sy, (200, 170, 150))
    c.plot(x - 2, y, DARK)
    c.plot(x + 1, y, DARK)
    c.plot(x - 1, y + 3, (140, 80, 80))
    c.plot(x, y + 3, (140, 80, 80))
    for i in range(3):  # reflection streak
        c.plot(x + 3 + (i > 0), y - 5 + i, (200, 230, 250))
    c.rect(cx - 3, top + 4, cx + 3, top + 8, (60, 66, 80))  # chest control box
    c.plot(cx - 2, top + 5, (240, 60, 50))
    c.plot(cx, top + 5, (70, 220, 90))
    c.plot(cx + 2, top + 5, (250, 210, 40))
    c.rect(cx - 2, top + 7, cx + 2, top + 7, (120, 200, 250))
    c.rect(cx - b.half + 1, top + 11, cx - b.half + 3, top + 12, trim)  # mission patch
    c.rect(cx + b.half - 3, top + 11, cx + b.half - 1, top + 12, (60, 90, 200))
    c.outline()
    return c.rows()


def suit(pose):
    c = Canvas(W, 70)
    b = Body(c, pose)
    navy, shirt, tie = (42, 50, 84), (236, 236, 232), (200, 30, 40)
    b.legs((36, 40, 60), (24, 22, 26))
    b.torso(navy)
    b.neck(SKIN)
    b.head(SKIN)
    b.arms(navy, SKIN)
    x, y = b.hx, b.hy
    c.ellipse(x, y - 5, 7.0, 3.6, (70, 44, 26))  # neat hair with a side parting
    c.rect(int(x) - 7, int(y) - 5, int(x) - 6, int(y) - 1, (70, 44, 26))
    c.rect(int(x) + 6, int(y) - 5, int(x) + 7, int(y) - 2, (70, 44, 26))
    finish(c)
    cx, top = b.cx + b.lean, b.top
    c.polygon([(cx - 3, top), (cx + 4, top), (cx + 0.5, top + 9)], shirt)  # shirt V
    for ty, w in ((1, 0), (2, 1), (3, 0), (4, 1), (5, 1), (6, 1), (7, 2), (8, 2), (9, 1)):
        for tx in range(cx - w, cx + w + 1):
            c.plot(tx, top + ty, tie if ty > 1 else (150, 20, 30))
    c.plot(cx, top + 10, (150, 20, 30))
    for ly in range(top, top + 10):  # lapels
        c.plot(cx - 4 + (ly - top) // 3, ly, (28, 32, 56))
        c.plot(cx + 4 - (ly - top) // 3, ly, (28, 32, 56))
    c.plot(cx + 2, top + 13, (200, 200, 210))  # jacket buttons
    c.plot(cx + 2, top + 16, (200, 200, 210))
    c.plot(cx - 5, top + 5, shirt)  # pocket square
    c.plot(cx - 4, top + 5, shirt)
    c.plot(int(x) - 2, int(y) - 7, (110, 76, 46))
    b.face(brows=(70, 44, 26), nose=(204, 140, 110))
    c.outline()
    return c.rows()


def dunik(pose):
    c = Canvas(W + 4, 72)
    b = Body(c, pose, half=9, torso_len=20)
    red, dred = (190, 44, 40), (120, 24, 28)
    skin = (226, 170, 130)
    b.legs((70, 84, 110), (80, 52, 30), radius=2.8)
    b.torso(red)
    b.belt((60, 40, 24), (200, 200, 200))
    b.neck(skin)
    b.head(skin, rx=7.2, ry=7.6)
    x, y = b.hx, b.hy
    beard = (120, 66, 30)
    c.polygon([(x - 7, y - 1), (x + 7, y - 1), (x + 7, y + 5), (x + 3, y + 10), (x - 3, y + 10),
               (x - 7, y + 5)], beard)
    c.ellipse(x, y - 4.5, 7.6, 4.2, (40, 44, 60))  # knitted beanie
    c.ellipse(x, y - 9.5, 2.2, 2.0, (200, 60, 40))
    b.arms(red, skin, radius=2.9, hand_r=2.8)
    finish(c)
    cx, top = b.cx + b.lean, b.top
    for py in range(top + 1, b.hip - 1):  # lumberjack checks
        for px in range(cx - b.half + 1, cx + b.half):
            if (px - cx) % 4 == 0 or (py - top) % 4 == 0:
                if c.px[py][px] is not None:
                    c.plot(px, py, dred)
    for k in (-1, 1):  # checks on the sleeves too
        for (ax, ay) in b.hands[k][:2]:
            c.plot(ax, ay, dred)
    ix, iy = int(x), int(y)
    for ex in (ix - 3, ix + 2):
        c.plot(ex, iy - 1, (250, 250, 244))
        c.plot(ex + 1, iy - 1, DARK)
    for bx in range(ix - 4, ix + 5):  # bushy brows
        if bx != ix:
            c.plot(bx, iy - 2, (90, 50, 24))
    c.rect(ix - 1, iy, ix + 1, iy + 1, (210, 130, 100))  # big nose
    for mx in range(ix - 2, ix + 3):
        c.plot(mx, iy + 4, (90, 30, 30))
    for sx in range(ix - 4, ix + 5, 3):  # beard strands
        c.plot(sx, iy + 7, (90, 46, 20))
    c.outline()
    return c.rows()


def vostrel(pose):
    c = Canvas(W + 4, 70)
    b = Body(c, pose)
    fur, belly, dark = (122, 120, 128), (196, 190, 182), (70, 68, 76)
    cx = b.cx + b.lean
    tail_side = -1 if b.side >= 0 else 1
    # bushy tail hanging behind the hips, curling up at its pale tip
    tail = [(cx + tail_side * 5, b.hip - 3), (cx + tail_side * 11, b.hip + 3),
            (cx + tail_side * 15, b.hip + 1 - (2 if b.side else 0))]
    c.limb(tail[:2], 3.0, fur)
    c.limb(tail[1:], 2.6, fur)
    c.ellipse(tail[2][0] + tail_side, tail[2][1] - 1, 2.2, 2.2, belly)
    b.legs((96, 74, 54), dark, radius=2.6)
    b.torso(fur)
    c.ellipse(cx + 0.5, b.top + 11, 4.5, 7.5, belly)
    b.neck(fur)
    x, y = b.hx, b.hy
    for k in (-1, 1):  # pointed ears
        c.polygon([(x + k * 2, y - 4), (x + k * 8, y - 13), (x + k * 7, y - 1)], fur)
    b.head(fur, rx=7.0, ry=6.6)
    c.ellipse(x, y + 4, 4.2, 3.4, belly)  # muzzle
    b.arms(fur, dark, radius=2.1)
    finish(c)
    ix, iy = int(x), int(y)
    for k in (-1, 1):
        c.plot(ix + k * 6 - (k < 0), iy - 8, (200, 150, 150))  # inner ears
        c.plot(ix + k * 5 - (k < 0), iy - 6, (200, 150, 150))
    for ex in (ix - 3, ix + 2):  # yellow, angry eyes
        c.plot(ex, iy - 1, (250, 210, 40))
        c.plot(ex + 1, iy - 1, (250, 210, 40))
        c.plot(ex + (1 if ex < ix else 0), iy, DARK)
    c.plot(ix - 4, iy - 3, DARK)  # frown
    c.plot(ix - 3, iy - 3, DARK)
    c.plot(ix - 2, iy - 2, DARK)
    c.plot(ix + 4, iy - 3, DARK)
    c.plot(ix + 3, iy - 3, DARK)
    c.plot(ix + 2, iy - 2, DARK)
    c.rect(ix - 1, iy + 2, ix + 1, iy + 3, (20, 18, 22))  # nose
    for mx in range(ix - 2, ix + 3):
        c.plot(mx, iy + 6, (90, 30, 36))
    c.plot(ix - 2, iy + 5, (250, 250, 240))  # fangs
    c.plot(ix + 2, iy + 5, (250, 250, 240))
    for k in (-1, 1):  # claws
        hx, hy = b.hand_at(k)
        c.plot(round(hx) - 1, round(hy) - 2, (240, 236, 220))
        c.plot(round(hx) + 1, round(hy) - 2, (240, 236, 220))
    c.outline()
    return c.rows()


CHARACTERS = {
    "Classic Grumbo": classic,
    "Rapper Grumbo": rapper,
    "Robo Grumbo": robo,
    "Sorcerer Grumbo": sorcerer,
    "Space Grumbo": space,
    "Suit Grumbo": suit,
    "Dunik": dunik,
    "Vostrel": vostrel,
}
