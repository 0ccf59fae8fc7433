#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>
#include <QWidget>

#include <functional>

class QKeyEvent;

namespace tovarin::fw {

// The code a key filter sees for a key event: 8 Backspace, 9 Tab, 13 Return and
// Enter, 28-31 the arrows (left, right, up, down), 127 Forward Delete, a
// printable ASCII character its own code; anything outside ASCII gives a code
// above 127 (its Unicode value, or 0x110000 for keys that type nothing).
// Returns -1 for events that are not keys a filter sees: modifier keys alone
// and keys the platform delivers as menu or edit shortcuts.
int keyCode(const QKeyEvent& event);

// A key handler gets the key code and returns true when the key is dealt with
// and must go no further.
using KeyHandler = std::function<bool(int code)>;
using MouseDownHandler = std::function<bool(int x, int y)>;

// A one-line text entry.
class TextField : public QLineEdit {
    Q_OBJECT
public:
    explicit TextField(QWidget* parent = nullptr);
    void setKeyDownHandler(KeyHandler handler) { keyDown_ = std::move(handler); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    KeyHandler keyDown_;
};

// A multi-line styled text area.
class TextArea : public QTextEdit {
    Q_OBJECT
public:
    explicit TextArea(QWidget* parent = nullptr);
    void setKeyDownHandler(KeyHandler handler) { keyDown_ = std::move(handler); }

    // Appends text at the end without rebuilding what is there. A CR, an LF or
    // a CR LF pair each start a new line.
    void appendPlain(const QString& text);
    // Sets bold over `length` characters counted from `start`, 1 being the first.
    void setBold(qint64 start, qint64 length);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    KeyHandler keyDown_;
};

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

class Label : public QLabel {
    Q_OBJECT
public:
    explicit Label(QWidget* parent = nullptr);
};

// Gives a picture when asked; a null picture when there is none.
using PictureSource = std::function<QPixmap()>;

// A plain area that shows a backdrop picture with its top left corner at the
// canvas's top left corner. A null picture shows nothing.
class Canvas : public QWidget {
    Q_OBJECT
public:
    explicit Canvas(QWidget* parent = nullptr);
    void setBackdrop(const QPixmap& picture);
    // The backdrop is what `source` gives, asked once: when the canvas is first
    // painted, or its backdrop first asked for. Reading and decoding a picture
    // then waits until the window is on screen, and the first frame shows it.
    void setBackdropSource(PictureSource source);
    const QPixmap& backdrop() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    mutable PictureSource source_;
    mutable QPixmap backdrop_;
};

// A timer that fires once, `periodMs` after it is made, and is owned by its window.
class OneShotTimer : public QTimer {
    Q_OBJECT
public:
    OneShotTimer(int periodMs, std::function<void()> action, QObject* parent);
};

} // namespace tovarin::fw
