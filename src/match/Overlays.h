#pragma once
// Boxes the match screen shows over itself without owning them: the loading box and the
// game-over box, which doubles as the pause box. They are screens of the layer above the match,
// so the match knows them only by these interfaces, and the program's top hands the real screens
// in.
#include <QString>

class QWidget;

class LoadingBox {
public:
    virtual ~LoadingBox() = default;
    // Shows the box over `owner`, not modal, and paints it at once: "Loading" at progress 0.
    virtual void Open(QWidget* owner) = 0;
    virtual void SetStatus(const QString& text) = 0;
    // 0 to 100; fractions are allowed.
    virtual void SetProgress(double value) = 0;
    virtual void Close() = 0;
};

class MatchOverlays {
public:
    virtual ~MatchOverlays() = default;
    virtual LoadingBox& Loading() = 0;
    // Opens the game-over box over the final board.
    virtual void ShowGameOver() = 0;
    // Whether the pause box can open now: not while the game-over or pause box is already up,
    // and never without a box to show (the match would stay frozen).
    virtual bool CanPause() { return false; }
    // Opens the game-over box relabelled as the pause box.
    virtual void ShowPause() {}
};
