#include "ui/Clock.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <algorithm>

#include "ui/Timer.h"

namespace ui {

namespace {
// Never destroyed: screens that are program-wide objects stop their timers through it while
// the program's static objects are being torn down.
RealClock& realClock() {
    static RealClock* c = new RealClock;
    return *c;
}
Clock* current = nullptr;
}  // namespace

Clock& clock() { return current ? *current : realClock(); }
void SetClock(Clock* c) { current = c; }

std::int32_t RealClock::TickCount() {
    static QElapsedTimer started = [] {
        QElapsedTimer t;
        t.start();
        return t;
    }();
    // Truncation to 32 bits is the tick counter's documented wrap.
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(started.elapsed()));
}

void RealClock::DoEvents() {
    if (QCoreApplication::instance()) QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void RealClock::WaitEvents(std::int32_t deadline) {
    if (!QCoreApplication::instance()) return;
    const std::int32_t left = TicksSince(TickCount(), deadline);
    if (left <= 0) {
        DoEvents();
        return;
    }
    // A single-shot wake-up guarantees the blocking wait ends by the deadline; any earlier event
    // ends it sooner. Nothing spins meanwhile.
    QTimer wake;
    wake.setSingleShot(true);
    wake.setTimerType(Qt::PreciseTimer);
    wake.start(left);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void RealClock::StartTimer(Timer& timer, int firstMs) {
    timer.qtTimer().setTimerType(Qt::PreciseTimer);
    timer.qtTimer().start(firstMs);
}

void RealClock::StopTimer(Timer& timer) { timer.qtTimer().stop(); }

VirtualClock::~VirtualClock() {
    if (current == this) current = nullptr;
}

void VirtualClock::StartTimer(Timer& timer, int firstMs) {
    StopTimer(timer);
    active_.push_back({&timer, now_ + firstMs});
}

void VirtualClock::StopTimer(Timer& timer) {
    std::erase_if(active_, [&](const Entry& e) { return e.timer == &timer; });
}

VirtualClock::Entry* VirtualClock::NextDue() {
    Entry* best = nullptr;
    for (Entry& e : active_)
        if (TicksSince(now_, e.due) <= 0 && (!best || TicksSince(best->due, e.due) < 0)) best = &e;
    return best;
}

void VirtualClock::FireDue() {
    // Each timer fires at most once per pump, so a handler that pumps cannot starve the others.
    std::vector<Timer*> firedNow;
    while (Entry* e = NextDue()) {
        Timer* t = e->timer;
        if (std::find(firedNow.begin(), firedNow.end(), t) != firedNow.end()) break;
        firedNow.push_back(t);
        e->due = now_ + std::max(1, t->Interval());
        t->Fire();
    }
}

void VirtualClock::ProcessQtEvents() {
    // Window events (repaints, deferred deletes) only matter to the eye and to memory: handling
    // them every few virtual milliseconds keeps long simulated matches fast.
    if (TicksSince(lastQt_, now_) < kQtEveryMs) return;
    lastQt_ = now_;
    if (QCoreApplication::instance()) QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void VirtualClock::DoEvents() {
    now_ += kPumpStepMs;
    ProcessQtEvents();
    if (onPump) onPump();
    FireDue();
}

void VirtualClock::WaitEvents(std::int32_t deadline) {
    // Jump straight to the earliest of the deadline and the next timer, like a blocking wait would.
    std::int32_t target = deadline;
    for (const Entry& e : active_)
        if (TicksSince(e.due, target) > 0) target = e.due;
    if (TicksSince(now_, target) > 0) now_ = target;
    else now_ += kPumpStepMs;
    ProcessQtEvents();
    if (onPump) onPump();
    FireDue();
}

void VirtualClock::Advance(std::int32_t ms) {
    const std::int32_t end = now_ + ms;
    while (TicksSince(now_, end) > 0) WaitEvents(end);
}

}  // namespace ui
