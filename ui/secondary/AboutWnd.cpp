#include "ui/secondary/AboutWnd.hpp"

#include "app/Pictures.hpp"
#include "engine/Credit.hpp"
#include "framework/Application.hpp"
#include "framework/Controls.hpp"
#include "framework/MenuBar.hpp"
#include "ui/main/ControlWnd.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace tovarin {
namespace {

constexpr int kTimeoutMs = 4000;

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
    credit->setObjectName(QStringLiteral("StaticText2"));
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
    canvas->setBackdrop(Icon256());
    canvas->setGeometry(96, 37, 258, 258);

    // Presses over the controls are presses on the window.
    credit->setAttribute(Qt::WA_TransparentForMouseEvents);
    canvas->setAttribute(Qt::WA_TransparentForMouseEvents);

    auto* timer = new fw::OneShotTimer(
        kTimeoutMs, [this] { Timer1_Action(); }, this);
    timer->setObjectName(QStringLiteral("Timer1"));
}

void AboutWnd::StaticText2_Open() {
    auto* credit = control<fw::Label>(QStringLiteral("StaticText2"));
    // "System" is the platform's user interface font.
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setBold(false);
    font.setPointSizeF(9);
    credit->setFont(font);
    // Fonts here run wider than the label was drawn for; widen it about its
    // centre rather than wrap or cut the credit.
    const QFontMetrics metrics(font);
    const QRect box = credit->geometry();
    const int width = std::max(box.width(), metrics.horizontalAdvance(credit->text()) + 4);
    const int height = std::max(box.height(), metrics.height());
    credit->setGeometry(box.center().x() + 1 - width / 2, box.top(), width, height);
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
    fw::instance<ControlWnd>().showWindow();
}

void AboutWnd::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (!Event_MouseDown(at.x(), at.y()))
        fw::Window::mousePressEvent(event);
}

void AboutWnd::keyPressEvent(QKeyEvent* event) {
    // Modifier keys alone and menu shortcuts are not key presses of the window.
    const int code = fw::keyCode(*event);
    if (code < 0 || !Event_KeyDown(code))
        fw::Window::keyPressEvent(event);
}

void AboutWnd::closeEvent(QCloseEvent* event) {
    // Closed from the window manager: the splash is the only way to the main
    // window, so a close counts as a dismissal and the window stays.
    event->ignore();
    dismiss();
}

} // namespace tovarin
