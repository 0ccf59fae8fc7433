// The ways an analysis run started by the Load Data File button can end, seen
// through the window with the dialogs answered by the test.
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include "engine/LocalDateTime.hpp"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

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
enum class Choice { Cancel, File, Directory, VanishedFile, UnreadableFile };

} // namespace

Q_DECLARE_METATYPE(Choice)

namespace {

// The date line of a report written at that moment.
QString dateLine(const DateTimeText& now) {
    return QStringLiteral("Date: %1  %2\n")
        .arg(QString::fromStdString(now.shortDate), QString::fromStdString(now.shortTime));
}

} // namespace

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
    void initTestCase() {
        QVERIFY(folder_.isValid());
        platform_.install();
    }

    void init() {
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
        QTest::newRow("no low BIC") << "2" << Choice::File << noLow << QStringList{kNoLowBic}
                                    << 1 << false << true;
        QTest::newRow("zero BIC, then report") << "2" << Choice::File << zero
                                               << QStringList{kZeroBic} << 1 << true << true;
        QTest::newRow("short file, then report") << "3" << Choice::File << two
                                                 << QStringList{kZeroBic} << 1 << true << true;
        QTest::newRow("report") << "2" << Choice::File << two << none << 1 << true << false;
        QTest::newRow("report of 99") << "99" << Choice::File << two.repeated(50).left(4000)
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

        const QString path = writeData(QStringLiteral("models.txt"), data);
        platform_.answerChoice = [choice, path]() -> std::optional<QString> {
            if (choice == Choice::Cancel)
                return std::nullopt;
            if (choice == Choice::VanishedFile)
                QFile::remove(path);
            return path;
        };
        window().pFld()->setText(count);
        showEarlierReport();

        const QString dateBefore = dateLine(currentLocalDateTime());
        pressLoadDataFile();
        const QString dateAfter = dateLine(currentLocalDateTime());

        QCOMPARE(platform_.messages, messages);
        QCOMPARE(platform_.choices, choices);
        QCOMPARE(platform_.failures, QStringList());
        QCOMPARE(window().pFld()->text(), count);
        QVERIFY(window().ResultsFld()->isVisible());
        QWidget* focus = focusToCount ? static_cast<QWidget*>(window().pFld())
                                      : static_cast<QWidget*>(window().ResultsFld());
        QCOMPARE(QApplication::focusWidget(), focus);
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
        QVERIFY(!text.contains(u'\r'));
    }

    // A hidden results area comes up only with a report.
    void hiddenResultsStayHiddenWithoutReport() {
        window().pFld()->setText(QStringLiteral("5"));
        pressLoadDataFile();
        QCOMPARE(platform_.choices, 1);
        QVERIFY(!window().ResultsFld()->isVisible());
    }

    void twoRunsInARow() {
        const QString path = writeData(QStringLiteral("pair.txt"), "Alpha\t10\nBeta\t20\n");
        platform_.answerChoice = [path] { return std::optional<QString>(path); };
        window().pFld()->setText(QStringLiteral("2"));

        pressLoadDataFile();
        const QString first = window().ResultsFld()->toPlainText();
        QVERIFY(window().ResultsFld()->isVisible());
        QVERIFY(first.startsWith(QStringLiteral("Date: ")));
        // The head of the results is bold.
        QTextCursor head(window().ResultsFld()->document());
        head.setPosition(1);
        QCOMPARE(head.charFormat().fontWeight(), int(QFont::Bold));

        pressLoadDataFile();
        const QString both = window().ResultsFld()->toPlainText();
        QVERIFY(both.startsWith(first));
        QCOMPARE(both.count(QStringLiteral("File: pair.txt")), 2);
        QCOMPARE(both.size(), 2 * first.size());
        QCOMPARE(platform_.messages, QStringList());
    }

    // A file that cannot be read is reported with its reason; nothing of a
    // report is written and the program goes on.
    void failedOpen_data() {
        QTest::addColumn<Choice>("choice");
        QTest::newRow("directory") << Choice::Directory;
        QTest::newRow("unreadable file") << Choice::UnreadableFile;
    }
    void failedOpen() {
        QFETCH(Choice, choice);
        QString path;
        if (choice == Choice::Directory) {
            path = folder_.filePath(QStringLiteral("a folder"));
            QVERIFY(QDir().mkpath(path));
        } else {
            if (geteuid() == 0)
                QSKIP("the superuser reads every file");
            path = writeData(QStringLiteral("locked.txt"), "Alpha\t1\nBeta\t2\n");
            QVERIFY(QFile::setPermissions(path, QFileDevice::WriteOwner));
        }
        platform_.answerChoice = [path] { return std::optional<QString>(path); };
        window().pFld()->setText(QStringLiteral("2"));
        showEarlierReport();

        pressLoadDataFile();

        QCOMPARE(platform_.failures.size(), 1);
        QVERIFY2(platform_.failures.front().contains(path), qPrintable(platform_.failures.front()));
        QCOMPARE(platform_.messages, QStringList());
        QCOMPARE(window().ResultsFld()->toPlainText(), kEarlier);
        QVERIFY(!window().calcBtn()->isDown());

        // The window still works: the next run makes its report.
        const QString good = writeData(QStringLiteral("good.txt"), "Alpha\t1\nBeta\t2\n");
        platform_.answerChoice = [good] { return std::optional<QString>(good); };
        pressLoadDataFile();
        QVERIFY(window().ResultsFld()->toPlainText().contains(QStringLiteral("File: good.txt")));
    }

    void returnStartsNothing() {
        window().pFld()->setText(QStringLiteral("2"));
        QTest::keyClick(window().pFld(), Qt::Key_Return);
        QCOMPARE(platform_.choices, 0);
        QCOMPARE(platform_.messages, QStringList());
        QCOMPARE(platform_.beeps, 1);
    }

    void clearEmptiesEverything_data() {
        QTest::addColumn<bool>("withReport");
        QTest::newRow("report on show") << true;
        QTest::newRow("nothing on show") << false;
    }
    void clearEmptiesEverything() {
        QFETCH(bool, withReport);
        if (withReport) {
            window().pFld()->setText(QStringLiteral("12"));
            showEarlierReport();
        }
        QTest::mousePress(window().clearBtn(), Qt::LeftButton);
        // Done at the press, before any release.
        QCOMPARE(window().pFld()->text(), QString());
        QCOMPARE(window().ResultsFld()->toPlainText(), QString());
        QVERIFY(!window().ResultsFld()->isVisible());
        QCOMPARE(QApplication::focusWidget(), window().pFld());
        QTest::mouseRelease(window().clearBtn(), Qt::LeftButton);
    }
};

TOVARIN_UI_TEST_MAIN(ControlWndRunTest)
#include "test_controlwnd_run.moc"
