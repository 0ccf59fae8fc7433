// Every hostile data file through the main window, offscreen, with the dialogs
// answered by the test: the same outcome as tovarin-report, and the results
// already on screen stay.
#include "HostileCases.hpp"
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include "engine/Messages.hpp"

#include <QFile>
#include <QTemporaryDir>

#include <filesystem>
#include <sys/fsuid.h>
#include <unistd.h>

using namespace tovarin;
using tovarin::test::HostileCase;
using tovarin::test::Outcome;

namespace {

const QString kEarlier = QStringLiteral("an earlier report\n");

QString fromUtf8(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

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
    QTemporaryDir folder_;

    ControlWnd& window() { return fw::instance<ControlWnd>(); }

private slots:
    void initTestCase() {
        QVERIFY(folder_.isValid());
        // Open to everyone, so that the ordinary user of the permission case
        // is stopped by the file's own bits and nothing else.
        QVERIFY(QFile::setPermissions(folder_.path(), QFile::ReadOwner | QFile::WriteOwner |
                                                          QFile::ExeOwner | QFile::ReadOther |
                                                          QFile::ExeOther));
    }

    void init() {
        platform_ = testing::PlatformRecorder();
        platform_.install();
        testing::freshControlWnd();
    }

    void hostileFile_data() {
        QTest::addColumn<int>("index");
        const auto& cases = test::hostileCases();
        for (std::size_t i = 0; i < cases.size(); ++i) {
            QTest::newRow(cases[i].name.c_str()) << static_cast<int>(i);
        }
    }

    void hostileFile() {
        QFETCH(int, index);
        const HostileCase& hostile = test::hostileCases()[static_cast<std::size_t>(index)];
        const std::filesystem::path file =
            hostile.make(std::filesystem::path(folder_.path().toStdString()));
        const QString path = QFile::decodeName(file.c_str());
        platform_.answerChoice = [path] { return std::optional<QString>(path); };
        window().pFld()->setText(fromUtf8(hostile.count));
        window().ResultsFld()->setVisible(true);
        window().ResultsFld()->setPlainText(kEarlier);

        if (hostile.asOrdinaryUser && ::geteuid() == 0) {
            OrdinaryUserFiles ordinary;
            if (!ordinary.active())
                QSKIP(
                    "cannot take on an ordinary user's rights, and the superuser reads every file");
            QTest::mousePress(window().calcBtn(), Qt::LeftButton);
        } else {
            QTest::mousePress(window().calcBtn(), Qt::LeftButton);
        }
        QTest::mouseRelease(window().calcBtn(), Qt::LeftButton);

        QStringList messages;
        for (const std::string& message : hostile.messages)
            messages << fromUtf8(message);
        const QString text = window().ResultsFld()->toPlainText();
        QCOMPARE(platform_.choices, 1);
        QCOMPARE(window().pFld()->text(), fromUtf8(hostile.count));
        QVERIFY(window().ResultsFld()->isVisible());
        QVERIFY2(text.startsWith(kEarlier), "the earlier results are gone");

        switch (hostile.outcome) {
        case Outcome::Report: {
            QCOMPARE(platform_.messages, messages);
            QCOMPARE(platform_.failures, QStringList());
            QVERIFY(text.contains(QStringLiteral("File: ") +
                                  QFile::decodeName(file.filename().c_str()) + u'\n'));
            const QByteArray bytes = text.toUtf8();
            QCOMPARE(test::reportRowCount(std::string_view(bytes.data(), bytes.size())),
                     std::stoi(hostile.count));
            for (const std::string& part : hostile.reportHas)
                QVERIFY2(text.contains(fromUtf8(part)), part.c_str());
            break;
        }
        case Outcome::NoLowBic:
            QCOMPARE(platform_.messages, messages);
            QCOMPARE(platform_.failures, QStringList());
            QCOMPARE(text, kEarlier);
            break;
        case Outcome::FileError:
            QCOMPARE(platform_.messages, QStringList());
            QCOMPARE(platform_.failures.size(), 1);
            QVERIFY2(platform_.failures.front().contains(path),
                     qPrintable(platform_.failures.front()));
            QVERIFY2(platform_.failures.front().contains(fromUtf8(hostile.reason)),
                     qPrintable(platform_.failures.front()));
            QCOMPARE(text, kEarlier);
            QVERIFY(!window().calcBtn()->isDown());
            break;
        case Outcome::Missing:
            // The chooser offers only files that exist; one gone since ends the run quietly.
            QCOMPARE(platform_.messages, QStringList());
            QCOMPARE(platform_.failures, QStringList());
            QCOMPARE(text, kEarlier);
            break;
        }
    }
};

TOVARIN_UI_TEST_MAIN(HostileAppTest)
#include "test_hostile_app.moc"
