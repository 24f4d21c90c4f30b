#pragma once
// Text on picture surfaces: measuring it in a font, and printing it as a picture box prints,
// with its top-left corner at a place and nothing around the letters touched.
#include <QFont>
#include <QString>
#include <cstdint>

namespace ui {

class Surface;

int TextWidth(const QFont& font, const QString& text);
// The height of a line of text in `font`, whatever the text.
int TextHeight(const QFont& font, const QString& text);
void PrintText(Surface& target, int x, int y, const QString& text, const QFont& font,
               std::int32_t colour);

}  // namespace ui
