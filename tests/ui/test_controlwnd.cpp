// The main window: its property table, the key filters of its two fields and
// the ways an analysis run started by the Load Data File button can end, with
// the dialogs answered by the test.
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include "engine/LocalDateTime.hpp"
#include "ui/main/MenuBar1.hpp"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QTemporaryDir>

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

const QString kEmptyCount = QStringLiteral("Please enter the number of models in the set (2-99).");
const QString kBadCount =
    QStringLiteral("Please enter a valid number of models in the set (2-99).");
const QString kNoLowBic = QStringLiteral("Sorry, can't find low BIC value. Check the data.");
const QString kZeroBic =
    QStringLiteral("BIC value of zero. Results are probably invalid. Check the data.");
const QString kEarlier = QStringLiteral("an earlier report");

// What the file chooser answers.
enum class Choice { Cancel, File, Directory, VanishedFile };

// The date line of a report written at that moment.
QString dateLine(const DateTimeText& now) {
    return QStringLiteral("Date: %1  %2\n")
        .arg(QString::fromStdString(now.shortDate), QString::fromStdString(now.shortTime));
}

} // namespace

Q_DECLARE_METATYPE(Choice)

class ControlWndTest : public QObject {
    Q_OBJECT

    testing::PlatformRecorder platform_;
    QTemporaryDir folder_;

    ControlWnd& window() { return fw::instance<ControlWnd>(); }

    // The press itself runs the analysis; the release only ends the button's tracking.
    void pressLoadDataFile() {
        QTest::mousePress(window().calcBtn(), Qt::LeftButton);
        QTest::mouseRelease(window().calcBtn(), Qt::LeftButton);
    }

    // The results on show with a report and the focus in them, so that
    // a run that gives the focus to the count field can be told apart.
    void showReport(const QString& text = kEarlier) {
        window().ResultsFld()->setVisible(true);
        window().ResultsFld()->setPlainText(text);
        window().ResultsFld()->setFocus();
    }

private slots:
    // Each test row starts from a main window made afresh.
    void init() {
        QVERIFY(folder_.isValid());
        platform_ = testing::PlatformRecorder();
        platform_.install();
        testing::freshControlWnd();
    }

    void controls_data() {
        QTest::addColumn<QRect>("geometry");
        QTest::addColumn<bool>("visible");
        QTest::addColumn<int>("fontSize"); // 0: no text of its own
        QTest::addColumn<bool>("bold");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<bool>("tabStop");
        QTest::addColumn<int>("align"); // horizontal alignment, 0: none to check
        QTest::addColumn<QColor>("colour");

        const QString none;
        const int centre = Qt::AlignHCenter, left = Qt::AlignLeft;
        // clang-format off
        QTest::newRow("pFld") << QRect(235, 165, 50, 22) << true << 12 << false << none << true
                              << centre << QColor();
        QTest::newRow("clearBtn") << QRect(300, 530, 100, 50) << true << 12 << false << "Clear"
                                  << false << 0 << QColor();
        QTest::newRow("helpBtn") << QRect(554, 531, 100, 50) << true << 12 << false
                                 << "Information" << false << 0 << QColor();
        QTest::newRow("calcBtn") << QRect(45, 530, 125, 50) << true << 12 << false
                                 << "Load Data File" << false << 0 << QColor();
        QTest::newRow("ResultsFld") << QRect(50, 193, 600, 325) << false << 12 << false << none
                                    << false << left << QColor();
        QTest::newRow("Canvas1") << QRect(-3, 0, 935, 90) << true << 0 << false << none << false
                                 << 0 << QColor();
        QTest::newRow("Label1") << QRect(401, 35, 127, 20) << true << 9 << false
                                << "The Tovarin developers" << false << centre
                                << QColor(0xFD, 0xCC, 0x65);
        QTest::newRow("NumFld") << QRect(50, 165, 184, 22) << true << 14 << true
                                << "Number of Models (2-99):" << false << left << QColor(Qt::black);
        // clang-format on
    }

    void controls() {
        QFETCH(QRect, geometry);
        QFETCH(bool, visible);
        QFETCH(int, fontSize);
        QFETCH(bool, bold);
        QFETCH(QString, caption);
        QFETCH(bool, tabStop);
        QFETCH(int, align);
        QFETCH(QColor, colour);

        ControlWnd& w = window();
        QCOMPARE(w.windowTitle(), QStringLiteral("Velmoran"));
        QCOMPARE(w.content()->size(), QSize(700, 600));
        QCOMPARE(w.minimumSize(), w.maximumSize());
        QVERIFY(!(w.windowFlags() & Qt::WindowMaximizeButtonHint));
        QCOMPARE(w.content()->palette().color(QPalette::Window), QColor(Qt::white));
        QCOMPARE(QApplication::focusWidget(), w.pFld());

        auto* control = w.control<QWidget>(QString::fromLatin1(QTest::currentDataTag()));
        QVERIFY(control);
        QCOMPARE(QRect(control->mapTo(w.content(), QPoint(0, 0)), control->size()), geometry);
        QCOMPARE(control->isVisible(), visible);
        QCOMPARE(bool(control->focusPolicy() & Qt::TabFocus), tabStop);
        if (fontSize > 0) {
            QCOMPARE(control->font().family(),
                     QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
            QCOMPARE(control->font().pixelSize(), fontSize);
            QCOMPARE(control->font().bold(), bold);
        }
        if (colour.isValid())
            QCOMPARE(control->palette().color(QPalette::WindowText), colour);
        if (auto* button = qobject_cast<QPushButton*>(control)) {
            QCOMPARE(button->text(), caption);
            // Return must start nothing, so no button may be the default one.
            QVERIFY(!button->isDefault() && !button->autoDefault());
        } else if (auto* label = qobject_cast<QLabel*>(control)) {
            QCOMPARE(label->text(), caption);
            QVERIFY(QFontMetrics(label->font()).horizontalAdvance(caption) <= geometry.width());
            QCOMPARE(int(label->alignment() & Qt::AlignHorizontal_Mask), align);
            // Over the banner, not hidden behind it.
            const QPoint middle = control->mapTo(w.content(), control->rect().center());
            QCOMPARE(w.content()->childAt(middle), control);
        } else if (auto* field = qobject_cast<QLineEdit*>(control)) {
            QCOMPARE(int(field->alignment() & Qt::AlignHorizontal_Mask), align);
            QCOMPARE(field->text(), QString());
        } else if (auto* area = qobject_cast<QTextEdit*>(control)) {
            QCOMPARE(int(area->alignment() & Qt::AlignHorizontal_Mask), align);
            QVERIFY(!area->isReadOnly() && !area->acceptRichText());
        } else if (auto* canvas = qobject_cast<fw::Canvas*>(control)) {
            QVERIFY(!canvas->backdrop().isNull());
        }
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
        // clang-format off
        QTest::newRow("third digit") << "12" << "" << "12";
        QTest::newRow("paste digits") << "" << "123" << "12";
        QTest::newRow("paste letters") << "" << "ab" << "";
        // clang-format on
    }
    void countFieldLimits() {
        QFETCH(QString, start);
        QFETCH(QString, pasted);
        QFETCH(QString, expected);
        window().pFld()->setText(start);
        showReport(QStringLiteral("report"));
        window().pFld()->setFocus();
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
    // Every message leaves the focus in the count field; every other ending
    // leaves it where it was.
    void endings_data() {
        QTest::addColumn<QString>("count");
        QTest::addColumn<Choice>("choice");
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QStringList>("messages");
        QTest::addColumn<bool>("report");

        const QByteArray two = "Alpha\t100.5\nBeta,102\n";
        const QByteArray noLow = "Alpha\t99999999999\nBeta\t123456789012\n";
        const QByteArray zero = "Alpha\t0\nBeta\t12\n";
        const QStringList none;
        const Choice file = Choice::File;
        // clang-format off
        QTest::newRow("empty count") << "" << file << two << QStringList{kEmptyCount} << false;
        QTest::newRow("count 1") << "1" << file << two << QStringList{kBadCount} << false;
        QTest::newRow("no number") << "ab" << file << two << QStringList{kBadCount} << false;
        QTest::newRow("cancelled choice") << "2" << Choice::Cancel << two << none << false;
        QTest::newRow("vanished file") << "2" << Choice::VanishedFile << two << none << false;
        // Reported as a failure with its reason; nothing of a report is written.
        QTest::newRow("failed open") << "2" << Choice::Directory << two << none << false;
        QTest::newRow("no low BIC") << "2" << file << noLow << QStringList{kNoLowBic} << false;
        QTest::newRow("zero BIC, then report") << "2" << file << zero << QStringList{kZeroBic}
                                               << true;
        QTest::newRow("short file, then report") << "3" << file << two << QStringList{kZeroBic}
                                                 << true;
        QTest::newRow("report") << "2" << file << two << none << true;
        QTest::newRow("report of 99") << "99" << file << two.repeated(50) << none << true;
        // clang-format on
    }

    void endings() {
        QFETCH(QString, count);
        QFETCH(Choice, choice);
        QFETCH(QByteArray, data);
        QFETCH(QStringList, messages);
        QFETCH(bool, report);

        QString path = folder_.filePath(QStringLiteral("models.txt"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(data) == data.size());
        file.close();
        if (choice == Choice::Directory) {
            path = folder_.filePath(QStringLiteral("a folder"));
            QVERIFY(QDir().mkpath(path));
        }
        platform_.answerChoice = [choice, path]() -> std::optional<QString> {
            if (choice == Choice::VanishedFile)
                QFile::remove(path);
            return choice == Choice::Cancel ? std::nullopt : std::optional(path);
        };
        window().pFld()->setText(count);
        showReport();

        const QString dateBefore = dateLine(currentLocalDateTime());
        pressLoadDataFile();
        const QString dateAfter = dateLine(currentLocalDateTime());

        QCOMPARE(platform_.messages, messages);
        const bool refused = messages.value(0).startsWith(QStringLiteral("Please"));
        QCOMPARE(platform_.choices, refused ? 0 : 1);
        const bool failed = choice == Choice::Directory;
        QCOMPARE(platform_.failures.size(), failed ? 1 : 0);
        if (failed)
            QVERIFY2(platform_.failures[0].contains(path), qPrintable(platform_.failures[0]));
        QCOMPARE(window().pFld()->text(), count);
        QVERIFY(window().ResultsFld()->isVisible());
        QCOMPARE(QApplication::focusWidget(), messages.isEmpty()
                                                  ? static_cast<QWidget*>(window().ResultsFld())
                                                  : window().pFld());
        const QString text = window().ResultsFld()->toPlainText();
        if (!report) {
            QCOMPARE(text, kEarlier);
            return;
        }
        // The new report stands behind the earlier one, dated as the
        // command-line tool dates it and naming the file.
        QVERIFY2(text.startsWith(kEarlier + dateBefore) || text.startsWith(kEarlier + dateAfter),
                 qPrintable(text.left(80)));
        QVERIFY(text.contains(QStringLiteral("File: models.txt\n")));
        QVERIFY(text.contains(QStringLiteral("Alpha")));
        // Its head is bold, and a second run adds the same report behind it.
        QTextCursor head(window().ResultsFld()->document());
        head.setPosition(int(kEarlier.size()) + 1);
        QCOMPARE(head.charFormat().fontWeight(), int(QFont::Bold));
        pressLoadDataFile();
        const QString both = window().ResultsFld()->toPlainText();
        QVERIFY(both.startsWith(text));
        QCOMPARE(both.size(), 2 * text.size() - kEarlier.size());
    }

    // Done at the press, before any release.
    void clearEmptiesEverything() {
        window().pFld()->setText(QStringLiteral("12"));
        showReport();
        QTest::mousePress(window().clearBtn(), Qt::LeftButton);
        QCOMPARE(window().pFld()->text(), QString());
        QCOMPARE(window().ResultsFld()->toPlainText(), QString());
        QVERIFY(!window().ResultsFld()->isVisible());
        QCOMPARE(QApplication::focusWidget(), window().pFld());
        QTest::mouseRelease(window().clearBtn(), Qt::LeftButton);
    }
};

TOVARIN_UI_TEST_MAIN(ControlWndTest)
#include "test_controlwnd.moc"
