#pragma once
// A timer with an interval and an enabled state, running on the program's clock.
#include <QTimer>
#include <functional>

namespace ui {

class Timer {
public:
    explicit Timer(int intervalMs = 0, std::function<void()> handler = {});
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    void setHandler(std::function<void()> handler) { handler_ = std::move(handler); }
    int interval() const { return interval_; }
    // Changing the interval of a running timer restarts its countdown.
    void setInterval(int ms);
    bool enabled() const { return enabled_; }
    // Enabling restarts the countdown; an interval of 0 keeps the timer silent.
    void setEnabled(bool on);

    // Called by the clock when the timer falls due.
    void fire();
    QTimer& qtTimer() { return qt_; }

private:
    void restart();

    int interval_ = 0;
    bool enabled_ = false;
    std::function<void()> handler_;
    QTimer qt_;
};

}  // namespace ui
