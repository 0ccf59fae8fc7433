// The framework layer alone: the Edit items of the menu bar, failures in
// handlers, the text area's line ends and bold, the push button's press.
#include "tests/QtTestMain.hpp"

#include "engine/FileError.hpp"
#include "framework/Application.hpp"
#include "framework/Dialogs.hpp"
#include "framework/MenuBar.hpp"
#include "framework/OneShotTimer.hpp"
#include "framework/PushButton.hpp"
#include "framework/TextArea.hpp"
#include "framework/TextField.hpp"
#include "framework/Window.hpp"

#include <QClipboard>
#include <QDialog>
#include <QTextBlock>
#include <QTimer>

using namespace tovarin::fw;

class FrameworkTest : public QObject {
    Q_OBJECT
    std::unique_ptr<MenuBar> bar_;
    Window* window_ = nullptr;
    TextField* field_ = nullptr;
    TextArea* area_ = nullptr;

private slots:
    void init() {
        bar_ = std::make_unique<MenuBar>();
        bar_->addMenu("EditMenu", "&Edit");
        for (const char* item : {"EditUndo", "EditCut", "EditCopy", "EditPaste", "EditClear", "EditSelectAll"})
            bar_->addItem("EditMenu", item, item);
        window_ = new Window(400, 300);
        field_ = new TextField(window_->content());
        area_ = new TextArea(window_->content());
        area_->move(0, 60);
        bar_->installOn(*window_);
        window_->showWindow();
        QVERIFY(QTest::qWaitForWindowActive(window_));
        QGuiApplication::clipboard()->clear();
        setUnhandledFailureHandler({});
    }
    void cleanup() {
        delete window_;
        bar_.reset();
    }

    // The focused control enables the Edit items by its state, shown as the letters of
    // Undo, Cut, Copy, Paste, Delete, Select All; an item then acts on that control.
    void editItems_data() {
        QTest::addColumn<bool>("inArea");
        QTest::addColumn<QString>("state"); // t: "abc" typed, s: "c" selected, p: "xy" on the clipboard
        QTest::addColumn<QString>("enabled");
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("textAfter");
        QTest::addColumn<QString>("clipboardAfter");
        for (const bool inArea : {false, true}) {
            const auto row = [inArea](const char* state, const char* enabled, const char* item = "",
                                      const char* text = "", const char* clipboard = "") {
                QTest::addRow("%s %s %s", inArea ? "area" : "field", state, item)
                    << inArea << state << enabled << item << text << clipboard;
            };
            row("", "......");
            row("t", "U....A");
            row("ts", "UXC.DA");
            row("p", "...P..");
            row("tsp", "UXCPDA", "EditUndo", "", "xy");
            row("tsp", "UXCPDA", "EditCut", "ab", "c");
            row("tsp", "UXCPDA", "EditCopy", "abc", "c");
            row("tsp", "UXCPDA", "EditPaste", "abxy", "xy");
            row("tsp", "UXCPDA", "EditClear", "ab", "xy");
        }
    }
    void editItems() {
        QFETCH(bool, inArea);
        QFETCH(QString, state);
        QFETCH(QString, enabled);
        QFETCH(QString, item);
        QWidget* target = inArea ? static_cast<QWidget*>(area_) : field_;
        target->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), target);
        if (state.contains(u'p'))
            QGuiApplication::clipboard()->setText("xy");
        if (state.contains(u't'))
            QTest::keyClicks(target, "abc");
        if (state.contains(u's'))
            QTest::keyClick(target, Qt::Key_Left, Qt::ShiftModifier);
        QString shown;
        for (const char* name : {"EditUndo", "EditCut", "EditCopy", "EditPaste", "EditClear", "EditSelectAll"})
            shown += bar_->item(name)->isEnabled() ? QChar(u"UXCPDA"[shown.size()]) : QChar(u'.');
        QCOMPARE(shown, enabled);
        if (item.isEmpty())
            return;
        QFETCH(QString, textAfter);
        QFETCH(QString, clipboardAfter);
        bar_->item(item)->trigger();
        QCOMPARE(inArea ? area_->toPlainText() : field_->text(), textAfter);
        QCOMPARE(QGuiApplication::clipboard()->text(), clipboardAfter);
        bar_->item("EditSelectAll")->trigger();
        QCOMPARE(inArea ? area_->textCursor().selectedText() : field_->selectedText(), textAfter);
    }

    void windowHandlerComesBeforeTheTextControl() {
        QStringList handled;
        window_->addMenuHandler("EditCopy", [&] { return handled << "EditCopy", true; });
        field_->setFocus();
        bar_->updateEnabled();
        QVERIFY(bar_->item("EditCopy")->isEnabled()); // the handler alone enables it
        bar_->item("EditCopy")->trigger();
        QCOMPARE(handled, QStringList{"EditCopy"});
        QVERIFY(QGuiApplication::clipboard()->text().isEmpty());
    }

    // A failure in any handler is reported with its reason, the key goes no
    // further, and the application goes on (the second turn).
    void failureInAHandlerIsReported_data() {
        QTest::addColumn<QString>("where");
        QTest::addColumn<QString>("reason");
        const QString unreadable = "Cannot read \"/nowhere/models.txt\": No such file or directory";
        for (const char* where : {"button", "field", "area", "menu", "timer"})
            QTest::newRow(where) << where << unreadable;
        QTest::newRow("foreign") << "area" << "An unknown failure occurred.";
    }
    void failureInAHandlerIsReported() {
        QFETCH(QString, where);
        QFETCH(QString, reason);
        QStringList reported;
        setUnhandledFailureHandler([&](const QString& why) { reported << why; });
        const auto fail = [foreign = reason.startsWith("An")]() -> bool {
            if (foreign)
                throw 42;
            throw tovarin::FileError("/nowhere/models.txt", "No such file or directory");
        };
        auto* button = new PushButton(window_->content());
        button->move(0, 30);
        button->setMouseDownHandler([=](int, int) { return fail(); });
        field_->setKeyDownHandler([=](int) { return fail(); });
        area_->setKeyDownHandler([=](int) { return fail(); });
        window_->addMenuHandler("InfoItem", fail);
        for (int turn = 1; turn <= 2; ++turn) {
            if (where == "menu")
                QVERIFY(window_->handleMenuItem("InfoItem")); // a failed handler counts as handled
            else if (where == "timer")
                new OneShotTimer(1, [=] { fail(); }, window_);
            else if (where == "button")
                QTest::mouseClick(button, Qt::LeftButton);
            else
                QTest::keyClick(where == "field" ? static_cast<QWidget*>(field_) : area_, Qt::Key_X);
            QTRY_COMPARE(reported.size(), turn);
        }
        QCOMPARE(reported, QStringList(2, reason));
        QVERIFY(field_->text().isEmpty() && area_->toPlainText().isEmpty());
    }

    // CR, LF and CR LF each end a line; bold counts a line end as one character and is clipped.
    void textAreaLineEndsAndBold() {
        for (const auto& [start, length, map] : {std::tuple{1, 5, "*****........"}, {4, 4, "...**.*......"},
                                                 {1, 100, "*****.*****.."}, {30, 5, "............."}}) {
            TextArea area;
            area.appendPlain("Hello\rWorld");
            area.setBold(start, length);
            area.appendPlain("\r\n!\n\r");
            QCOMPARE(area.toPlainText(), "Hello\nWorld\n!\n\n");
            QString bold;
            for (QTextBlock block = area.document()->begin(); block.isValid(); block = block.next()) {
                for (auto it = block.begin(); !it.atEnd(); ++it)
                    bold += QString(it.fragment().length(), it.fragment().charFormat().fontWeight() >= QFont::Bold ? u'*' : u'.');
                bold += u'.';
            }
            QCOMPARE(bold.left(13), QString(map));
        }
    }

    // The handler runs at the press; a modal dialog it opens takes the release,
    // and the button must not stay down.
    void pushButtonActsOnPressAndComesUpAfterADialog() {
        auto* button = new PushButton(window_->content());
        button->setGeometry(10, 100, 100, 50);
        button->show();
        QPoint pressedAt;
        button->setMouseDownHandler([&](int x, int y) {
            pressedAt = QPoint(x, y);
            QDialog dialog;
            QTimer::singleShot(0, &dialog, [&] {
                QTest::mouseRelease(dialog.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
                dialog.accept();
            });
            dialog.exec();
            return false;
        });
        QTest::mousePress(window_->windowHandle(), Qt::LeftButton, {},
                          button->mapTo(window_, QPoint(30, 20)));
        QCOMPARE(pressedAt, QPoint(30, 20));
        QVERIFY(!button->isDown());
    }
};

TOVARIN_QT_TEST_MAIN(FrameworkTest, tovarin::fw::Application app(argc, argv), )
#include "test_framework.moc"
