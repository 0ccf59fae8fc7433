// The end of the run: windows still open when the application goes are freed
// with it, whether shown, hidden or owned by another window.
#include "framework/Application.hpp"
#include "framework/Window.hpp"

#include <QPointer>
#include <QTest>

using namespace tovarin::fw;

namespace {

// Counts how many windows of the test were really windowsDestroyed.
int windowsDestroyed = 0;

class CountedWindow : public Window {
public:
    explicit CountedWindow(QWidget* parent = nullptr) : Window(100, 80, parent) {}
    ~CountedWindow() override { ++windowsDestroyed; }
};

} // namespace

class ShutdownTest : public QObject {
    Q_OBJECT
private slots:
    void windowsGoWithTheApplication();
};

void ShutdownTest::windowsGoWithTheApplication() {
    int argc = 1;
    char name[] = "test_fw_shutdown";
    char* argv[] = {name, nullptr};
    QPointer<Window> shown, hidden, owned;
    {
        Application app(argc, argv);
        shown = new CountedWindow;
        shown->show();
        hidden = new CountedWindow;
        hidden->show();
        hidden->hide();
        // A window that another window owns goes with its owner, once.
        owned = new CountedWindow(hidden);
        owned->setWindowFlag(Qt::Dialog);
        owned->show();
        QVERIFY(QTest::qWaitForWindowExposed(owned));
    }
    QVERIFY(shown.isNull());
    QVERIFY(hidden.isNull());
    QVERIFY(owned.isNull());
    QCOMPARE(windowsDestroyed, 3);
}

QTEST_APPLESS_MAIN(ShutdownTest)
#include "test_fw_shutdown.moc"
