// The key filters of the count field and the results area, seen through the window.
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include "ui/main/MenuBar1.hpp"

#include <QClipboard>

using namespace tovarin;

namespace {

// The keys each field lets through, written out as a person reads them.
bool countAccepts(int code) {
    return QList<int>{8, 9, 28, 29, 127}.contains(code) || (code >= '0' && code <= '9');
}

bool resultsAccepts(int code) {
    static const QString printable = QStringLiteral(
        " .0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz");
    return QList<int>{8, 9, 13, 127}.contains(code) ||
           (code >= 32 && code < 127 && printable.contains(QChar(code)));
}

bool typesItself(int code) {
    return code >= 32 && code != 127;
}

// Presses and releases the key a keyboard gives for a code.
void press(QWidget* control, int code) {
    static const QHash<int, Qt::Key> named = {
        {8, Qt::Key_Backspace}, {9, Qt::Key_Tab}, {13, Qt::Key_Return}, {28, Qt::Key_Left},
        {29, Qt::Key_Right},    {30, Qt::Key_Up}, {31, Qt::Key_Down},   {127, Qt::Key_Delete}};
    const Qt::Key key =
        named.value(code, code < 32 ? Qt::Key_Escape : Qt::Key(QChar(code).toUpper().unicode()));
    const QString text = (code < 28 || typesItself(code)) ? QString(QChar(code)) : QString();
    QTest::sendKeyEvent(QTest::Press, control, key, text, Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Release, control, key, text, Qt::NoModifier);
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

    // Every code in either field. Refused ones beep and change nothing; any key
    // at all in the count field drops the report while the area stays on show.
    void keyFilters_data() {
        QTest::addColumn<bool>("countField");
        QTest::addColumn<int>("code");
        for (const bool countField : {true, false}) {
            const char* field = countField ? "pFld" : "ResultsFld";
            for (int code = 0; code <= 130; ++code)
                QTest::addRow("%s %d", field, code) << countField << code;
            QTest::addRow("%s e acute", field) << countField << 0xE9;
            QTest::addRow("%s cyrillic zhe", field) << countField << 0x416;
        }
    }
    void keyFilters() {
        QFETCH(bool, countField);
        QFETCH(int, code);
        showReport(QStringLiteral("xy"));
        fw::TextArea& results = *window().ResultsFld();
        QWidget* field = countField ? static_cast<QWidget*>(window().pFld()) : &results;
        field->setFocus();
        QTextCursor cursor = results.textCursor();
        cursor.setPosition(1);
        results.setTextCursor(cursor);

        press(field, code);

        const bool accepted = countField ? countAccepts(code) : resultsAccepts(code);
        QCOMPARE(platform_.beeps, accepted ? 0 : 1);
        const QString typed = accepted && typesItself(code) ? QString(QChar(code)) : QString();
        // Tab types nothing and leads to the count field, the one tab stop.
        QCOMPARE(QApplication::focusWidget(),
                 countField || (accepted && code == 9) ? window().pFld() : field);
        QVERIFY(results.isVisible());
        if (countField) {
            QCOMPARE(window().pFld()->text(), typed);
            QCOMPARE(results.toPlainText(), QString());
            QCOMPARE(platform_.choices, 0); // Return starts no run
            return;
        }
        const QHash<int, QString> edits = {{8, "y"}, {13, "x\ny"}, {127, "x"}};
        QCOMPARE(results.toPlainText(), accepted && edits.contains(code)
                                            ? edits[code]
                                            : QStringLiteral("x") + typed + u'y');
        if (!accepted)
            QCOMPARE(results.textCursor().position(), 1);
    }

    // The field takes two digits at most; a paste is no key, so it passes no
    // filter and leaves the report alone.
    void countFieldLimits_data() {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("pasted"); // empty: the key '3' instead
        QTest::addColumn<QString>("expected");
        QTest::newRow("third digit") << "12"
                                     << ""
                                     << "12";
        QTest::newRow("paste digits") << ""
                                      << "123"
                                      << "12";
        QTest::newRow("paste letters") << ""
                                       << "ab"
                                       << "";
    }
    void countFieldLimits() {
        QFETCH(QString, start);
        QFETCH(QString, pasted);
        QFETCH(QString, expected);
        window().pFld()->setText(start);
        showReport(QStringLiteral("report"));
        if (pasted.isEmpty()) {
            press(window().pFld(), '3');
        } else {
            QGuiApplication::clipboard()->setText(pasted);
            MenuBar1().item(QStringLiteral("EditPaste"))->trigger();
        }
        QCOMPARE(window().pFld()->text(), expected);
        QCOMPARE(window().ResultsFld()->toPlainText(),
                 pasted.isEmpty() ? QString() : QStringLiteral("report"));
        QCOMPARE(platform_.beeps, 0);
    }
};

TOVARIN_UI_TEST_MAIN(ControlWndKeysTest)
#include "test_controlwnd_keys.moc"
