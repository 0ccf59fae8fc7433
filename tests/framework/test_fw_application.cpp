#include "FrameworkTestMain.hpp"

#include "engine/FileError.hpp"
#include "framework/Controls.hpp"
#include "framework/Platform.hpp"
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

// Runs the event loop until `done` holds or the limit passes; returns the exit value.
int runUntil(const std::function<bool()>& done, int limitMs = 10000) {
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (done())
            QCoreApplication::exit(0);
    });
    poll.start(10);
    QTimer::singleShot(limitMs, [] { QCoreApplication::exit(99); });
    return QCoreApplication::exec();
}

} // namespace

class ApplicationTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { setUnhandledFailureHandler({}); }
    void failureInAHandlerIsReportedAndTheAppGoesOn_data();
    void failureInAHandlerIsReportedAndTheAppGoesOn();
    void failureInATimerIsReported();
    void failureInKeyAndMenuHandlersIsReported_data();
    void failureInKeyAndMenuHandlersIsReported();
    void failureShowsADialogWithTheReason();
    void quitTwiceEndsTheLoopOnce();
};

void ApplicationTest::failureInAHandlerIsReportedAndTheAppGoesOn_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("reason");
    QTest::newRow("runtime error") << int(Failure::Runtime) << "the handler broke";
    QTest::newRow("file error") << int(Failure::File)
                                << "Cannot read \"/nowhere/models.txt\": No such file or directory";
    QTest::newRow("not a std::exception")
        << int(Failure::Foreign) << "An unknown failure occurred.";
}

void ApplicationTest::failureInAHandlerIsReportedAndTheAppGoesOn() {
    QFETCH(int, kind);
    QFETCH(QString, reason);
    QStringList reported;
    setUnhandledFailureHandler([&](const QString& why) { reported << why; });
    PushButton button;
    button.resize(80, 30);
    int presses = 0;
    button.setMouseDownHandler([&](int, int) -> bool {
        ++presses;
        fail(static_cast<Failure>(kind));
    });
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(reported, QStringList{reason});
    // The application is still alive and still answers.
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(presses, 2);
    QCOMPARE(reported.size(), 2);
}

void ApplicationTest::failureInATimerIsReported() {
    QStringList reported;
    setUnhandledFailureHandler([&](const QString& why) { reported << why; });
    QObject owner;
    new OneShotTimer(
        1, [] { fail(Failure::Runtime); }, &owner);
    QCOMPARE(runUntil([&] { return !reported.isEmpty(); }), 0);
    QCOMPARE(reported, QStringList{"the handler broke"});
}

void ApplicationTest::failureInKeyAndMenuHandlersIsReported_data() {
    QTest::addColumn<QString>("handler");
    QTest::newRow("text field key") << "field";
    QTest::newRow("text area key") << "area";
    QTest::newRow("menu item") << "menu";
}

void ApplicationTest::failureInKeyAndMenuHandlersIsReported() {
    QFETCH(QString, handler);
    QStringList reported;
    setUnhandledFailureHandler([&](const QString& why) { reported << why; });
    Window window(200, 100);
    auto* field = new TextField(window.content());
    auto* area = new TextArea(window.content());
    const KeyHandler failing = [](int) -> bool { fail(Failure::Runtime); };
    field->setKeyDownHandler(failing);
    area->setKeyDownHandler(failing);
    window.addMenuHandler("InfoItem", []() -> bool { fail(Failure::Runtime); });
    if (handler == "menu") {
        QVERIFY(window.handleMenuItem("InfoItem")); // a failed handler counts as handled
    } else {
        QWidget* target = handler == "field" ? static_cast<QWidget*>(field) : area;
        QTest::keyClick(target, Qt::Key_X);
        // The failed handler consumed the key: nothing was typed.
        QVERIFY(field->text().isEmpty() && area->toPlainText().isEmpty());
    }
    QCOMPARE(reported, QStringList{"the handler broke"});
}

void ApplicationTest::failureShowsADialogWithTheReason() {
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

void ApplicationTest::quitTwiceEndsTheLoopOnce() {
    QTimer::singleShot(0, [] {
        quit(0);
        quit(0);
    });
    QTimer::singleShot(10000, [] { QCoreApplication::exit(99); });
    QCOMPARE(QCoreApplication::exec(), 0);
    // Nothing of the quit lingers: the next loop runs until it is told to stop.
    int turns = 0;
    QCOMPARE(runUntil([&] { return ++turns == 3; }), 0);
    QCOMPARE(turns, 3);
}

TOVARIN_FRAMEWORK_TEST_MAIN(ApplicationTest)
#include "test_fw_application.moc"
