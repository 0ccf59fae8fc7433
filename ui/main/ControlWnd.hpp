#pragma once

#include "framework/Controls.hpp"
#include "framework/Window.hpp"

namespace tovarin {

// The main window: the banner, the count field, the results area and the
// three buttons that clear, show the help and run an analysis.
class ControlWnd : public fw::Window {
    Q_OBJECT
public:
    ControlWnd();

    // The controls, looked up by name on every use.
    fw::TextField* pFld() const { return control<fw::TextField>(QStringLiteral("pFld")); }
    fw::PushButton* clearBtn() const { return control<fw::PushButton>(QStringLiteral("clearBtn")); }
    fw::PushButton* helpBtn() const { return control<fw::PushButton>(QStringLiteral("helpBtn")); }
    fw::PushButton* calcBtn() const { return control<fw::PushButton>(QStringLiteral("calcBtn")); }
    fw::TextArea* ResultsFld() const { return control<fw::TextArea>(QStringLiteral("ResultsFld")); }
    fw::Canvas* Canvas1() const { return control<fw::Canvas>(QStringLiteral("Canvas1")); }
    fw::Label* Label1() const { return control<fw::Label>(QStringLiteral("Label1")); }
    fw::Label* NumFld() const { return control<fw::Label>(QStringLiteral("NumFld")); }

    bool pFld_KeyDown(int code);
    bool ResultsFld_KeyDown(int code);
    bool clearBtn_MouseDown(int x, int y);
    bool helpBtn_MouseDown(int x, int y);
    bool calcBtn_MouseDown(int x, int y);

    bool FileQuit_Action();
    bool InfoItem_Action();
    bool AboutItem_Action();

protected:
    void Event_Close() override;

private:
    void Layout();
    void CreateControls();
    void AddMenuHandlers();

    void pFld_Open();
    void ResultsFld_Open();
    void Label1_Open();
};

} // namespace tovarin
