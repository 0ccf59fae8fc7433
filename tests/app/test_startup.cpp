// The program's own start-up, first with no pictures to be found: the splash
// alone, its dismissal by the timer, a press, a key or closing, the pictures
// read once found, and the quit shortcut from the splash.
#include "tests/QtTestMain.hpp"

#include "app/Startup.hpp"
#include "framework/Canvas.hpp"
#include "framework/Dialogs.hpp"
#include "framework/PictureFile.hpp"
#include "ui/AppPictures.hpp"
#include "ui/main/ControlWnd.hpp"
#include "ui/secondary/AboutWnd.hpp"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

using namespace tovarin;

namespace {

QTemporaryDir& emptyFolder() {
    static QTemporaryDir folder;
    return folder;
}

int countOpen(const char* className) {
    int count = 0;
    for (QWidget* w : QApplication::topLevelWidgets())
        count += w->inherits(className) ? 1 : 0;
    return count;
}

} // namespace

class StartupTest : public QObject {
    Q_OBJECT
    QElapsedTimer sinceSplash_;
    QStringList messages_;

private slots:
    void splashAloneAndNoMessageWithoutPictures() {
        fw::setMessageBoxHandler([this](const QString& text) { messages_ << text; });
        fw::setUnhandledFailureHandler([this](const QString& why) { messages_ << why; });
        sinceSplash_.start();
        LateStartup();
        QVERIFY(fw::openInstance<AboutWnd>() && fw::openInstance<AboutWnd>()->isVisible());
        QVERIFY(!fw::openInstance<ControlWnd>());
        QCOMPARE(countOpen("QMenu"), 0); // the menus are made for the main window, not the splash
        QVERIFY(fw::instance<AboutWnd>().control<fw::Canvas>("Canvas2")->backdrop().isNull());
    }

    void timerDismissesTheSplashAfter4000ms() {
        QTRY_VERIFY_WITH_TIMEOUT(fw::openInstance<ControlWnd>(), 8000);
        QVERIFY2(sinceSplash_.elapsed() >= 3990, qPrintable(QString::number(sinceSplash_.elapsed())));
        QVERIFY(fw::openInstance<ControlWnd>()->isVisible() && !fw::instance<AboutWnd>().isVisible());
        QVERIFY(!fw::instance<AboutWnd>().control<QTimer>("Timer1")->isActive()); // spent, never rearmed
        QVERIFY(fw::openInstance<ControlWnd>()->Canvas1()->backdrop().isNull());
        QCOMPARE(messages_, QStringList());
    }

    void pictureIsReadOnceFound() {
        fw::setPictureFolder(TOVARIN_TEST_PICTURES);
        const QPixmap found = Icon256(); // a missing picture is asked for again
        QCOMPARE(found.size(), QSize(256, 256));
        fw::setPictureFolder(emptyFolder().path());
        QCOMPARE(Icon256().cacheKey(), found.cacheKey()); // and once read, not again
    }

    // Shown again as the About item shows it, the splash goes at a press on it
    // or its controls, and at closing, leaving the one main window in front.
    void pressesDismissTheSplash_data() {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("input");
        for (const char* target : {"window", "Canvas2", "StaticText2"}) {
            QTest::addRow("mouse on %s", target) << target << "mouse";
            QTest::addRow("key on %s", target) << target << "Z";
        }
        QTest::newRow("shift alone stays") << "window" << "Shift";
        QTest::newRow("close") << "window" << "close";
    }
    void pressesDismissTheSplash() {
        QFETCH(QString, target);
        QFETCH(QString, input);
        ControlWnd* main = fw::openInstance<ControlWnd>();
        AboutWnd& about = fw::instance<AboutWnd>();
        about.showWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&about));
        QWidget* widget = target == "window" ? &about : about.content()->findChild<QWidget*>(target);
        QVERIFY(widget);
        if (input == "mouse")
            QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(5, 5));
        else if (input == "close")
            QVERIFY(!about.close()); // refused: the window stays, hidden
        else
            QTest::keyClick(widget, input == "Z" ? Qt::Key_Z : Qt::Key_Shift);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(about.isVisible(), input == "Shift");
        QCOMPARE(fw::openInstance<ControlWnd>(), main); // the same main window, not a second
        QVERIFY(main->isVisible());
        QCOMPARE(countOpen("tovarin::ControlWnd") * 10 + countOpen("tovarin::AboutWnd"), 11);
    }

    void quitShortcutEndsTheRunFromTheSplash() {
        AboutWnd& about = fw::instance<AboutWnd>();
        about.showWindow();
        QVERIFY(QTest::qWaitForWindowActive(&about));
        QTimer::singleShot(0, [&] { QTest::keyClick(&about, Qt::Key_Q, Qt::ControlModifier); });
        QTimer::singleShot(10000, [] { QCoreApplication::exit(99); }); // only if the shortcut did nothing
        QCOMPARE(QCoreApplication::exec(), 0);
    }
};

TOVARIN_QT_TEST_MAIN(StartupTest, tovarin::fw::setPictureFolder(emptyFolder().path());
                     tovarin::EarlyStartup(), tovarin::ShutDown())
#include "test_startup.moc"
