#include "framework/Controls.hpp"

namespace tovarin::fw {

OneShotTimer::OneShotTimer(int periodMs, std::function<void()> action, QObject* parent)
    : QTimer(parent) {
    setSingleShot(true);
    setInterval(periodMs);
    connect(this, &QTimer::timeout, this, [action = std::move(action)] {
        if (action)
            action();
    });
    start();
}

} // namespace tovarin::fw
