#pragma once

#include "framework/KeyCode.hpp"

#include <QLineEdit>

namespace tovarin::fw {

// A one-line text entry whose key handler sees each key first.
class TextField : public QLineEdit {
    Q_OBJECT
public:
    explicit TextField(QWidget* parent = nullptr);
    void setKeyDownHandler(KeyHandler handler) { keyDown_ = std::move(handler); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    // The window's text menu, the menu bar's own edit items, instead of the toolkit's.
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    KeyHandler keyDown_;
};

} // namespace tovarin::fw
