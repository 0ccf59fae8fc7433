#pragma once

#include <QPushButton>

#include <functional>

namespace tovarin::fw {

using MouseDownHandler = std::function<bool(int x, int y)>;

// A push button that acts when the mouse goes down on it, not on release.
class PushButton : public QPushButton {
    Q_OBJECT
public:
    explicit PushButton(QWidget* parent = nullptr);
    void setMouseDownHandler(MouseDownHandler handler) { mouseDown_ = std::move(handler); }

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    bool pressHandled(QPoint at);

    MouseDownHandler mouseDown_;
};

} // namespace tovarin::fw
