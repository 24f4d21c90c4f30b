"""The bouncing arrow shown above the player whose turn it is."""
from drawkit import Canvas


def turn_marker():
    c = Canvas(20, 24)
    red, yellow = (226, 36, 28), (252, 214, 40)
    c.rect(6, 1, 13, 12, red, part=1)
    c.polygon([(1, 11), (19, 11), (10, 22.5)], red, part=1)
    c.shade()
    c.rect(8, 3, 11, 12, yellow)
    c.polygon([(5, 13), (15, 13), (10, 19)], yellow)
    c.outline()
    return c.rows()
