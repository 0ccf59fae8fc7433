#include "FrameworkTestMain.hpp"

#include "framework/Controls.hpp"

#include <QClipboard>
#include <QDialog>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimer>
#include <QWindow>

using namespace tovarin::fw;

namespace {

// The characters of the area that are bold, as a string of the same length
// with '*' where bold and '.' elsewhere; a line end counts as one character
// and always shows as '.', since it has no look of its own.
QString boldMap(const TextArea& area) {
    QString map;
    for (QTextBlock block = area.document()->begin(); block.isValid(); block = block.next()) {
        if (block != area.document()->begin())
            map.append(u'.');
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const bool bold = fragment.charFormat().fontWeight() >= QFont::Bold;
            map.append(QString(fragment.length(), bold ? u'*' : u'.'));
        }
    }
    return map;
}

} // namespace

class ControlsTest : public QObject {
    Q_OBJECT
private slots:
    void appendPlainStartsLinesAtEveryLineEnd_data();
    void appendPlainStartsLinesAtEveryLineEnd();
    void appendPlainKeepsExistingTextAndStyle();
    void setBoldCountsFromOne_data();
    void setBoldCountsFromOne();
    void copyGivesThePlatformLineEnds();
    void keyHandlerDecidesWhetherTheKeyGoesOn_data();
    void keyHandlerDecidesWhetherTheKeyGoesOn();
    void editShortcutsNeverReachTheHandler();
    void pushButtonActsOnPress_data();
    void pushButtonActsOnPress();
    void oneShotTimerFiresOnce();
    void canvasAsksItsPictureSourceOnceAtFirstPaint_data();
    void canvasAsksItsPictureSourceOnceAtFirstPaint();
};

void ControlsTest::appendPlainStartsLinesAtEveryLineEnd_data() {
    QTest::addColumn<QStringList>("pieces");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("lines");

    QTest::newRow("CR") << QStringList{"a\rb"} << "a\nb" << 2;
    QTest::newRow("LF") << QStringList{"a\nb"} << "a\nb" << 2;
    QTest::newRow("CR LF is one line end") << QStringList{"a\r\nb"} << "a\nb" << 2;
    QTest::newRow("LF CR is two") << QStringList{"a\n\rb"} << "a\n\nb" << 3;
    QTest::newRow("trailing line end") << QStringList{"a\r"} << "a\n" << 2;
    QTest::newRow("pieces join") << QStringList{"Tov", "arin\r", "1", "\r"} << "Tovarin\n1\n" << 3;
    QTest::newRow("empty piece") << QStringList{"", "x"} << "x" << 1;
}

void ControlsTest::appendPlainStartsLinesAtEveryLineEnd() {
    QFETCH(QStringList, pieces);
    QFETCH(QString, shown);
    QFETCH(int, lines);
    TextArea area;
    for (const QString& piece : pieces)
        area.appendPlain(piece);
    QCOMPARE(area.toPlainText(), shown);
    QCOMPARE(area.document()->blockCount(), lines);
}

void ControlsTest::appendPlainKeepsExistingTextAndStyle() {
    TextArea area;
    area.appendPlain("Title\rbody");
    area.setBold(1, 5);
    const QTextBlock firstBlock = area.document()->begin();
    area.appendPlain("\rmore");
    // The first line is still the same block: nothing was rebuilt.
    QCOMPARE(area.document()->begin(), firstBlock);
    QCOMPARE(area.toPlainText(), QString("Title\nbody\nmore"));
    QCOMPARE(boldMap(area), QString("*****.........."));
}

void ControlsTest::setBoldCountsFromOne_data() {
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("length");
    QTest::addColumn<QString>("bold");

    QTest::newRow("first word") << qint64(1) << qint64(5) << "*****......";
    QTest::newRow("across the line end") << qint64(4) << qint64(4) << "...**.*....";
    QTest::newRow("second line") << qint64(7) << qint64(3) << "......***..";
    QTest::newRow("past the end is clipped") << qint64(1) << qint64(100) << "*****.*****";
    QTest::newRow("start past the end") << qint64(30) << qint64(5) << "...........";
    QTest::newRow("zero length") << qint64(2) << qint64(0) << "...........";
}

void ControlsTest::setBoldCountsFromOne() {
    QFETCH(qint64, start);
    QFETCH(qint64, length);
    QFETCH(QString, bold);
    TextArea area;
    area.appendPlain("Hello\rWorld");
    area.setBold(start, length);
    QCOMPARE(boldMap(area), bold);
}

void ControlsTest::copyGivesThePlatformLineEnds() {
    TextArea area;
    area.appendPlain("line one\rline two\r\nline three");
    area.selectAll();
    area.copy();
#ifdef Q_OS_WIN
    const QString expected = "line one\r\nline two\r\nline three";
#else
    const QString expected = "line one\nline two\nline three";
#endif
    QCOMPARE(QGuiApplication::clipboard()->text(), expected);
}

void ControlsTest::keyHandlerDecidesWhetherTheKeyGoesOn_data() {
    QTest::addColumn<bool>("area");
    QTest::addColumn<bool>("consume");
    QTest::addColumn<QString>("text");

    QTest::newRow("field, handler passes") << false << false << "x";
    QTest::newRow("field, handler consumes") << false << true << "";
    QTest::newRow("area, handler passes") << true << false << "x";
    QTest::newRow("area, handler consumes") << true << true << "";
}

void ControlsTest::keyHandlerDecidesWhetherTheKeyGoesOn() {
    QFETCH(bool, area);
    QFETCH(bool, consume);
    QFETCH(QString, text);
    QList<int> seen;
    const KeyHandler handler = [&](int code) {
        seen.append(code);
        return consume;
    };
    std::unique_ptr<QWidget> control;
    if (area) {
        auto* textArea = new TextArea;
        textArea->setKeyDownHandler(handler);
        control.reset(textArea);
    } else {
        auto* field = new TextField;
        field->setKeyDownHandler(handler);
        control.reset(field);
    }
    QTest::keyClick(control.get(), Qt::Key_X);
    QCOMPARE(seen, QList<int>{int('x')});
    const QString typed = area ? static_cast<TextArea*>(control.get())->toPlainText()
                               : static_cast<TextField*>(control.get())->text();
    QCOMPARE(typed, text);
}

void ControlsTest::editShortcutsNeverReachTheHandler() {
    TextField field;
    int calls = 0;
    field.setKeyDownHandler([&](int) {
        ++calls;
        return true; // would swallow every key it saw
    });
    field.setText("abc");
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(calls, 0);
    QCOMPARE(field.selectedText(), QString("abc"));
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("abc"));
}

void ControlsTest::pushButtonActsOnPress_data() {
    QTest::addColumn<bool>("takeOver");
    QTest::addColumn<bool>("runsModalDialog");
    QTest::addColumn<bool>("downAfterPress");
    QTest::addColumn<int>("clicks");
    QTest::newRow("handler declines") << false << false << true << 1;
    QTest::newRow("handler takes the press over") << true << false << false << 0;
    // The file chooser: the user lets go of the mouse inside the dialog.
    QTest::newRow("handler's modal dialog gets the release") << false << true << false << 0;
}

void ControlsTest::pushButtonActsOnPress() {
    QFETCH(bool, takeOver);
    QFETCH(bool, runsModalDialog);
    QFETCH(bool, downAfterPress);
    QFETCH(int, clicks);
    QWidget window;
    window.resize(200, 100);
    auto* button = new PushButton(&window);
    button->setGeometry(10, 10, 100, 50);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // Through the window, as the platform delivers them, so the application
    // knows which mouse buttons are held.
    QWindow* const handle = window.windowHandle();
    const QPoint at(30, 20);
    const QPoint inWindow = button->mapTo(&window, at);

    QPoint pressedAt(-1, -1);
    int clicked = 0;
    button->setMouseDownHandler([&](int x, int y) {
        pressedAt = QPoint(x, y);
        if (runsModalDialog) {
            QDialog dialog;
            dialog.resize(120, 120);
            QTimer::singleShot(0, &dialog, [&] {
                QTest::mouseRelease(dialog.windowHandle(), Qt::LeftButton, {}, QPoint(60, 60));
                dialog.accept();
            });
            dialog.exec();
        }
        return takeOver;
    });
    QObject::connect(button, &QPushButton::clicked, [&] { ++clicked; });

    QTest::mousePress(handle, Qt::LeftButton, {}, inWindow);
    // The work is done at the press, before any release.
    QCOMPARE(pressedAt, at);
    QCOMPARE(button->isDown(), downAfterPress);
    if (!runsModalDialog)
        QTest::mouseRelease(handle, Qt::LeftButton, {}, inWindow);
    QCOMPARE(clicked, clicks);
    QVERIFY(!button->isDown());
}

void ControlsTest::oneShotTimerFiresOnce() {
    QObject owner;
    int fired = 0;
    auto* timer = new OneShotTimer(
        20, [&] { ++fired; }, &owner);
    QVERIFY(timer->isActive());
    QTRY_COMPARE(fired, 1);
    QVERIFY(!timer->isActive());
    QCOMPARE(timer->interval(), 20);
}

void ControlsTest::canvasAsksItsPictureSourceOnceAtFirstPaint_data() {
    QTest::addColumn<bool>("hasPicture");
    QTest::newRow("picture") << true;
    QTest::newRow("no picture") << false;
}

void ControlsTest::canvasAsksItsPictureSourceOnceAtFirstPaint() {
    QFETCH(bool, hasPicture);
    QPixmap picture(8, 8);
    picture.fill(Qt::red);
    int asked = 0;
    Canvas canvas;
    canvas.resize(16, 16);
    canvas.setBackdropSource([&] {
        ++asked;
        return hasPicture ? picture : QPixmap();
    });
    QCOMPARE(asked, 0);
    // The first frame already shows the picture.
    QImage frame = canvas.grab().toImage();
    QCOMPARE(asked, 1);
    QCOMPARE(frame.pixelColor(2, 2) == QColor(Qt::red), hasPicture);
    QCOMPARE(frame.pixelColor(12, 12) == QColor(Qt::red), false);
    frame = canvas.grab().toImage();
    QCOMPARE(canvas.backdrop().isNull(), !hasPicture);
    QCOMPARE(asked, 1);
    // A picture set directly replaces the source, which is then never asked.
    canvas.setBackdropSource([&] {
        ++asked;
        return picture;
    });
    canvas.setBackdrop(QPixmap());
    canvas.grab();
    QCOMPARE(asked, 1);
}

TOVARIN_FRAMEWORK_TEST_MAIN(ControlsTest)
#include "test_fw_controls.moc"
