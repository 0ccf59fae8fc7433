// The windows on the offscreen platform, with the dialogs answered by the
// test: the main window's key filters and the ways a run ends there, the
// menu items each window enables, the Information window, quitting.
#include "tests/QtTestMain.hpp"

#include "engine/LocalDateTime.hpp"
#include "framework/Application.hpp"
#include "framework/Dialogs.hpp"
#include "framework/PictureFile.hpp"
#include "ui/main/ControlWnd.hpp"
#include "ui/main/MenuBar1.hpp"
#include "ui/secondary/AboutWnd.hpp"
#include "ui/secondary/HelpText.hpp"
#include "ui/secondary/helpWnd.hpp"

#include <QClipboard>
#include <QDir>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <sys/stat.h>

using namespace tovarin;

namespace {

const QString kEarlier = QStringLiteral("an earlier report");

ControlWnd& window() {
    return fw::instance<ControlWnd>();
}

// Presses and releases the key a keyboard gives for a code.
void press(QWidget* control, int code) {
    static const QHash<int, Qt::Key> named = {
        {8, Qt::Key_Backspace}, {9, Qt::Key_Tab}, {13, Qt::Key_Return}, {28, Qt::Key_Left},
        {29, Qt::Key_Right},    {30, Qt::Key_Up}, {31, Qt::Key_Down},   {127, Qt::Key_Delete}};
    const Qt::Key key = named.value(code, code < 32 ? Qt::Key_Escape : Qt::Key(QChar(code).toUpper().unicode()));
    const QString text = code < 28 || (code >= 32 && code != 127) ? QString(QChar(code)) : QString();
    QTest::sendKeyEvent(QTest::Press, control, key, text, Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Release, control, key, text, Qt::NoModifier);
}

// Closes the open Information window and waits until it is really gone.
bool closeHelp() {
    QPointer<helpWnd> help = fw::openInstance<helpWnd>();
    if (help)
        help->close();
    return QTest::qWaitFor([&] { return help.isNull(); });
}

} // namespace

class WindowsTest : public QObject {
    Q_OBJECT
    QStringList messages_, failures_;
    int beeps_ = 0, choices_ = 0;
    std::function<std::optional<QString>()> answer_;
    QTemporaryDir folder_;

private slots:
    // Each test starts from a main window made afresh, shown and active.
    void init() {
        messages_.clear();
        failures_.clear();
        beeps_ = choices_ = 0;
        fw::setMessageBoxHandler([this](const QString& text) { messages_ << text; });
        fw::setUnhandledFailureHandler([this](const QString& why) { failures_ << why; });
        fw::setBeepHandler([this] { ++beeps_; });
        fw::setFileChooserHandler([this] { return ++choices_, answer_(); });
        QVERIFY(closeHelp());
        delete fw::openInstance<ControlWnd>();
        window().showWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window()));
    }

    // Every code in either field, as a person reads the rules: the count field
    // takes digits and the editing keys, the results the report's printable
    // characters. Refused keys beep and change nothing; any key in the count
    // field drops the report while the area stays on show.
    void keyFilters_data() {
        QTest::addColumn<bool>("countField");
        QTest::addColumn<int>("code");
        for (const bool countField : {true, false}) {
            for (int code = 0; code <= 130; ++code)
                QTest::addRow("%s %d", countField ? "pFld" : "ResultsFld", code) << countField << code;
            QTest::addRow("%s e acute", countField ? "pFld" : "ResultsFld") << countField << 0xE9;
        }
    }
    void keyFilters() {
        QFETCH(bool, countField);
        QFETCH(int, code);
        fw::TextArea& results = *window().ResultsFld();
        results.setVisible(true);
        results.setPlainText("xy");
        QWidget* field = countField ? static_cast<QWidget*>(window().pFld()) : &results;
        field->setFocus();
        QTextCursor cursor = results.textCursor();
        cursor.setPosition(1);
        results.setTextCursor(cursor);
        press(field, code);
        const QString printable = " .0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz";
        const bool accepted = countField ? QList<int>{8, 9, 28, 29, 127}.contains(code) || (code >= '0' && code <= '9')
                                         : QList<int>{8, 9, 13, 127}.contains(code) ||
                                               (code >= 32 && code < 127 && printable.contains(QChar(code)));
        QCOMPARE(beeps_, accepted ? 0 : 1);
        const QString typed = accepted && code >= 32 && code != 127 ? QString(QChar(code)) : QString();
        // Tab types nothing and leads to the count field, the one tab stop.
        QCOMPARE(QApplication::focusWidget(), countField || (accepted && code == 9) ? window().pFld() : field);
        QVERIFY(results.isVisible());
        if (countField) {
            QCOMPARE(window().pFld()->text() + results.toPlainText(), typed);
            QCOMPARE(choices_, 0); // Return starts no run
            return;
        }
        const QHash<int, QString> edits = {{8, "y"}, {13, "x\ny"}, {127, "x"}};
        QCOMPARE(results.toPlainText(), accepted && edits.contains(code) ? edits[code] : "x" + typed + "y");
    }

    // Two digits at most; a paste is no key, so it passes no filter and leaves the report.
    void countFieldTakesTwoDigits() {
        window().pFld()->setText("12");
        window().ResultsFld()->setPlainText(kEarlier);
        window().pFld()->setFocus();
        press(window().pFld(), '3');
        QCOMPARE(window().pFld()->text(), "12");
        window().ResultsFld()->setPlainText(kEarlier);
        window().pFld()->clear();
        QGuiApplication::clipboard()->setText("123");
        MenuBar1().item("EditPaste")->trigger();
        QCOMPARE(window().pFld()->text() + window().ResultsFld()->toPlainText(), "12" + kEarlier);
    }

    // The ways a run ends in the window: a message leaves the focus in the
    // count field, anything else where it was; a failure is reported with the
    // file's name; a report lands behind what was there, its head bold.
    void endings_data() {
        QTest::addColumn<QString>("count");
        QTest::addColumn<QString>("choice"); // the file chosen, "" for a cancel
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("shows"); // in the report, "" for none; "!" for a failure
        const QByteArray two = "Alpha\t100.5\nBeta,102\n";
        QTest::newRow("empty count") << "" << "models.txt" << two << "Please enter the number of models in the set (2-99)." << "";
        QTest::newRow("cancelled choice") << "2" << "" << two << "" << "";
        QTest::newRow("vanished file") << "2" << "gone.txt" << two << "" << "";
        QTest::newRow("named pipe") << "2" << "pipe" << two << "" << "!named pipe";
        QTest::newRow("no low BIC") << "2" << "models.txt" << QByteArray("A\t1e12\nB\t1e12\n")
                                    << "Sorry, can't find low BIC value. Check the data." << "";
        QTest::newRow("zero BIC, then report") << "2" << "models.txt" << QByteArray("Alpha\t0\nBeta\t12\n")
                                               << "BIC value of zero. Results are probably invalid. Check the data."
                                               << "Alpha";
        QTest::newRow("invalid bytes shown as U+FFFD") << "2" << "models.txt" << QByteArray("\xff" "A\t1\nB\t2\n")
                                                       << "" << QString(QChar(0xFFFD)) + "A";
        QTest::newRow("report") << "2" << "models.txt" << two << "" << "Beta";
    }
    void endings() {
        QFETCH(QString, count);
        QFETCH(QString, choice);
        QFETCH(QByteArray, data);
        QFETCH(QString, message);
        QFETCH(QString, shows);
        const QString path = folder_.filePath(choice);
        QFile file(path);
        if (choice == "pipe")
            QVERIFY(::mkfifo(QFile::encodeName(path).constData(), 0644) == 0 || QFile::exists(path));
        else if (!choice.isEmpty())
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(data) == data.size());
        file.close();
        answer_ = [choice, path]() -> std::optional<QString> {
            if (choice == "gone.txt")
                QFile::remove(path);
            return choice.isEmpty() ? std::nullopt : std::optional(path);
        };
        window().pFld()->setText(count);
        window().ResultsFld()->setVisible(true);
        window().ResultsFld()->setPlainText(kEarlier);
        window().ResultsFld()->setFocus();
        const auto dateLine = [] {
            const DateTimeText now = currentLocalDateTime();
            return QString::fromStdString("Date: " + now.shortDate + "  " + now.shortTime + "\n");
        };
        const QString dateBefore = dateLine();
        QTest::mousePress(window().calcBtn(), Qt::LeftButton); // the whole run happens here
        const QString dateAfter = dateLine();
        QTest::mouseRelease(window().calcBtn(), Qt::LeftButton);

        QCOMPARE(messages_, message.isEmpty() ? QStringList() : QStringList{message});
        QCOMPARE(choices_, count.isEmpty() ? 0 : 1);
        QCOMPARE(failures_.size(), shows.startsWith(u'!') ? 1 : 0);
        if (!failures_.isEmpty())
            QVERIFY2(failures_[0].contains(path) && failures_[0].contains(shows.mid(1)), qPrintable(failures_[0]));
        QCOMPARE(window().pFld()->text(), count);
        QCOMPARE(QApplication::focusWidget(),
                 message.isEmpty() ? static_cast<QWidget*>(window().ResultsFld()) : window().pFld());
        const QString text = window().ResultsFld()->toPlainText();
        if (shows.isEmpty() || shows.startsWith(u'!')) {
            QCOMPARE(text, kEarlier);
            return;
        }
        QVERIFY2(text.startsWith(kEarlier + dateBefore) || text.startsWith(kEarlier + dateAfter), qPrintable(text));
        QVERIFY(text.contains("\nFile: models.txt\n") && text.contains(shows));
        QTextCursor head(window().ResultsFld()->document());
        head.setPosition(int(kEarlier.size()) + 1);
        QCOMPARE(head.charFormat().fontWeight(), int(QFont::Bold));
    }

    // From the start state, the results area hidden, a run shows the area with the report.
    void firstRunShowsTheResults() {
        QVERIFY(!window().ResultsFld()->isVisible());
        const QString path = folder_.filePath("first.txt");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("A\t1\nB\t2\n") > 0);
        file.close();
        answer_ = [path] { return std::optional(path); };
        window().pFld()->setText("2");
        QTest::mousePress(window().calcBtn(), Qt::LeftButton);
        QTest::mouseRelease(window().calcBtn(), Qt::LeftButton);
        QVERIFY(window().ResultsFld()->isVisible());
        QVERIFY(window().ResultsFld()->toPlainText().contains("File: first.txt"));
        // Clear, done at the press, goes back to the start state.
        QTest::mousePress(window().clearBtn(), Qt::LeftButton);
        QCOMPARE(window().pFld()->text() + window().ResultsFld()->toPlainText(), QString());
        QVERIFY(!window().ResultsFld()->isVisible());
        QCOMPARE(QApplication::focusWidget(), window().pFld());
        QTest::mouseRelease(window().clearBtn(), Qt::LeftButton);
    }

    // The main window's items and the help button bring the other windows to
    // the front, and the front window decides which items are enabled.
    void frontWindowEnables_data() {
        QTest::addColumn<QString>("how");
        QTest::addColumn<QString>("enabled");
        QTest::newRow("main") << "" << "AboutItem FileQuit InfoItem";
        QTest::newRow("InfoItem") << "InfoItem" << "ControlItem FileQuit";
        QTest::newRow("helpBtn") << "helpBtn" << "ControlItem FileQuit";
        QTest::newRow("AboutItem") << "AboutItem" << "FileQuit";
    }
    void frontWindowEnables() {
        QFETCH(QString, how);
        QFETCH(QString, enabled);
        QWidget* const main = &window();
        if (how == "helpBtn")
            QTest::mousePress(window().helpBtn(), Qt::LeftButton);
        else if (!how.isEmpty())
            MenuBar1().item(how)->trigger();
        QTRY_VERIFY(QApplication::activeWindow() && (how.isEmpty() || QApplication::activeWindow() != main));
        MenuBar1().updateEnabled();
        QStringList actual;
        for (const char* name : {"AboutItem", "ControlItem", "FileQuit", "InfoItem"})
            if (MenuBar1().item(name)->isEnabled())
                actual << name;
        QCOMPARE(actual.join(u' '), enabled);
        if (auto* about = fw::openInstance<AboutWnd>())
            about->hide();
    }

    // One instance; each opening shows the manual afresh with the literal once
    // behind it and the title alone bold; Control brings the main window back.
    void informationWindow() {
        const auto text = helpText();
        const QString expected = QString::fromUtf8(text.data(), qsizetype(text.size())).replace(u'\r', u'\n') + "Error message";
        helpWnd& help = fw::instance<helpWnd>();
        help.showWindow();
        QTest::keyClicks(help.EditField1(), "typed");
        QCOMPARE(&fw::instance<helpWnd>(), &help);
        QCOMPARE(help.EditField1()->toPlainText(), "typed" + expected);
        QVERIFY(closeHelp());
        helpWnd& again = fw::instance<helpWnd>();
        QCOMPARE(again.EditField1()->toPlainText(), expected);
        QString bold;
        for (int at = 1; at <= int(kHelpTitleLength) + 2; ++at) {
            QTextCursor cursor(again.EditField1()->document());
            cursor.setPosition(at); // the format of the character before the cursor
            bold += cursor.charFormat().fontWeight() >= QFont::Bold ? u'*' : u'.';
        }
        QCOMPARE(bold, QString(int(kHelpTitleLength), u'*') + "..");
        window().hide();
        QVERIFY(again.handleMenuItem("ControlItem"));
        QTRY_VERIFY(fw::openInstance<ControlWnd>() && fw::openInstance<ControlWnd>()->isVisible());
        QVERIFY(again.isVisible());
    }

    // Closing the Information window alone goes on (the loop ends with our own
    // code 7); quitting by the menu or closing the main window ends with 0.
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
        if (what == "help")
            window().hide();
        QApplication::setQuitOnLastWindowClosed(true); // looked at only while the loop runs
        QTimer::singleShot(0, &window(), [what] {
            if (what == "help")
                fw::instance<helpWnd>().close();
            else if (what == "main")
                window().close();
            else
                MenuBar1().item(what)->trigger();
            QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(7); });
        });
        QCOMPARE(QCoreApplication::exec(), code);
        QApplication::setQuitOnLastWindowClosed(false);
    }
};

TOVARIN_QT_TEST_MAIN(WindowsTest, tovarin::fw::Application app(argc, argv);
                     tovarin::fw::setPictureFolder(TOVARIN_TEST_PICTURES), )
#include "test_windows.moc"
