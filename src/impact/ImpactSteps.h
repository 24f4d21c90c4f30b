#pragma once
// Pieces shared by the impact handlers that are no business of the rest of the match screen.
#include <QPointer>
#include <QString>
#include <QWidget>

#include "match/frmGrumbo.h"

namespace impact {

// The hit animations hand control to the event loop, and a player may leave the match from the
// pause menu while one runs, which takes every control with the window. An animation checks its
// watch after each yield and stops when the screen it started on is gone; the handlers that the
// flight calls after such an animation return at once on a closed screen.
class ScreenWatch {
  public:
    explicit ScreenWatch(const frmGrumbo& f) : f_(f), window_(f.window()) {}
    bool Gone() const { return window_.isNull() || window_.data() != f_.window() || !f_.Loaded(); }

  private:
    const frmGrumbo& f_;
    QPointer<QWidget> window_;
};

// True when both characters of one team are among the frags of this round ("2 vs 2").
bool TeamFragged(const QString& fragged);

// "75 %"; a player who never hit shows "0 %" rather than dividing.
QString AccuracyText(grumbo::Integer frags, grumbo::Integer misses);

// Run when a side has reached the frag limit, right after the turn change of the deciding hit.
void FinishMatch(frmGrumbo& f);

}  // namespace impact
