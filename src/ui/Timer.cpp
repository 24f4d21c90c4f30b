#include "ui/Timer.h"

#include <algorithm>

#include "ui/Clock.h"

namespace ui {

Timer::Timer(int intervalMs, std::function<void()> handler)
    : interval_(intervalMs), handler_(std::move(handler)) {
    QObject::connect(&qt_, &QTimer::timeout, [this] {
        // A resumed timer's first, shorter wait is over; from now on it keeps its interval.
        if (qt_.interval() != interval_) qt_.setInterval(interval_);
        Fire();
    });
}

Timer::~Timer() { clock().StopTimer(*this); }

void Timer::Restart(int firstMs) {
    clock().StopTimer(*this);
    left_ = -1;
    countFrom_ = clock().TickCount() - (interval_ - firstMs);
    if (enabled_ && interval_ > 0) clock().StartTimer(*this, firstMs);
}

void Timer::SetInterval(int ms) {
    interval_ = ms;
    Restart(interval_);
}

void Timer::SetEnabled(bool on) {
    enabled_ = on;
    Restart(interval_);
}

void Timer::Pause() {
    if (!enabled_) return;
    const int passed = TicksSince(countFrom_, clock().TickCount());
    const int left = std::clamp(interval_ - passed, 0, interval_);
    SetEnabled(false);
    left_ = left;
}

void Timer::Resume() {
    const int first = left_ >= 0 ? left_ : interval_;
    enabled_ = true;
    Restart(first);
}

void Timer::Fire() {
    countFrom_ = clock().TickCount();
    if (running_ || !enabled_ || !handler_) return;
    running_ = true;
    handler_();
    running_ = false;
}

}  // namespace ui
