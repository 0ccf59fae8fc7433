#include "ui/secondary/helpWnd.hpp"

#include "engine/HelpText.hpp"
#include "framework/TextArea.hpp"
#include "ui/MainWindow.hpp"
#include "ui/MenuBar1.hpp"
#include "ui/MenuItems.hpp"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

namespace tovarin {

namespace {

constexpr int kContentWidth = 550;
constexpr int kContentHeight = 500;
const QLatin1String kEditField1("EditField1");
constexpr int kSmallestSide = 64;
constexpr int kLargestSide = 32000;

// The text area overlaps the window's left and top edge by one pixel so its
// border does not show there.
constexpr QRect kEditFieldFrame(-1, -1, 551, 498);

// Written behind the manual when the window opens.
constexpr char kTrailingLiteral[] = "Error message";

} // namespace

helpWnd::helpWnd() : fw::Window(kContentWidth, kContentHeight) {
    // The manual is never the window whose closing ends the program. (Closing
    // deletes the window, so the next open starts from the stored text.)
    setAttribute(Qt::WA_QuitOnClose, false);
    Layout();
    CreateControls();
    AddMenuHandlers();
    placeOverParent();
    show();
}

fw::TextArea* helpWnd::EditField1() const {
    return control<fw::TextArea>(kEditField1);
}

void helpWnd::Layout() {
    MenuBar1().installOn(*this);

    setWindowTitle(QStringLiteral("Info"));
    // It can be resized, but not maximised.
    setWindowFlags(fw::kDocumentWindowFlags);
    setMinimumSize(kSmallestSide, kSmallestSide);
    setMaximumSize(kLargestSide, kLargestSide);
}

void helpWnd::CreateControls() {
    auto* area = new fw::TextArea(content());
    area->setObjectName(kEditField1);
    // No layout manages the area: it keeps its place and size when the window
    // is resized.
    area->setGeometry(kEditFieldFrame);
    area->setReadOnly(false);
    area->setAcceptRichText(true);
    area->setTabChangesFocus(true);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setLineWrapMode(QTextEdit::WidgetWidth);
    area->setAccessibleName(QStringLiteral("Information"));

    QPalette palette = area->palette();
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    area->setPalette(palette);

    area->appendPlain(QString::fromUtf8(helpText().data(), qsizetype(helpText().size())));
    EditField1_Open(*area);
}

void helpWnd::EditField1_Open(fw::TextArea& area) {
    area.setFont(QFontDatabase::systemFont(QFontDatabase::GeneralFont));

    // Work on the area's live document, so every change shows at once.
    QTextDocument& document = *area.document();
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QString::fromLatin1(kTrailingLiteral), QTextCharFormat());

    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    cursor.setPosition(0);
    cursor.setPosition(int(kHelpTitleLength), QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(bold);

    // Undo takes back the user's edits only, not the window's own set-up.
    document.clearUndoRedoStacks();
    cursor.setPosition(0);
    area.setTextCursor(cursor);
}

void helpWnd::AddMenuHandlers() {
    addMenuHandler(MenuItem::ControlItem, [this] { return ControlItem_Action(); });
}

bool helpWnd::ControlItem_Action() {
    showMainWindow();
    return true;
}

void helpWnd::placeOverParent() {
    QRect target;
    if (const fw::Window* main = visibleMainWindow())
        target = main->frameGeometry();
    else if (const QScreen* screen = QGuiApplication::primaryScreen())
        target = screen->availableGeometry();
    else
        return;
    QRect frame = frameGeometry();
    frame.moveCenter(target.center());
    move(frame.topLeft());
}

} // namespace tovarin
