#pragma once
// A timer with an interval and an enabled state whose handler is never re-entered: a tick that
// falls due while the handler is still running (because it pumps events) is dropped.
#include <QTimer>
#include <cstdint>
#include <functional>

namespace ui {

class Timer {
public:
    explicit Timer(int intervalMs = 0, std::function<void()> handler = {});
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    void SetHandler(std::function<void()> handler) { handler_ = std::move(handler); }
    int Interval() const { return interval_; }
    // Changing the interval of a running timer restarts its countdown.
    void SetInterval(int ms);
    bool Enabled() const { return enabled_; }
    // Enabling restarts the countdown; an interval of 0 keeps the timer silent.
    void SetEnabled(bool on);
    // Disables the timer but keeps what was left of its countdown, so that Resume() lets it fall
    // due as if no time had passed in between; timers paused and resumed together keep their
    // order.
    void Pause();
    // Enables the timer again: after what a Pause() kept, otherwise after a whole interval.
    void Resume();
    bool Running() const { return running_; }

    // Called by the clock when the timer falls due.
    void Fire();
    QTimer& qtTimer() { return qt_; }

private:
    void Restart(int firstMs);

    int interval_ = 0;
    int left_ = -1;               // the countdown a Pause() kept, or -1
    std::int32_t countFrom_ = 0;  // tick of the last start or firing
    bool enabled_ = false;
    bool running_ = false;
    std::function<void()> handler_;
    QTimer qt_;
};

}  // namespace ui
