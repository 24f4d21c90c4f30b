"""Body parts shared by all characters.

A `Body` knows where hips, shoulders, head and hands sit for one pose:
0 standing, 1 throwing with the arm raised to the right, 2 the same to the
left.  In the throwing poses the upper body dips a pixel and leans towards the
throwing arm while the opposite leg kicks out, so flipping between pose 1 and
pose 2 looks like a little jig.
"""
SKIN = (238, 188, 146)
DARK = (40, 30, 34)
EYE_WHITE = (250, 250, 244)
MOUTH = (150, 60, 60)


class Body:
    def __init__(self, canvas, pose, half=7, leg_len=21, torso_len=19):
        self.c = canvas
        self.pose = pose
        self.side = {0: 0, 1: 1, 2: -1}[pose]
        self.half = half
        self.cx = canvas.w // 2
        self.ground = canvas.h - 1
        dip = 1 if pose else 0
        self.lean = self.side
        self.hip = self.ground - leg_len + dip
        self.top = self.hip - torso_len
        self.hx = self.cx + 0.5 + self.lean          # head centre
        self.hy = self.top - 7
        self.feet = self._feet()
        self.hands = self._arms()

    # --- geometry ---------------------------------------------------------
    def _feet(self):
        cx, g, s = self.cx + 0.5, self.ground, self.side
        feet = {-1: (cx - 4.5, g - 3.0), 1: (cx + 4.5, g - 3.0)}
        if s:
            feet[-s] = (cx - s * 10.0, g - 6.0)
        return feet

    def _arms(self):
        cx, top, h, s = self.cx + 0.5 + self.lean, self.top, self.half, self.side
        arms = {}
        for k in (-1, 1):
            shoulder = (cx + k * (h - 1.5), top + 3.5)
            if s == 0:
                arms[k] = [shoulder, (cx + k * (h + 1.5), top + 10), (cx + k * (h + 2), top + 16)]
            elif k == s:
                arms[k] = [shoulder, (cx + k * (h + 5), top - 1), (cx + k * (h + 7), top - 9)]
            else:
                arms[k] = [shoulder, (cx + k * (h + 4), top + 9), (cx + k * (h + 8), top + 4)]
        return arms

    # --- parts ------------------------------------------------------------
    def legs(self, pants, shoes, radius=2.4, shoe_len=3):
        for k, (fx, fy) in self.feet.items():
            hip = (self.cx + 0.5 + k * 3.3 + self.lean * 0.5, self.hip)
            self.c.limb([hip, (fx, fy - 1)], radius, pants)
        for k, (fx, fy) in self.feet.items():
            out = k * shoe_len
            self.c.polygon([(fx - 2.5 + min(0, out), fy - 0.5), (fx + 2.5 + max(0, out), fy - 0.5),
                            (fx + 2.5 + max(0, out), fy + 3.4), (fx - 2.5 + min(0, out), fy + 3.4)],
                           shoes)

    def torso(self, colour, half=None, bottom=None, flare=0):
        """Trunk from shoulders to hips; `flare` widens it downwards (robes, coats)."""
        h = self.half if half is None else half
        cx = self.cx + 0.5 + self.lean
        bottom = self.hip + 1 if bottom is None else bottom
        self.c.polygon([(cx - h + 2, self.top), (cx + h - 2, self.top), (cx + h, self.top + 2),
                        (cx + h + flare, bottom), (cx - h - flare, bottom), (cx - h, self.top + 2)],
                       colour)

    def belt(self, colour, buckle=None):
        cx = self.cx + self.lean
        self.c.rect(cx - self.half, self.hip - 1, cx + self.half, self.hip, colour)
        if buckle:
            self.c.rect(cx - 1, self.hip - 1, cx + 1, self.hip, buckle)

    def arm(self, k, sleeve, hand, radius=1.9, hand_r=2.3):
        pts = self.hands[k]
        self.c.limb(pts, radius, sleeve)
        hx, hy = pts[-1]
        self.c.ellipse(hx, hy, hand_r, hand_r, hand)

    def arms(self, sleeve, hand, **kw):
        for k in (-1, 1):
            self.arm(k, sleeve, hand, **kw)

    def hand_at(self, k):
        return self.hands[k][-1]

    def neck(self, skin):
        cx = self.cx + self.lean
        self.c.rect(cx - 2, self.top - 2, cx + 2, self.top, skin)

    def head(self, skin, rx=6.6, ry=7.4):
        self.c.ellipse(self.hx, self.hy, rx, ry, skin)

    def face(self, eyes=DARK, mouth=MOUTH, brows=None, nose=None, grin=False):
        """Eyes, nose and mouth; painted after shading so they stay sharp."""
        x, y, c = int(self.hx), int(self.hy), self.c
        for ex in (x - 3, x + 2):
            c.plot(ex, y - 1, EYE_WHITE)
            c.plot(ex + 1, y - 1, eyes)
            c.plot(ex + 1, y, eyes)
            c.plot(ex, y, EYE_WHITE)
        if brows:
            c.plot(x - 3, y - 3, brows)
            c.plot(x - 2, y - 2, brows)
            c.plot(x + 3, y - 3, brows)
            c.plot(x + 2, y - 2, brows)
        if nose:
            c.plot(x, y + 1, nose)
            c.plot(x, y + 2, nose)
            c.plot(x + 1, y + 2, nose)
        if grin:
            for mx in range(x - 2, x + 3):
                c.plot(mx, y + 4, mouth)
            c.plot(x - 3, y + 3, mouth)
            c.plot(x + 3, y + 3, mouth)
        else:
            for mx in range(x - 1, x + 2):
                c.plot(mx, y + 4, mouth)
