#include "FrameworkTestMain.hpp"

#include "framework/MenuBar.hpp"
#include "framework/TextArea.hpp"
#include "framework/TextField.hpp"
#include "framework/Window.hpp"

#include <QClipboard>
#include <QMenu>
#include <QMenuBar>

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
    std::unique_ptr<MenuBar> bar_;
    Window* control_ = nullptr;
    Window* info_ = nullptr;
    TextField* field_ = nullptr;
    TextArea* area_ = nullptr;
    QStringList handled_;

    void activate(QWidget& window) {
        window.show();
        window.raise();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        bar_->updateEnabled();
    }
    // The main window in front with the field or the area focused.
    QWidget* focus(bool inArea) {
        activate(*control_);
        QWidget* target = inArea ? static_cast<QWidget*>(area_) : field_;
        target->setFocus();
        if (!QTest::qWaitFor([&] { return QApplication::focusWidget() == target; }))
            qWarning("the control did not take the focus");
        return target;
    }

private slots:
    void init() {
        bar_ = std::make_unique<MenuBar>();
        buildBar(*bar_);
        handled_.clear();
        control_ = new Window(400, 300);
        field_ = new TextField(control_->content());
        area_ = new TextArea(control_->content());
        area_->move(0, 60);
        control_->addMenuHandler("InfoItem",
                                 [this] { return handled_ << "control:InfoItem", true; });
        bar_->installOn(*control_);
        info_ = new Window(300, 200);
        info_->addMenuHandler("ControlItem",
                              [this] { return handled_ << "info:ControlItem", true; });
        bar_->installOn(*info_);
        QGuiApplication::clipboard()->clear();
    }
    void cleanup() {
        delete control_;
        delete info_;
        bar_.reset();
    }

    void everyWindowShowsTheSameTreeOutsideItsContent() {
        const auto* first = qobject_cast<QMenuBar*>(control_->menuWidget());
        const auto* second = qobject_cast<QMenuBar*>(info_->menuWidget());
        QVERIFY(first && second && first != second);
        QCOMPARE(first->actions(), second->actions());
        QCOMPARE(first->actions().size(), 3);
        QCOMPARE(first->actions().at(1), bar_->menu("EditMenu")->menuAction());
        control_->show();
        QVERIFY(QTest::qWaitForWindowExposed(control_));
        QCOMPARE(control_->content()->size(), QSize(400, 300));
    }

    void frontWindowHandlesAndEnables_data() {
        QTest::addColumn<bool>("infoInFront");
        QTest::addColumn<QString>("item");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<QStringList>("handledBy");
        QTest::newRow("Information from the main window")
            << false << "InfoItem" << true << QStringList{"control:InfoItem"};
        QTest::newRow("Control from the main window")
            << false << "ControlItem" << false << QStringList{};
        QTest::newRow("Control from the info window")
            << true << "ControlItem" << true << QStringList{"info:ControlItem"};
        QTest::newRow("Information from the info window")
            << true << "InfoItem" << false << QStringList{};
        QTest::newRow("About without a handler") << true << "AboutItem" << false << QStringList{};
        QTest::newRow("Quit is always there") << true << "FileQuit" << true << QStringList{};
    }
    void frontWindowHandlesAndEnables() {
        QFETCH(bool, infoInFront);
        QFETCH(QString, item);
        QFETCH(bool, enabled);
        QFETCH(QStringList, handledBy);
        activate(infoInFront ? *info_ : *control_);
        QCOMPARE(bar_->item(item)->isEnabled(), enabled);
        if (item == "FileQuit")
            return; // quitting would end the test run
        bar_->item(item)->trigger();
        QCOMPARE(handled_, handledBy);
    }

    // The focused control enables the Edit items by its state, shown as the letters of
    // Undo, Cut, Copy, Paste, Delete, Select All; an item then acts on that control.
    void editItems_data() {
        QTest::addColumn<bool>("inArea");
        QTest::addColumn<bool>("typed");     // "abc"
        QTest::addColumn<bool>("selected");  // "c"
        QTest::addColumn<bool>("clipboard"); // "xy"
        QTest::addColumn<QString>("enabled");
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("textAfter");
        QTest::addColumn<QString>("clipboardAfter");
        const auto state = [](const char* name, bool inArea, bool typed, bool selected,
                              bool clipboard, const char* enabled) {
            QTest::newRow(name) << inArea << typed << selected << clipboard << enabled << QString()
                                << QString() << QString();
        };
        state("field, empty", false, false, false, false, "......");
        state("field, typed", false, true, false, false, "U....A");
        state("field, selected", false, true, true, false, "UXC.DA");
        state("field, clipboard", false, false, false, true, "...P..");
        state("area, empty", true, false, false, false, "......");
        state("area, typed", true, true, false, false, "U....A");
        for (bool inArea : {false, true}) {
            const auto act = [inArea](const char* name, const char* item, const char* text,
                                      const char* clipboard) {
                QTest::addRow("%s %s", inArea ? "area" : "field", name)
                    << inArea << true << true << true << "UXCPDA" << item << text << clipboard;
            };
            act("undo", "EditUndo", "", "xy");
            act("cut", "EditCut", "ab", "c");
            act("copy", "EditCopy", "abc", "c");
            act("paste", "EditPaste", "abxy", "xy");
            act("delete", "EditClear", "ab", "xy");
        }
    }
    void editItems() {
        QFETCH(bool, inArea);
        QFETCH(bool, typed);
        QFETCH(bool, selected);
        QFETCH(bool, clipboard);
        QFETCH(QString, enabled);
        QFETCH(QString, item);
        QWidget* target = focus(inArea);
        if (clipboard)
            QGuiApplication::clipboard()->setText("xy");
        if (typed)
            QTest::keyClicks(target, "abc");
        if (selected)
            QTest::keyClick(target, Qt::Key_Left, Qt::ShiftModifier);
        const QStringList names{"EditUndo",  "EditCut",   "EditCopy",
                                "EditPaste", "EditClear", "EditSelectAll"};
        QString state;
        for (qsizetype i = 0; i < names.size(); ++i)
            state.append(bar_->item(names[i])->isEnabled() ? QString("UXCPDA")[i] : QChar(u'.'));
        QCOMPARE(state, enabled);
        if (item.isEmpty())
            return;
        QFETCH(QString, textAfter);
        QFETCH(QString, clipboardAfter);
        bar_->item(item)->trigger();
        QCOMPARE(inArea ? area_->toPlainText() : field_->text(), textAfter);
        QCOMPARE(QGuiApplication::clipboard()->text(), clipboardAfter);
        bar_->item("EditSelectAll")->trigger();
        QCOMPARE(inArea ? area_->textCursor().selectedText() : field_->selectedText(), textAfter);
    }

    void windowHandlerComesBeforeTheTextControl() {
        control_->addMenuHandler("EditCopy",
                                 [this] { return handled_ << "control:EditCopy", true; });
        focus(false);
        QVERIFY(bar_->item("EditCopy")->isEnabled()); // the handler alone enables it
        bar_->item("EditCopy")->trigger();
        QCOMPARE(handled_, QStringList{"control:EditCopy"});
        QVERIFY(QGuiApplication::clipboard()->text().isEmpty());
    }
};

TOVARIN_FRAMEWORK_TEST_MAIN(MenuBarTest)
#include "test_fw_menubar.moc"
