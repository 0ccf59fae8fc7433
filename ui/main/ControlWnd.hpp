#pragma once

#include "framework/Canvas.hpp"
#include "framework/Label.hpp"
#include "framework/PushButton.hpp"
#include "framework/TextArea.hpp"
#include "framework/TextField.hpp"
#include "framework/Window.hpp"

namespace tovarin {

// The object name of each control, written only here: the window creates its
// controls under these names and its accessors find them by the same.
namespace ControlWndName {
inline constexpr QLatin1String pFld("pFld");
inline constexpr QLatin1String clearBtn("clearBtn");
inline constexpr QLatin1String helpBtn("helpBtn");
inline constexpr QLatin1String calcBtn("calcBtn");
inline constexpr QLatin1String ResultsFld("ResultsFld");
inline constexpr QLatin1String Canvas1("Canvas1");
inline constexpr QLatin1String Label1("Label1");
inline constexpr QLatin1String NumFld("NumFld");
} // namespace ControlWndName

// The main window: the banner, the count field, the results area and the
// three buttons that clear, show the help and run an analysis.
class ControlWnd : public fw::Window {
    Q_OBJECT
public:
    ControlWnd();

    // The controls, looked up by name on every use.
    fw::TextField* pFld() const { return control<fw::TextField>(ControlWndName::pFld); }
    fw::PushButton* clearBtn() const { return control<fw::PushButton>(ControlWndName::clearBtn); }
    fw::PushButton* helpBtn() const { return control<fw::PushButton>(ControlWndName::helpBtn); }
    fw::PushButton* calcBtn() const { return control<fw::PushButton>(ControlWndName::calcBtn); }
    fw::TextArea* ResultsFld() const { return control<fw::TextArea>(ControlWndName::ResultsFld); }
    fw::Canvas* Canvas1() const { return control<fw::Canvas>(ControlWndName::Canvas1); }
    fw::Label* Label1() const { return control<fw::Label>(ControlWndName::Label1); }
    fw::Label* NumFld() const { return control<fw::Label>(ControlWndName::NumFld); }

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
    void describeForAssistiveTechnology();
    void AddMenuHandlers();

    void pFld_Open();
    void ResultsFld_Open();
    void Label1_Open();
};

} // namespace tovarin
