// The framework alone: the Edit items of the menu bar and failures in handlers.
#include "tests/QtTestMain.hpp"

#include "engine/FileError.hpp"
#include "framework/Application.hpp"
#include "framework/Canvas.hpp"
#include "framework/Dialogs.hpp"
#include "framework/MenuBar.hpp"
#include "framework/OneShotTimer.hpp"
#include "framework/PictureFile.hpp"
#include "framework/PushButton.hpp"
#include "framework/TextArea.hpp"
#include "framework/TextField.hpp"
#include "framework/Window.hpp"

#include <QClipboard>
#include <QTemporaryDir>

using namespace tovarin::fw;

class FrameworkTest : public QObject {
    Q_OBJECT
    const std::pair<const char*, ItemKind> edits_[6] = {
        {"EditUndo", ItemKind::Undo},    {"EditCut", ItemKind::Cut},
        {"EditCopy", ItemKind::Copy},    {"EditPaste", ItemKind::Paste},
        {"EditClear", ItemKind::Delete}, {"EditSelectAll", ItemKind::SelectAll}};
    std::unique_ptr<MenuBar> bar_;
    Window* window_ = nullptr;
    TextField* field_ = nullptr;
    TextArea* area_ = nullptr;

private slots:
    // Each test, and each row, starts from a new bar and a new window with a field and an area.
    void init() {
        delete window_;
        bar_ = std::make_unique<MenuBar>();
        bar_->addMenu("EditMenu", "&Edit");
        for (const auto& [item, kind] : edits_)
            bar_->addItem("EditMenu", item, item, {}, kind);
        window_ = new Window(400, 300);
        field_ = new TextField(window_->content());
        area_ = new TextArea(window_->content());
        area_->move(0, 60);
        bar_->installOn(*window_);
        window_->showWindow();
        QVERIFY(QTest::qWaitForWindowActive(window_));
        QGuiApplication::clipboard()->clear();
    }

    // The focused control enables the Edit items by its state: "abc" typed (t),
    // "c" selected (s), "xy" on the clipboard (p); shown as the letters of Undo,
    // Cut, Copy, Paste, Delete, Select All. An item then acts on that control,
    // which leaves its text and the clipboard, and Select All selects it all.
    void editItems() {
        const std::tuple<QString, QString, const char*, QString> rows[] = {
            {"", "......", "", ""},
            {"t", "U....A", "", ""},
            {"ts", "UXC.DA", "", ""},
            {"p", "...P..", "", ""},
            {"tsp", "UXCPDA", "EditUndo", "|xy"},
            {"tsp", "UXCPDA", "EditCut", "ab|c"},
            {"tsp", "UXCPDA", "EditCopy", "abc|c"},
            {"tsp", "UXCPDA", "EditPaste", "abxy|xy"},
            {"tsp", "UXCPDA", "EditClear", "ab|xy"}};
        for (const bool inArea : {false, true}) {
            for (const auto& [state, enabled, item, after] : rows) {
                init();
                QWidget* target = inArea ? static_cast<QWidget*>(area_) : field_;
                target->setFocus();
                QTRY_COMPARE(QApplication::focusWidget(), target);
                if (state.contains(u'p'))
                    QGuiApplication::clipboard()->setText("xy");
                if (state.contains(u't'))
                    QTest::keyClicks(target, "abc");
                if (state.contains(u's'))
                    QTest::keyClick(target, Qt::Key_Left, Qt::ShiftModifier);
                QString actual;
                for (const auto& [name, kind] : edits_)
                    actual += bar_->item(name)->isEnabled() ? QChar(u"UXCPDA"[actual.size()])
                                                            : QChar(u'.');
                if (*item) {
                    bar_->item(item)->trigger();
                    const QString text = inArea ? area_->toPlainText() : field_->text();
                    actual += " " + text + "|" + QGuiApplication::clipboard()->text();
                    bar_->item("EditSelectAll")->trigger();
                    QCOMPARE(inArea ? area_->textCursor().selectedText() : field_->selectedText(),
                             text);
                }
                const QString row =
                    QString(inArea ? "area " : "field ") + state + " " + item + ": ";
                QCOMPARE(row + actual, row + enabled + (*item ? " " + after : ""));
            }
        }
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
                    QVERIFY(
                        window_->handleMenuItem("InfoItem")); // a failed handler counts as handled
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
