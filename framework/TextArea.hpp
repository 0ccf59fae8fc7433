#pragma once

#include "framework/KeyCode.hpp"

#include <QTextEdit>

namespace tovarin::fw {

// A multi-line styled text area whose key handler sees each key first.
class TextArea : public QTextEdit {
    Q_OBJECT
public:
    explicit TextArea(QWidget* parent = nullptr);
    void setKeyDownHandler(KeyHandler handler) { keyDown_ = std::move(handler); }

    // The program's own writes. Neither is an edit of the user's, so Undo does
    // not take it back (it takes back the user's edits made after it).
    //
    // Appends text at the end without rebuilding what is there. A CR, an LF or
    // a CR LF pair each start a new line.
    void appendPlain(const QString& text);
    // Sets bold over `length` characters counted from `start`, 1 being the first.
    void setBold(qint64 start, qint64 length);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    // The window's text menu, the menu bar's own edit items, instead of the toolkit's.
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    KeyHandler keyDown_;
};

} // namespace tovarin::fw
