// The end of the run: windows still open when the application goes are freed
// with it, whether shown, hidden or owned by another window (which frees them
// once: a second delete would crash the test).
#include "framework/Application.hpp"
#include "framework/Window.hpp"

#include <QPointer>
#include <QTest>

using namespace tovarin::fw;

class ShutdownTest : public QObject {
    Q_OBJECT
private slots:
    void windowsGoWithTheApplication() {
        int argc = 1;
        char name[] = "test_fw_shutdown";
        char* argv[] = {name, nullptr};
        QPointer<Window> shown, hidden, owned;
        {
            Application app(argc, argv);
            shown = new Window(100, 80);
            shown->show();
            hidden = new Window(100, 80);
            hidden->show();
            hidden->hide();
            owned = new Window(100, 80, hidden);
            owned->setWindowFlag(Qt::Dialog);
            owned->show();
            QVERIFY(QTest::qWaitForWindowExposed(owned));
        }
        QVERIFY(shown.isNull() && hidden.isNull() && owned.isNull());
    }
};

QTEST_APPLESS_MAIN(ShutdownTest)
#include "test_fw_shutdown.moc"
