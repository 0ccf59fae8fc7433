#include "FrameworkTestMain.hpp"

#include "framework/Controls.hpp"

#include <QKeyEvent>

using tovarin::fw::keyCode;

class KeyCodeTest : public QObject {
    Q_OBJECT
private slots:
    void mapsKeys_data();
    void mapsKeys();
};

void KeyCodeTest::mapsKeys_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");

    const int none = Qt::NoModifier;
    const int shift = Qt::ShiftModifier;
    const int ctrl = Qt::ControlModifier;
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
    QTest::newRow("space") << int(Qt::Key_Space) << none << " " << 32;
    QTest::newRow("digit") << int(Qt::Key_5) << none << "5" << int('5');
    QTest::newRow("keypad digit") << int(Qt::Key_7) << keypad << "7" << int('7');
    QTest::newRow("letter") << int(Qt::Key_A) << none << "a" << int('a');
    QTest::newRow("capital") << int(Qt::Key_A) << shift << "A" << int('A');
    QTest::newRow("tilde") << int(Qt::Key_AsciiTilde) << shift << "~" << int('~');
    QTest::newRow("period") << int(Qt::Key_Period) << none << "." << int('.');
    QTest::newRow("e acute") << int(Qt::Key_Eacute) << none << "é" << 0xE9;
    QTest::newRow("unnamed key typing text") << int(Qt::Key_unknown) << none << "ß" << 0xDF;
    QTest::newRow("emoji text") << int(Qt::Key_A) << none << QString::fromUcs4(U"\U0001F600")
                                << 0x1F600;
    QTest::newRow("escape") << int(Qt::Key_Escape) << none << "\x1b" << typesNothing;
    QTest::newRow("F1") << int(Qt::Key_F1) << none << "" << typesNothing;
    QTest::newRow("home") << int(Qt::Key_Home) << none << "" << typesNothing;
    QTest::newRow("ctrl B") << int(Qt::Key_B) << ctrl << "\x02" << typesNothing;
    QTest::newRow("shift alone") << int(Qt::Key_Shift) << shift << "" << -1;
    QTest::newRow("control alone") << int(Qt::Key_Control) << ctrl << "" << -1;
    QTest::newRow("alt alone") << int(Qt::Key_Alt) << int(Qt::AltModifier) << "" << -1;
    QTest::newRow("copy") << int(Qt::Key_C) << ctrl << "\x03" << -1;
    QTest::newRow("paste") << int(Qt::Key_V) << ctrl << "\x16" << -1;
    QTest::newRow("cut") << int(Qt::Key_X) << ctrl << "\x18" << -1;
    QTest::newRow("undo") << int(Qt::Key_Z) << ctrl << "\x1a" << -1;
    QTest::newRow("select all") << int(Qt::Key_A) << ctrl << "\x01" << -1;
    QTest::newRow("quit") << int(Qt::Key_Q) << ctrl << "\x11" << -1;
}

void KeyCodeTest::mapsKeys() {
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    QFETCH(int, expected);
    const QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
    QCOMPARE(keyCode(event), expected);
}

TOVARIN_FRAMEWORK_TEST_MAIN(KeyCodeTest)
#include "test_fw_keycode.moc"
