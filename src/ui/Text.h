#pragma once
// Text on canvases: measuring it in a font, and printing it with its top-left corner at a place
// and nothing around the letters touched.
#include <QFont>
#include <QString>

#include "core/Canvas.h"

namespace ui {

int textWidth(const QFont& font, const QString& text);
// The height of a line of text in `font`, whatever the text.
int lineHeight(const QFont& font);
void printText(core::Canvas& target, int x, int y, const QString& text, const QFont& font,
               core::Colour colour);

}  // namespace ui
