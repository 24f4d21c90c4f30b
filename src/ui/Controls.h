#pragma once
// Small helpers shared by every screen: the game's fonts, plain labels and the end of the program.
#include <QColor>
#include <QFont>
#include <QString>
#include <functional>

class QLabel;
class QWidget;

namespace ui {

// Ends the program at once, all screens closing. Tests install a hook to see it happen.
void EndProgram();
void SetEndProgramHook(std::function<void()> hook);
// Deletes every window that is left, owned ones with their owners; call it before the
// application object goes, which cannot tear down live windows safely.
void DestroyAllWindows();

// The game's text face at a pixel size (Tahoma 8.25 pt is 11 px, 14.25 pt is 19 px), or the
// default sans font when it is not installed.
QFont Tahoma(int pixelSize, bool bold = false);

// A label at a fixed place with a see-through background, so the scene shows behind its text.
QLabel* MakeLabel(QWidget* parent, int left, int top, int width, int height, const QString& text,
                  Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter);
void SetLabelColour(QLabel* label, const QColor& text);

}  // namespace ui

namespace ui {
// A modal message to the user; tests install a hook so nothing blocks.
void MsgBox(const QString& text, const QString& title);
void SetMsgBoxHook(std::function<void(const QString&)> hook);
}  // namespace ui
