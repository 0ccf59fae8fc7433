// The Information window: its text as opened, its one instance, and how it
// leads back to the main window.
#include "UiTestMain.hpp"

#include "ui/main/ControlWnd.hpp"
#include "ui/secondary/HelpText.hpp"
#include "ui/secondary/helpWnd.hpp"

#include <QPointer>
#include <QSignalSpy>

using namespace tovarin;

namespace {

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

class HelpWndTest : public QObject {
    Q_OBJECT
private slots:
    void init() { QVERIFY(closeHelp()); }
    void cleanupTestCase() { QVERIFY(closeHelp()); }

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
        helpWnd& help = fw::instance<helpWnd>();
        help.showWindow();
        QVERIFY(help.handleMenuItem(QStringLiteral("ControlItem")));
        ControlWnd* main = fw::openInstance<ControlWnd>();
        QVERIFY(main);
        QTRY_VERIFY(main->isVisible());
        QCOMPARE(fw::openInstance<helpWnd>(), &help);
        QVERIFY(help.isVisible());
        main->hide();
    }

    void closingDoesNotQuit() {
        // Whatever the application object says: this window alone must not count.
        QApplication::setQuitOnLastWindowClosed(true);
        fw::instance<helpWnd>().showWindow();
        // Qt only looks for the last window closing while the event loop runs, so
        // close the window from inside it and then leave with a code of our own.
        QSignalSpy lastClosed(qApp, &QGuiApplication::lastWindowClosed);
        QMetaObject::invokeMethod(
            qApp,
            [] {
                fw::instance<helpWnd>().close();
                QMetaObject::invokeMethod(
                    qApp, [] { QCoreApplication::exit(7); }, Qt::QueuedConnection);
            },
            Qt::QueuedConnection);
        QCOMPARE(QCoreApplication::exec(), 7);
        QCOMPARE(lastClosed.count(), 0);
    }
};

TOVARIN_UI_TEST_MAIN(HelpWndTest)
#include "test_helpwnd.moc"
