#pragma once
// The one modal message of the game.
#include <QString>
#include <functional>

namespace ui {

// Shows `text` in a modal box with an OK button; tests install a hook so nothing blocks.
void MsgBox(const QString& text, const QString& title);
void SetMsgBoxHook(std::function<void(const QString&)> hook);

}  // namespace ui
