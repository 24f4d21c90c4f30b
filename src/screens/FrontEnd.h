#pragma once
// What the screens share: the game's title, their look, the display boxes.
#include <QString>

#include "core/Colour.h"

class QLineEdit;
class QWidget;

namespace screens {

QString gameTitle();

// The small Tahoma face for every control, on a flat background of `background`.
void prepareWindow(QWidget* window, core::Colour background);

// A box the program writes and the players only read: it takes neither typing nor the focus.
QLineEdit* makeDisplayBox(QWidget* parent, int left, int top, int width, int height,
                          const QString& text);

}  // namespace screens
