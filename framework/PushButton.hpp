#pragma once

#include <QPushButton>

#include <functional>

namespace tovarin::fw {

using MouseDownHandler = std::function<bool(int x, int y)>;

// A push button that acts when the mouse goes down on it, not on release. A
// press from elsewhere, such as a screen reader's Press action, runs the same
// handler as it goes down.
class PushButton : public QPushButton {
    Q_OBJECT
public:
    explicit PushButton(QWidget* parent = nullptr);
    void setMouseDownHandler(MouseDownHandler handler) { mouseDown_ = std::move(handler); }

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    bool pressHandled(QPoint at);
    void pressedWithoutMouse();

    MouseDownHandler mouseDown_;
    bool mousePressing_ = false;
};

} // namespace tovarin::fw
