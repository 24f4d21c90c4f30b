#include "ui/Timer.h"

#include "ui/Clock.h"

namespace ui {

Timer::Timer(int intervalMs, std::function<void()> handler)
    : interval_(intervalMs), handler_(std::move(handler)) {
    QObject::connect(&qt_, &QTimer::timeout, [this] { Fire(); });
}

Timer::~Timer() { clock().StopTimer(*this); }

void Timer::Restart() {
    clock().StopTimer(*this);
    if (enabled_ && interval_ > 0) clock().StartTimer(*this);
}

void Timer::SetInterval(int ms) {
    interval_ = ms;
    Restart();
}

void Timer::SetEnabled(bool on) {
    enabled_ = on;
    Restart();
}

void Timer::Fire() {
    if (running_ || !enabled_ || !handler_) return;
    running_ = true;
    handler_();
    running_ = false;
}

}  // namespace ui
