#include "framework/Window.hpp"

#include "framework/HandlerGuard.hpp"

#include <QCloseEvent>
#include <QMenuBar>

namespace tovarin::fw {

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

void Window::closeEvent(QCloseEvent* event) {
    closing_ = true;
    runAction([this] { Event_Close(); });
    event->accept();
}

} // namespace tovarin::fw
