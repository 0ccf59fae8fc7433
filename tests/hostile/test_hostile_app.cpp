// Every hostile data file through the main window, offscreen, with the dialogs
// answered by the test: the same outcome as tovarin-report, and the results
// already on screen stay.
#include "HostileCases.hpp"
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include <QFile>

#include <optional>

#include <sys/fsuid.h>
#include <unistd.h>

using namespace tovarin;
using tovarin::test::HostileCase;
using tovarin::test::Outcome;

namespace {

const QString kEarlier = QStringLiteral("an earlier report\n");

// Opens files with the rights of an ordinary user while it lives, so that
// permission bits count even for the superuser. Only the file system rights
// of this thread change.
class OrdinaryUserFiles {
public:
    OrdinaryUserFiles() : before_(::setfsuid(test::kOrdinaryUserId)) {
        ::setfsgid(test::kOrdinaryUserId);
        // setfsuid reports only the earlier id; asking again shows whether it took.
        active_ = static_cast<unsigned>(::setfsuid(test::kOrdinaryUserId)) == test::kOrdinaryUserId;
    }
    ~OrdinaryUserFiles() {
        ::setfsuid(static_cast<uid_t>(before_));
        ::setfsgid(::getegid());
    }
    OrdinaryUserFiles(const OrdinaryUserFiles&) = delete;
    OrdinaryUserFiles& operator=(const OrdinaryUserFiles&) = delete;
    bool active() const { return active_; }

private:
    int before_;
    bool active_ = false;
};

} // namespace

class HostileAppTest : public QObject {
    Q_OBJECT

    testing::PlatformRecorder platform_;
    const test::HostileFolder folder_;

    ControlWnd& window() { return fw::instance<ControlWnd>(); }

private slots:
    void init() {
        platform_ = testing::PlatformRecorder();
        platform_.install();
        testing::freshControlWnd();
    }

    void hostileFile_data() {
        QTest::addColumn<int>("index");
        const auto& cases = test::hostileCases();
        for (std::size_t i = 0; i < cases.size(); ++i)
            QTest::newRow(cases[i].name.c_str()) << static_cast<int>(i);
    }

    void hostileFile() {
        QFETCH(int, index);
        const HostileCase& hostile = test::hostileCases()[static_cast<std::size_t>(index)];
        const std::filesystem::path file = hostile.make(folder_.path());
        const QString path = QFile::decodeName(file.c_str());
        platform_.answerChoice = [path] { return std::optional<QString>(path); };
        window().pFld()->setText(QString::fromStdString(hostile.count));
        window().ResultsFld()->setVisible(true);
        window().ResultsFld()->setPlainText(kEarlier);
        std::optional<OrdinaryUserFiles> ordinary;
        if (hostile.asOrdinaryUser && ::geteuid() == 0 && !ordinary.emplace().active())
            QSKIP("cannot take on an ordinary user's rights, and the superuser reads every file");
        QTest::mousePress(window().calcBtn(), Qt::LeftButton); // the whole run happens here
        ordinary.reset();
        QTest::mouseRelease(window().calcBtn(), Qt::LeftButton);

        QStringList messages;
        for (const std::string& message : hostile.messages)
            messages << QString::fromStdString(message);
        const QString text = window().ResultsFld()->toPlainText();
        QCOMPARE(platform_.choices, 1);
        QCOMPARE(platform_.messages, messages);
        QCOMPARE(window().pFld()->text(), QString::fromStdString(hostile.count));
        QVERIFY(window().ResultsFld()->isVisible());
        QVERIFY(!window().calcBtn()->isDown());
        if (hostile.outcome == Outcome::FileError) {
            QCOMPARE(platform_.failures.size(), 1);
            const QString& failure = platform_.failures.front();
            QVERIFY2(failure.contains(path) &&
                         failure.contains(QString::fromStdString(hostile.reason)),
                     qPrintable(failure));
        } else {
            QCOMPARE(platform_.failures, QStringList());
        }
        // The chooser offers only files that exist; one gone since (Missing) ends the run quietly.
        if (hostile.outcome != Outcome::Report) {
            QCOMPARE(text, kEarlier);
            return;
        }
        QVERIFY2(text.startsWith(kEarlier), "the earlier results are gone");
        QVERIFY(text.contains("File: " + QFile::decodeName(file.filename().c_str()) + u'\n'));
        const QByteArray bytes = text.toUtf8();
        QCOMPARE(test::reportRowCount(std::string_view(bytes.data(), bytes.size())),
                 std::stoi(hostile.count));
        for (const std::string& part : hostile.reportHas)
            QVERIFY2(text.contains(QString::fromStdString(part)), part.c_str());
    }
};

TOVARIN_UI_TEST_MAIN(HostileAppTest)
#include "test_hostile_app.moc"
