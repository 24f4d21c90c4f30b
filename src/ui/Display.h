#pragma once
// How large the program's windows are drawn. Pixel art stays sharp only when every game pixel
// becomes a whole block of screen pixels, so the program chooses a whole factor before its
// application object exists.
namespace ui {

struct ScreenInfo {
    // The primary screen's height in device pixels.
    int height = 0;
    // What the desktop itself already enlarges by.
    double pixelRatio = 1;
};

// Asks the display for the primary screen through a short-lived connection; without a display it
// reports a screen of height 0.
ScreenInfo probeScreen(int argc, char** argv);

// The screen's height over 1080, rounded down, from 1 to 4; a desktop that enlarges by 2 or more
// itself gets at least its own whole factor.
int automaticScale(const ScreenInfo& screen);

// Makes every window `scale` times larger on `screen`, counting what the desktop already does.
// Call it before the application object is created.
void setScale(int scale, const ScreenInfo& screen);

}  // namespace ui
