#pragma once

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QString>

#include <functional>
#include <map>

namespace tovarin::fw {

// A document window with a title, a window menu, and buttons to minimise and
// close it, but none to maximise it or make it fill the screen.
inline constexpr Qt::WindowFlags kDocumentWindowFlags =
    Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
    Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;

// Base of the program's windows. A window is a single implicit instance of its
// class (see instance<W>() below); controls are found by object name, and menu
// items are answered by handlers registered under the item's name.
class Window : public QMainWindow {
    Q_OBJECT
public:
    // `contentWidth` x `contentHeight` is the size of the content area,
    // not counting a menu bar.
    Window(int contentWidth, int contentHeight, QWidget* parent = nullptr);

    // The control of that object name, or nullptr.
    template <class T> T* control(const QString& name) const {
        return findChild<T*>(name, Qt::FindChildrenRecursively);
    }

    // Makes the window visible and brings it to the front.
    void showWindow();

    // Menu handlers by item name: a handler returns true when it dealt with the item.
    void addMenuHandler(const QString& itemName, std::function<bool()> handler);
    bool hasMenuHandler(const QString& itemName) const;
    // Runs the handler registered for the item; false if there is none or it declined.
    bool handleMenuItem(const QString& itemName);

    // The context menu of the window's text controls; the menu bar the window shows sets it.
    void setTextMenu(QMenu* menu) { textMenu_ = menu; }
    QMenu* textMenu() const { return textMenu_; }

    // The widget that holds the controls; its size is the content size.
    QWidget* content() const { return content_; }

    // True once the window has been closed and is going away; such a window no
    // longer counts as the open instance of its class.
    bool isClosing() const { return closing_; }

    // Sizes the window so that the content keeps its size below a menu bar that
    // was installed after construction.
    void fitToContent();

protected:
    void closeEvent(QCloseEvent* event) override;
    // Called when the window closes for whatever reason. The default does nothing.
    virtual void Event_Close() {}

    // Fixes the content size; used by windows that cannot be resized. Such a
    // window answers a request to maximise it or fill the screen (from a
    // title bar drawn by the toolkit, as on Wayland, or from the desktop) by
    // going back to its size.
    void setFixedContentSize();

    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watchWindowState();

    QWidget* content_;
    QSize contentSize_;
    bool fixedSize_ = false;
    bool watchingState_ = false;
    std::map<QString, std::function<bool()>> menuHandlers_;
    QPointer<QMenu> textMenu_;
    bool closing_ = false;
};

// Opens the text menu of the control's window at `globalPos`, with the focus on
// the control, which its items then act on. False when the window has none.
bool popUpTextMenu(QWidget& control, const QPoint& globalPos);

// The open instance of W (hidden counts as open), or a new one. No caller keeps
// the pointer: each use asks again, so there is never a second instance.
template <class W> W& instance() {
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* open = qobject_cast<W*>(w); open && !open->isClosing())
            return *open;
    }
    return *new W();
}

// The open instance of W, or nullptr; never creates one.
template <class W> W* openInstance() {
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* open = qobject_cast<W*>(w); open && !open->isClosing())
            return open;
    }
    return nullptr;
}

} // namespace tovarin::fw
