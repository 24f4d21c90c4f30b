#pragma once
// Plain text labels at fixed places.
#include <QString>
#include <Qt>

class QLabel;
class QWidget;

namespace ui {

// A label in the game's small face with a see-through background, so the scene shows behind
// its text.
QLabel* makeLabel(QWidget* parent, int left, int top, int width, int height, const QString& text,
                  Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter);

}  // namespace ui
