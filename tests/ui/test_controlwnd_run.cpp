// The ways an analysis run started by the Load Data File button can end, seen
// through the window with the dialogs answered by the test.
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include "engine/LocalDateTime.hpp"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace tovarin;

namespace {

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

class ControlWndRunTest : public QObject {
    Q_OBJECT

    testing::PlatformRecorder platform_;
    QTemporaryDir folder_;

    ControlWnd& window() { return fw::instance<ControlWnd>(); }

    QString writeData(const QString& name, const QByteArray& content) {
        const QString path = folder_.filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write the test data file %s", qPrintable(path));
        return path;
    }

    // The press itself runs the analysis; the release only ends the button's tracking.
    void pressLoadDataFile() {
        QTest::mousePress(window().calcBtn(), Qt::LeftButton);
        QTest::mouseRelease(window().calcBtn(), Qt::LeftButton);
    }

    // The results on show with an earlier report and the focus in them, so that
    // a run that gives the focus to the count field can be told apart.
    void showEarlierReport() {
        window().ResultsFld()->setVisible(true);
        window().ResultsFld()->setPlainText(kEarlier);
        window().ResultsFld()->setFocus();
    }

private slots:
    void init() {
        QVERIFY(folder_.isValid());
        platform_ = testing::PlatformRecorder();
        platform_.install();
        testing::freshControlWnd();
    }

    void endings_data() {
        QTest::addColumn<QString>("count");
        QTest::addColumn<Choice>("choice");
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QStringList>("messages");
        QTest::addColumn<int>("choices");
        QTest::addColumn<bool>("report");
        QTest::addColumn<bool>("focusToCount");

        const QByteArray two = "Alpha\t100.5\nBeta,102\n";
        const QByteArray noLow = "Alpha\t99999999999\nBeta\t123456789012\n";
        const QByteArray zero = "Alpha\t0\nBeta\t12\n";
        const QStringList none;
        // clang-format off
        QTest::newRow("empty count") << "" << Choice::File << two << QStringList{kEmptyCount}
                                     << 0 << false << true;
        QTest::newRow("count 1") << "1" << Choice::File << two << QStringList{kBadCount}
                                 << 0 << false << true;
        QTest::newRow("count 0") << "0" << Choice::File << two << QStringList{kBadCount}
                                 << 0 << false << true;
        QTest::newRow("no number") << "ab" << Choice::File << two << QStringList{kBadCount}
                                   << 0 << false << true;
        QTest::newRow("cancelled choice") << "2" << Choice::Cancel << two << none
                                          << 1 << false << false;
        QTest::newRow("vanished file") << "2" << Choice::VanishedFile << two << none
                                       << 1 << false << false;
        // Reported as a failure with its reason; nothing of a report is written.
        QTest::newRow("failed open") << "2" << Choice::Directory << two << none
                                     << 1 << false << false;
        QTest::newRow("no low BIC") << "2" << Choice::File << noLow << QStringList{kNoLowBic}
                                    << 1 << false << true;
        QTest::newRow("zero BIC, then report") << "2" << Choice::File << zero
                                               << QStringList{kZeroBic} << 1 << true << true;
        QTest::newRow("short file, then report") << "3" << Choice::File << two
                                                 << QStringList{kZeroBic} << 1 << true << true;
        QTest::newRow("report") << "2" << Choice::File << two << none << 1 << true << false;
        QTest::newRow("report of 99") << "99" << Choice::File << two.repeated(50)
                                      << none << 1 << true << false;
        // clang-format on
    }

    void endings() {
        QFETCH(QString, count);
        QFETCH(Choice, choice);
        QFETCH(QByteArray, data);
        QFETCH(QStringList, messages);
        QFETCH(int, choices);
        QFETCH(bool, report);
        QFETCH(bool, focusToCount);

        QString path = writeData(QStringLiteral("models.txt"), data);
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
        showEarlierReport();

        const QString dateBefore = dateLine(currentLocalDateTime());
        pressLoadDataFile();
        const QString dateAfter = dateLine(currentLocalDateTime());

        QCOMPARE(platform_.messages, messages);
        QCOMPARE(platform_.choices, choices);
        const bool failed = choice == Choice::Directory;
        QCOMPARE(platform_.failures.size(), failed ? 1 : 0);
        if (failed)
            QVERIFY2(platform_.failures[0].contains(path), qPrintable(platform_.failures[0]));
        QCOMPARE(window().pFld()->text(), count);
        QVERIFY(window().ResultsFld()->isVisible());
        QCOMPARE(QApplication::focusWidget(),
                 focusToCount ? static_cast<QWidget*>(window().pFld()) : window().ResultsFld());
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
        showEarlierReport();
        QTest::mousePress(window().clearBtn(), Qt::LeftButton);
        QCOMPARE(window().pFld()->text(), QString());
        QCOMPARE(window().ResultsFld()->toPlainText(), QString());
        QVERIFY(!window().ResultsFld()->isVisible());
        QCOMPARE(QApplication::focusWidget(), window().pFld());
        QTest::mouseRelease(window().clearBtn(), Qt::LeftButton);
    }
};

TOVARIN_UI_TEST_MAIN(ControlWndRunTest)
#include "test_controlwnd_run.moc"
