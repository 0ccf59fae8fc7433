#include "ui/main/MenuBar1.hpp"

#include <QKeySequence>

namespace tovarin {

namespace {

using fw::ItemKind;

void Untitled0(fw::MenuBar& bar) {
    bar.addMenu(QStringLiteral("FileMenu"), QStringLiteral("&File"));
    bar.addItem(QStringLiteral("FileMenu"), QStringLiteral("FileQuit"), QStringLiteral("&Quit"),
                QKeySequence::Quit, ItemKind::Quit);
    // There is no application menu off macOS, so the about item stays under File.
    bar.addItem(QStringLiteral("FileMenu"), QStringLiteral("AboutItem"),
                QStringLiteral("About Tovarin"), {}, ItemKind::About);
}

// The Edit items are served by the focused text control; their names are
// what the text handling goes by.
void Untitled1(fw::MenuBar& bar) {
    const QString menu = QStringLiteral("EditMenu");
    bar.addMenu(menu, QStringLiteral("&Edit"));
    bar.addItem(menu, QStringLiteral("EditUndo"), QStringLiteral("&Undo"), QKeySequence::Undo);
    bar.addItem(menu, QStringLiteral("UntitledMenu1"), QStringLiteral("-"), {},
                ItemKind::Separator);
    bar.addItem(menu, QStringLiteral("EditCut"), QStringLiteral("Cu&t"), QKeySequence::Cut);
    bar.addItem(menu, QStringLiteral("EditCopy"), QStringLiteral("&Copy"), QKeySequence::Copy);
    bar.addItem(menu, QStringLiteral("EditPaste"), QStringLiteral("&Paste"), QKeySequence::Paste);
    bar.addItem(menu, QStringLiteral("EditClear"), QStringLiteral("&Delete"));
    bar.addItem(menu, QStringLiteral("UntitledMenu0"), QStringLiteral("-"), {},
                ItemKind::Separator);
    bar.addItem(menu, QStringLiteral("EditSelectAll"), QStringLiteral("Select &All"),
                QKeySequence::SelectAll);
}

// Each of the two items leads to the other window and is answered there.
void Untitled2(fw::MenuBar& bar) {
    bar.addMenu(QStringLiteral("InfoMenu"), QStringLiteral("Window"));
    bar.addItem(QStringLiteral("InfoMenu"), QStringLiteral("ControlItem"),
                QStringLiteral("Control"));
    bar.addItem(QStringLiteral("InfoMenu"), QStringLiteral("InfoItem"),
                QStringLiteral("Information"));
}

fw::MenuBar* build() {
    // Lives as long as the process: every window shows this one tree.
    auto* bar = new fw::MenuBar();
    Untitled0(*bar);
    Untitled1(*bar);
    Untitled2(*bar);
    return bar;
}

} // namespace

fw::MenuBar& MenuBar1() {
    static fw::MenuBar* const bar = build();
    return *bar;
}

} // namespace tovarin
