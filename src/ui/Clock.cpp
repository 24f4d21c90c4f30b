#include "ui/Clock.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>

#include "ui/Timer.h"

namespace ui {

namespace {
RealClock& realClock() {
    static RealClock c;
    return c;
}
Clock* current = nullptr;
}  // namespace

Clock& clock() { return current ? *current : realClock(); }
void setClock(Clock* c) { current = c; }

std::int32_t RealClock::tickCount() {
    static QElapsedTimer started = [] {
        QElapsedTimer t;
        t.start();
        return t;
    }();
    // Truncation to 32 bits is the tick counter's wrap.
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(started.elapsed()));
}

void RealClock::startTimer(Timer& timer, int firstMs) {
    timer.qtTimer().setTimerType(Qt::PreciseTimer);
    timer.qtTimer().start(firstMs);
}

void RealClock::stopTimer(Timer& timer) { timer.qtTimer().stop(); }

VirtualClock::~VirtualClock() {
    if (current == this) current = nullptr;
}

void VirtualClock::startTimer(Timer& timer, int firstMs) {
    stopTimer(timer);
    active_.push_back({&timer, now_ + firstMs});
}

void VirtualClock::stopTimer(Timer& timer) {
    std::erase_if(active_, [&](const Entry& e) { return e.timer == &timer; });
}

void VirtualClock::fireDue() {
    // Each timer fires at most once a millisecond, in the order of their due times.
    std::vector<Timer*> fired;
    for (;;) {
        Entry* next = nullptr;
        for (Entry& e : active_)
            if (ticksSince(now_, e.due) <= 0 && (!next || ticksSince(next->due, e.due) < 0))
                next = &e;
        if (!next || std::find(fired.begin(), fired.end(), next->timer) != fired.end()) return;
        Timer* t = next->timer;
        fired.push_back(t);
        next->due = now_ + std::max(1, t->interval());
        t->fire();
    }
}

void VirtualClock::handleWindowEvents() {
    // Window events (repaints, deferred deletes) only matter to the eye and to memory: handling
    // them every few virtual milliseconds keeps long runs fast.
    if (ticksSince(lastEvents_, now_) < kWindowEventsEveryMs) return;
    lastEvents_ = now_;
    if (!QCoreApplication::instance()) return;
    QCoreApplication::processEvents();
    // A real event loop deletes what was left for deletion once the handler that left it has
    // returned; without one, processEvents() alone never does.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void VirtualClock::advance(std::int32_t ms) {
    const std::int32_t end = now_ + ms;
    do {
        // Straight to the earliest of the end and the next timer, as a blocking wait would.
        std::int32_t target = end;
        for (const Entry& e : active_)
            if (ticksSince(now_, e.due) > 0 && ticksSince(e.due, target) > 0) target = e.due;
        now_ = target;
        handleWindowEvents();
        fireDue();
    } while (ticksSince(now_, end) > 0);
}

bool VirtualClock::runUntil(const std::function<bool()>& done, std::int32_t limitMs) {
    for (std::int32_t t = 0; t < limitMs && !done(); ++t) advance(1);
    return done();
}

}  // namespace ui
