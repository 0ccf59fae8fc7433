#include "framework/Controls.hpp"
#include "ui/main/ControlWnd.hpp"
#include "ui/secondary/HelpText.hpp"
#include "ui/secondary/helpWnd.hpp"

#include <QApplication>
#include <QLocale>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

using tovarin::ControlWnd;
using tovarin::helpWnd;
namespace fw = tovarin::fw;

namespace {

// What the area must show right after opening: the manual, then the literal.
QString expectedText() {
    const auto text = tovarin::helpText();
    return QString::fromUtf8(text.data(), qsizetype(text.size())).replace(u'\r', u'\n') +
           QStringLiteral("Error message");
}

QString shownText() {
    return fw::instance<helpWnd>().EditField1()->toPlainText();
}

bool boldAt(int position) {
    QTextCursor cursor(fw::instance<helpWnd>().EditField1()->document());
    cursor.setPosition(position + 1); // the format of the character before the cursor
    return cursor.charFormat().fontWeight() >= QFont::Bold;
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

    void opensWithManualAndLiteralOnce_data() {
        QTest::addColumn<int>("reopenings");
        QTest::newRow("first open") << 0;
        QTest::newRow("after close and reopen") << 1;
        QTest::newRow("after three reopenings") << 3;
    }
    void opensWithManualAndLiteralOnce() {
        QFETCH(int, reopenings);
        for (int i = 0; i < reopenings; ++i) {
            fw::instance<helpWnd>().showWindow();
            QVERIFY(closeHelp());
        }
        QCOMPARE(shownText(), expectedText());
        QCOMPARE(shownText().count(QStringLiteral("Error message")), 1);
    }

    void onlyTheTitleIsBold_data() {
        QTest::addColumn<int>("reopenings");
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("bold");
        const int title = int(tovarin::kHelpTitleLength);
        const int last = int(expectedText().size()) - 1;
        for (int reopenings : {0, 1}) {
            const QByteArray tag = reopenings ? "reopened: " : "first: ";
            QTest::newRow(tag + "first title character") << reopenings << 0 << true;
            QTest::newRow(tag + "last title character") << reopenings << title - 1 << true;
            QTest::newRow(tag + "line break after title") << reopenings << title << false;
            QTest::newRow(tag + "start of next paragraph") << reopenings << title + 2 << false;
            QTest::newRow(tag + "end of the literal") << reopenings << last << false;
        }
    }
    void onlyTheTitleIsBold() {
        QFETCH(int, reopenings);
        QFETCH(int, position);
        QFETCH(bool, bold);
        for (int i = 0; i < reopenings; ++i) {
            fw::instance<helpWnd>().showWindow();
            QVERIFY(closeHelp());
        }
        QCOMPARE(boldAt(position), bold);
    }

    void secondOpenKeepsInstanceAndEdits() {
        helpWnd& first = fw::instance<helpWnd>();
        first.showWindow();
        QTest::keyClicks(first.EditField1(), QStringLiteral("typed"));
        helpWnd& second = fw::instance<helpWnd>();
        second.showWindow();
        QCOMPARE(&second, &first);
        QTRY_COMPARE(QApplication::activeWindow(), &second);
        QCOMPARE(shownText(), QStringLiteral("typed") + expectedText());
    }

    void closeThrowsEditsAway() {
        QTest::keyClicks(fw::instance<helpWnd>().EditField1(), QStringLiteral("typed"));
        QVERIFY(closeHelp());
        QCOMPARE(shownText(), expectedText());
    }

    void textAreaIgnoresWindowResize_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("larger") << QSize(900, 800);
        QTest::newRow("smaller") << QSize(200, 150);
    }
    void textAreaIgnoresWindowResize() {
        QFETCH(QSize, size);
        helpWnd& help = fw::instance<helpWnd>();
        QCOMPARE(help.content()->size(), QSize(550, 500));
        help.resize(size);
        QTRY_COMPARE(help.size(), size);
        QCOMPARE(help.EditField1()->geometry(), QRect(-1, -1, 551, 498));
    }

    void menuHandlers_data() {
        QTest::addColumn<QString>("item");
        QTest::addColumn<bool>("handled");
        QTest::newRow("ControlItem") << "ControlItem" << true;
        QTest::newRow("InfoItem") << "InfoItem" << false;
        QTest::newRow("AboutItem") << "AboutItem" << false;
        QTest::newRow("FileQuit") << "FileQuit" << false;
        QTest::newRow("EditCopy") << "EditCopy" << false;
    }
    void menuHandlers() {
        QFETCH(QString, item);
        QFETCH(bool, handled);
        QCOMPARE(fw::instance<helpWnd>().hasMenuHandler(item), handled);
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

    void opensOverTheMainWindow() {
        ControlWnd& main = fw::instance<ControlWnd>();
        main.move(40, 30);
        main.showWindow();
        const QPoint centre = fw::instance<helpWnd>().frameGeometry().center();
        // The window frame is only known once shown, so allow its width.
        QVERIFY((centre - main.frameGeometry().center()).manhattanLength() <= 10);
        main.hide();
    }

    void closingDoesNotQuit() {
        QVERIFY(QApplication::quitOnLastWindowClosed());
        if (ControlWnd* main = fw::openInstance<ControlWnd>())
            main->hide();
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

int main(int argc, char** argv) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QLocale::setDefault(QLocale::c());
    QApplication app(argc, argv);
    HelpWndTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_helpwnd.moc"
