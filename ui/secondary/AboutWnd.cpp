#include "ui/secondary/AboutWnd.hpp"

#include "engine/Version.hpp"
#include "framework/Application.hpp"
#include "framework/Canvas.hpp"
#include "framework/HandlerGuard.hpp"
#include "framework/KeyCode.hpp"
#include "framework/Label.hpp"
#include "framework/MenuBar.hpp"
#include "framework/OneShotTimer.hpp"
#include "ui/AppPictures.hpp"
#include "ui/MainWindow.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace tovarin {
namespace {

constexpr int kTimeoutMs = 4000;
const QLatin1String kStaticText2("StaticText2");
// Room kept free at the window's sides, and the height of one line of the
// credit at 9 points with room for large-type screen settings.
constexpr int kCreditMargin = 4;
constexpr int kCreditLineHeight = 24;

} // namespace

AboutWnd::AboutWnd() : fw::Window(450, 350) {
    Layout();
    CreateControls();
    show();
}

void AboutWnd::Layout() {
    setWindowFlag(Qt::Dialog);
    setWindowTitle(QString());
    setMinimumSize(64, 64);
    setMaximumSize(32000, 32000);
    content()->setAutoFillBackground(true);
    QPalette white = content()->palette();
    white.setColor(QPalette::Window, Qt::white);
    content()->setPalette(white);
    // No menu bar shows here, but the quit shortcut works all the same.
    if (auto* app = qobject_cast<fw::Application*>(QCoreApplication::instance());
        app && app->menuBar())
        app->menuBar()->installShortcutsOn(*this);
}

void AboutWnd::CreateControls() {
    auto* credit = new fw::Label(content());
    credit->setObjectName(kStaticText2);
    credit->setGeometry(98, 297, 258, 15);
    credit->setText(QString::fromUtf8(kCreditLine));
    credit->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    credit->setTextInteractionFlags(Qt::NoTextInteraction);
    QPalette grey = credit->palette();
    grey.setColor(QPalette::WindowText, QColor(102, 102, 102));
    credit->setPalette(grey);
    StaticText2_Open();

    auto* canvas = new fw::Canvas(content());
    canvas->setObjectName(QStringLiteral("Canvas2"));
    // Icon256 is read when the canvas is first painted, in the window's first
    // frame: decoding it first would hold the window back from the screen.
    canvas->setBackdrop(&Icon256);
    canvas->setGeometry(96, 37, 258, 258);

    // Presses over the controls are presses on the window.
    credit->setAttribute(Qt::WA_TransparentForMouseEvents);
    canvas->setAttribute(Qt::WA_TransparentForMouseEvents);

    auto* timer = new fw::OneShotTimer(
        kTimeoutMs, [this] { Timer1_Action(); }, this);
    timer->setObjectName(QStringLiteral("Timer1"));
}

void AboutWnd::StaticText2_Open() {
    auto* credit = control<fw::Label>(kStaticText2);
    // "System" is the platform's user interface font, which a control has
    // unless told otherwise.
    QFont font = credit->font();
    font.setBold(false);
    font.setPointSizeF(9);
    credit->setFont(font);
    // Fonts here run wider than the label was drawn for. Rather than wrap or
    // cut the credit, the label spans the window about its own centre, and is
    // tall enough for a line at 9 points: measuring the text here would load
    // the fonts before the window is on screen.
    const QRect box = credit->geometry();
    const int halfWidth =
        std::min(box.center().x() - kCreditMargin, width() - kCreditMargin - 1 - box.center().x());
    credit->setGeometry(box.center().x() - halfWidth, box.top(), 2 * halfWidth + 1,
                        std::max(box.height(), kCreditLineHeight));
}

void AboutWnd::Timer1_Action() {
    dismiss();
}

bool AboutWnd::Event_MouseDown(int, int) {
    dismiss();
    return false;
}

bool AboutWnd::Event_KeyDown(int) {
    dismiss();
    return false;
}

void AboutWnd::dismiss() {
    fw::instance<AboutWnd>().hide();
    showMainWindow();
}

void AboutWnd::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (!fw::runHandler([&] { return Event_MouseDown(at.x(), at.y()); }))
        fw::Window::mousePressEvent(event);
}

void AboutWnd::keyPressEvent(QKeyEvent* event) {
    // Modifier keys alone and menu shortcuts are not key presses of the window.
    const int code = fw::keyCode(*event);
    if (code < 0 || !fw::runHandler([&] { return Event_KeyDown(code); }))
        fw::Window::keyPressEvent(event);
}

void AboutWnd::closeEvent(QCloseEvent* event) {
    // Closed from the window manager: the splash is the only way to the main
    // window, so a close counts as a dismissal and the window stays.
    event->ignore();
    fw::runAction([] { dismiss(); });
}

} // namespace tovarin
