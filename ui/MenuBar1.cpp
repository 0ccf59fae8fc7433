#include "ui/MenuBar1.hpp"

#include "ui/MenuItems.hpp"

#include <QKeySequence>

namespace tovarin {

namespace {

using fw::ItemKind;
namespace Item = MenuItem;

void Untitled0(fw::MenuBar& bar) {
    bar.addMenu(Item::FileMenu, QStringLiteral("&File"));
    bar.addItem(Item::FileMenu, Item::FileQuit, QStringLiteral("&Quit"), QKeySequence::Quit,
                ItemKind::Quit);
    // There is no application menu off macOS, so the about item stays under File.
    bar.addItem(Item::FileMenu, Item::AboutItem, QStringLiteral("About Tovarin"), {},
                ItemKind::About);
}

// The Edit items are served by the focused text control, by their kind.
void Untitled1(fw::MenuBar& bar) {
    bar.addMenu(Item::EditMenu, QStringLiteral("&Edit"));
    bar.addItem(Item::EditMenu, Item::EditUndo, QStringLiteral("&Undo"), QKeySequence::Undo,
                ItemKind::Undo);
    bar.addItem(Item::EditMenu, Item::UntitledMenu1, QStringLiteral("-"), {}, ItemKind::Separator);
    bar.addItem(Item::EditMenu, Item::EditCut, QStringLiteral("Cu&t"), QKeySequence::Cut,
                ItemKind::Cut);
    bar.addItem(Item::EditMenu, Item::EditCopy, QStringLiteral("&Copy"), QKeySequence::Copy,
                ItemKind::Copy);
    bar.addItem(Item::EditMenu, Item::EditPaste, QStringLiteral("&Paste"), QKeySequence::Paste,
                ItemKind::Paste);
    bar.addItem(Item::EditMenu, Item::EditClear, QStringLiteral("&Delete"), {}, ItemKind::Delete);
    bar.addItem(Item::EditMenu, Item::UntitledMenu0, QStringLiteral("-"), {}, ItemKind::Separator);
    bar.addItem(Item::EditMenu, Item::EditSelectAll, QStringLiteral("Select &All"),
                QKeySequence::SelectAll, ItemKind::SelectAll);
}

// Each of the two items leads to the other window and is answered there.
void Untitled2(fw::MenuBar& bar) {
    bar.addMenu(Item::InfoMenu, QStringLiteral("Window"));
    bar.addItem(Item::InfoMenu, Item::ControlItem, QStringLiteral("Control"));
    bar.addItem(Item::InfoMenu, Item::InfoItem, QStringLiteral("Information"));
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
