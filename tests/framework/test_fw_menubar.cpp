#include "FrameworkTestMain.hpp"

#include "framework/Controls.hpp"
#include "framework/MenuBar.hpp"
#include "framework/Platform.hpp"
#include "framework/Window.hpp"

#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include <memory>

using namespace tovarin::fw;

namespace {

// A bar shaped like the program's: a quit and an about item, the Edit items,
// and two items that each lead to the other window.
void buildBar(MenuBar& bar) {
    bar.addMenu("FileMenu", "&File");
    bar.addItem("FileMenu", "FileQuit", "&Quit", QKeySequence::Quit, ItemKind::Quit);
    bar.addItem("FileMenu", "AboutItem", "About", {}, ItemKind::About);
    bar.addMenu("EditMenu", "&Edit");
    bar.addItem("EditMenu", "EditUndo", "&Undo", QKeySequence::Undo);
    bar.addItem("EditMenu", "UntitledMenu1", "-", {}, ItemKind::Separator);
    bar.addItem("EditMenu", "EditCut", "Cu&t", QKeySequence::Cut);
    bar.addItem("EditMenu", "EditCopy", "&Copy", QKeySequence::Copy);
    bar.addItem("EditMenu", "EditPaste", "&Paste", QKeySequence::Paste);
    bar.addItem("EditMenu", "EditClear", "&Delete");
    bar.addItem("EditMenu", "EditSelectAll", "Select &All", QKeySequence::SelectAll);
    bar.addMenu("InfoMenu", "Window");
    bar.addItem("InfoMenu", "ControlItem", "Control");
    bar.addItem("InfoMenu", "InfoItem", "Information");
}

} // namespace

class MenuBarTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void everyWindowShowsTheSameTree();
    void contentSizeExcludesTheMenuBar();
    void frontWindowHandlesAndEnables_data();
    void frontWindowHandlesAndEnables();
    void editItemsFollowTheFocusedControl_data();
    void editItemsFollowTheFocusedControl();
    void editItemsActOnTheFocusedControl_data();
    void editItemsActOnTheFocusedControl();
    void windowHandlerComesBeforeTheTextControl();
    void quitShortcutWorksWithoutAMenuBar();

private:
    void activate(QWidget& window);
    std::unique_ptr<MenuBar> bar_;
    Window* control_ = nullptr;
    Window* info_ = nullptr;
    TextField* field_ = nullptr;
    TextArea* area_ = nullptr;
    QStringList handled_;
};

void MenuBarTest::init() {
    bar_ = std::make_unique<MenuBar>();
    buildBar(*bar_);
    handled_.clear();
    control_ = new Window(400, 300);
    control_->setWindowTitle("control");
    field_ = new TextField(control_->content());
    field_->setObjectName("pFld");
    area_ = new TextArea(control_->content());
    area_->setObjectName("ResultsFld");
    area_->move(0, 60);
    control_->addMenuHandler("InfoItem", [this] {
        handled_ << "control:InfoItem";
        return true;
    });
    bar_->installOn(*control_);
    info_ = new Window(300, 200);
    info_->setWindowTitle("info");
    info_->addMenuHandler("ControlItem", [this] {
        handled_ << "info:ControlItem";
        return true;
    });
    bar_->installOn(*info_);
    QGuiApplication::clipboard()->clear();
}

void MenuBarTest::cleanup() {
    delete control_;
    delete info_;
    bar_.reset();
}

void MenuBarTest::activate(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    bar_->updateEnabled();
}

void MenuBarTest::everyWindowShowsTheSameTree() {
    const auto* first = qobject_cast<QMenuBar*>(control_->menuWidget());
    const auto* second = qobject_cast<QMenuBar*>(info_->menuWidget());
    QVERIFY(first && second && first != second);
    QCOMPARE(first->actions(), second->actions());
    QCOMPARE(first->actions().size(), 3);
    QCOMPARE(first->actions().at(1), bar_->menu("EditMenu")->menuAction());
    QCOMPARE(bar_->item("EditCopy")->shortcut(), QKeySequence(QKeySequence::Copy));
    QVERIFY(bar_->item("UntitledMenu1")->isSeparator());
    QVERIFY(bar_->item("NoSuchItem") == nullptr);
}

void MenuBarTest::contentSizeExcludesTheMenuBar() {
    control_->show();
    QVERIFY(QTest::qWaitForWindowExposed(control_));
    QCOMPARE(control_->content()->size(), QSize(400, 300));
}

void MenuBarTest::frontWindowHandlesAndEnables_data() {
    QTest::addColumn<QString>("front");
    QTest::addColumn<QString>("item");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QString>("handledBy");

    QTest::newRow("Information from the main window") << "control"
                                                      << "InfoItem" << true << "control:InfoItem";
    QTest::newRow("Control from the main window") << "control"
                                                  << "ControlItem" << false << "";
    QTest::newRow("Control from the info window") << "info"
                                                  << "ControlItem" << true << "info:ControlItem";
    QTest::newRow("Information from the info window") << "info"
                                                      << "InfoItem" << false << "";
    QTest::newRow("About without a handler") << "info"
                                             << "AboutItem" << false << "";
    QTest::newRow("Quit is always there") << "info"
                                          << "FileQuit" << true << "";
}

void MenuBarTest::frontWindowHandlesAndEnables() {
    QFETCH(QString, front);
    QFETCH(QString, item);
    QFETCH(bool, enabled);
    QFETCH(QString, handledBy);
    activate(front == "control" ? *control_ : *info_);
    QAction* action = bar_->item(item);
    QCOMPARE(action->isEnabled(), enabled);
    if (item == "FileQuit")
        return; // quitting is covered below, inside an event loop
    action->trigger();
    QCOMPARE(handled_, handledBy.isEmpty() ? QStringList{} : QStringList{handledBy});
}

void MenuBarTest::editItemsFollowTheFocusedControl_data() {
    QTest::addColumn<bool>("inArea");
    QTest::addColumn<bool>("typed");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("clipboard");
    // Expected enabled state of Undo, Cut, Copy, Paste, Delete, Select All.
    QTest::addColumn<QString>("expected");

    QTest::newRow("field, empty") << false << false << false << false << "......";
    QTest::newRow("field, typed") << false << true << false << false << "U....A";
    QTest::newRow("field, selected") << false << true << true << false << "UXC.DA";
    QTest::newRow("field, clipboard") << false << false << false << true << "...P..";
    QTest::newRow("area, empty") << true << false << false << false << "......";
    QTest::newRow("area, typed") << true << true << false << false << "U....A";
    QTest::newRow("area, selected") << true << true << true << true << "UXCPDA";
}

void MenuBarTest::editItemsFollowTheFocusedControl() {
    QFETCH(bool, inArea);
    QFETCH(bool, typed);
    QFETCH(bool, selected);
    QFETCH(bool, clipboard);
    QFETCH(QString, expected);
    activate(*control_);
    QWidget* target = inArea ? static_cast<QWidget*>(area_) : field_;
    target->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), target);
    if (clipboard)
        QGuiApplication::clipboard()->setText("pasted");
    if (typed)
        QTest::keyClicks(target, "abc");
    if (selected)
        QTest::keyClick(target, Qt::Key_Left, Qt::ShiftModifier);
    const QStringList names{"EditUndo",  "EditCut",   "EditCopy",
                            "EditPaste", "EditClear", "EditSelectAll"};
    const QString letters = "UXCPDA";
    QString state;
    for (qsizetype i = 0; i < names.size(); ++i)
        state.append(bar_->item(names[i])->isEnabled() ? letters[i] : QChar(u'.'));
    QCOMPARE(state, expected);
}

void MenuBarTest::editItemsActOnTheFocusedControl_data() {
    QTest::addColumn<bool>("inArea");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("clipboard");

    // Each row starts from "abc" typed with "c" selected and "xy" on the clipboard.
    for (bool inArea : {false, true}) {
        const char* where = inArea ? "area" : "field";
        QTest::addRow("%s undo", where) << inArea << "EditUndo"
                                        << ""
                                        << "xy";
        QTest::addRow("%s cut", where) << inArea << "EditCut"
                                       << "ab"
                                       << "c";
        QTest::addRow("%s copy", where) << inArea << "EditCopy"
                                        << "abc"
                                        << "c";
        QTest::addRow("%s paste", where) << inArea << "EditPaste"
                                         << "abxy"
                                         << "xy";
        QTest::addRow("%s delete", where) << inArea << "EditClear"
                                          << "ab"
                                          << "xy";
    }
}

void MenuBarTest::editItemsActOnTheFocusedControl() {
    QFETCH(bool, inArea);
    QFETCH(QString, item);
    QFETCH(QString, text);
    QFETCH(QString, clipboard);
    activate(*control_);
    QWidget* target = inArea ? static_cast<QWidget*>(area_) : field_;
    target->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), target);
    QTest::keyClicks(target, "abc");
    QTest::keyClick(target, Qt::Key_Left, Qt::ShiftModifier);
    QGuiApplication::clipboard()->setText("xy");
    bar_->item(item)->trigger();
    QCOMPARE(inArea ? area_->toPlainText() : field_->text(), text);
    QCOMPARE(QGuiApplication::clipboard()->text(), clipboard);

    bar_->item("EditSelectAll")->trigger();
    const QString selected = inArea ? area_->textCursor().selectedText() : field_->selectedText();
    QCOMPARE(selected, text);
}

void MenuBarTest::windowHandlerComesBeforeTheTextControl() {
    control_->addMenuHandler("EditCopy", [this] {
        handled_ << "control:EditCopy";
        return true;
    });
    activate(*control_);
    field_->setFocus();
    QVERIFY(bar_->item("EditCopy")->isEnabled()); // the handler alone enables it
    bar_->item("EditCopy")->trigger();
    QCOMPARE(handled_, QStringList{"control:EditCopy"});
    QVERIFY(QGuiApplication::clipboard()->text().isEmpty());
}

void MenuBarTest::quitShortcutWorksWithoutAMenuBar() {
    // A bar that no window has installed: a splash shown before the main
    // window gets the quit key from the items alone, without menu widgets.
    const auto menuWidgets = [] {
        int count = 0;
        for (QWidget* widget : QApplication::allWidgets())
            count += qobject_cast<QMenu*>(widget) != nullptr;
        return count;
    };
    const int before = menuWidgets();
    MenuBar fresh;
    buildBar(fresh);
    Window splash(200, 100);
    fresh.installShortcutsOn(splash);
    QVERIFY(splash.menuWidget() == nullptr);
    QCOMPARE(menuWidgets(), before);
    activate(splash);
    QTimer::singleShot(0, &splash,
                       [&] { QTest::keyClick(&splash, Qt::Key_Q, Qt::ControlModifier); });
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(99); });
    guard.start(10000); // a limit, not a wait: only reached if the shortcut fails
    QCOMPARE(QCoreApplication::exec(), 0);
    QVERIFY(guard.isActive());
    QCOMPARE(menuWidgets(), before);
}

TOVARIN_FRAMEWORK_TEST_MAIN(MenuBarTest)
#include "test_fw_menubar.moc"
