#pragma once
// The game's modal messages: "Enter a player name", and a data file that cannot be used.
#include <QString>
#include <functional>

namespace ui {

// Shows `text` in a modal box with an OK button; tests install a hook so nothing blocks.
void showMessage(const QString& text, const QString& title);
void setMessageHook(std::function<void(const QString&)> hook);

}  // namespace ui
