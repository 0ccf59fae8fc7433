#include "FrameworkTestMain.hpp"

#include "framework/Canvas.hpp"
#include "framework/KeyCode.hpp"
#include "framework/PushButton.hpp"
#include "framework/TextArea.hpp"
#include "framework/TextField.hpp"

#include <QClipboard>
#include <QDialog>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTimer>
#include <QWindow>

using namespace tovarin::fw;

namespace {

// '*' for each bold character of the area, '.' for the rest; a line end counts as one '.'.
QString boldMap(const TextArea& area) {
    QString map;
    for (QTextBlock block = area.document()->begin(); block.isValid(); block = block.next()) {
        if (block != area.document()->begin())
            map.append(u'.');
        for (auto it = block.begin(); !it.atEnd(); ++it)
            map.append(
                QString(it.fragment().length(),
                        it.fragment().charFormat().fontWeight() >= QFont::Bold ? u'*' : u'.'));
    }
    return map;
}

} // namespace

class ControlsTest : public QObject {
    Q_OBJECT
private slots:
    void keyCodes_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("expected");
        const int none = Qt::NoModifier, shift = Qt::ShiftModifier, ctrl = Qt::ControlModifier;
        const int keypad = Qt::KeypadModifier;
        constexpr int typesNothing = 0x110000;
        QTest::newRow("backspace") << int(Qt::Key_Backspace) << none << "\b" << 8;
        QTest::newRow("tab") << int(Qt::Key_Tab) << none << "\t" << 9;
        QTest::newRow("shift tab") << int(Qt::Key_Backtab) << shift << "" << 9;
        QTest::newRow("return") << int(Qt::Key_Return) << none << "\r" << 13;
        QTest::newRow("enter") << int(Qt::Key_Enter) << keypad << "\r" << 13;
        QTest::newRow("left") << int(Qt::Key_Left) << none << "" << 28;
        QTest::newRow("right") << int(Qt::Key_Right) << none << "" << 29;
        QTest::newRow("up") << int(Qt::Key_Up) << none << "" << 30;
        QTest::newRow("down") << int(Qt::Key_Down) << none << "" << 31;
        QTest::newRow("forward delete") << int(Qt::Key_Delete) << none << "" << 127;
        QTest::newRow("keypad digit") << int(Qt::Key_7) << keypad << "7" << int('7');
        QTest::newRow("capital") << int(Qt::Key_A) << shift << "A" << int('A');
        QTest::newRow("e acute") << int(Qt::Key_Eacute) << none << "é" << 0xE9;
        QTest::newRow("unnamed key") << int(Qt::Key_unknown) << none << "ß" << 0xDF;
        QTest::newRow("emoji") << int(Qt::Key_A) << none << QString::fromUcs4(U"\U0001F600")
                               << 0x1F600;
        QTest::newRow("escape") << int(Qt::Key_Escape) << none << "\x1b" << typesNothing;
        QTest::newRow("F1") << int(Qt::Key_F1) << none << "" << typesNothing;
        QTest::newRow("shift alone") << int(Qt::Key_Shift) << shift << "" << -1;
        QTest::newRow("copy") << int(Qt::Key_C) << ctrl << "\x03" << -1;
        QTest::newRow("paste") << int(Qt::Key_V) << ctrl << "\x16" << -1;
        QTest::newRow("cut") << int(Qt::Key_X) << ctrl << "\x18" << -1;
        QTest::newRow("undo") << int(Qt::Key_Z) << ctrl << "\x1a" << -1;
        QTest::newRow("select all") << int(Qt::Key_A) << ctrl << "\x01" << -1;
        QTest::newRow("quit") << int(Qt::Key_Q) << ctrl << "\x11" << -1;
    }
    void keyCodes() {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QString, text);
        QFETCH(int, expected);
        const QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
        QCOMPARE(keyCode(event), expected);
    }

    // Each row appends its pieces, setting a bold range after the first; the
    // copy of all of it has "\n" line ends whatever ends the pieces had.
    void textArea_data() {
        QTest::addColumn<QStringList>("pieces");
        QTest::addColumn<qint64>("boldStart"); // counted from 1
        QTest::addColumn<qint64>("boldLength");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("bold");
        const auto plain = [](const char* name, const QStringList& pieces, const QString& shown) {
            QTest::newRow(name) << pieces << 0ll << 0ll << shown << QString(shown.size(), u'.');
        };
        const auto bold = [](const char* name, qint64 start, qint64 length, const char* map) {
            QTest::newRow(name) << QStringList{"Hello\rWorld", "\r!"} << start << length
                                << "Hello\nWorld\n!" << map;
        };
        plain("CR", {"a\rb"}, "a\nb");
        plain("LF", {"a\nb"}, "a\nb");
        plain("CR LF is one line end", {"a\r\nb"}, "a\nb");
        plain("LF CR is two", {"a\n\rb"}, "a\n\nb");
        plain("pieces join", {"Tov", "arin\r", "1", "\r"}, "Tovarin\n1\n");
        bold("bold first word", 1, 5, "*****........");
        bold("bold across the line end", 4, 4, "...**.*......");
        bold("bold past the end is clipped", 1, 100, "*****.*****..");
        bold("bold start past the end", 30, 5, ".............");
    }
    void textArea() {
        QFETCH(QStringList, pieces);
        QFETCH(qint64, boldStart);
        QFETCH(qint64, boldLength);
        QFETCH(QString, shown);
        QFETCH(QString, bold);
        TextArea area;
        for (const QString& piece : pieces) {
            area.appendPlain(piece);
            if (&piece == &pieces.front() && boldLength > 0)
                area.setBold(boldStart, boldLength);
        }
        QCOMPARE(area.toPlainText(), shown);
        QCOMPARE(area.document()->blockCount(), shown.count(u'\n') + 1); // no soft line breaks
        QCOMPARE(boldMap(area), bold);
        area.selectAll();
        area.copy();
        QCOMPARE(QGuiApplication::clipboard()->text(), shown);
    }

    // The handler sees each typed key and may swallow it; the edit shortcuts pass it by.
    void keyHandlerDecidesWhetherTheKeyGoesOn_data() {
        QTest::addColumn<bool>("consume");
        QTest::newRow("handler passes") << false;
        QTest::newRow("handler consumes") << true;
    }
    void keyHandlerDecidesWhetherTheKeyGoesOn() {
        QFETCH(bool, consume);
        QList<int> seen;
        const KeyHandler handler = [&](int code) { return seen.append(code), consume; };
        TextField field;
        TextArea area;
        field.setKeyDownHandler(handler);
        area.setKeyDownHandler(handler);
        field.setText("abc");
        area.setPlainText("abc");
        for (QWidget* control : {static_cast<QWidget*>(&field), static_cast<QWidget*>(&area)}) {
            QGuiApplication::clipboard()->clear();
            QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(control, Qt::Key_C, Qt::ControlModifier);
            QCOMPARE(QGuiApplication::clipboard()->text(), "abc");
            QTest::keyClick(control, Qt::Key_X);
        }
        QCOMPARE(seen, (QList<int>{'x', 'x'}));
        QCOMPARE(field.text(), consume ? "abc" : "x");
        QCOMPARE(area.toPlainText(), consume ? "abc" : "x");
    }

    void pushButtonActsOnPress_data() {
        QTest::addColumn<bool>("takeOver");
        QTest::addColumn<bool>("runsModalDialog");
        QTest::addColumn<bool>("downAfterPress");
        QTest::addColumn<int>("clicks");
        QTest::newRow("handler declines") << false << false << true << 1;
        QTest::newRow("handler takes the press over") << true << false << false << 0;
        // The file chooser: the user lets go of the mouse inside the dialog.
        QTest::newRow("handler's modal dialog gets the release") << false << true << false << 0;
    }
    void pushButtonActsOnPress() {
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
        // Through the window, as the platform delivers them, so the application
        // knows which mouse buttons are held.
        const QPoint inWindow = button->mapTo(&window, QPoint(30, 20));
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, inWindow);
        QCOMPARE(pressedAt, QPoint(30, 20)); // the work is done at the press
        QCOMPARE(button->isDown(), downAfterPress);
        if (!runsModalDialog)
            QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, inWindow);
        QCOMPARE(clicked, clicks);
        QVERIFY(!button->isDown());
    }

    void canvasAsksItsPictureSourceOnceAtFirstPaint() {
        QPixmap picture(8, 8);
        picture.fill(Qt::red);
        int asked = 0;
        Canvas canvas;
        canvas.resize(16, 16);
        canvas.setBackdropSource([&] { return ++asked, picture; });
        QCOMPARE(asked, 0);
        const QImage frame = canvas.grab().toImage(); // the first frame shows the picture
        QCOMPARE(frame.pixelColor(2, 2), QColor(Qt::red));
        QVERIFY(frame.pixelColor(12, 12) != QColor(Qt::red));
        canvas.grab();
        QCOMPARE(asked, 1);
    }
};

TOVARIN_FRAMEWORK_TEST_MAIN(ControlsTest)
#include "test_fw_controls.moc"
