// The shared menu bar: its tree, which items each window enables, and the
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

// One menu's items as "name=caption[shortcut]", a separator as "-".
QString describe(const QList<QAction*>& actions) {
    QStringList out;
    for (const QAction* a : actions) {
        const QString keys = a->shortcut().toString(QKeySequence::PortableText);
        out.append(a->isSeparator() ? QStringLiteral("-")
                                    : a->objectName() + u'=' + a->text() +
                                          (keys.isEmpty() ? QString() : u'[' + keys + u']'));
        if (!a->isVisible())
            out.last() += QStringLiteral("(hidden)");
    }
    return out.join(QStringLiteral(" | "));
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

    void tree_data() {
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QString>("items");
        // Quit has a key on every platform, the standard one where there is one.
        const QKeySequence quit = QKeySequence(QKeySequence::Quit).isEmpty()
                                      ? QKeySequence(Qt::CTRL | Qt::Key_Q)
                                      : QKeySequence(QKeySequence::Quit);
        QTest::newRow("bar") << ""
                             << "FileMenu=&File | EditMenu=&Edit | InfoMenu=Window";
        QTest::newRow("FileMenu") << "FileMenu"
                                  << "FileQuit=&Quit[" + quit.toString() +
                                         "] | AboutItem=About "
                                         "Tovarin";
        QTest::newRow("EditMenu") << "EditMenu"
                                  << "EditUndo=&Undo[Ctrl+Z] | - | EditCut=Cu&t[Ctrl+X] | "
                                     "EditCopy=&Copy[Ctrl+C] | EditPaste=&Paste[Ctrl+V] | "
                                     "EditClear=&Delete | - | EditSelectAll=Select &All[Ctrl+A]";
        QTest::newRow("InfoMenu") << "InfoMenu"
                                  << "ControlItem=Control | InfoItem=Information";
    }
    void tree() {
        QFETCH(QString, menu);
        QFETCH(QString, items);
        QCOMPARE(describe(menu.isEmpty() ? window().menuBar()->actions()
                                         : MenuBar1().menu(menu)->actions()),
                 items);
    }

    // The main window's handlers and the help button bring the other windows
    // to the front, and the front window decides which items are enabled
    // (the Edit items follow the focused control instead).
    void frontWindowEnables_data() {
        QTest::addColumn<QString>("how");
        QTest::addColumn<QString>("front");
        QTest::addColumn<QStringList>("enabled");
        const QStringList mainItems = {"AboutItem", "FileQuit", "InfoItem"};
        const QStringList helpItems = {"ControlItem", "FileQuit"};
        QTest::newRow("main") << ""
                              << "tovarin::ControlWnd" << mainItems;
        QTest::newRow("InfoItem") << "InfoItem"
                                  << "tovarin::helpWnd" << helpItems;
        QTest::newRow("helpBtn") << "helpBtn"
                                 << "tovarin::helpWnd" << helpItems;
        QTest::newRow("AboutItem") << "AboutItem"
                                   << "tovarin::AboutWnd" << QStringList{"FileQuit"};
    }
    void frontWindowEnables() {
        QFETCH(QString, how);
        QFETCH(QString, front);
        QFETCH(QStringList, enabled);
        if (how == u"helpBtn")
            QTest::mousePress(window().helpBtn(), Qt::LeftButton);
        else if (!how.isEmpty())
            MenuBar1().item(how)->trigger();
        QTRY_VERIFY(QApplication::activeWindow());
        QTRY_COMPARE(QString::fromLatin1(QApplication::activeWindow()->metaObject()->className()),
                     front);
        MenuBar1().updateEnabled();
        QStringList actual;
        for (const char* name : {"FileQuit", "AboutItem", "InfoItem", "ControlItem"}) {
            if (MenuBar1().item(name)->isEnabled())
                actual.append(name);
        }
        actual.sort();
        QCOMPARE(actual, enabled);
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
        QTimer::singleShot(10000, &window(), [] { QCoreApplication::exit(99); });
        QCOMPARE(QCoreApplication::exec(), 0);
    }
};

TOVARIN_UI_TEST_MAIN(MenuBarTest)
#include "test_menubar.moc"
