#include "AppTestMain.hpp"

#include "app/FileTypes.hpp"
#include "app/Tovarin.hpp"
#include "engine/Credit.hpp"
#include "framework/Controls.hpp"
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
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->inherits(className))
            ++count;
    }
    return count;
}

AboutWnd& splash() {
    return fw::instance<AboutWnd>();
}

} // namespace

class StartupTest : public QObject {
    Q_OBJECT
private slots:
    void earlyStartupRegistersTheFileTypes_data();
    void earlyStartupRegistersTheFileTypes();
    void earlyStartupMakesTheApplicationObject();
    void earlyStartupMakesNoWindow();
    void lateStartupShowsTheSplashOnly();
    void splashShowsIconAndCredit();
    void timerDismissesTheSplashAfter4000ms();
    void pressesDismissTheSplash_data();
    void pressesDismissTheSplash();
    void modifierKeyAloneDoesNotDismiss();
    void closingTheSplashDismissesIt();
    void quitShortcutEndsTheRunFromTheSplash();
};

void StartupTest::earlyStartupRegistersTheFileTypes_data() {
    QTest::addColumn<int>("which");
    QTest::addColumn<QStringList>(
        "fields"); // name, extensions, mac type, creator, mime, conforms, uti
    QTest::newRow("FileTypes1.Text")
        << 0 << QStringList{"text/plain", ".txt, dat",      "TEXT",       "????",
                            "",           "public.content", "public.text"};
    QTest::newRow("FileTypeGroup1.Untitled")
        << 1 << QStringList{"Untitled", "", "", "", "", "", ""};
}

void StartupTest::earlyStartupRegistersTheFileTypes() {
    QFETCH(int, which);
    QFETCH(QStringList, fields);
    QCOMPARE(testing::beforeStartup.registeredTypes, std::size_t(0));

    FileType* type = which == 0 ? FileTypes1::Text() : FileTypeGroup1::Untitled();
    const auto& all = which == 0 ? FileTypes1::pAllFileTypes() : FileTypeGroup1::pAllFileTypes();
    QVERIFY(type);
    QCOMPARE(all.size(), std::size_t(1));
    QCOMPARE(all.front().get(), type);
    const QStringList actual{type->name(),       type->extensions(), type->macType(),
                             type->macCreator(), type->mimeType(),   type->conformsTo(),
                             type->uti()};
    QCOMPARE(actual, fields);
    QVERIFY(type->imported());
    QVERIFY(type->isRegistered());

    // Registered in initialisation order, with the five values the platform takes.
    const auto& registered = registeredFileTypes();
    QCOMPARE(registered.size(), std::size_t(2));
    const RegisteredFileType& entry = registered.at(which);
    QCOMPARE(entry.type, type);
    QCOMPARE(
        QStringList({entry.name, entry.macCreator, entry.macType, entry.extensions, entry.uti}),
        QStringList({fields[0], fields[3], fields[2], fields[1], fields[6]}));
}

void StartupTest::earlyStartupMakesTheApplicationObject() {
    QVERIFY(!testing::beforeStartup.hadApplication);
    auto* app = qobject_cast<Tovarin*>(QCoreApplication::instance());
    QVERIFY(app);
    QCOMPARE(app, application());
    const fw::Application::Version& v = app->version();
    QCOMPARE(QList<qint64>({v.major, v.minor, v.bug, v.nonRelease, v.stageCode}),
             QList<qint64>({1, 1, 0, 0, 3}));
    QCOMPARE(v.longVersion, QString::fromUtf8(kCreditLine));
    QCOMPARE(v.shortVersion, QString("1.1"));
    QCOMPARE(v.packageInfo, QString("Tovarin"));
    QCOMPARE(QCoreApplication::applicationName(), QString("Tovarin"));
    QCOMPARE(QCoreApplication::applicationVersion(), QString("1.1"));
    QCOMPARE(app->menuBar(), &MenuBar1());
    QCOMPARE(QGuiApplication::highDpiScaleFactorRoundingPolicy(),
             Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

void StartupTest::earlyStartupMakesNoWindow() {
    QVERIFY(fw::openInstance<AboutWnd>() == nullptr);
    QVERIFY(fw::openInstance<ControlWnd>() == nullptr);
}

void StartupTest::lateStartupShowsTheSplashOnly() {
    sinceSplash.start();
    LateStartup();
    AboutWnd* about = fw::openInstance<AboutWnd>();
    QVERIFY(about);
    QVERIFY(about->isVisible());
    QVERIFY(fw::openInstance<ControlWnd>() == nullptr);
    QCOMPARE(&splash(), about);
    QCOMPARE(countOpen("tovarin::AboutWnd"), 1);
    // The menus are widgets of the main window's bar: none is made for the splash.
    QCOMPARE(countOpen("QMenu"), 0);
}

void StartupTest::splashShowsIconAndCredit() {
    AboutWnd& about = splash();
    QVERIFY(QTest::qWaitForWindowExposed(&about));
    QCOMPARE(about.content()->size(), QSize(450, 350));
    QVERIFY(about.windowFlags().testFlag(Qt::Dialog));
    QVERIFY(about.windowTitle().isEmpty());
    QVERIFY(about.menuWidget() == nullptr);
    QCOMPARE(about.content()->palette().color(QPalette::Window), QColor(Qt::white));

    auto* credit = about.control<fw::Label>("StaticText2");
    QVERIFY(credit);
    QCOMPARE(credit->text(), QString::fromUtf8(kCreditLine));
    QCOMPARE(credit->font().pointSizeF(), 9.0);
    QVERIFY(!credit->font().bold());
    QCOMPARE(credit->palette().color(QPalette::WindowText), QColor(102, 102, 102));
    QVERIFY(credit->alignment().testFlag(Qt::AlignHCenter));
    QCOMPARE(credit->geometry().top(), 297);
    QCOMPARE(credit->geometry().center().x(), QRect(98, 297, 258, 15).center().x());
    // One whole line, whatever the platform's font: neither wrapped nor cut.
    const QFontMetrics metrics(credit->font());
    QVERIFY(!credit->wordWrap());
    QVERIFY(metrics.horizontalAdvance(credit->text()) <= credit->contentsRect().width());
    QVERIFY(metrics.height() <= credit->contentsRect().height());
    QVERIFY(about.content()->rect().contains(credit->geometry()));

    auto* canvas = about.control<fw::Canvas>("Canvas2");
    QVERIFY(canvas);
    QCOMPARE(canvas->geometry(), QRect(96, 37, 258, 258));
    QCOMPARE(canvas->backdrop().size(), QSize(256, 256));

    auto* timer = about.control<QTimer>("Timer1");
    QVERIFY(timer);
    QVERIFY(timer->isActive());
    QVERIFY(timer->isSingleShot());
    QCOMPARE(timer->interval(), 4000);
}

void StartupTest::timerDismissesTheSplashAfter4000ms() {
    QTRY_VERIFY_WITH_TIMEOUT(fw::openInstance<ControlWnd>() != nullptr, 8000);
    QVERIFY2(sinceSplash.elapsed() >= 3990, qPrintable(QString::number(sinceSplash.elapsed())));
    QVERIFY(fw::openInstance<ControlWnd>()->isVisible());
    AboutWnd* about = fw::openInstance<AboutWnd>();
    QVERIFY(about); // hidden, not closed
    QVERIFY(!about->isVisible());
    QVERIFY(!about->control<QTimer>("Timer1")->isActive()); // spent, never rearmed
}

void StartupTest::pressesDismissTheSplash_data() {
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("mouse");
    for (const char* target : {"window", "Canvas2", "StaticText2"}) {
        QTest::addRow("mouse on %s", target) << QString(target) << true;
        QTest::addRow("key on %s", target) << QString(target) << false;
    }
}

void StartupTest::pressesDismissTheSplash() {
    QFETCH(QString, target);
    QFETCH(bool, mouse);
    ControlWnd* main = fw::openInstance<ControlWnd>();
    QVERIFY(main);
    splash().showWindow(); // as the About item does
    AboutWnd& about = splash();
    QVERIFY(QTest::qWaitForWindowExposed(&about));
    QWidget* widget = target == "window" ? static_cast<QWidget*>(&about)
                                         : about.content()->findChild<QWidget*>(target);
    QVERIFY(widget);
    if (mouse)
        QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(5, 5));
    else
        QTest::keyClick(widget, Qt::Key_Z);
    QVERIFY(!about.isVisible());
    QCOMPARE(fw::openInstance<ControlWnd>(), main); // the same main window, not a second one
    QVERIFY(main->isVisible());
    QCOMPARE(countOpen("tovarin::ControlWnd"), 1);
    QCOMPARE(countOpen("tovarin::AboutWnd"), 1);
}

void StartupTest::modifierKeyAloneDoesNotDismiss() {
    splash().showWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&splash()));
    QTest::keyClick(&splash(), Qt::Key_Shift, Qt::ShiftModifier);
    QVERIFY(splash().isVisible());
    QTest::keyClick(&splash(), Qt::Key_Return);
    QVERIFY(!splash().isVisible());
}

void StartupTest::closingTheSplashDismissesIt() {
    splash().showWindow();
    AboutWnd* before = &splash();
    QVERIFY(QTest::qWaitForWindowExposed(before));
    QVERIFY(!before->close()); // refused: the window stays, hidden
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(fw::openInstance<AboutWnd>(), before);
    QVERIFY(!before->isVisible());
    QVERIFY(fw::openInstance<ControlWnd>()->isVisible());
}

void StartupTest::quitShortcutEndsTheRunFromTheSplash() {
    splash().showWindow();
    QVERIFY(QTest::qWaitForWindowActive(&splash()));
    QTimer::singleShot(0, [] { QTest::keyClick(&splash(), Qt::Key_Q, Qt::ControlModifier); });
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(99); });
    guard.start(10000); // reached only if the shortcut did nothing
    QCOMPARE(QCoreApplication::exec(), 0);
    QVERIFY(guard.isActive());
}

TOVARIN_APP_TEST_MAIN(StartupTest, QStringLiteral(TOVARIN_TEST_PICTURES))
#include "test_app_startup.moc"
