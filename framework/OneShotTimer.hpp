#pragma once

#include <QTimer>

#include <functional>

namespace tovarin::fw {

// A timer that fires once, `periodMs` after it is made, and is owned by its window.
class OneShotTimer : public QTimer {
    Q_OBJECT
public:
    OneShotTimer(int periodMs, std::function<void()> action, QObject* parent);
};

} // namespace tovarin::fw
