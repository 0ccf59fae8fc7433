#include "AppTestMain.hpp"

#include "framework/Canvas.hpp"
#include "framework/Dialogs.hpp"
#include "ui/AppPictures.hpp"
#include "ui/main/ControlWnd.hpp"
#include "ui/secondary/AboutWnd.hpp"

#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>

using namespace tovarin;

namespace {

QTemporaryDir& pictureFolder() {
    static QTemporaryDir folder;
    return folder;
}

} // namespace

class MissingPicturesTest : public QObject {
    Q_OBJECT

    QStringList messages_;

private slots:
    void runsWithEmptyCanvasesAndNoMessage() {
        QVERIFY(pictureFolder().isValid());
        fw::setMessageBoxHandler([this](const QString& text) { messages_ << text; });
        fw::setUnhandledFailureHandler([this](const QString& why) { messages_ << why; });
        LateStartup();
        AboutWnd& about = fw::instance<AboutWnd>();
        QVERIFY(QTest::qWaitForWindowExposed(&about));
        QVERIFY(about.control<fw::Canvas>("Canvas2")->backdrop().isNull());
        QTest::mouseClick(&about, Qt::LeftButton);
        ControlWnd* main = fw::openInstance<ControlWnd>();
        QVERIFY(main && main->isVisible() && !about.isVisible());
        QVERIFY(main->control<fw::Canvas>("Canvas1")->backdrop().isNull());
        QCOMPARE(messages_, QStringList());
        for (QWidget* w : QApplication::topLevelWidgets())
            QVERIFY(!qobject_cast<QMessageBox*>(w) || !w->isVisible());
    }

    void pictureIsReadOnceFound() {
        QVERIFY(Icon256().isNull()); // still absent: asked again, still nothing
        const QString copy = pictureFolder().filePath("Icon256.png");
        QVERIFY(QFile::copy(QStringLiteral(TOVARIN_TEST_PICTURES "/Icon256.png"), copy));
        const QPixmap found = Icon256(); // a null read is retried
        QCOMPARE(found.size(), QSize(256, 256));
        QVERIFY(QFile::remove(copy));
        // Once read, the picture is shared: the file is not looked at again.
        QCOMPARE(Icon256().cacheKey(), found.cacheKey());
    }
};

TOVARIN_APP_TEST_MAIN(MissingPicturesTest, pictureFolder().path())
#include "test_app_missing_pictures.moc"
