#include "AppTestMain.hpp"

#include "app/FileTypes.hpp"
#include "app/Tovarin.hpp"
#include "engine/Credit.hpp"
#include "framework/Canvas.hpp"
#include "framework/Label.hpp"
#include "ui/main/ControlWnd.hpp"
#include "ui/main/MenuBar1.hpp"
#include "ui/secondary/AboutWnd.hpp"

#include <QElapsedTimer>
#include <QFontMetrics>
#include <QTimer>

using namespace tovarin;

namespace {

QElapsedTimer sinceSplash;

int countOpen(const char* className) {
    int count = 0;
    for (QWidget* w : QApplication::topLevelWidgets())
        count += w->inherits(className) ? 1 : 0;
    return count;
}

AboutWnd& splash() {
    return fw::instance<AboutWnd>();
}

} // namespace

class StartupTest : public QObject {
    Q_OBJECT
private slots:
    // Both types, in initialisation order, with their exact values and the
    // five the platform is given: name, creator, type, extensions, identifier.
    void earlyStartupRegistersTheFileTypes() {
        QCOMPARE(testing::beforeStartup.registeredTypes, std::size_t(0));
        QStringList types, platform;
        for (const RegisteredFileType& entry : registeredFileTypes()) {
            const FileType& t = *entry.type;
            QVERIFY(t.imported() && t.isRegistered());
            types.append(QStringList{t.name(), t.extensions(), t.macType(), t.macCreator(),
                                     t.mimeType(), t.conformsTo(), t.uti()}
                             .join(u'|'));
            platform.append(QStringList{entry.name, entry.macCreator, entry.macType,
                                        entry.extensions, entry.uti}
                                .join(u'|'));
        }
        QCOMPARE(types, QStringList({"text/plain|.txt, dat|TEXT|????||public.content|public.text",
                                     "Untitled||||||"}));
        QCOMPARE(platform,
                 QStringList({"text/plain|????|TEXT|.txt, dat|public.text", "Untitled||||"}));
        QCOMPARE(registeredFileTypes()[0].type, FileTypes1::Text());
        QCOMPARE(registeredFileTypes()[1].type, FileTypeGroup1::Untitled());
    }

    void earlyStartupMakesTheApplicationObjectAndNoWindow() {
        QVERIFY(!testing::beforeStartup.hadApplication);
        auto* app = qobject_cast<Tovarin*>(QCoreApplication::instance());
        QVERIFY(app);
        QCOMPARE(app, application());
        const fw::Application::Version& v = app->version();
        QCOMPARE(QList<qint64>({v.major, v.minor, v.bug, v.nonRelease, v.stageCode}),
                 QList<qint64>({1, 1, 0, 0, 3}));
        QCOMPARE(v.longVersion, QString::fromUtf8(kCreditLine));
        QCOMPARE(QStringList({v.shortVersion, v.packageInfo, QCoreApplication::applicationName(),
                              QCoreApplication::applicationVersion()}),
                 QStringList({"1.1", "Tovarin", "Tovarin", "1.1"}));
        QCOMPARE(app->menuBar(), &MenuBar1());
        QVERIFY(!fw::openInstance<AboutWnd>() && !fw::openInstance<ControlWnd>());
    }

    void lateStartupShowsTheSplashOnly() {
        sinceSplash.start();
        LateStartup();
        QVERIFY(fw::openInstance<AboutWnd>() && splash().isVisible());
        QVERIFY(fw::openInstance<ControlWnd>() == nullptr);
        QCOMPARE(countOpen("tovarin::AboutWnd"), 1);
        // The menus are widgets of the main window's bar: none is made for the splash.
        QCOMPARE(countOpen("QMenu"), 0);

        // The credit on one whole line, whatever the platform's font; the icon read.
        AboutWnd& about = splash();
        QVERIFY(QTest::qWaitForWindowExposed(&about));
        auto* credit = about.control<fw::Label>("StaticText2");
        QCOMPARE(credit->text(), QString::fromUtf8(kCreditLine));
        const QFontMetrics metrics(credit->font());
        QVERIFY(!credit->wordWrap());
        QVERIFY(metrics.horizontalAdvance(credit->text()) <= credit->contentsRect().width());
        QVERIFY(metrics.height() <= credit->contentsRect().height());
        QVERIFY(about.content()->rect().contains(credit->geometry()));
        QCOMPARE(about.control<fw::Canvas>("Canvas2")->backdrop().size(), QSize(256, 256));
    }

    void timerDismissesTheSplashAfter4000ms() {
        QTRY_VERIFY_WITH_TIMEOUT(fw::openInstance<ControlWnd>() != nullptr, 8000);
        QVERIFY2(sinceSplash.elapsed() >= 3990, qPrintable(QString::number(sinceSplash.elapsed())));
        QVERIFY(fw::openInstance<ControlWnd>()->isVisible());
        QVERIFY(fw::openInstance<AboutWnd>()); // hidden, not closed
        QVERIFY(!splash().isVisible());
        QVERIFY(!splash().control<QTimer>("Timer1")->isActive()); // spent, never rearmed
    }

    // Shown again as the About item shows it, the splash goes at a press on it
    // or its controls, and at closing, leaving the one main window in front.
    void pressesDismissTheSplash_data() {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("input");
        QTest::addColumn<bool>("dismissed");
        for (const char* target : {"window", "Canvas2", "StaticText2"}) {
            QTest::addRow("mouse on %s", target) << QString(target) << "mouse" << true;
            QTest::addRow("key on %s", target) << QString(target) << "Z" << true;
        }
        // clang-format off
        QTest::newRow("shift alone") << "window" << "Shift" << false;
        QTest::newRow("close") << "window" << "close" << true;
        // clang-format on
    }
    void pressesDismissTheSplash() {
        QFETCH(QString, target);
        QFETCH(QString, input);
        QFETCH(bool, dismissed);
        ControlWnd* main = fw::openInstance<ControlWnd>();
        QVERIFY(main);
        AboutWnd& about = splash();
        about.showWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&about));
        QWidget* widget = target == "window" ? static_cast<QWidget*>(&about)
                                             : about.content()->findChild<QWidget*>(target);
        QVERIFY(widget);
        if (input == u"mouse")
            QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(5, 5));
        else if (input == u"Z")
            QTest::keyClick(widget, Qt::Key_Z);
        else if (input == u"Shift")
            QTest::keyClick(widget, Qt::Key_Shift, Qt::ShiftModifier);
        else
            QVERIFY(!about.close()); // refused: the window stays, hidden
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(about.isVisible(), !dismissed);
        QCOMPARE(fw::openInstance<AboutWnd>(), &about);
        QCOMPARE(fw::openInstance<ControlWnd>(), main); // the same main window, not a second
        QVERIFY(main->isVisible());
        QCOMPARE(countOpen("tovarin::ControlWnd"), 1);
        QCOMPARE(countOpen("tovarin::AboutWnd"), 1);
    }

    void quitShortcutEndsTheRunFromTheSplash() {
        splash().showWindow();
        QVERIFY(QTest::qWaitForWindowActive(&splash()));
        QTimer::singleShot(0, [] { QTest::keyClick(&splash(), Qt::Key_Q, Qt::ControlModifier); });
        QTimer guard; // reached only if the shortcut did nothing
        guard.setSingleShot(true);
        QObject::connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(99); });
        guard.start(10000);
        QCOMPARE(QCoreApplication::exec(), 0);
    }
};

TOVARIN_APP_TEST_MAIN(StartupTest, QStringLiteral(TOVARIN_TEST_PICTURES))
#include "test_app_startup.moc"
