#pragma once

#include "framework/Window.hpp"

namespace tovarin::fw {
class TextArea;
}

namespace tovarin {

// The Information window: the manual in one editable text area. Closing it
// throws the instance and any edits away; the next open starts afresh.
class helpWnd : public fw::Window {
    Q_OBJECT
public:
    // Builds the window and shows it, over the main window when there is one.
    helpWnd();

    fw::TextArea* EditField1() const;

private:
    void Layout();
    void CreateControls();
    void EditField1_Open(fw::TextArea& area);
    void AddMenuHandlers();
    bool ControlItem_Action();
    void placeOverParent();
};

} // namespace tovarin
