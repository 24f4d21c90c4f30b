"""Just enough signal processing to synthesise the game's sound effects.

Signals are plain lists of floats at RATE samples per second, nominally within
-1..1.  Everything is deterministic: noise comes from seeded generators.
"""
import math
import random
import struct
import wave

RATE = 22050


def seconds(n):
    return int(round(n * RATE))


def noise(dur, seed):
    rnd = random.Random(seed)
    return [rnd.uniform(-1.0, 1.0) for _ in range(seconds(dur))]


def tone(dur, freq, shape="sine", phase=0.0):
    """Oscillator whose frequency may be a number or a function of time (s)."""
    out = []
    for i in range(seconds(dur)):
        f = freq(i / RATE) if callable(freq) else freq
        phase = (phase + f / RATE) % 1.0
        if shape == "sine":
            out.append(math.sin(2 * math.pi * phase))
        elif shape == "saw":
            out.append(1.0 - 2.0 * phase)
        elif shape == "square":
            out.append(1.0 if phase < 0.5 else -1.0)
        else:  # triangle
            out.append(4.0 * abs(phase - 0.5) - 1.0)
    return out


def envelope(sig, points):
    """Multiply by a piecewise-linear curve given as (time, gain) pairs."""
    out = []
    j = 0
    for i, s in enumerate(sig):
        t = i / RATE
        while j + 1 < len(points) - 1 and t > points[j + 1][0]:
            j += 1
        (t0, g0), (t1, g1) = points[j], points[min(j + 1, len(points) - 1)]
        g = g1 if t >= t1 else g0 + (g1 - g0) * max(0.0, t - t0) / max(1e-9, t1 - t0)
        out.append(s * g)
    return out


def decay(sig, tau, attack=0.004):
    return [s * min(1.0, i / (attack * RATE)) * math.exp(-i / (tau * RATE)) for i, s in enumerate(sig)]


def biquad(sig, kind, freq, q=0.707, block=32):
    """RBJ cookbook filter; `freq` may be a function of time for sweeps."""
    out = []
    x1 = x2 = y1 = y2 = 0.0
    coeffs = None
    for i, x in enumerate(sig):
        if coeffs is None or (callable(freq) and i % block == 0):
            f = freq(i / RATE) if callable(freq) else freq
            f = max(20.0, min(RATE * 0.45, f))
            w = 2 * math.pi * f / RATE
            alpha = math.sin(w) / (2 * q)
            cw = math.cos(w)
            if kind == "low":
                b = ((1 - cw) / 2, 1 - cw, (1 - cw) / 2)
            elif kind == "high":
                b = ((1 + cw) / 2, -(1 + cw), (1 + cw) / 2)
            else:  # band pass, 0 dB at the peak
                b = (alpha, 0.0, -alpha)
            a0 = 1 + alpha
            coeffs = (b[0] / a0, b[1] / a0, b[2] / a0, -2 * cw / a0, (1 - alpha) / a0)
        b0, b1, b2, a1, a2 = coeffs
        y = b0 * x + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2
        x2, x1, y2, y1 = x1, x, y1, y
        out.append(y)
    return out


def mix(*parts):
    """Sum signals; each part is a signal or (start_seconds, signal[, gain])."""
    items = []
    for p in parts:
        if isinstance(p, tuple):
            items.append((seconds(p[0]), p[1], p[2] if len(p) > 2 else 1.0))
        else:
            items.append((0, p, 1.0))
    out = [0.0] * max(start + len(sig) for start, sig, _ in items)
    for start, sig, gain in items:
        for i, s in enumerate(sig):
            out[start + i] += s * gain
    return out


def finish(sig, peak=0.8, loudness=0.2):
    """Remove DC, soften the ends and normalise: the peak reaches `peak` of
    full scale unless that would make the sound louder (RMS) than
    `loudness`, so a square-wave siren does not drown a soft voice."""
    sig = biquad(sig, "high", 25.0)
    mean = sum(sig) / len(sig)
    sig = [s - mean for s in sig]
    fade = min(seconds(0.006), len(sig) // 4)
    for i in range(fade):
        sig[i] *= i / fade
        sig[-1 - i] *= i / fade
    top = max(abs(s) for s in sig) or 1.0
    rms = math.sqrt(sum(s * s for s in sig) / len(sig)) or 1.0
    scale = min(peak / top, loudness / rms)
    return [s * scale for s in sig]


def to_pcm16(sig):
    return [max(-32768, min(32767, int(round(s * 32767)))) for s in sig]


def write_wav(path, sig):
    with wave.open(path, "wb") as w:
        w.setnchannels(1)
        w.setsampwidth(2)
        w.setframerate(RATE)
        w.writeframes(struct.pack("<%dh" % len(sig), *to_pcm16(sig)))


def write_au(path, sig):
    """Sun/NeXT audio: big-endian header, 16-bit linear PCM (encoding 3)."""
    data = struct.pack(">%dh" % len(sig), *to_pcm16(sig))
    header = struct.pack(">4sIIIII", b".snd", 24, len(data), 3, RATE, 1)
    with open(path, "wb") as f:
        f.write(header + data)


# --- voices ----------------------------------------------------------------
VOWELS = {
    "a": (730, 1090, 2440), "e": (530, 1840, 2480), "i": (300, 2290, 3010),
    "o": (570, 840, 2410), "u": (320, 870, 2240), "ae": (660, 1720, 2410),
    "er": (490, 1350, 1690),
}


def voice(segments, seed=1, breath=0.0, jitter=0.01, vibrato=(5.5, 0.0), formant_shift=1.0):
    """Formant voice.  Each segment is (duration, vowel_from, vowel_to,
    pitch_from, pitch_to, loudness); loudness 0 gives a pause.  A glottal
    buzz is shaped by three resonators that glide between the vowels."""
    rnd = random.Random(seed)
    out = []
    phase = 0.0
    lp = 0.0
    states = [[0.0, 0.0, 0.0, 0.0] for _ in range(3)]
    coeffs = [None] * 3
    for dur, v0, v1, p0, p1, loud in segments:
        n = seconds(dur)
        f_a, f_b = VOWELS[v0], VOWELS[v1]
        for i in range(n):
            t = i / max(1, n - 1)
            pitch = p0 + (p1 - p0) * t
            pitch *= 1 + vibrato[1] * math.sin(2 * math.pi * vibrato[0] * len(out) / RATE)
            pitch *= 1 + jitter * rnd.uniform(-1, 1)
            phase = (phase + pitch / RATE) % 1.0
            src = (1.0 - 2.0 * phase) + breath * rnd.uniform(-1, 1)
            lp += 0.35 * (src - lp)           # soften the buzz like a real throat
            # syllable envelope: quick onset, short release
            env = loud * min(1.0, i / (0.025 * RATE), (n - i) / (0.04 * RATE))
            if i % 32 == 0:
                for k in range(3):
                    f = (f_a[k] + (f_b[k] - f_a[k]) * t) * formant_shift
                    bw = 80.0 + 40.0 * k
                    w = 2 * math.pi * f / RATE
                    r = math.exp(-math.pi * bw / RATE)
                    coeffs[k] = (2 * r * math.cos(w), -r * r, 1 - r)
            y = 0.0
            for k in range(3):
                c1, c2, g = coeffs[k]
                st = states[k]
                v = g * lp + c1 * st[0] + c2 * st[1]
                st[1], st[0] = st[0], v
                y += v * (1.0, 0.6, 0.3)[k]
            out.append(y * env)
    return out
