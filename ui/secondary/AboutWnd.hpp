#pragma once

#include "framework/Window.hpp"

class QCloseEvent;
class QKeyEvent;
class QMouseEvent;

namespace tovarin {

// The splash shown at start, which is also the About window. It leaves after
// 4000 ms or at any key or mouse press, and the main window comes up; it is
// hidden, never closed, so one instance serves the whole run.
class AboutWnd : public fw::Window {
    Q_OBJECT
public:
    AboutWnd();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Layout();
    void CreateControls();
    void StaticText2_Open();
    void Timer1_Action();
    bool Event_MouseDown(int x, int y);
    bool Event_KeyDown(int key);
    // Hides the splash and brings the main window to the front.
    static void dismiss();
};

} // namespace tovarin
