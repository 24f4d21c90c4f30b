#pragma once
// The credits: the text of "Credits.txt" drawn once into an invisible buffer when the screen
// opens, then copied onto the black screen one pixel higher every 25 ms until it has passed, and
// "Credits Completed" in the middle. Space, Enter or Escape leave it.
#include <functional>

#include "core/Canvas.h"
#include "core/DataFolder.h"
#include "ui/Timer.h"
#include "ui/Window.h"

namespace ui {
class CanvasWidget;
}

namespace screens {

class CreditsScreen : public ui::Window {
public:
    explicit CreditsScreen(const core::DataFolder& data);
    const core::Canvas& buffer() const { return buffer_; }
    bool completed() const { return !scrolling_.enabled(); }

    // Space, Enter or Escape.
    std::function<void()> onLeave;

private:
    void readCredits(const core::DataFolder& data);
    void print(const QString& line);
    void scroll();

    core::Canvas buffer_;
    int printedTo_ = 0;
    int scrollTop_;
    ui::CanvasWidget* screen_ = nullptr;
    ui::Timer scrolling_;
};

}  // namespace screens
