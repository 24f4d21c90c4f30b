"""A small composer for the match music.

Each tune is described by a line of TUNES (tempo, key, mode, metre,
instruments and grooves) and a seed.  From that it builds a song form (intro,
A and B sections that come back with variations, a coda and a held final
chord), writes a melody from motifs over the chord progression, a bass line,
accompaniment and drums, and places the end of the track exactly where the
tune's playing time is up (to the nearest tick, about a millisecond), so the
game's change of tunes lands on the last chord.
"""
import os
import random

import smf
from smf import PPQ

SCALES = {
    "major": [0, 2, 4, 5, 7, 9, 11],
    "minor": [0, 2, 3, 5, 7, 8, 10],
    "dorian": [0, 2, 3, 5, 7, 9, 10],
    "mixolydian": [0, 2, 4, 5, 7, 9, 10],
}

# Progressions as scale degrees (0 = tonic), one chord per bar.
PROGRESSIONS = {
    "major": [[0, 4, 5, 3], [0, 5, 3, 4], [0, 3, 4, 4], [0, 3, 0, 4], [5, 3, 0, 4],
              [1, 4, 0, 0], [0, 2, 3, 4], [3, 4, 2, 5]],
    "minor": [[0, 5, 2, 6], [0, 3, 4, 0], [0, 6, 5, 4], [0, 3, 6, 2], [5, 6, 0, 0], [0, 5, 3, 4]],
    "dorian": [[0, 3, 0, 3], [0, 6, 3, 0], [0, 1, 2, 3], [6, 3, 0, 0]],
    "mixolydian": [[0, 6, 3, 0], [0, 3, 6, 0], [0, 4, 6, 3], [3, 6, 0, 0]],
}

RHYTHMS = {  # one bar of melody, in beats
    4: [[1, 1, 1, 1], [1.5, 0.5, 1, 1], [0.5, 0.5, 1, 2], [1, 0.5, 0.5, 2], [2, 1, 1],
        [0.5, 0.5, 0.5, 0.5, 1, 1], [1, 1, 2], [0.75, 0.25, 1, 0.5, 0.5, 1], [1.5, 1.5, 1]],
    3: [[1, 1, 1], [2, 1], [1.5, 0.5, 1], [1, 0.5, 0.5, 1], [0.5, 0.5, 1, 1]],
}
ENDINGS = {4: [[2, 2], [3, 1], [4], [1, 3]], 3: [[3], [2, 1], [1, 2]]}

DRUMS = {  # 16th-note steps per bar: kick, snare, hat (GM keys 36, 38, 42 unless noted)
    "rock": ("x.......x.x.....", "....x.......x...", "x.x.x.x.x.x.x.x."),
    "light": ("x.......x.......", "....x.......x...", "x...x...x...x..."),
    "funk": ("x..x..x...x..x..", "....x..x.x..x...", "xxxxxxxxxxxxxxxx"),
    "swing": ("x.........x.....", "................", "x...x..xx...x..x"),
    "march": ("x.......x.......", "x.xxx.x.x.xxx.x.", "................"),
    "polka": ("x.......x.......", "....x.......x...", "..x...x...x...x."),
    "shuffle": ("x.....x.x.......", "....x.......x...", "x..x.xx..x.xx..x"),
    "half": ("x.........x.....", "........x.......", "x.x.x.x.x.x.x.x."),
    "dance": ("x...x...x...x...", "....x.......x...", "..x...x...x...x."),
    "waltz": ("x...........", "....x...x...", "x.x.x.x.x.x."),
}

# seconds, bpm, key (MIDI of the tonic), mode, beats per bar,
# lead, second lead, chords, bass (GM programs), chord style, bass style, drums
TUNES = {
    1: (233, 120, 60, "major", 4, 56, 73, 48, 33, "pad", "rootfifth", "rock"),
    2: (177, 96, 57, "minor", 4, 73, 68, 24, 32, "arp", "root", "light"),
    3: (297, 132, 55, "mixolydian", 4, 40, 21, 21, 58, "offbeat", "oompah", "polka"),
    4: (225, 84, 64, "dorian", 4, 11, 65, 4, 35, "pad", "walking", "swing"),
    5: (371, 140, 65, "major", 4, 80, 81, 80, 38, "arp", "eighths", "rock"),
    6: (162, 72, 62, "minor", 3, 68, 71, 46, 42, "waltz", "waltz", None),
    7: (270, 104, 58, "major", 4, 65, 56, 4, 33, "stabs", "groove", "funk"),
    8: (416, 90, 60, "minor", 4, 60, 40, 48, 43, "pad", "root", "march"),
    9: (112, 150, 57, "major", 4, 105, 22, 25, 32, "strum", "rootfifth", "shuffle"),
    10: (62, 126, 64, "major", 4, 9, 12, 12, 34, "arp", "eighths", "light"),
    11: (272, 100, 66, "minor", 4, 75, 52, 89, 38, "pad", "root", "half"),
    12: (211, 116, 55, "major", 4, 71, 57, 0, 58, "offbeat", "oompah", "swing"),
    13: (345, 128, 59, "minor", 4, 81, 80, 88, 38, "arp", "eighths", "dance"),
    14: (179, 80, 63, "major", 4, 0, 73, 48, 32, "arp", "root", None),
    15: (88, 160, 62, "dorian", 4, 40, 22, 21, 32, "offbeat", "oompah", "polka"),
    16: (193, 108, 60, "mixolydian", 4, 22, 29, 25, 33, "strum", "walking", "shuffle"),
    17: (97, 138, 57, "minor", 4, 56, 60, 61, 34, "stabs", "eighths", "march"),
    18: (50, 112, 65, "major", 4, 12, 11, 11, 32, "arp", "rootfifth", "light"),
    19: (156, 92, 55, "minor", 3, 40, 73, 46, 42, "waltz", "waltz", "waltz"),
    20: (44, 144, 62, "major", 4, 72, 56, 61, 58, "stabs", "oompah", "march"),
    21: (24, 120, 60, "major", 4, 8, 10, 10, 32, "arp", "root", None),
    22: (126, 100, 64, "minor", 4, 66, 65, 16, 33, "stabs", "groove", "funk"),
}

LEAD, CHORDS, BASS, ALT, DRUM = 0, 1, 2, 3, 9


class Key:
    def __init__(self, tonic, mode):
        self.tonic = tonic
        self.steps = SCALES[mode]
        self.minor = mode == "minor"

    def pitch(self, index, base):
        """MIDI note of scale index `index`, counted from the tonic at `base`."""
        octave, step = divmod(index, 7)
        return base + 12 * octave + self.steps[step]

    def chord(self, degree, base):
        notes = [self.pitch(degree + k, base) for k in (0, 2, 4)]
        if self.minor and degree % 7 == 4:  # major dominant for a stronger pull home
            notes[1] += 1
        return notes


class Composer:
    def __init__(self, number):
        (self.length, bpm, tonic, mode, self.beats, self.lead, self.alt, self.chord_prog,
         self.bass_prog, self.chord_style, self.bass_style, self.drums) = TUNES[number]
        self.rnd = random.Random(1000 + number)
        self.key = Key(tonic, mode)
        self.mode = mode
        self.us = int(round(60e6 / bpm))
        self.bar = self.beats * PPQ
        self.tracks = {name: smf.Track(name) for name in ("Lead", "Chords", "Bass", "Drums")}
        self.tempo_track = smf.Track("Grumbo 2 tune %d" % number)

    # --- form ---------------------------------------------------------------
    def plan(self):
        """Choose bars and tempo map so the music plus a ringing final chord
        fills the tune's length; the last two bars slow down a little."""
        bar_secs = self.bar / PPQ * self.us / 1e6
        bars = int(self.length / bar_secs)
        while True:
            changes = [(0, self.us)]
            rit_start = (bars - 2) * self.bar
            for i in range(2 * self.beats):
                changes.append((rit_start + i * PPQ, int(self.us * (1 + 0.03 * (i + 1)))))
            tempo = smf.TempoMap(changes)
            final_chord = bars * self.bar
            if tempo.seconds(final_chord) + 1.2 <= self.length:
                return bars, changes, tempo
            bars -= 1

    def sections(self, bars):
        prog_a, prog_b = self.rnd.sample(PROGRESSIONS[self.mode], 2)
        intro = 2 if bars < 24 else 4
        body = bars - intro - 2  # two ritardando bars close the tune
        form = []
        cycle = ["A", "A", "B", "A", "break", "B", "A"]
        i = 0
        while body > 0:
            kind = cycle[i % len(cycle)]
            size = 4 if kind == "break" else 8
            size = min(size, body)
            form.append((kind, size, i // len(cycle)))
            body -= size
            i += 1
        return [("intro", intro, 0)] + form + [("end", 2, 0)], {"A": prog_a, "B": prog_b,
                                                                  "break": prog_a, "intro": prog_a}

    # --- melody -------------------------------------------------------------
    def motif(self):
        """A bar-long rhythm with a contour of scale steps; mostly steps, a few leaps."""
        rhythm = self.rnd.choice(RHYTHMS[self.beats])
        moves = [self.rnd.choice([-2, -1, -1, 1, 1, 2, 3, -3, 4]) for _ in rhythm]
        return rhythm, moves

    def melody(self, start, size, prog, turn, ch):
        """Two four-bar phrases: motif, motif, variation, cadence."""
        motif_a, motif_b = self.motif(), self.motif()
        ending = self.rnd.choice(ENDINGS[self.beats])
        base = self.key.tonic + 12 if self.key.tonic < 62 else self.key.tonic
        idx = 4 + (turn % 2) * 2  # later rounds sit a little higher
        track = self.tracks["Lead"]
        for bar in range(size):
            degree = prog[bar % len(prog)]
            phrase_pos = bar % 4
            last_phrase = bar >= size - 4
            if phrase_pos == 3:
                rhythm, moves = ending, [0] * len(ending)
            elif phrase_pos == 2:
                rhythm, moves = motif_b
            else:
                rhythm, moves = motif_a
            t = start + bar * self.bar
            for n, (beats, move) in enumerate(zip(rhythm, moves)):
                if not -2 <= idx + move <= 10:  # turn the contour back inside the range
                    move = -move
                idx += move
                strong = n == 0
                if strong or phrase_pos == 3:
                    target = 0 if (phrase_pos == 3 and last_phrase) else degree
                    idx = self.nearest_chord_tone(idx, target)
                dur = int(beats * PPQ)
                vel = 96 if strong else 84 + self.rnd.randint(-6, 6)
                track.note(t, int(dur * 0.92), ch, self.key.pitch(idx, base), vel)
                t += dur

    @staticmethod
    def nearest_chord_tone(idx, degree):
        for d in range(4):
            for cand in (idx - d, idx + d):
                if (cand - degree) % 7 in (0, 2, 4):
                    return cand
        return idx

    # --- accompaniment ------------------------------------------------------
    def accompany(self, start, size, prog, busy):
        chords, bass = self.tracks["Chords"], self.tracks["Bass"]
        beat = PPQ
        for bar in range(size):
            degree = prog[bar % len(prog)]
            t = start + bar * self.bar
            notes = self.key.chord(degree, self.key.tonic - 12 if self.key.tonic > 62 else self.key.tonic)
            notes = [n if n >= 52 else n + 12 for n in notes]
            style = self.chord_style
            if style == "pad" or not busy:
                for n in notes:
                    chords.note(t, self.bar - 10, CHORDS, n, 58)
            elif style == "arp":
                seq = notes + [notes[0] + 12] + notes[1:][::-1]
                for k in range(self.beats * 2):
                    chords.note(t + k * beat // 2, beat // 2, CHORDS, seq[k % len(seq)], 62)
            elif style == "strum":
                for k in range(self.beats):
                    for j, n in enumerate(notes):
                        chords.note(t + k * beat + j * 12, beat - 40, CHORDS, n, 66 if k % 2 else 74)
            elif style in ("offbeat", "waltz"):
                hits = range(1, self.beats) if style == "waltz" else (1, 3)
                for k in hits:
                    for n in notes:
                        chords.note(t + k * beat, beat // 2, CHORDS, n, 64)
            else:  # stabs
                for pos in (0, 1.5, 3) if self.beats == 4 else (0, 1.5):
                    for n in notes:
                        chords.note(t + int(pos * beat), beat // 3, CHORDS, n, 72)
            root = self.key.pitch(degree, self.key.tonic - 24 if self.key.tonic >= 60 else self.key.tonic - 12)
            fifth = root + 7
            bs = self.bass_style
            if bs in ("root", "waltz"):
                bass.note(t, (self.beats if bs == "waltz" else 2) * beat - 20, BASS, root, 92)
                if bs == "root" and self.beats == 4:
                    bass.note(t + 2 * beat, 2 * beat - 20, BASS, root, 84)
            elif bs in ("rootfifth", "oompah"):
                for k in range(0, self.beats, 2):
                    bass.note(t + k * beat, beat - 20, BASS, root if k % 4 == 0 else fifth - 12, 92)
            elif bs == "eighths":
                for k in range(self.beats * 2):
                    bass.note(t + k * beat // 2, beat // 2 - 20, BASS, root + (12 if k == 6 else 0), 88)
            elif bs == "walking":
                nxt = self.key.pitch(prog[(bar + 1) % len(prog)], root - self.key.steps[degree % 7] - 12 * (degree // 7))
                line = [root, self.key.pitch(degree + 1, root - self.key.steps[degree % 7]),
                        fifth, nxt - 1 if nxt > root else nxt + 1]
                for k in range(self.beats):
                    bass.note(t + k * beat, beat - 30, BASS, line[k], 88)
            else:  # groove
                for k, c in enumerate("x..x..x.x.x....."):
                    if c == "x":
                        bass.note(t + k * beat // 4, beat // 4 + 40, BASS, root + (12 if k == 8 else 0), 94)

    def drum_bar(self, t, fill, crash):
        if not self.drums:
            return
        track = self.tracks["Drums"]
        kick, snare, hat = DRUMS[self.drums]
        step = PPQ // 4
        hat_key = 51 if self.drums == "swing" else 42
        snare_key = 37 if self.drums == "light" else 38
        for k in range(len(kick)):
            if kick[k] == "x":
                track.note(t + k * step, step, DRUM, 36, 100)
            if snare[k] == "x":
                track.note(t + k * step, step, DRUM, snare_key, 92 if k % 4 == 0 else 70)
            if hat[k] == "x" and not (crash and k == 0):
                track.note(t + k * step, step, DRUM, hat_key, 78 if k % 4 == 0 else 58)
        if self.drums == "swing":
            for k in (4, 12):
                track.note(t + k * step, step, DRUM, 44, 60)
        if fill:
            for k in range(len(kick) - 4, len(kick)):
                track.note(t + k * step, step, DRUM, 38 if k % 2 else 45, 70 + 6 * (k % 4))
        if crash:
            track.note(t, PPQ, DRUM, 49, 96)

    # --- the whole tune -----------------------------------------------------
    def compose(self):
        bars, changes, tempo = self.plan()
        for tick, us in changes:
            self.tempo_track.tempo(tick, us)
        self.tempo_track.meta(0, 0x58, bytes((self.beats, 2, 24, 8)))
        setup = self.tracks["Lead"]
        for ch, prog, vol in ((LEAD, self.lead, 100), (ALT, self.alt, 96),
                              (CHORDS, self.chord_prog, 76), (BASS, self.bass_prog, 96)):
            setup.program(0, ch, prog)
            setup.control(0, ch, 7, vol)
            setup.control(0, ch, 10, {LEAD: 64, ALT: 72, CHORDS: 44, BASS: 64}[ch])
            setup.control(0, ch, 91, 40)
        setup.control(0, DRUM, 7, 90)

        form, progs = self.sections(bars)
        t = 0
        for kind, size, turn in form:
            if kind == "end":
                self.ending(t)
                t += size * self.bar
                continue
            prog = progs[kind]
            self.accompany(t, size, prog, busy=kind != "break" or turn % 2 == 0)
            if kind in ("A", "B") and size >= 4:
                # B sections hand the tune to the second instrument for contrast
                self.melody(t, size, prog, turn, ALT if kind == "B" else LEAD)
            for bar in range(size):
                self.drum_bar(t + bar * self.bar, fill=bar == size - 1 and kind != "intro",
                              crash=bar == 0 and kind != "intro")
            t += size * self.bar
        end_tick = tempo.tick_at(float(self.length))
        for n in self.key.chord(0, self.key.tonic) + [self.key.tonic + 12]:
            self.tracks["Chords"].note(t, end_tick - t - 1, CHORDS, n, 70)
        self.tracks["Bass"].note(t, end_tick - t - 1, BASS, self.key.tonic - 24, 90)
        self.tracks["Lead"].note(t, end_tick - t - 1, LEAD, self.key.tonic + 12, 88)
        if self.drums:
            self.tracks["Drums"].note(t, PPQ, DRUM, 49, 110)
            self.tracks["Drums"].note(t, PPQ, DRUM, 36, 110)
        return [self.tempo_track] + list(self.tracks.values()), end_tick

    def ending(self, t):
        """Two slowing bars: dominant, then a run home."""
        dominant = 4 if self.mode in ("major", "minor") else 6
        self.accompany(t, 2, [3, dominant], busy=True)
        base = self.key.tonic + 12 if self.key.tonic < 62 else self.key.tonic
        for k in range(self.beats * 2):
            idx = 7 - k if k < 7 else 0
            self.tracks["Lead"].note(t + k * PPQ, PPQ - 20, LEAD, self.key.pitch(idx, base), 90)
        for bar in range(2):
            self.drum_bar(t + bar * self.bar, fill=bar == 1, crash=False)


def write_all(folder):
    os.makedirs(folder, exist_ok=True)
    for number in TUNES:
        tracks, end_tick = Composer(number).compose()
        smf.write(os.path.join(folder, "%d.mid" % number), tracks, end_tick)
