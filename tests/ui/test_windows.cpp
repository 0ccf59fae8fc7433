// The program on the offscreen platform, the dialogs answered by the test.
#include "tests/QtTestMain.hpp"

#include "app/Startup.hpp"
#include "engine/HelpText.hpp"
#include "engine/report/LocalDateTime.hpp"
#include "framework/Dialogs.hpp"
#include "framework/KeyCode.hpp"
#include "framework/PictureFile.hpp"
#include "ui/AppPictures.hpp"
#include "ui/MenuBar1.hpp"
#include "ui/main/ControlWnd.hpp"
#include "ui/secondary/AboutWnd.hpp"
#include "ui/secondary/helpWnd.hpp"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include <sys/stat.h>

using namespace tovarin;

namespace {

ControlWnd& window() {
    return fw::instance<ControlWnd>();
}

// Presses and releases the key a keyboard gives for a code.
void press(QWidget* control, int code) {
    using namespace fw::key;
    static const QHash<int, Qt::Key> named = {
        {Backspace, Qt::Key_Backspace}, {Tab, Qt::Key_Tab},
        {Return, Qt::Key_Return},       {LeftArrow, Qt::Key_Left},
        {RightArrow, Qt::Key_Right},    {UpArrow, Qt::Key_Up},
        {DownArrow, Qt::Key_Down},      {ForwardDelete, Qt::Key_Delete}};
    const Qt::Key key =
        named.value(code, code < 32 ? Qt::Key_Escape : Qt::Key(QChar(code).toUpper().unicode()));
    const QString text = code < LeftArrow || (code >= Space && code != ForwardDelete)
                             ? QString(QChar(code))
                             : QString();
    QTest::sendKeyEvent(QTest::Click, control, key, text, Qt::NoModifier);
}

// The results on show with the focus in them, so that a run that gives the
// focus to the count field can be told apart.
void showReport(const QString& text) {
    window().ResultsFld()->setVisible(true);
    window().ResultsFld()->setPlainText(text);
    window().ResultsFld()->setFocus();
}

// Types the keys as a keyboard does: into the open menu, else into the focused control.
void type(const QKeySequence& keys) {
    for (uint i = 0; i < static_cast<uint>(keys.count()); ++i) {
        QWidget* const menu = QApplication::activePopupWidget();
        QTest::keyClick(menu ? menu : QApplication::focusWidget(), keys[i].key(),
                        keys[i].keyboardModifiers());
    }
}

// Opens the front window's Edit menu by the mouse or by keys, or the focused control's text menu
// by a right click; returns the menu on show.
QMenu* openEditItems(const QString& how) {
    QWidget* const control = QApplication::focusWidget();
    if (how == "mouse") {
        QMenuBar* const bar = qobject_cast<QMainWindow*>(control->window())->menuBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(bar->actions()[1]).center());
    } else if (how == "right") {
        const auto* area = qobject_cast<QTextEdit*>(control);
        QContextMenuEvent click(QContextMenuEvent::Mouse, {5, 5},
                                control->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(area ? area->viewport() : control, &click);
    } else {
        type(QKeySequence(how));
    }
    return QTest::qWaitFor([] { return QApplication::activePopupWidget(); })
               ? qobject_cast<QMenu*>(QApplication::activePopupWidget())
               : nullptr;
}

// Sets up a state of the front window that the Edit items are tried in (see editItems).
void setUpEditState(const QString& state) {
    fw::TextField& field = *window().pFld();
    fw::TextArea& area = *window().ResultsFld();
    if (state == "Info") { // by its button, which brings it to the front
        QTest::mousePress(window().helpBtn(), Qt::LeftButton);
        QVERIFY(QTest::qWaitFor([] { return QApplication::activeWindow() != &window(); }));
    }
    if (state == "xy+2") {
        showReport("xy");
        area.moveCursor(QTextCursor::End);
    }
    field.setText(state == "4+2" ? "4" : "");
    QTest::keyClicks(QApplication::focusWidget(),
                     state == "42" ? "42" : (state.endsWith("+2") ? "2" : ""));
    if (state == "4+2") {
        showReport("xy");
        field.setFocus();
        field.cursorBackward(true);
    }
    if (state == "xy+2")
        area.moveCursor(QTextCursor::Left, QTextCursor::KeepAnchor);
}

} // namespace

class WindowsTest : public QObject {
    Q_OBJECT
    QStringList messages_, failures_;
    int beeps_ = 0, choices_ = 0;
    QTemporaryDir folder_;

private slots:
    // The splash shows the main window after 4000 ms, a modifier alone is no key that dismisses
    // it (a key, a click or closing do: the soak), and a missing picture is no failure.
    void initTestCase() {
        init();
        QElapsedTimer sinceSplash;
        sinceSplash.start();
        LateStartup();
        AboutWnd& about = fw::instance<AboutWnd>();
        QTest::keyClick(&about, Qt::Key_Shift);
        QVERIFY(about.isVisible() && !fw::openInstance<ControlWnd>());
        QTRY_VERIFY_WITH_TIMEOUT(fw::openInstance<ControlWnd>(), 8000);
        QVERIFY2(sinceSplash.elapsed() >= 3990, qPrintable(QString::number(sinceSplash.elapsed())));
        QVERIFY(window().isVisible() && !about.isVisible());
        QCOMPARE(messages_ + failures_, QStringList());
    }

    void init() {
        messages_ = failures_ = {};
        beeps_ = choices_ = 0;
        fw::setMessageBoxHandler([this](const QString& text) { messages_ << text; });
        fw::setUnhandledFailureHandler([this](const QString& why) { failures_ << why; });
        fw::setBeepHandler([this] { ++beeps_; });
        for (QWidget* open : {static_cast<QWidget*>(fw::openInstance<helpWnd>()),
                              static_cast<QWidget*>(fw::openInstance<ControlWnd>())})
            delete open;
        if (QTest::currentTestFunction() != QLatin1String("initTestCase")) {
            window().showWindow();
            QVERIFY(QTest::qWaitForWindowActive(&window()));
        }
    }

    // Every code in either field, as a person reads the rules: the count field
    // takes digits and the editing keys, the results the report's printable
    // characters. Refused keys beep and change nothing; any key in the count
    // field drops the report while the area stays on show.
    void keyFilters_data() {
        QTest::addColumn<bool>("countField");
        QTest::addColumn<int>("code");
        for (const bool countField : {true, false})
            for (int code = 0; code <= 131; ++code) // 131 stands for e acute
                QTest::addRow("%s %d", countField ? "pFld" : "ResultsFld", code)
                    << countField << (code < 131 ? code : 0xE9);
    }
    void keyFilters() {
        QFETCH(bool, countField);
        QFETCH(int, code);
        fw::TextArea& results = *window().ResultsFld();
        showReport("xy");
        results.moveCursor(QTextCursor::NextCharacter);
        QWidget* field = countField ? static_cast<QWidget*>(window().pFld()) : &results;
        field->setFocus();
        press(field, code);
        const QString printable =
            " .0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefghijklmnopqrstuvwxyz";
        using namespace fw::key;
        const bool accepted =
            countField
                ? QList<int>{Backspace, Tab, LeftArrow, RightArrow, ForwardDelete}.contains(code) ||
                      (code >= '0' && code <= '9')
                : QList<int>{Backspace, Tab, Return, ForwardDelete}.contains(code) ||
                      printable.contains(QChar(code));
        const QString typed =
            accepted && code >= Space && code != ForwardDelete ? QString(QChar(code)) : QString();
        // Tab types nothing and leads to the count field, the one tab stop.
        QCOMPARE(QApplication::focusWidget(),
                 countField || (accepted && code == Tab) ? window().pFld() : field);
        const QHash<int, QString> edits = {
            {Backspace, "y"}, {Return, "x\ny"}, {ForwardDelete, "x"}};
        QCOMPARE(QString::number(beeps_) + " beeps|" + window().pFld()->text() + "|" +
                     results.toPlainText() + (results.isVisible() ? "" : " hidden"),
                 (accepted ? "0 beeps|" : "1 beeps|") + (countField ? typed + "|"
                                                         : accepted && edits.contains(code)
                                                             ? "|" + edits[code]
                                                             : "|x" + typed + "y"));
    }

    // Command keys are keys like others, refused by both filters, but for the menu bar's own
    // shortcuts; Shift+Tab is Tab. Beeps and the results after, in the count field|in the results.
    void commandKeys() {
        for (const bool countField : {true, false}) {
            for (const auto& [key, modifiers, after] :
                 {std::tuple<Qt::Key, Qt::KeyboardModifiers, QString>{
                      Qt::Key_S, Qt::ControlModifier, "1 |1 xy"},
                  {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, "1 |1 xy"},
                  {Qt::Key_A, Qt::ControlModifier, "0 xy|0 xy"},
                  {Qt::Key_Backtab, Qt::ShiftModifier, "0 |0 xy"}}) {
                init();
                showReport("xy");
                QWidget* field =
                    countField ? static_cast<QWidget*>(window().pFld()) : window().ResultsFld();
                field->setFocus();
                // With the control character as text, as X11 and Wayland give it.
                QTest::sendKeyEvent(QTest::Click, field, key,
                                    key <= Qt::Key_Z ? QString(QChar(key - Qt::Key_A + 1)) : "",
                                    modifiers);
                const QString row = QString("%1 %2: ")
                                        .arg(countField ? "pFld" : "ResultsFld")
                                        .arg(QKeySequence(key | modifiers).toString());
                QCOMPARE(row + QString::number(beeps_) + " " + window().ResultsFld()->toPlainText(),
                         row + after.split(u'|')[countField ? 0 : 1]);
            }
        }
    }

    // A message leaves the focus in the count field, anything else where it
    // was; a failure names the file; a report lands behind what was there,
    // its head bold. Clear then goes back to the start state. (A cancel, good
    // reports from the start state and Clear after any run: the soak.)
    void endings() {
        const QByteArray two = "Alpha\t100.5\nBeta,102\n";
        // Count, the file chosen, its data, the message, what the report shows ("" for none, "!"
        // and a reason for a failure).
        const std::tuple<QString, QString, QByteArray, QString, QString> rows[] = {
            {"", "models.txt", two, "Please enter the number of models in the set (2-99).", ""},
            {"2", "gone.txt", two, "", ""},
            {"2", "pipe", two, "", "!named pipe"},
            {"2", "models.txt", "\xffZ\t1\nB\t2\n", "", "\uFFFDZ"}}; // invalid bytes as U+FFFD
        for (const auto& [count, choice, data, message, shows] : rows) {
            init();
            qInfo() << "count" << count << "file" << choice << data;
            const QString path = folder_.filePath(choice);
            QFile file(path);
            if (choice == "pipe")
                QVERIFY(::mkfifo(QFile::encodeName(path).constData(), 0644) == 0 ||
                        QFile::exists(path));
            else
                QVERIFY(file.open(QIODevice::WriteOnly) && file.write(data) == data.size() &&
                        file.flush());
            fw::setFileChooserHandler([this, path, chosen = choice]() -> std::optional<QString> {
                ++choices_;
                if (chosen == "gone.txt")
                    QFile::remove(path);
                return path;
            });
            const QString earlier = "an earlier report";
            showReport(earlier);
            QWidget* const focus = QApplication::focusWidget();
            window().pFld()->setText(count);
            const DateTimeText now = currentLocalDateTime();
            QTest::mousePress(window().calcBtn(), Qt::LeftButton); // the run is at the press
            QTest::mouseRelease(window().calcBtn(), Qt::LeftButton);

            QCOMPARE(messages_.join(";") + "|" + QString::number(choices_) + "|" +
                         window().pFld()->text(),
                     message + "|" + (count.isEmpty() ? "0" : "1") + "|" + count);
            QCOMPARE(failures_.filter(path).filter(shows.mid(1)).size() + failures_.size(),
                     shows.startsWith(u'!') ? 2 : 0);
            QCOMPARE(QApplication::focusWidget(), message.isEmpty() ? focus : window().pFld());
            const QString text = window().ResultsFld()->toPlainText();
            if (shows.isEmpty() || shows.startsWith(u'!')) {
                QCOMPARE(text, earlier);
                continue;
            }
            // Dated as the command-line tool dates it (the minute may have turned during the run).
            QVERIFY2(
                text.startsWith(earlier + QString::fromStdString("Date: " + now.shortDate + "  ")),
                qPrintable(text));
            QVERIFY(text.contains("\nFile: " + choice + "\n") && text.contains(shows));
            QTextCursor head(window().ResultsFld()->document());
            head.setPosition(int(earlier.size()) + 1); // the format of the character before
            QCOMPARE(head.charFormat().fontWeight(), int(QFont::Bold));
            QTest::mousePress(window().clearBtn(), Qt::LeftButton); // done at the press, too
            QCOMPARE(window().pFld()->text() + window().ResultsFld()->toPlainText(), QString());
            QVERIFY(!window().ResultsFld()->isVisible() &&
                    QApplication::focusWidget() == window().pFld());
            QTest::mouseRelease(window().clearBtn(), Qt::LeftButton);
        }
    }

    // The Edit menu opened by the mouse, its mnemonic, F10 or Alt+F and Right, and the text menu
    // opened by the Menu key or a right click (the Edit items themselves) enable the items by the
    // control that last had the focus in the front window (the letters of Undo, Cut, Copy, Paste,
    // Delete, Select All, with "7" on the clipboard), and act on it: with "2" typed behind the
    // program's text and selected, each way of opening chooses the next item (count|clipboard|
    // selection|results after). The key filters see none of it, so a paste into the count field
    // leaves the report on show; Undo takes back the typing alone.
    void editItems() {
        const QString hows[] = {"mouse", "Alt+E", "F10, Right", "Alt+F, Right", "Menu", "right"};
        for (const auto& [state, enabled, after] :
             {std::tuple<QString, QString, QString>{"", "...P..", ""},
              {"42", "U..P.A", ""},
              {"Info", "...P.A", ""},
              {"4+2", "UXCPDA", "4|7||xy 4|2||xy 42|2|2|xy 47|7||xy 4|7||xy 42|7|42|xy"},
              {"xy+2", "UXCPDA", "|7||xy |2||xy |2|2|xy2 |7||xy7 |7||xy |7|xy2|xy2"}}) {
            for (int i = 0; i < 6; ++i) {
                init();
                QGuiApplication::clipboard()->setText("7");
                setUpEditState(state);
                QWidget* const control = QApplication::focusWidget();
                const QMenu* menu = openEditItems(hows[i]);
                QVERIFY(menu && menu->actions() == MenuBar1().menu("EditMenu")->actions());
                QString shown;
                for (const QAction* action : menu->actions())
                    if (!action->isSeparator())
                        shown += action->isEnabled() ? u"UXCPDA"[shown.size()] : u'.';
                if (!after.isEmpty())
                    type(QKeySequence(QString("UTCPDA")[i]));
                while (QWidget* open = QApplication::activePopupWidget())
                    open->close();
                control->setFocus();
                if (!after.isEmpty())
                    shown += " " + window().pFld()->text() + "|" +
                             QGuiApplication::clipboard()->text() + "|" +
                             control->inputMethodQuery(Qt::ImCurrentSelection).toString() + "|" +
                             window().ResultsFld()->toPlainText();
                QCOMPARE(state + " " + hows[i] + ": " + shown + " " + QString::number(beeps_),
                         state + " " + hows[i] + ": " + enabled + " " +
                             (after.isEmpty() ? "" : after.split(u' ')[i] + " ") + "0");
            }
        }
    }

    // Each density gets its picture, the plain or the @2x one, whichever was asked for first.
    void picturesForEachDensity() {
        QTemporaryDir folder;
        QVERIFY(QImage(6, 4, QImage::Format_RGB32).save(folder.filePath("Tovarinbanner.png")));
        QVERIFY(QImage(12, 8, QImage::Format_RGB32).save(folder.filePath("Tovarinbanner@2x.png")));
        fw::setPictureFolder(folder.path());
        for (const qreal ratio : {1.0, 2.0, 1.0})
            QCOMPARE(Tovarinbanner(ratio).devicePixelRatio(), ratio);
        fw::setPictureFolder(folder_.path());
    }

    // Asked to maximise or fill the screen, as a title bar that the toolkit draws asks (Wayland),
    // the main window goes back to its fixed size; the compositor must get a frame of the size it
    // configures meanwhile.
    void maximiseRequest() {
        const QSize size = window().size();
        for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowFullScreen}) {
            window().windowHandle()->setWindowStates(state);
            QTRY_VERIFY(window().windowHandle()->windowStates() == Qt::WindowNoState &&
                        window().size() == size &&
                        window().minimumSize() == window().maximumSize());
        }
    }

    // Shown twice, the manual once with the literal behind it, the title alone bold.
    void informationWindow() {
        fw::instance<helpWnd>().showWindow();
        fw::instance<helpWnd>().showWindow(); // again while open: one instance, one text
        const fw::TextArea& area = *fw::instance<helpWnd>().EditField1();
        QCOMPARE(area.toPlainText(),
                 QString::fromUtf8(helpText().data(), qsizetype(helpText().size()))
                         .replace(u'\r', u'\n') +
                     "Error message");
        QTextCursor cursor(area.document());
        cursor.setPosition(int(kHelpTitleLength)); // the format of the character before
        const bool titleBold = cursor.charFormat().fontWeight() == QFont::Bold;
        cursor.setPosition(int(kHelpTitleLength) + 2);
        QVERIFY(titleBold && cursor.charFormat().fontWeight() != QFont::Bold);
    }

    void quitShortcutEndsTheRunFromTheSplash() {
        AboutWnd& about = fw::instance<AboutWnd>();
        about.showWindow();
        QVERIFY(QTest::qWaitForWindowActive(&about));
        QTimer::singleShot(0, [&] { QTest::keyClick(&about, Qt::Key_Q, Qt::ControlModifier); });
        QTimer::singleShot(10000, [] { QCoreApplication::exit(99); }); // if Ctrl+Q did nothing
        QCOMPARE(QCoreApplication::exec(), 0);
    }
};

TOVARIN_QT_TEST_MAIN(WindowsTest, QTemporaryDir noPictures;
                     tovarin::fw::setPictureFolder(noPictures.path());
                     tovarin::EarlyStartup(), tovarin::ShutDown())
#include "test_windows.moc"
