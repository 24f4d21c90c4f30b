#pragma once
// One clock for the whole program: the tick counter, the event pump and every timer go through it,
// so that tests can swap the real clock for a virtual one and run a whole match in milliseconds.
#include <cstdint>
#include <functional>
#include <vector>

namespace ui {

class Timer;

class Clock {
public:
    virtual ~Clock() = default;
    // Milliseconds as a signed 32-bit value; it may wrap, so compare with TicksSince().
    virtual std::int32_t TickCount() = 0;
    // Processes the window events that are pending now and returns.
    virtual void DoEvents() = 0;
    // Blocks until an event arrives or the tick counter reaches `deadline`, then processes what
    // came.
    virtual void WaitEvents(std::int32_t deadline) = 0;

    // Starts `timer` so that it first falls due after `firstMs`, then every interval.
    virtual void StartTimer(Timer& timer, int firstMs) = 0;
    virtual void StopTimer(Timer& timer) = 0;
};

// Milliseconds from `start` to `now`, correct across the counter's wrap.
inline std::int32_t TicksSince(std::int32_t start, std::int32_t now) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(now) -
                                     static_cast<std::uint32_t>(start));
}

Clock& clock();
// Installs `c` as the program's clock (not owned); nullptr goes back to the real clock.
void SetClock(Clock* c);

// Real time: Qt's event loop and precise Qt timers.
class RealClock : public Clock {
public:
    std::int32_t TickCount() override;
    void DoEvents() override;
    void WaitEvents(std::int32_t deadline) override;
    void StartTimer(Timer& timer, int firstMs) override;
    void StopTimer(Timer& timer) override;
};

// Virtual time for tests, benchmarks and soak runs: time moves only when someone pumps or waits,
// and due timers fire in order of their due time.
class VirtualClock : public Clock {
public:
    explicit VirtualClock(std::int32_t start = 1000) : now_(start) {}
    ~VirtualClock() override;
    std::int32_t TickCount() override { return now_; }
    // One pump moves time on by 1 ms and fires what became due.
    void DoEvents() override;
    void WaitEvents(std::int32_t deadline) override;
    void StartTimer(Timer& timer, int firstMs) override;
    void StopTimer(Timer& timer) override;

    // Runs at every pump, after the window events and before the timers: tests act there as a
    // user would between two events.
    std::function<void()> onPump;

    // Runs the program for `ms` of virtual time, firing timers as they fall due.
    void Advance(std::int32_t ms);
    // Runs until `done()` holds or `limitMs` of virtual time have passed; returns done().
    template <class Pred>
    bool RunUntil(Pred done, std::int32_t limitMs) {
        const std::int32_t start = now_;
        while (!done() && TicksSince(start, now_) < limitMs) WaitEvents(now_ + 1000);
        return done();
    }

private:
    struct Entry {
        Timer* timer;
        std::int32_t due;
    };
    void FireDue();
    void ProcessQtEvents();
    Entry* NextDue();

    static constexpr std::int32_t kQtEveryMs = 10;
    std::int32_t now_;
    std::int32_t lastQt_ = now_ - kQtEveryMs;
    static constexpr std::int32_t kPumpStepMs = 1;
    std::vector<Entry> active_;
};

}  // namespace ui
