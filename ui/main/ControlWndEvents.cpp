// What the main window does with keys, button presses, menu items and closing.
#include "ui/main/ControlWnd.hpp"

#include "engine/report/AnalysisRun.hpp"
#include "framework/Dialogs.hpp"
#include "framework/Quit.hpp"
#include "ui/MenuItems.hpp"
#include "ui/main/KeyFilters.hpp"
#include "ui/main/RunHost.hpp"
#include "ui/secondary/AboutWnd.hpp"
#include "ui/secondary/helpWnd.hpp"

namespace tovarin {

void ControlWnd::AddMenuHandlers() {
    addMenuHandler(MenuItem::FileQuit, [this] { return FileQuit_Action(); });
    addMenuHandler(MenuItem::InfoItem, [this] { return InfoItem_Action(); });
    addMenuHandler(MenuItem::AboutItem, [this] { return AboutItem_Action(); });
}

bool ControlWnd::pFld_KeyDown(int code) {
    // Any key in the count field drops the report on show, even one refused
    // below: a changed count must not sit beside results of the old one.
    ResultsFld()->clear();
    if (countFieldAccepts(code))
        return false;
    fw::beep();
    return true;
}

bool ControlWnd::ResultsFld_KeyDown(int code) {
    if (resultsFieldAccepts(code))
        return false;
    fw::beep();
    return true;
}

bool ControlWnd::clearBtn_MouseDown(int, int) {
    pFld()->setText(QString());
    ResultsFld()->clear();
    ResultsFld()->setVisible(false);
    pFld()->setFocus();
    return false;
}

bool ControlWnd::helpBtn_MouseDown(int, int) {
    fw::instance<helpWnd>().showWindow();
    return false;
}

bool ControlWnd::calcBtn_MouseDown(int, int) {
    // A file that cannot be read throws out of here on purpose: the
    // application shows the failure with its reason, and nothing of the
    // report has been written by then.
    RunHost host(*this);
    runAnalysis(host);
    return false;
}

bool ControlWnd::FileQuit_Action() {
    fw::quit(0);
    return true;
}

bool ControlWnd::InfoItem_Action() {
    fw::instance<helpWnd>().showWindow();
    return true;
}

bool ControlWnd::AboutItem_Action() {
    fw::instance<AboutWnd>().showWindow();
    return true;
}

void ControlWnd::Event_Close() {
    // The main window is the program: closing it quits, whatever else is open.
    fw::quit(0);
}

} // namespace tovarin
