// The framework alone: pictures for each screen density and failures in handlers.
#include "tests/QtTestMain.hpp"

#include "engine/FileError.hpp"
#include "framework/Application.hpp"
#include "framework/Canvas.hpp"
#include "framework/Dialogs.hpp"
#include "framework/OneShotTimer.hpp"
#include "framework/PictureFile.hpp"
#include "framework/PushButton.hpp"
#include "framework/TextArea.hpp"
#include "framework/TextField.hpp"
#include "framework/Window.hpp"

#include <QTemporaryDir>

using namespace tovarin::fw;

class FrameworkTest : public QObject {
    Q_OBJECT
    Window* window_ = nullptr;
    TextField* field_ = nullptr;
    TextArea* area_ = nullptr;

private slots:
    // Each test starts from a new window with a field and an area.
    void init() {
        delete window_;
        window_ = new Window(400, 300);
        field_ = new TextField(window_->content());
        area_ = new TextArea(window_->content());
        area_->move(0, 60);
        window_->showWindow();
        QVERIFY(QTest::qWaitForWindowActive(window_));
    }

    // A canvas draws the picture made for its screen: the plain one at one device pixel to the
    // unit, the @2x version above that, sharp at its own pixels (a picture without one is scaled
    // up). Run at scale 1 and, as its own test, at 1.5 and 2 (QT_SCALE_FACTOR).
    void backdropForTheScreen() {
        QTemporaryDir folder;
        const auto write = [&](const char* name, QSize size, Qt::GlobalColor colour) {
            QImage picture(size, QImage::Format_RGB32);
            picture.fill(colour);
            QVERIFY(picture.save(folder.filePath(name)));
        };
        write("Both.png", {6, 4}, Qt::red);
        write("Both@2x.png", {12, 8}, Qt::blue);
        write("Plain.png", {6, 4}, Qt::green);
        setPictureFolder(folder.path());
        for (const auto& [name, sharp] :
             {std::pair{"Both.png", Qt::blue}, {"Plain.png", Qt::green}}) {
            Canvas canvas(window_->content());
            canvas.setGeometry(0, 0, 6, 4);
            canvas.setBackdrop(
                [name = QString(name)](qreal ratio) { return openPictureFromApp(name, ratio); });
            const qreal ratio = canvas.devicePixelRatioF();
            const QImage shown = canvas.grab().toImage();
            QCOMPARE(shown.size(), QSize(qRound(6 * ratio), qRound(4 * ratio)));
            QCOMPARE(shown.pixelColor(shown.width() / 2, shown.height() / 2),
                     QColor(ratio > 1                           ? sharp
                            : name == QLatin1String("Both.png") ? Qt::red
                                                                : Qt::green));
            QCOMPARE(canvas.backdrop().deviceIndependentSize(), QSizeF(6, 4));
        }
        setPictureFolder({});
    }

    // A failure in any handler is reported with its reason, a key goes no
    // further, and the application goes on (the second turn).
    void failureInAHandlerIsReported() {
        auto* button = new PushButton(window_->content());
        QStringList reported;
        setUnhandledFailureHandler([&](const QString& why) { reported << why; });
        for (const QString where : {"button", "field", "area", "menu", "timer", "foreign"}) {
            const auto fail = [foreign = where == "foreign"]() -> bool {
                if (foreign)
                    throw 42;
                throw tovarin::FileError("/nowhere/m.txt", "Gone");
            };
            button->setMouseDownHandler([=](int, int) { return fail(); });
            field_->setKeyDownHandler([=](int) { return fail(); });
            area_->setKeyDownHandler([=](int) { return fail(); });
            window_->addMenuHandler("InfoItem", fail);
            for (int turn = 1; turn <= 2; ++turn) {
                reported.clear();
                if (where == "menu")
                    QVERIFY(window_->handleMenuItem("InfoItem")); // a failure counts as handled
                else if (where == "timer")
                    new OneShotTimer(
                        1, [=] { fail(); }, window_);
                else if (where == "button")
                    QTest::mouseClick(button, Qt::LeftButton);
                else
                    QTest::keyClick(where == "field" ? static_cast<QWidget*>(field_) : area_,
                                    Qt::Key_X);
                QTRY_COMPARE(reported, QStringList(where == "foreign"
                                                       ? "An unknown failure occurred."
                                                       : "Cannot read \"/nowhere/m.txt\": Gone"));
            }
        }
        QVERIFY(field_->text().isEmpty() && area_->toPlainText().isEmpty());
        setUnhandledFailureHandler({});
    }
};

TOVARIN_QT_TEST_MAIN(FrameworkTest, tovarin::fw::Application app(argc, argv), void())
#include "test_framework.moc"
