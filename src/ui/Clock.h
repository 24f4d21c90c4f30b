#pragma once
// One clock for the whole program: the tick counter and every timer go through it, so that tests
// can swap the real clock for a virtual one and run the screens in virtual time.
#include <cstdint>
#include <functional>
#include <vector>

namespace ui {

class Timer;

class Clock {
public:
    virtual ~Clock() = default;
    // Milliseconds as a signed 32-bit value; it may wrap, so compare with ticksSince().
    virtual std::int32_t tickCount() = 0;
    // Starts `timer` so that it first falls due after `firstMs`, then every interval.
    virtual void startTimer(Timer& timer, int firstMs) = 0;
    virtual void stopTimer(Timer& timer) = 0;
};

// Milliseconds from `start` to `now`, correct across the counter's wrap.
inline std::int32_t ticksSince(std::int32_t start, std::int32_t now) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(now) -
                                     static_cast<std::uint32_t>(start));
}

Clock& clock();
// Installs `c` as the program's clock (not owned); nullptr goes back to the real clock.
void setClock(Clock* c);

// Real time: Qt's precise timers.
class RealClock : public Clock {
public:
    std::int32_t tickCount() override;
    void startTimer(Timer& timer, int firstMs) override;
    void stopTimer(Timer& timer) override;
};

// Virtual time for tests: time moves only when the test advances it; due timers fire in the order
// of their due times, and the window events are handled every few virtual milliseconds.
class VirtualClock : public Clock {
public:
    explicit VirtualClock(std::int32_t start = 1000) : now_(start) {}
    ~VirtualClock() override;
    std::int32_t tickCount() override { return now_; }
    void startTimer(Timer& timer, int firstMs) override;
    void stopTimer(Timer& timer) override;

    void advance(std::int32_t ms);
    // Advances in steps of 1 ms until `done()` holds or `limitMs` have passed; returns done().
    bool runUntil(const std::function<bool()>& done, std::int32_t limitMs);

private:
    struct Entry {
        Timer* timer;
        std::int32_t due;
    };
    void fireDue();
    void handleWindowEvents();

    static constexpr std::int32_t kWindowEventsEveryMs = 10;
    std::int32_t now_;
    std::int32_t lastEvents_ = now_ - kWindowEventsEveryMs;
    std::vector<Entry> active_;
};

}  // namespace ui
