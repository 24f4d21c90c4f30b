"""Standard MIDI File writing (format 1) with a tempo map, and the matching
playing-time calculation used to check the result."""
import struct

PPQ = 480


def vlq(n):
    out = [n & 0x7F]
    n >>= 7
    while n:
        out.append(0x80 | (n & 0x7F))
        n >>= 7
    return bytes(reversed(out))


class Track:
    def __init__(self, name=None):
        self.events = []  # (tick, order, kind, payload)
        if name:
            self.meta(0, 0x03, name.encode("ascii"))

    def meta(self, tick, kind, data):
        self.events.append((tick, 0, "meta", (kind, bytes(data))))

    def tempo(self, tick, us_per_quarter):
        self.meta(tick, 0x51, us_per_quarter.to_bytes(3, "big"))

    def channel(self, tick, status, *data, order=2):
        self.events.append((tick, order, "chan", (status, bytes(data))))

    def program(self, tick, ch, prog):
        self.channel(tick, 0xC0 | ch, prog, order=1)

    def control(self, tick, ch, cc, value):
        self.channel(tick, 0xB0 | ch, cc, value, order=1)

    def note(self, tick, dur, ch, key, vel):
        # note-offs sort before note-ons at the same tick so repeated notes retrigger
        self.channel(tick, 0x90 | ch, key, vel, order=3)
        self.channel(tick + max(1, dur), 0x90 | ch, key, 0, order=2)

    def encode(self, end_tick):
        body = bytearray()
        last = 0
        running = None
        for tick, _, kind, payload in sorted(self.events, key=lambda e: (e[0], e[1])):
            if tick > end_tick:
                raise ValueError("event after the end of the track")
            body += vlq(tick - last)
            last = tick
            if kind == "meta":
                body += bytes((0xFF, payload[0])) + vlq(len(payload[1])) + payload[1]
                running = None
            else:
                status, data = payload
                if status != running:  # running status: repeat the status byte only when it changes
                    body.append(status)
                    running = status
                body += data
        body += vlq(end_tick - last) + b"\xff\x2f\x00"
        return b"MTrk" + struct.pack(">I", len(body)) + bytes(body)


def write(path, tracks, end_tick):
    data = struct.pack(">4sIHHH", b"MThd", 6, 1, len(tracks), PPQ)
    data += b"".join(t.encode(end_tick) for t in tracks)
    with open(path, "wb") as f:
        f.write(data)


class TempoMap:
    """Piecewise-constant tempo; converts between ticks and seconds."""

    def __init__(self, changes):
        self.changes = sorted(changes)  # (tick, microseconds per quarter)

    def seconds(self, tick):
        total, prev_tick, prev_us = 0.0, 0, 500000
        for t, us in self.changes:
            if t >= tick:
                break
            total += (t - prev_tick) * prev_us / PPQ / 1e6
            prev_tick, prev_us = t, us
        return total + (tick - prev_tick) * prev_us / PPQ / 1e6

    def tick_at(self, secs):
        lo, hi = 0, 1
        while self.seconds(hi) < secs:
            hi *= 2
        while hi - lo > 1:
            mid = (lo + hi) // 2
            if self.seconds(mid) < secs:
                lo = mid
            else:
                hi = mid
        return hi if abs(self.seconds(hi) - secs) <= abs(self.seconds(lo) - secs) else lo
