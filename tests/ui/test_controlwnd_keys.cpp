// The key filters of the count field and the results area, seen through the window.
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include "ui/main/MenuBar1.hpp"

#include <QClipboard>

using namespace tovarin;

namespace {

// The keys each field lets through, written out as a person reads them.
const QString kCountPrintable = QStringLiteral("0123456789");
const QString kResultsPrintable = QStringLiteral(
    " .0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz");
const QList<int> kCountKeys = {8, 9, 28, 29, 127};
const QList<int> kResultsKeys = {8, 9, 13, 127};

bool printable(int code) {
    return code >= 32 && code < 127;
}

bool countAccepts(int code) {
    return kCountKeys.contains(code) || (printable(code) && kCountPrintable.contains(QChar(code)));
}

bool resultsAccepts(int code) {
    return kResultsKeys.contains(code) ||
           (printable(code) && kResultsPrintable.contains(QChar(code)));
}

struct Key {
    Qt::Key key;
    QString text;
};

// The key event a keyboard gives for a code.
Key keyFor(int code) {
    switch (code) {
    case 8:
        return {Qt::Key_Backspace, QStringLiteral("\b")};
    case 9:
        return {Qt::Key_Tab, QStringLiteral("\t")};
    case 13:
        return {Qt::Key_Return, QStringLiteral("\r")};
    case 28:
        return {Qt::Key_Left, {}};
    case 29:
        return {Qt::Key_Right, {}};
    case 30:
        return {Qt::Key_Up, {}};
    case 31:
        return {Qt::Key_Down, {}};
    case 127:
        return {Qt::Key_Delete, {}};
    default:
        break;
    }
    if (printable(code))
        return {Qt::Key(QChar(code).toUpper().unicode()), QString(QChar(code))};
    if (code < 32)
        return {Qt::Key_Escape, QString(QChar(code))};
    return {Qt::Key(QChar(code).toUpper().unicode()), QString(QChar(code))};
}

void press(QWidget* control, int code) {
    const Key key = keyFor(code);
    QTest::sendKeyEvent(QTest::Press, control, key.key, key.text, Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Release, control, key.key, key.text, Qt::NoModifier);
}

void addCodeRows() {
    QTest::addColumn<int>("code");
    for (int code = 0; code <= 130; ++code)
        QTest::addRow("%d", code) << code;
    QTest::addRow("e acute") << 0xE9;
    QTest::addRow("cyrillic zhe") << 0x416;
}

} // namespace

class ControlWndKeysTest : public QObject {
    Q_OBJECT

    testing::PlatformRecorder platform_;

    ControlWnd& window() { return fw::instance<ControlWnd>(); }

    void showReport(const QString& text) {
        window().ResultsFld()->setVisible(true);
        window().ResultsFld()->setPlainText(text);
    }

private slots:
    void initTestCase() {
        platform_.install();
        testing::freshControlWnd();
    }

    void init() {
        platform_.beeps = 0;
        window().pFld()->clear();
        window().pFld()->setFocus();
    }

    void countField_data() { addCodeRows(); }
    void countField() {
        QFETCH(int, code);
        showReport(QStringLiteral("an earlier report"));
        press(window().pFld(), code);

        const bool accepted = countAccepts(code);
        QCOMPARE(platform_.beeps, accepted ? 0 : 1);
        // Any key at all drops the report, and the area stays on show, blank.
        QCOMPARE(window().ResultsFld()->toPlainText(), QString());
        QVERIFY(window().ResultsFld()->isVisible());
        const QString typed = accepted && printable(code) ? QString(QChar(code)) : QString();
        QCOMPARE(window().pFld()->text(), typed);
        QCOMPARE(QApplication::focusWidget(), window().pFld());
    }

    void resultsField_data() { addCodeRows(); }
    void resultsField() {
        QFETCH(int, code);
        showReport(QStringLiteral("xy"));
        fw::TextArea& results = *window().ResultsFld();
        results.setFocus();
        QTextCursor cursor = results.textCursor();
        cursor.setPosition(1);
        results.setTextCursor(cursor);

        press(&results, code);

        const bool accepted = resultsAccepts(code);
        QCOMPARE(platform_.beeps, accepted ? 0 : 1);
        QVERIFY(!results.toPlainText().contains(u'\t'));
        if (!accepted) {
            QCOMPARE(results.toPlainText(), QStringLiteral("xy"));
            QCOMPARE(results.textCursor().position(), 1);
        } else if (printable(code)) {
            QCOMPARE(results.toPlainText(), QStringLiteral("x") + QChar(code) + u'y');
        }
    }

    // Tab types nothing and leads to the count field, the one tab stop.
    void tabGoesToCountField_data() {
        QTest::addColumn<QString>("from");
        QTest::newRow("count field") << "pFld";
        QTest::newRow("results area") << "ResultsFld";
    }
    void tabGoesToCountField() {
        QFETCH(QString, from);
        showReport(QStringLiteral("report"));
        QWidget* start = window().control<QWidget>(from);
        start->setFocus();
        QTest::keyClick(start, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), window().pFld());
        QCOMPARE(window().pFld()->text(), QString());
        QCOMPARE(platform_.beeps, 0);
    }

    void thirdDigitRefusedByTheField() {
        window().pFld()->setText(QStringLiteral("12"));
        showReport(QStringLiteral("report"));
        press(window().pFld(), '3');
        QCOMPARE(platform_.beeps, 0);
        QCOMPARE(window().pFld()->text(), QStringLiteral("12"));
        QCOMPARE(window().ResultsFld()->toPlainText(), QString());
    }

    // A paste is no key: it passes no filter and leaves the report alone.
    void pasteIntoCountField_data() {
        QTest::addColumn<QString>("clipboard");
        QTest::addColumn<bool>("byShortcut");
        QTest::addColumn<QString>("expected");
        QTest::newRow("digits, menu") << "123" << false << "12";
        QTest::newRow("digits, shortcut") << "123" << true << "12";
        QTest::newRow("letters, menu") << "ab" << false << "";
        QTest::newRow("letters, shortcut") << "ab" << true << "";
    }
    void pasteIntoCountField() {
        QFETCH(QString, clipboard);
        QFETCH(bool, byShortcut);
        QFETCH(QString, expected);
        showReport(QStringLiteral("report"));
        QGuiApplication::clipboard()->setText(clipboard);
        if (byShortcut)
            QTest::keyClick(window().pFld(), Qt::Key_V, Qt::ControlModifier);
        else
            MenuBar1().item(QStringLiteral("EditPaste"))->trigger();
        QCOMPARE(window().pFld()->text(), expected);
        QCOMPARE(window().ResultsFld()->toPlainText(), QStringLiteral("report"));
        QCOMPARE(platform_.beeps, 0);
    }
};

TOVARIN_UI_TEST_MAIN(ControlWndKeysTest)
#include "test_controlwnd_keys.moc"
