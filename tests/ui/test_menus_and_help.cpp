// The shared menu bar (its tree, which items each window enables, the road of
// a report out through Select All and Copy) and the Information window.
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include "ui/main/MenuBar1.hpp"
#include "ui/secondary/AboutWnd.hpp"
#include "ui/secondary/HelpText.hpp"
#include "ui/secondary/helpWnd.hpp"

#include <QClipboard>
#include <QMenuBar>
#include <QPointer>
#include <QSignalSpy>
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
    }
    return out.join(QStringLiteral(" | "));
}

// What the area must show right after opening: the manual, then the literal.
QString expectedText() {
    const auto text = helpText();
    return QString::fromUtf8(text.data(), qsizetype(text.size())).replace(u'\r', u'\n') +
           QStringLiteral("Error message");
}

QString shownText() {
    return fw::instance<helpWnd>().EditField1()->toPlainText();
}

// Closes the open Information window and waits until it is really gone.
bool closeHelp() {
    QPointer<helpWnd> help = fw::openInstance<helpWnd>();
    if (help)
        help->close();
    return QTest::qWaitFor([&] { return help.isNull(); });
}

} // namespace

class MenuBarTest : public QObject {
    Q_OBJECT

    testing::PlatformRecorder platform_;

    ControlWnd& window() { return fw::instance<ControlWnd>(); }

private slots:
    void init() {
        platform_.install();
        QVERIFY(closeHelp());
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

    // Each opening shows the text afresh, the literal once, the title alone bold.
    void opensWithManualAndLiteralOnce_data() {
        QTest::addColumn<int>("reopenings");
        QTest::newRow("first open") << 0;
        QTest::newRow("after three reopenings") << 3;
    }
    void opensWithManualAndLiteralOnce() {
        QFETCH(int, reopenings);
        for (int i = 0; i < reopenings; ++i) {
            fw::instance<helpWnd>().showWindow();
            QVERIFY(closeHelp());
        }
        helpWnd& help = fw::instance<helpWnd>();
        QCOMPARE(shownText(), expectedText());
        QCOMPARE(help.content()->size(), QSize(550, 500));
        QCOMPARE(help.EditField1()->geometry(), QRect(-1, -1, 551, 498));

        const int title = int(kHelpTitleLength);
        QStringList bold;
        for (int at : {0, title - 1, title, title + 2, int(expectedText().size()) - 1}) {
            QTextCursor cursor(help.EditField1()->document());
            cursor.setPosition(at + 1); // the format of the character before the cursor
            if (cursor.charFormat().fontWeight() >= QFont::Bold)
                bold.append(QString::number(at));
        }
        QCOMPARE(bold, QStringList({"0", QString::number(title - 1)}));
    }

    void oneInstanceWhoseEditsGoWithIt() {
        helpWnd& first = fw::instance<helpWnd>();
        first.showWindow();
        QTest::keyClicks(first.EditField1(), QStringLiteral("typed"));
        helpWnd& second = fw::instance<helpWnd>();
        second.showWindow();
        QCOMPARE(&second, &first);
        QTRY_COMPARE(QApplication::activeWindow(), &second);
        QCOMPARE(shownText(), QStringLiteral("typed") + expectedText());

        QVERIFY(closeHelp());
        QCOMPARE(shownText(), expectedText());
    }

    void controlItemShowsMainWindowAndKeepsHelp() {
        window().hide();
        helpWnd& help = fw::instance<helpWnd>();
        help.showWindow();
        QVERIFY(help.handleMenuItem(QStringLiteral("ControlItem")));
        ControlWnd* main = fw::openInstance<ControlWnd>();
        QVERIFY(main);
        QTRY_VERIFY(main->isVisible());
        QCOMPARE(fw::openInstance<helpWnd>(), &help);
        QVERIFY(help.isVisible());
    }

    // Closing the Information window alone goes on (the loop ends with our own
    // code); quitting by the menu or by closing the main window ends the run
    // with 0 whatever else is open.
    void closingAndQuitting_data() {
        QTest::addColumn<QString>("what");
        QTest::addColumn<int>("code");
        QTest::newRow("closing help alone") << "help" << 7;
        QTest::newRow("Quit item") << "FileQuit" << 0;
        QTest::newRow("closing the main window, help open") << "main" << 0;
    }
    void closingAndQuitting() {
        QFETCH(QString, what);
        QFETCH(int, code);
        fw::instance<helpWnd>().showWindow();
        if (what == u"help")
            window().hide();
        // Qt only looks for the last window closing while the event loop runs.
        QApplication::setQuitOnLastWindowClosed(true);
        QSignalSpy lastClosed(qApp, &QGuiApplication::lastWindowClosed);
        QTimer::singleShot(0, &window(), [what] {
            if (what == u"help")
                fw::instance<helpWnd>().close();
            else if (what == u"main")
                fw::instance<ControlWnd>().close();
            else
                MenuBar1().item(what)->trigger();
            QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(7); });
        });
        QCOMPARE(QCoreApplication::exec(), code);
        QApplication::setQuitOnLastWindowClosed(false);
        if (what == u"help")
            QCOMPARE(lastClosed.count(), 0);
    }
};

TOVARIN_UI_TEST_MAIN(MenuBarTest)
#include "test_menus_and_help.moc"
