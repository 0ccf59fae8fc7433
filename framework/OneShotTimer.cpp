#include "framework/OneShotTimer.hpp"

#include "framework/HandlerGuard.hpp"

namespace tovarin::fw {

OneShotTimer::OneShotTimer(int periodMs, std::function<void()> action, QObject* parent)
    : QTimer(parent) {
    // A coarse timer may fire up to 5% early; the period is a promise.
    setTimerType(Qt::PreciseTimer);
    setSingleShot(true);
    setInterval(periodMs);
    connect(this, &QTimer::timeout, this, [action = std::move(action)] {
        if (action)
            runAction(action);
    });
    start();
}

} // namespace tovarin::fw
