// The main window as it opens: its controls, where they stand and how they look.
#include "UiTestMain.hpp"
#include "WindowFixture.hpp"

#include "app/Pictures.hpp"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QRegularExpressionValidator>

using namespace tovarin;

namespace {

QString systemFamily() {
    return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
}

QRect windowGeometry(const ControlWnd& window, const QWidget& control) {
    return QRect(control.mapTo(window.content(), QPoint(0, 0)), control.size());
}

} // namespace

class ControlWndLayoutTest : public QObject {
    Q_OBJECT

private slots:
    void window() {
        ControlWnd& w = testing::freshControlWnd();
        QCOMPARE(w.windowTitle(), QStringLiteral("Velmoran"));
        QCOMPARE(w.content()->size(), QSize(700, 600));
        QCOMPARE(w.minimumSize(), w.maximumSize());
        const Qt::WindowFlags flags = w.windowFlags();
        QVERIFY(!(flags & Qt::WindowMaximizeButtonHint));
        QVERIFY(!(flags & Qt::WindowFullscreenButtonHint));
        QVERIFY(flags & Qt::WindowMinimizeButtonHint);
        QVERIFY(flags & Qt::WindowCloseButtonHint);
        QCOMPARE(w.content()->palette().color(QPalette::Window), QColor(Qt::white));
        QVERIFY(w.content()->autoFillBackground());
        QCOMPARE(QApplication::focusWidget(), w.pFld());
    }

    void controls_data() {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QString>("parentName");
        QTest::addColumn<QRect>("geometry");
        QTest::addColumn<bool>("visible");
        QTest::addColumn<int>("fontSize");
        QTest::addColumn<bool>("bold");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<bool>("tabStop");

        const QString none;
        // clang-format off
        QTest::newRow("pFld") << "tovarin::fw::TextField" << none << QRect(235, 165, 50, 22)
                              << true << 12 << false << none << true;
        QTest::newRow("clearBtn") << "tovarin::fw::PushButton" << none << QRect(300, 530, 100, 50)
                                  << true << 12 << false << "Clear" << false;
        QTest::newRow("helpBtn") << "tovarin::fw::PushButton" << none << QRect(554, 531, 100, 50)
                                 << true << 12 << false << "Information" << false;
        QTest::newRow("calcBtn") << "tovarin::fw::PushButton" << none << QRect(45, 530, 125, 50)
                                 << true << 12 << false << "Load Data File" << false;
        QTest::newRow("ResultsFld") << "tovarin::fw::TextArea" << none << QRect(50, 193, 600, 325)
                                    << false << 12 << false << none << false;
        QTest::newRow("Canvas1") << "tovarin::fw::Canvas" << none << QRect(-3, 0, 935, 90)
                                 << true << 0 << false << none << false;
        QTest::newRow("Label1") << "tovarin::fw::Label" << "Canvas1" << QRect(401, 35, 127, 20)
                                << true << 9 << false << "The Tovarin developers" << false;
        QTest::newRow("NumFld") << "tovarin::fw::Label" << none << QRect(50, 165, 184, 22)
                                << true << 14 << true << "Number of Models (2-99):" << false;
        // clang-format on
    }

    void controls() {
        QFETCH(QString, className);
        QFETCH(QString, parentName);
        QFETCH(QRect, geometry);
        QFETCH(bool, visible);
        QFETCH(int, fontSize);
        QFETCH(bool, bold);
        QFETCH(QString, caption);
        QFETCH(bool, tabStop);

        ControlWnd& w = testing::freshControlWnd();
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        auto* control = w.control<QWidget>(name);
        QVERIFY(control);
        QCOMPARE(QString::fromLatin1(control->metaObject()->className()), className);
        QWidget* expectedParent =
            parentName.isEmpty() ? w.content() : w.control<QWidget>(parentName);
        QCOMPARE(control->parentWidget(), expectedParent);
        QCOMPARE(windowGeometry(w, *control), geometry);
        QCOMPARE(control->isVisible(), visible);
        QCOMPARE(bool(control->focusPolicy() & Qt::TabFocus), tabStop);
        if (fontSize > 0) {
            QCOMPARE(control->font().family(), systemFamily());
            QCOMPARE(control->font().pixelSize(), fontSize);
            QCOMPARE(control->font().bold(), bold);
        }
        if (auto* button = qobject_cast<QPushButton*>(control)) {
            QCOMPARE(button->text(), caption);
            // Return must start nothing, so no button may be the default one.
            QVERIFY(!button->isDefault());
            QVERIFY(!button->autoDefault());
            QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        }
        if (auto* label = qobject_cast<QLabel*>(control)) {
            QCOMPARE(label->text(), caption);
            QVERIFY(QFontMetrics(label->font()).horizontalAdvance(label->text()) <=
                    geometry.width());
        }
    }

    // Creation order is stacking order, back to front.
    void zOrder() {
        ControlWnd& w = testing::freshControlWnd();
        QStringList order;
        for (QObject* child : w.content()->children()) {
            if (child->isWidgetType())
                order.append(child->objectName());
        }
        QCOMPARE(order, QStringList({"pFld", "clearBtn", "helpBtn", "calcBtn", "ResultsFld",
                                     "Canvas1", "NumFld"}));
        const QPoint onLabel = w.Label1()->mapTo(w.content(), w.Label1()->rect().center());
        QCOMPARE(w.content()->childAt(onLabel), w.Label1());
    }

    void fieldsAndLabels() {
        ControlWnd& w = testing::freshControlWnd();
        fw::TextField& count = *w.pFld();
        QCOMPARE(count.text(), QString());
        QCOMPARE(count.alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
        QCOMPARE(count.maxLength(), 2);
        QVERIFY(count.validator());
        QString text = QStringLiteral("12");
        int at = 0;
        QCOMPARE(count.validator()->validate(text, at), QValidator::Acceptable);
        text = QStringLiteral("1a");
        QCOMPARE(count.validator()->validate(text, at), QValidator::Invalid);

        fw::TextArea& results = *w.ResultsFld();
        QCOMPARE(results.toPlainText(), QString());
        QVERIFY(!results.isReadOnly());
        QVERIFY(!results.acceptRichText());
        QVERIFY(results.tabChangesFocus());
        QCOMPARE(results.alignment() & Qt::AlignHorizontal_Mask, Qt::AlignLeft);

        fw::Label& author = *w.Label1();
        QCOMPARE(author.palette().color(QPalette::WindowText), QColor(0xFD, 0xCC, 0x65));
        QVERIFY(!author.autoFillBackground());
        QCOMPARE(author.alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
        fw::Label& caption = *w.NumFld();
        QCOMPARE(caption.palette().color(QPalette::WindowText), QColor(Qt::black));
        QCOMPARE(caption.alignment() & Qt::AlignHorizontal_Mask, Qt::AlignLeft);

        QVERIFY(!Tovarinbanner().isNull());
        QCOMPARE(w.Canvas1()->backdrop().toImage(), Tovarinbanner().toImage());
    }
};

TOVARIN_UI_TEST_MAIN(ControlWndLayoutTest)
#include "test_controlwnd_layout.moc"
