"""The scrolling credits text.  The game reads the first line as the number
of lines that follow, so it is counted here rather than typed by hand."""

LINES = [
    "Grumbo 2 - Kravenmoor",
    "",
    "A turn-based artillery game",
    "",
    "- Game Design -",
    "The Grumbo Team",
    "",
    "- Programming -",
    "The Grumbo Team",
    "",
    "- Characters and Projectile Art -",
    "Drawn pixel by pixel by the Grumbo Team",
    "",
    "- Sound Effects and Voices -",
    "Synthesised by the Grumbo Team",
    "",
    "- Music -",
    "22 original tunes by the Grumbo Team",
    "",
    "- Built With -",
    "Qt 6",
    "SDL2 and SDL2_mixer",
    "FluidSynth",
    "TimGM6mb SoundFont",
    "libsndfile",
    "Wine's Tahoma-compatible font",
    "GoogleTest",
    "Google Benchmark",
    "CMake",
    "",
    "Thanks to everyone who tested",
    "the rooftops of Kravenmoor",
    "",
    "Thank you for playing!",
]


def write_credits(path):
    with open(path, "w", encoding="ascii", newline="\n") as f:
        f.write("%d\n" % len(LINES))
        for line in LINES:
            f.write(line + "\n")
