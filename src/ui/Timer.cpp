#include "ui/Timer.h"

#include "ui/Clock.h"

namespace ui {

Timer::Timer(int intervalMs, std::function<void()> handler)
    : interval_(intervalMs), handler_(std::move(handler)) {
    QObject::connect(&qt_, &QTimer::timeout, [this] { fire(); });
}

Timer::~Timer() { clock().stopTimer(*this); }

void Timer::restart() {
    clock().stopTimer(*this);
    if (enabled_ && interval_ > 0) clock().startTimer(*this, interval_);
}

void Timer::setInterval(int ms) {
    interval_ = ms;
    restart();
}

void Timer::setEnabled(bool on) {
    enabled_ = on;
    restart();
}

void Timer::fire() {
    if (enabled_ && handler_) handler_();
}

}  // namespace ui
