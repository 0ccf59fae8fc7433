// The shared menu bar: its tree, which items the main window enables, and the
// road of a report out through Select All and Copy.
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include "ui/main/MenuBar1.hpp"
#include "ui/secondary/AboutWnd.hpp"
#include "ui/secondary/helpWnd.hpp"

#include <QClipboard>
#include <QMenuBar>
#include <QTimer>

using namespace tovarin;

namespace {

// Items named as the menu handlers and the text controls know them.
const QStringList kItems = {"FileQuit",  "AboutItem", "EditUndo",      "EditCut",  "EditCopy",
                            "EditPaste", "EditClear", "EditSelectAll", "InfoItem", "ControlItem"};

QStringList enabledItems() {
    MenuBar1().updateEnabled();
    QStringList enabled;
    for (const QString& name : kItems) {
        if (MenuBar1().item(name)->isEnabled())
            enabled.append(name);
    }
    return enabled;
}

} // namespace

class MenuBarTest : public QObject {
    Q_OBJECT

    testing::PlatformRecorder platform_;

    ControlWnd& window() { return fw::instance<ControlWnd>(); }

private slots:
    void init() {
        platform_.install();
        if (auto* help = fw::openInstance<helpWnd>())
            delete help;
        testing::freshControlWnd();
        QGuiApplication::clipboard()->clear();
    }

    void builtOnce() { QCOMPARE(&MenuBar1(), &MenuBar1()); }

    void menusOnTheWindow() {
        QStringList captions;
        for (QAction* menu : window().menuBar()->actions())
            captions.append(menu->objectName() + u'=' + menu->text());
        QCOMPARE(captions, QStringList({"FileMenu=&File", "EditMenu=&Edit", "InfoMenu=Window"}));
    }

    void tree_data() {
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<QStringList>("captions");
        QTest::addColumn<QList<QKeySequence>>("shortcuts");
        const QKeySequence none;
        // Quit has a key on every platform, the standard one where there is one.
        const QKeySequence quit = QKeySequence(QKeySequence::Quit).isEmpty()
                                      ? QKeySequence(Qt::CTRL | Qt::Key_Q)
                                      : QKeySequence(QKeySequence::Quit);
        QTest::newRow("FileMenu") << "FileMenu" << QStringList{"FileQuit", "AboutItem"}
                                  << QStringList{"&Quit", "About Tovarin"}
                                  << QList<QKeySequence>{quit, none};
        QTest::newRow("EditMenu") << "EditMenu"
                                  << QStringList{"EditUndo",      "UntitledMenu1", "EditCut",
                                                 "EditCopy",      "EditPaste",     "EditClear",
                                                 "UntitledMenu0", "EditSelectAll"}
                                  << QStringList{"&Undo",  "",        "Cu&t", "&Copy",
                                                 "&Paste", "&Delete", "",     "Select &All"}
                                  << QList<QKeySequence>{QKeySequence::Undo,
                                                         none,
                                                         QKeySequence::Cut,
                                                         QKeySequence::Copy,
                                                         QKeySequence::Paste,
                                                         none,
                                                         none,
                                                         QKeySequence::SelectAll};
        QTest::newRow("InfoMenu") << "InfoMenu" << QStringList{"ControlItem", "InfoItem"}
                                  << QStringList{"Control", "Information"}
                                  << QList<QKeySequence>{none, none};
    }
    void tree() {
        QFETCH(QString, menu);
        QFETCH(QStringList, items);
        QFETCH(QStringList, captions);
        QFETCH(QList<QKeySequence>, shortcuts);
        const QList<QAction*> actions = MenuBar1().menu(menu)->actions();
        QCOMPARE(actions.size(), items.size());
        for (qsizetype i = 0; i < actions.size(); ++i) {
            QCOMPARE(actions[i]->objectName(), items[i]);
            QCOMPARE(actions[i]->isSeparator(), captions[i].isEmpty());
            if (!actions[i]->isSeparator())
                QCOMPARE(actions[i]->text(), captions[i]);
            QCOMPARE(actions[i]->shortcut(), shortcuts[i]);
            QVERIFY(actions[i]->isVisible());
        }
    }

    void enabledWithTheMainWindowInFront_data() {
        QTest::addColumn<QString>("focus");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("selectAll");
        QTest::addColumn<QStringList>("edit");
        const QStringList cutCopyDelete = {"EditCut", "EditCopy", "EditClear", "EditSelectAll"};
        QTest::newRow("empty count field") << "pFld"
                                           << "" << false << QStringList{};
        QTest::newRow("count, no selection") << "pFld"
                                             << "12" << false << QStringList{"EditSelectAll"};
        QTest::newRow("count, selected") << "pFld"
                                         << "12" << true << cutCopyDelete;
        QTest::newRow("report, no selection")
            << "ResultsFld"
            << "a report" << false << QStringList{"EditSelectAll"};
        QTest::newRow("report, selected") << "ResultsFld"
                                          << "a report" << true << cutCopyDelete;
    }
    void enabledWithTheMainWindowInFront() {
        QFETCH(QString, focus);
        QFETCH(QString, text);
        QFETCH(bool, selectAll);
        QFETCH(QStringList, edit);
        window().ResultsFld()->setVisible(true);
        window().pFld()->setText(focus == u"pFld" ? text : QString());
        window().ResultsFld()->setPlainText(focus == u"ResultsFld" ? text : QString());
        window().control<QWidget>(focus)->setFocus();
        if (selectAll)
            MenuBar1().item(QStringLiteral("EditSelectAll"))->trigger();

        QStringList expected = {"FileQuit", "AboutItem", "InfoItem"};
        expected += edit;
        expected.sort();
        QStringList enabled = enabledItems();
        enabled.removeAll(QStringLiteral("EditUndo")); // follows the edit history
        enabled.sort();
        QCOMPARE(enabled, expected);
    }

    void helpWindowInFront() {
        MenuBar1().item(QStringLiteral("InfoItem"))->trigger();
        auto* help = fw::openInstance<helpWnd>();
        QVERIFY(help);
        QVERIFY(QTest::qWaitForWindowActive(help));
        const QStringList enabled = enabledItems();
        QVERIFY(enabled.contains(QStringLiteral("ControlItem")));
        QVERIFY(enabled.contains(QStringLiteral("FileQuit")));
        QVERIFY(!enabled.contains(QStringLiteral("InfoItem")));
        // Only the main window answers About, so elsewhere it is shown disabled.
        QVERIFY(!enabled.contains(QStringLiteral("AboutItem")));
    }

    // The window's own handlers and the help button lead to the other windows.
    void handlersShowWindows_data() {
        QTest::addColumn<QString>("trigger");
        QTest::addColumn<QString>("shown");
        QTest::newRow("InfoItem") << "InfoItem"
                                  << "tovarin::helpWnd";
        QTest::newRow("AboutItem") << "AboutItem"
                                   << "tovarin::AboutWnd";
        QTest::newRow("helpBtn") << "helpBtn"
                                 << "tovarin::helpWnd";
    }
    void handlersShowWindows() {
        QFETCH(QString, trigger);
        QFETCH(QString, shown);
        if (trigger == u"helpBtn")
            QTest::mousePress(window().helpBtn(), Qt::LeftButton);
        else
            MenuBar1().item(trigger)->trigger();
        QWidget* front = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (w->isVisible() && QString::fromLatin1(w->metaObject()->className()) == shown)
                front = w;
        }
        QVERIFY(front);
        if (auto* about = fw::openInstance<AboutWnd>())
            about->hide();
    }

    void selectAllAndCopyTakeTheReport() {
        window().ResultsFld()->setVisible(true);
        window().ResultsFld()->appendPlain(QStringLiteral("Date: today\rFile: x.txt\r\rModel\r"));
        window().ResultsFld()->setFocus();
        MenuBar1().item(QStringLiteral("EditSelectAll"))->trigger();
        MenuBar1().item(QStringLiteral("EditCopy"))->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QStringLiteral("Date: today\nFile: x.txt\n\nModel\n"));
    }

    // Quitting, by the menu or by closing the main window, ends the run with 0
    // whatever else is open.
    void quitEndsTheRunWithZero_data() {
        QTest::addColumn<bool>("byClose");
        QTest::newRow("Quit item") << false;
        QTest::newRow("closing the window, help open") << true;
    }
    void quitEndsTheRunWithZero() {
        QFETCH(bool, byClose);
        if (byClose)
            MenuBar1().item(QStringLiteral("InfoItem"))->trigger();
        QTimer::singleShot(0, &window(), [byClose] {
            if (byClose)
                fw::instance<ControlWnd>().close();
            else
                MenuBar1().item(QStringLiteral("FileQuit"))->trigger();
        });
        QTimer guard;
        guard.setSingleShot(true);
        connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(99); });
        guard.start(10000);
        QCOMPARE(QCoreApplication::exec(), 0);
    }
};

TOVARIN_UI_TEST_MAIN(MenuBarTest)
#include "test_menubar.moc"
