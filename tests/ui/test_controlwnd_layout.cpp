// The main window as it opens: its property table, control by control.
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include <QFontDatabase>
#include <QFontMetrics>

using namespace tovarin;

class ControlWndLayoutTest : public QObject {
    Q_OBJECT

private slots:
    void controls_data() {
        QTest::addColumn<QRect>("geometry");
        QTest::addColumn<bool>("visible");
        QTest::addColumn<int>("fontSize"); // 0: no text of its own
        QTest::addColumn<bool>("bold");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<bool>("tabStop");
        QTest::addColumn<int>("align"); // horizontal alignment, 0: none to check
        QTest::addColumn<QColor>("colour");

        const QString none;
        const int centre = Qt::AlignHCenter, left = Qt::AlignLeft;
        // clang-format off
        QTest::newRow("pFld") << QRect(235, 165, 50, 22) << true << 12 << false << none << true
                              << centre << QColor();
        QTest::newRow("clearBtn") << QRect(300, 530, 100, 50) << true << 12 << false << "Clear"
                                  << false << 0 << QColor();
        QTest::newRow("helpBtn") << QRect(554, 531, 100, 50) << true << 12 << false
                                 << "Information" << false << 0 << QColor();
        QTest::newRow("calcBtn") << QRect(45, 530, 125, 50) << true << 12 << false
                                 << "Load Data File" << false << 0 << QColor();
        QTest::newRow("ResultsFld") << QRect(50, 193, 600, 325) << false << 12 << false << none
                                    << false << left << QColor();
        QTest::newRow("Canvas1") << QRect(-3, 0, 935, 90) << true << 0 << false << none << false
                                 << 0 << QColor();
        QTest::newRow("Label1") << QRect(401, 35, 127, 20) << true << 9 << false
                                << "The Tovarin developers" << false << centre
                                << QColor(0xFD, 0xCC, 0x65);
        QTest::newRow("NumFld") << QRect(50, 165, 184, 22) << true << 14 << true
                                << "Number of Models (2-99):" << false << left << QColor(Qt::black);
        // clang-format on
    }

    void controls() {
        QFETCH(QRect, geometry);
        QFETCH(bool, visible);
        QFETCH(int, fontSize);
        QFETCH(bool, bold);
        QFETCH(QString, caption);
        QFETCH(bool, tabStop);
        QFETCH(int, align);
        QFETCH(QColor, colour);

        ControlWnd& w = testing::freshControlWnd();
        QCOMPARE(w.windowTitle(), QStringLiteral("Velmoran"));
        QCOMPARE(w.content()->size(), QSize(700, 600));
        QCOMPARE(w.minimumSize(), w.maximumSize());
        QVERIFY(!(w.windowFlags() & Qt::WindowMaximizeButtonHint));
        QCOMPARE(w.content()->palette().color(QPalette::Window), QColor(Qt::white));
        QCOMPARE(QApplication::focusWidget(), w.pFld());

        auto* control = w.control<QWidget>(QString::fromLatin1(QTest::currentDataTag()));
        QVERIFY(control);
        QCOMPARE(QRect(control->mapTo(w.content(), QPoint(0, 0)), control->size()), geometry);
        QCOMPARE(control->isVisible(), visible);
        QCOMPARE(bool(control->focusPolicy() & Qt::TabFocus), tabStop);
        if (fontSize > 0) {
            QCOMPARE(control->font().family(),
                     QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
            QCOMPARE(control->font().pixelSize(), fontSize);
            QCOMPARE(control->font().bold(), bold);
        }
        if (colour.isValid())
            QCOMPARE(control->palette().color(QPalette::WindowText), colour);
        if (auto* button = qobject_cast<QPushButton*>(control)) {
            QCOMPARE(button->text(), caption);
            // Return must start nothing, so no button may be the default one.
            QVERIFY(!button->isDefault() && !button->autoDefault());
        } else if (auto* label = qobject_cast<QLabel*>(control)) {
            QCOMPARE(label->text(), caption);
            QVERIFY(QFontMetrics(label->font()).horizontalAdvance(caption) <= geometry.width());
            QCOMPARE(int(label->alignment() & Qt::AlignHorizontal_Mask), align);
            // Over the banner, not hidden behind it.
            const QPoint middle = control->mapTo(w.content(), control->rect().center());
            QCOMPARE(w.content()->childAt(middle), control);
        } else if (auto* field = qobject_cast<QLineEdit*>(control)) {
            QCOMPARE(int(field->alignment() & Qt::AlignHorizontal_Mask), align);
            QCOMPARE(field->text(), QString());
        } else if (auto* area = qobject_cast<QTextEdit*>(control)) {
            QCOMPARE(int(area->alignment() & Qt::AlignHorizontal_Mask), align);
            QVERIFY(!area->isReadOnly() && !area->acceptRichText());
        } else if (auto* canvas = qobject_cast<fw::Canvas*>(control)) {
            QVERIFY(!canvas->backdrop().isNull());
        }
    }
};

TOVARIN_UI_TEST_MAIN(ControlWndLayoutTest)
#include "test_controlwnd_layout.moc"
