#include "ui/main/ControlWnd.hpp"

#include "engine/Version.hpp"
#include "ui/AppPictures.hpp"
#include "ui/MainWindow.hpp"
#include "ui/MenuBar1.hpp"
#include "ui/main/Fonts.hpp"

#include <QPalette>
#include <QRegularExpressionValidator>

namespace tovarin {

namespace {

const QColor kWhite(0xFF, 0xFF, 0xFF);
const QColor kBlack(0x00, 0x00, 0x00);
const QColor kBannerText(0xFD, 0xCC, 0x65);

// Text and background colours of an editable control.
void setEditColours(QWidget& control) {
    QPalette palette = control.palette();
    palette.setColor(QPalette::Text, kBlack);
    palette.setColor(QPalette::Base, kWhite);
    control.setPalette(palette);
}

void setLabelColour(QWidget& label, const QColor& colour) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, colour);
    label.setPalette(palette);
}

// Places a control by its window position even when its parent is another control.
void placeInWindow(QWidget& control, const QWidget& content, int left, int top, int width,
                   int height) {
    const QPoint origin = control.parentWidget()->mapTo(&content, QPoint(0, 0));
    control.setGeometry(left - origin.x(), top - origin.y(), width, height);
}

void setUpButton(fw::PushButton& button, const QString& caption) {
    button.setText(caption);
    button.setFont(systemFont(12));
    // All three buttons were marked default in the old layout, which no toolkit
    // with one default button can show; none is, so Return starts no work.
    button.setAutoDefault(false);
    button.setDefault(false);
    // Out of the tab order and never taking the focus from the count field.
    button.setFocusPolicy(Qt::NoFocus);
}

} // namespace

void showMainWindow() {
    fw::instance<ControlWnd>().showWindow();
}

const fw::Window* visibleMainWindow() {
    const ControlWnd* main = fw::openInstance<ControlWnd>();
    return main && main->isVisible() ? main : nullptr;
}

ControlWnd::ControlWnd() : fw::Window(700, 600) {
    Layout();
    CreateControls();
    AddMenuHandlers();
    pFld_Open();
    ResultsFld_Open();
    Label1_Open();
    pFld()->setFocus();
}

void ControlWnd::Layout() {
    MenuBar1().installOn(*this);

    setWindowTitle(QStringLiteral("Velmoran"));
    setWindowFlags(fw::kDocumentWindowFlags);
    // Nor can it be resized: its controls stand at fixed places.
    setFixedContentSize();

    QPalette palette = content()->palette();
    palette.setColor(QPalette::Window, kWhite);
    content()->setPalette(palette);
    content()->setAutoFillBackground(true);
}

void ControlWnd::CreateControls() {
    QWidget& window = *content();

    auto* count = new fw::TextField(&window);
    count->setObjectName(ControlWndName::pFld);
    placeInWindow(*count, window, 235, 165, 50, 22);
    count->setFont(systemFont(12));
    setEditColours(*count);
    count->setAlignment(Qt::AlignCenter);
    count->setMaxLength(2);
    // Two digit positions at most, whether typed or pasted.
    count->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,2}")), count));
    count->setFocusPolicy(Qt::StrongFocus);
    count->setKeyDownHandler([this](int code) { return pFld_KeyDown(code); });

    auto* clear = new fw::PushButton(&window);
    clear->setObjectName(ControlWndName::clearBtn);
    placeInWindow(*clear, window, 300, 530, 100, 50);
    setUpButton(*clear, QStringLiteral("Clear"));
    clear->setMouseDownHandler([this](int x, int y) { return clearBtn_MouseDown(x, y); });

    auto* help = new fw::PushButton(&window);
    help->setObjectName(ControlWndName::helpBtn);
    placeInWindow(*help, window, 554, 531, 100, 50);
    setUpButton(*help, QStringLiteral("Information"));
    help->setMouseDownHandler([this](int x, int y) { return helpBtn_MouseDown(x, y); });

    auto* calc = new fw::PushButton(&window);
    calc->setObjectName(ControlWndName::calcBtn);
    placeInWindow(*calc, window, 45, 530, 125, 50);
    setUpButton(*calc, QStringLiteral("Load Data File"));
    calc->setMouseDownHandler([this](int x, int y) { return calcBtn_MouseDown(x, y); });

    auto* results = new fw::TextArea(&window);
    results->setObjectName(ControlWndName::ResultsFld);
    placeInWindow(*results, window, 50, 193, 600, 325);
    results->setFont(systemFont(11));
    setEditColours(*results);
    results->setAlignment(Qt::AlignLeft);
    results->setReadOnly(false);
    // Styled inside (the report sets bold), but a paste brings plain text only.
    results->setAcceptRichText(false);
    // Tab moves on to the count field instead of typing a tab character.
    results->setTabChangesFocus(true);
    results->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    results->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    results->setAttribute(Qt::WA_MacShowFocusRect, false);
    // Clicked into for editing a report, never reached by Tab.
    results->setFocusPolicy(Qt::ClickFocus);
    results->setVisible(false);
    results->setKeyDownHandler([this](int code) { return ResultsFld_KeyDown(code); });

    auto* banner = new fw::Canvas(&window);
    banner->setObjectName(ControlWndName::Canvas1);
    banner->setBackdrop(&Tovarinbanner);
    placeInWindow(*banner, window, -3, 0, 935, 90);
    banner->setFocusPolicy(Qt::NoFocus);

    auto* author = new fw::Label(banner);
    author->setObjectName(ControlWndName::Label1);
    placeInWindow(*author, window, 401, 35, 127, 20);
    author->setText(QString::fromUtf8(kAuthorLine));
    author->setFont(systemFont(11));
    setLabelColour(*author, kBannerText);
    author->setAlignment(Qt::AlignCenter);
    // The text stands directly on the banner picture.
    author->setAutoFillBackground(false);

    auto* caption = new fw::Label(&window);
    caption->setObjectName(ControlWndName::NumFld);
    placeInWindow(*caption, window, 50, 165, 184, 22);
    caption->setText(QStringLiteral("Number of Models (2-99):"));
    caption->setFont(narrowedToFit(systemFont(14, true), caption->text(), 184));
    setLabelColour(*caption, kBlack);
    caption->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    caption->setAutoFillBackground(true);
    // The caption names the count field for assistive technology. It has no
    // mnemonic, so no key changes what it does.
    caption->setBuddy(count);

    describeForAssistiveTechnology();
}

// Screen readers announce these; nothing on screen changes.
void ControlWnd::describeForAssistiveTechnology() {
    pFld()->setAccessibleDescription(
        QStringLiteral("Type 2 to 99. Any key typed here empties the results."));
    ResultsFld()->setAccessibleName(QStringLiteral("Results"));
    ResultsFld()->setAccessibleDescription(QStringLiteral(
        "The reports of the analyses since the last Clear; copy them with Select All and Copy "
        "in the Edit menu."));
    calcBtn()->setAccessibleDescription(QStringLiteral(
        "Choose a data file of model names and BIC values; its report is added to the results."));
    clearBtn()->setAccessibleDescription(
        QStringLiteral("Empty the number of models and the results."));
    helpBtn()->setAccessibleDescription(
        QStringLiteral("Open the Information window: what the statistics mean and how to read "
                       "them."));
}

void ControlWnd::pFld_Open() {
    pFld()->setFont(systemFont(12));
}

void ControlWnd::ResultsFld_Open() {
    ResultsFld()->setFont(systemFont(12));
}

void ControlWnd::Label1_Open() {
    fw::Label& author = *Label1();
    author.setFont(narrowedToFit(systemFont(9), author.text(), author.width()));
}

} // namespace tovarin
