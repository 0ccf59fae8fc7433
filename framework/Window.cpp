#include "framework/Window.hpp"

#include "framework/HandlerGuard.hpp"

#include <QCloseEvent>
#include <QMenuBar>
#include <QWindow>

namespace tovarin::fw {
namespace {

// The states in which the window system, not the window, sets the size.
constexpr Qt::WindowStates kLarger = Qt::WindowMaximized | Qt::WindowFullScreen;

} // namespace

Window::Window(int contentWidth, int contentHeight, QWidget* parent)
    : QMainWindow(parent), content_(new QWidget(this)), contentSize_(contentWidth, contentHeight) {
    // A closed window goes away; the next use of its class builds a new one.
    setAttribute(Qt::WA_DeleteOnClose);
    setCentralWidget(content_);
    fitToContent();
}

void Window::fitToContent() {
    const QWidget* bar = menuWidget();
    const int barHeight = bar ? bar->sizeHint().height() : 0;
    const QSize size(contentSize_.width(), contentSize_.height() + barHeight);
    if (fixedSize_)
        setFixedSize(size);
    else
        resize(size);
}

void Window::setFixedContentSize() {
    fixedSize_ = true;
    fitToContent();
}

void Window::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (fixedSize_ && !watchingState_ && windowHandle())
        watchWindowState();
}

// A compositor that maximises a window wants the next frame at the size it
// chose, and ends a client whose frame keeps a fixed size instead. So the size
// is let go as soon as such a state is asked for, and fixed again only once
// the window system reports the window back in its normal state.
void Window::watchWindowState() {
    watchingState_ = true;
    connect(windowHandle(), &QWindow::windowStateChanged, this, [this](Qt::WindowState state) {
        if (state & kLarger) {
            setMinimumSize(0, 0);
            setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        }
    });
    windowHandle()->installEventFilter(this);
}

bool Window::eventFilter(QObject* watched, QEvent* event) {
    // Spontaneous: the window system's report of the state the window is in,
    // not the state just asked for.
    if (watched == windowHandle() && event->type() == QEvent::WindowStateChange &&
        event->spontaneous()) {
        const Qt::WindowStates states = windowHandle()->windowStates();
        if (states & kLarger) {
            QMetaObject::invokeMethod(
                this,
                [this] {
                    windowHandle()->setWindowStates(windowHandle()->windowStates() & ~kLarger);
                },
                Qt::QueuedConnection);
        } else {
            fitToContent();
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void Window::showWindow() {
    if (isMinimized())
        showNormal();
    else
        show();
    raise();
    activateWindow();
}

void Window::addMenuHandler(const QString& itemName, std::function<bool()> handler) {
    menuHandlers_[itemName] = std::move(handler);
}

bool Window::hasMenuHandler(const QString& itemName) const {
    return menuHandlers_.count(itemName) != 0;
}

bool Window::handleMenuItem(const QString& itemName) {
    const auto found = menuHandlers_.find(itemName);
    if (found == menuHandlers_.end() || !found->second)
        return false;
    // A copy, so that a handler that replaces itself is not destroyed mid-call.
    const std::function<bool()> handler = found->second;
    return runHandler(handler);
}

bool popUpTextMenu(QWidget& control, const QPoint& globalPos) {
    const auto* window = qobject_cast<const Window*>(control.window());
    QMenu* menu = window ? window->textMenu() : nullptr;
    if (!menu)
        return false;
    control.setFocus(Qt::OtherFocusReason);
    menu->popup(globalPos);
    return true;
}

void Window::closeEvent(QCloseEvent* event) {
    closing_ = true;
    runAction([this] { Event_Close(); });
    event->accept();
}

} // namespace tovarin::fw
