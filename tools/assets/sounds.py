"""Recipes for every sound effect, the character calls and the explosion."""
import math
import os

from dsp import (biquad, decay, envelope, finish, mix, noise, tone, voice, write_au, write_wav,
                 RATE)


def note_freq(midi):
    return 440.0 * 2 ** ((midi - 69) / 12)


def pluck(midi, dur, shape="square", bright=2500.0, tau=0.25):
    sig = tone(dur, note_freq(midi), shape)
    return decay(biquad(sig, "low", bright), tau)


def swish(dur=0.34, lo=500.0, hi=3200.0, seed=11):
    """Air cut by a fast arm: band-passed noise sweeping up and back down."""
    def centre(t):
        x = t / dur
        return lo + (hi - lo) * math.sin(math.pi * min(1.0, x * 1.1))
    sig = biquad(noise(dur, seed), "band", centre, q=2.5)
    return envelope(sig, [(0, 0), (dur * 0.45, 1.0), (dur, 0.0)])


def throw():
    return swish()


def sorcerer_throw():
    sparkle = mix(*[(0.05 + 0.06 * i, pluck(84 + n, 0.3, "sine", 6000, 0.12), 0.5)
                    for i, n in enumerate((0, 4, 7, 12, 16, 19))])
    return mix(swish(0.4, 700, 4000, seed=12), (0.0, sparkle, 0.8))


def dunik_throw():
    grunt = voice([(0.22, "u", "a", 120, 95, 1.0)], seed=3, breath=0.25, jitter=0.03)
    return mix(grunt, (0.12, swish(0.36, 300, 2000, seed=13), 1.2))


def growl():
    rough = voice([(0.85, "er", "o", 78, 64, 1.0)], seed=4, breath=0.5, jitter=0.08,
                  vibrato=(23.0, 0.09))
    wobble = [s * (0.65 + 0.35 * math.sin(2 * math.pi * 27 * i / RATE)) for i, s in enumerate(rough)]
    return wobble


def hit_cry():
    return voice([(0.08, "a", "a", 330, 340, 0.6), (0.55, "a", "o", 340, 180, 1.0)],
                 seed=5, breath=0.12, vibrato=(7.0, 0.025))


def dunik_hit():
    return voice([(0.16, "u", "u", 150, 140, 0.8), (0.05, "u", "u", 0, 0, 0.0),
                  (0.55, "a", "o", 170, 85, 1.0)], seed=6, breath=0.2, jitter=0.03)


def crater_crunch():
    grit = noise(0.5, 21)
    grit = [s if abs(s) > 0.72 else s * 0.3 for s in grit]  # crackle: sparse loud grains
    crunch = decay(biquad(grit, "low", 2200), 0.11)
    thump = decay(tone(0.3, lambda t: 95 - 120 * t), 0.08)
    return mix(crunch, (0.0, thump, 0.8))


def nuke_dissolve():
    dur = 1.6
    hiss = biquad(noise(dur, 31), "band", lambda t: 4000 * math.exp(-2.2 * t) + 150, q=3.0)
    fall = tone(dur, lambda t: 900 * math.exp(-1.6 * t) + 40, "triangle")
    trem = [s * (0.6 + 0.4 * math.sin(2 * math.pi * (9 - 4 * i / len(fall)) * i / RATE))
            for i, s in enumerate(fall)]
    return envelope(mix(hiss, (0.0, trem, 0.5)), [(0, 0), (0.03, 1), (0.5, 0.8), (dur, 0)])


def nuke_announce():
    """Warning siren: two rising wails."""
    dur = 1.1
    siren = tone(dur, lambda t: 500 + 700 * ((t * 1.8) % 1.0), "square")
    siren = biquad(siren, "low", 2400)
    return envelope(siren, [(0, 0), (0.03, 1), (dur - 0.15, 1), (dur, 0)])


def war_announce():
    """Bugle call: a brassy G C E G."""
    brass = lambda n, d: envelope(biquad(tone(d, note_freq(n) * 1.0, "saw"), "low", 1800),
                                  [(0, 0), (0.02, 1), (d - 0.05, 0.8), (d, 0)])
    return mix((0.0, brass(67, 0.16)), (0.18, brass(72, 0.16)), (0.36, brass(76, 0.16)),
               (0.54, brass(79, 0.5)))


def magnet_announce():
    """Electric hum that wobbles, like a magnet switching on."""
    dur = 1.0
    hum = tone(dur, lambda t: 110 + 30 * math.sin(2 * math.pi * 4 * t), "saw")
    hum = biquad(hum, "band", lambda t: 600 + 500 * math.sin(2 * math.pi * 4 * t), q=4)
    zap = tone(dur, lambda t: 1500 + 800 * math.sin(2 * math.pi * 4 * t), "sine")
    return envelope(mix(hum, (0.0, zap, 0.15)), [(0, 0), (0.05, 1), (0.8, 1), (dur, 0)])


def flying_code():
    dur = 1.0
    whee = tone(dur, lambda t: 350 * 2 ** (2.2 * t / dur), "triangle")
    air = swish(dur, 400, 5000, seed=41)
    return envelope(mix(whee, (0.0, air, 0.6)), [(0, 0), (0.05, 1), (0.75, 1), (dur, 0)])


def all_projectiles_code():
    notes = (60, 64, 67, 72, 76, 79, 84)
    return mix(*[(0.07 * i, pluck(n, 0.35, "square", 3500, 0.15), 0.6)
                 for i, n in enumerate(notes)])


def calibration_blip():
    a = envelope(tone(0.09, 880, "sine"), [(0, 0), (0.005, 1), (0.08, 1), (0.09, 0)])
    b = envelope(tone(0.12, 1320, "sine"), [(0, 0), (0.005, 1), (0.11, 1), (0.12, 0)])
    return mix(a, (0.14, b))


def intro_jingle():
    """A short bouncy fanfare in C major that ends on a held chord."""
    beat = 0.21
    melody = [(0, 72, 1), (1, 76, 1), (2, 79, 1), (3, 84, 2), (5, 79, 1), (6, 81, 1), (7, 83, 1),
              (8, 84, 1), (9, 86, 1), (10, 88, 2), (12, 84, 4)]
    bass = [(0, 48, 2), (2, 55, 2), (4, 53, 2), (6, 55, 2), (8, 57, 2), (10, 55, 2), (12, 48, 4)]
    parts = []
    for start, n, length in melody:
        parts.append((start * beat, pluck(n, length * beat + 0.15, "square", 3000, 0.4), 0.45))
    for start, n, length in bass:
        parts.append((start * beat, pluck(n, length * beat, "triangle", 1200, 0.5), 0.8))
    for n in (60, 64, 67):
        parts.append((12 * beat, pluck(n, 0.9, "saw", 1800, 0.5), 0.25))
    for k in range(0, 12, 2):  # kick on every other beat, snare after it
        parts.append((k * beat, decay(tone(0.15, lambda t: 120 - 300 * t), 0.05), 0.9))
        parts.append(((k + 1) * beat, decay(biquad(noise(0.12, 50 + k), "high", 1500), 0.04), 0.35))
    return mix(*parts)


def explosion():
    crack = decay(biquad(noise(0.3, 61), "high", 800), 0.05, attack=0.001)
    rumble = decay(biquad(biquad(noise(1.8, 62), "low", 260), "low", 260), 0.55, attack=0.005)
    boom = decay(tone(1.2, lambda t: 60 * math.exp(-0.8 * t) + 25), 0.35, attack=0.002)
    return mix((0.0, crack, 0.6), (0.0, rumble, 3.0), (0.0, boom, 0.7))


# --- character calls --------------------------------------------------------
def call_classic():
    return voice([(0.2, "e", "e", 190, 200, 1.0), (0.06, "e", "e", 0, 0, 0),
                  (0.34, "o", "o", 220, 170, 1.0)], seed=71, breath=0.1)


def call_rapper():
    return voice([(0.14, "i", "o", 150, 140, 1.0), (0.3, "o", "o", 140, 120, 1.0),
                  (0.05, "o", "o", 0, 0, 0), (0.24, "a", "ae", 135, 160, 0.9)],
                 seed=72, breath=0.15)


def call_robo():
    sig = voice([(0.16, "a", "a", 120, 120, 1.0), (0.04, "a", "a", 0, 0, 0),
                 (0.16, "i", "i", 120, 120, 1.0), (0.04, "a", "a", 0, 0, 0),
                 (0.3, "o", "o", 100, 100, 1.0)], seed=73, jitter=0.0)
    ring = [s * math.sin(2 * math.pi * 60 * i / RATE) for i, s in enumerate(sig)]
    return [round(s * 24) / 24 for s in mix(ring, (0.0, sig, 0.4))]  # a little bit-crushed


def call_sorcerer():
    return voice([(0.28, "o", "u", 120, 110, 1.0), (0.06, "u", "u", 0, 0, 0),
                  (0.5, "o", "u", 130, 100, 1.0)], seed=74, breath=0.3, vibrato=(6.0, 0.05))


def call_space():
    sig = voice([(0.2, "a", "a", 165, 170, 1.0), (0.3, "o", "u", 170, 150, 1.0)], seed=75,
                breath=0.1)
    radio = biquad(biquad(sig, "high", 500), "low", 2800)
    beep = envelope(tone(0.12, 1500), [(0, 0), (0.005, 1), (0.11, 1), (0.12, 0)])
    return mix(radio, (0.55, beep, 0.05))


def call_suit():
    return voice([(0.18, "a", "a", 135, 140, 1.0), (0.05, "a", "a", 0, 0, 0),
                  (0.34, "a", "a", 150, 115, 1.0)], seed=76, breath=0.08)


def call_dunik():
    segs = []
    for i in range(3):
        segs += [(0.17, "o", "o", 95 - 5 * i, 85 - 5 * i, 1.0), (0.07, "o", "o", 0, 0, 0)]
    return voice(segs, seed=77, breath=0.2, jitter=0.03, formant_shift=0.9)


def call_vostrel():
    """A short howl rising and falling."""
    howl = voice([(0.25, "a", "o", 280, 460, 0.8), (0.6, "o", "u", 460, 320, 1.0)],
                 seed=78, breath=0.25, vibrato=(5.0, 0.03))
    return envelope(howl, [(0, 1), (0.5, 1), (0.85, 0.1)])


EFFECTS = {
    "throw.wav": throw, "sThrow.wav": sorcerer_throw, "dThrow.wav": dunik_throw,
    "vGrr.wav": growl, "dHit.wav": dunik_hit, "ge.wav": hit_cry, "vg.wav": nuke_dissolve,
    "bc.wav": crater_crunch, "nBan.wav": nuke_announce, "wBan.wav": war_announce,
    "mBan.wav": magnet_announce, "flyg.wav": flying_code, "allb.wav": all_projectiles_code,
    "gn.wav": calibration_blip, "g2intro.wav": intro_jingle,
    "classicG.wav": call_classic, "rapperG.wav": call_rapper, "roboG.wav": call_robo,
    "sorcererG.wav": call_sorcerer, "spaceG.wav": call_space, "suitG.wav": call_suit,
    "dunikG.wav": call_dunik, "vostrelG.wav": call_vostrel,
}


def write_all(data_dir):
    folder = os.path.join(data_dir, "sounds")
    os.makedirs(folder, exist_ok=True)
    for name, make in EFFECTS.items():
        write_wav(os.path.join(folder, name), finish(make(), peak=0.8))
    write_au(os.path.join(data_dir, "Explosion-2.au"), finish(explosion(), peak=0.89))
