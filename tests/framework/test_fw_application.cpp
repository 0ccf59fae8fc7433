#include "FrameworkTestMain.hpp"

#include "engine/FileError.hpp"
#include "framework/Dialogs.hpp"
#include "framework/OneShotTimer.hpp"
#include "framework/PushButton.hpp"
#include "framework/Quit.hpp"
#include "framework/TextArea.hpp"
#include "framework/TextField.hpp"
#include "framework/Window.hpp"

#include <QMessageBox>
#include <QTimer>

#include <stdexcept>

using namespace tovarin::fw;

namespace {

enum class Failure { Runtime, File, Foreign };

[[noreturn]] void fail(Failure kind) {
    switch (kind) {
    case Failure::Runtime:
        throw std::runtime_error("the handler broke");
    case Failure::File:
        throw tovarin::FileError("/nowhere/models.txt", "No such file or directory");
    case Failure::Foreign:
        throw 42;
    }
    throw 0;
}

// Runs the event loop until `done` holds (exit value 0) or for at most ten seconds (99).
int runUntil(const std::function<bool()>& done) {
    QTimer poll, limit;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (done())
            QCoreApplication::exit(0);
    });
    QObject::connect(&limit, &QTimer::timeout, [] { QCoreApplication::exit(99); });
    poll.start(10);
    limit.start(10000);
    return QCoreApplication::exec();
}

} // namespace

class ApplicationTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { setUnhandledFailureHandler({}); }

    void failureInAHandlerIsReportedAndTheAppGoesOn_data() {
        QTest::addColumn<QString>("where");
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("reason");
        const QString broke = "the handler broke";
        const QString unreadable = "Cannot read \"/nowhere/models.txt\": No such file or directory";
        QTest::newRow("button") << "button" << int(Failure::Runtime) << broke;
        QTest::newRow("text field key") << "field" << int(Failure::File) << unreadable;
        QTest::newRow("text area key")
            << "area" << int(Failure::Foreign) << "An unknown failure occurred.";
        QTest::newRow("menu item") << "menu" << int(Failure::Runtime) << broke;
        QTest::newRow("timer") << "timer" << int(Failure::File) << unreadable;
    }
    void failureInAHandlerIsReportedAndTheAppGoesOn() {
        QFETCH(QString, where);
        QFETCH(int, kind);
        QFETCH(QString, reason);
        QStringList reported;
        setUnhandledFailureHandler([&](const QString& why) { reported << why; });
        const auto failure = static_cast<Failure>(kind);
        Window window(200, 100);
        auto* button = new PushButton(window.content());
        auto* field = new TextField(window.content());
        auto* area = new TextArea(window.content());
        area->move(0, 40);
        button->setMouseDownHandler([=](int, int) -> bool { fail(failure); });
        field->setKeyDownHandler([=](int) -> bool { fail(failure); });
        area->setKeyDownHandler([=](int) -> bool { fail(failure); });
        window.addMenuHandler("InfoItem", [=]() -> bool { fail(failure); });
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QObject owner;
        // The second time shows that the application is still alive and still answers.
        for (int turn = 1; turn <= 2; ++turn) {
            if (where == "menu") {
                QVERIFY(window.handleMenuItem("InfoItem")); // a failed handler counts as handled
            } else if (where == "timer") {
                new OneShotTimer(
                    1, [=] { fail(failure); }, &owner);
                QCOMPARE(runUntil([&] { return reported.size() == turn; }), 0);
            } else if (where == "button") {
                QTest::mouseClick(button, Qt::LeftButton);
            } else {
                QTest::keyClick(where == "field" ? static_cast<QWidget*>(field) : area, Qt::Key_X);
            }
            QCOMPARE(reported.size(), turn);
        }
        QCOMPARE(reported, QStringList(2, reason));
        // A failed key handler consumed the key: nothing was typed.
        QVERIFY(field->text().isEmpty() && area->toPlainText().isEmpty());
    }

    void failureShowsADialogWithTheReason() {
        // No handler installed: the real dialog comes up, modal, while the loop runs.
        QString shown;
        QTimer closer;
        QObject::connect(&closer, &QTimer::timeout, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                shown = box->text() + "|" + box->informativeText();
                box->accept();
            }
        });
        closer.start(10);
        QObject owner;
        new OneShotTimer(
            1, [] { fail(Failure::File); }, &owner);
        QCOMPARE(runUntil([&] { return !shown.isEmpty(); }), 0);
        QVERIFY2(shown.contains("Cannot read \"/nowhere/models.txt\": No such file or directory"),
                 qPrintable(shown));
    }

    void quitTwiceEndsTheLoopOnce() {
        QTimer::singleShot(0, [] {
            quit(0);
            quit(0);
        });
        QCOMPARE(runUntil([] { return false; }), 0);
        // Nothing of the quit lingers: the next loop runs until it is told to stop.
        int turns = 0;
        QCOMPARE(runUntil([&] { return ++turns == 3; }), 0);
        QCOMPARE(turns, 3);
    }
};

TOVARIN_FRAMEWORK_TEST_MAIN(ApplicationTest)
#include "test_fw_application.moc"
