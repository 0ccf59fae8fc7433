#include "framework/MenuBar.hpp"

#include "framework/KeyCode.hpp"
#include "framework/Quit.hpp"
#include "framework/Window.hpp"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QTextEdit>
#include <QWindow>

#include <algorithm>

namespace tovarin::fw {
namespace {

constexpr const char* kKindProperty = "tovarinItemKind";

ItemKind kindOf(const QAction* action) {
    return static_cast<ItemKind>(action->property(kKindProperty).toInt());
}

Window* frontWindow() {
    return qobject_cast<Window*>(QApplication::activeWindow());
}

bool clipboardHasText() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasText();
}

// The edit items are served by the focused text control, by kind: per kind,
// when the item is enabled and what it does, in a line field and in a text area.
struct EditItem {
    ItemKind kind;
    bool (*fieldEnabled)(const QLineEdit&);
    void (*fieldAction)(QLineEdit&);
    bool (*areaEnabled)(const QTextEdit&);
    void (*areaAction)(QTextEdit&);
};

bool hasSelection(const QTextEdit& area) {
    return area.textCursor().hasSelection();
}

const EditItem kEditItems[] = {
    {ItemKind::Undo, [](const QLineEdit& f) { return !f.isReadOnly() && f.isUndoAvailable(); },
     [](QLineEdit& f) { f.undo(); },
     [](const QTextEdit& a) { return !a.isReadOnly() && a.document()->isUndoAvailable(); },
     [](QTextEdit& a) { a.undo(); }},
    {ItemKind::Cut, [](const QLineEdit& f) { return !f.isReadOnly() && f.hasSelectedText(); },
     [](QLineEdit& f) { f.cut(); },
     [](const QTextEdit& a) { return !a.isReadOnly() && hasSelection(a); },
     [](QTextEdit& a) { a.cut(); }},
    {ItemKind::Copy,
     [](const QLineEdit& f) { return f.hasSelectedText() && f.echoMode() == QLineEdit::Normal; },
     [](QLineEdit& f) { f.copy(); }, [](const QTextEdit& a) { return hasSelection(a); },
     [](QTextEdit& a) { a.copy(); }},
    {ItemKind::Paste, [](const QLineEdit& f) { return !f.isReadOnly() && clipboardHasText(); },
     [](QLineEdit& f) { f.paste(); },
     [](const QTextEdit& a) { return !a.isReadOnly() && a.canPaste(); },
     [](QTextEdit& a) { a.paste(); }},
    {ItemKind::Delete, [](const QLineEdit& f) { return !f.isReadOnly() && f.hasSelectedText(); },
     [](QLineEdit& f) { f.del(); },
     [](const QTextEdit& a) { return !a.isReadOnly() && hasSelection(a); },
     [](QTextEdit& a) { a.textCursor().removeSelectedText(); }},
    {ItemKind::SelectAll, [](const QLineEdit& f) { return !f.text().isEmpty(); },
     [](QLineEdit& f) { f.selectAll(); },
     [](const QTextEdit& a) { return !a.document()->isEmpty(); },
     [](QTextEdit& a) { a.selectAll(); }},
};

const EditItem* editItem(ItemKind kind) {
    for (const EditItem& item : kEditItems) {
        if (item.kind == kind)
            return &item;
    }
    return nullptr;
}

bool editItemEnabled(ItemKind kind, QWidget* focus) {
    const EditItem* item = editItem(kind);
    if (!item)
        return false;
    if (auto* field = qobject_cast<QLineEdit*>(focus))
        return item->fieldEnabled(*field);
    if (auto* area = qobject_cast<QTextEdit*>(focus))
        return item->areaEnabled(*area);
    return false;
}

bool isEditKind(ItemKind kind) {
    return editItem(kind) != nullptr;
}

bool runEditItem(ItemKind kind, QWidget* focus) {
    if (!editItemEnabled(kind, focus))
        return false;
    const EditItem* item = editItem(kind);
    if (auto* field = qobject_cast<QLineEdit*>(focus))
        item->fieldAction(*field);
    else
        item->areaAction(*qobject_cast<QTextEdit*>(focus));
    return true;
}

} // namespace

MenuBar::MenuBar(QObject* parent) : QObject(parent) {
    auto* app = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (!app)
        return;
    // Focus moving to another control or window changes what can act on an item.
    connect(app, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { focusChanged(now); });
    connect(app, &QGuiApplication::focusWindowChanged, this, [this] { focusChanged(nullptr); });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            [this] { updateEnabled(); });
    // F10 opens the first menu, as on other desktops; it is no key for the controls' filters.
    addMenuShortcut(QKeySequence(Qt::Key_F10));
}

MenuBar::~MenuBar() {
    // The menus are top-level widgets; they can only go while the application
    // lives. The items are this object's children and go with it.
    if (!QCoreApplication::instance())
        return;
    for (const Menu& menu : menus_)
        delete menu.widget;
    delete textMenu_;
}

void MenuBar::addMenu(const QString& name, const QString& caption) {
    menus_.push_back(Menu{name, caption, {}, nullptr});
}

QAction* MenuBar::addItem(const QString& menuName, const QString& name, const QString& caption,
                          const QKeySequence& shortcut, ItemKind kind) {
    Menu* owner = findMenu(menuName);
    if (!owner) {
        qWarning("MenuBar: no menu named %s", qPrintable(menuName));
        return nullptr;
    }
    auto* action = new QAction(this);
    if (kind == ItemKind::Separator || caption == u"-") {
        action->setSeparator(true);
        kind = ItemKind::Separator;
    } else {
        action->setText(caption);
        // Some platforms bind no key to the standard Quit; the run must still
        // end with Ctrl+Q everywhere.
        action->setShortcut(kind == ItemKind::Quit && shortcut.isEmpty()
                                ? QKeySequence(Qt::CTRL | Qt::Key_Q)
                                : shortcut);
        addMenuShortcut(action->shortcut());
        action->setMenuRole(kind == ItemKind::Quit    ? QAction::QuitRole
                            : kind == ItemKind::About ? QAction::AboutRole
                                                      : QAction::NoRole);
        connect(action, &QAction::triggered, this, [this, action] { trigger(*action); });
    }
    action->setObjectName(name);
    action->setProperty(kKindProperty, static_cast<int>(kind));
    owner->items.push_back(action);
    if (owner->widget)
        owner->widget->addAction(action);
    items_.push_back(action);
    updateEnabled();
    return action;
}

MenuBar::Menu* MenuBar::findMenu(const QString& name) {
    for (Menu& menu : menus_) {
        if (menu.name == name)
            return &menu;
    }
    return nullptr;
}

QMenu* MenuBar::widgetOf(Menu& menu) {
    // Menu widgets cost fonts, style and native resources; the first window
    // that shows the bar pays for them, not the start of the program.
    if (!menu.widget) {
        menu.widget = new QMenu(menu.caption);
        menu.widget->setObjectName(menu.name);
        menu.widget->menuAction()->setObjectName(menu.name);
        for (QAction* action : menu.items)
            menu.widget->addAction(action);
        connect(menu.widget, &QMenu::aboutToShow, this, [this] { updateEnabled(); });
    }
    return menu.widget;
}

QMenu* MenuBar::menu(const QString& name) {
    Menu* found = findMenu(name);
    return found ? widgetOf(*found) : nullptr;
}

QAction* MenuBar::item(const QString& name) {
    for (QAction* action : items_) {
        if (action->objectName() == name)
            return action;
    }
    if (QMenu* found = menu(name))
        return found->menuAction();
    return nullptr;
}

QMenu* MenuBar::textMenu() {
    if (textMenu_)
        return textMenu_;
    // The edit items in the order of their menu, with the separators between them.
    for (Menu& menu : menus_) {
        const auto isEdit = [](const QAction* a) { return isEditKind(kindOf(a)); };
        if (std::none_of(menu.items.begin(), menu.items.end(), isEdit))
            continue;
        textMenu_ = new QMenu();
        textMenu_->setObjectName(QStringLiteral("TextMenu"));
        for (QAction* action : menu.items) {
            if (isEdit(action) || action->isSeparator())
                textMenu_->addAction(action);
        }
        connect(textMenu_, &QMenu::aboutToShow, this, [this] { updateEnabled(); });
        break;
    }
    return textMenu_;
}

void MenuBar::installOn(Window& window) {
    auto* bar = new QMenuBar(&window);
    // Kept inside the window on every desktop, so the content size holds.
    bar->setNativeMenuBar(false);
    for (Menu& menu : menus_)
        bar->addMenu(widgetOf(menu));
    window.setMenuBar(bar);
    window.setTextMenu(textMenu());
    auto* openFirst = new QAction(bar);
    openFirst->setShortcut(QKeySequence(Qt::Key_F10));
    connect(openFirst, &QAction::triggered, bar, [bar] {
        if (!bar->actions().isEmpty())
            bar->setActiveAction(bar->actions().constFirst());
    });
    window.addAction(openFirst);
    window.fitToContent();
    updateEnabled();
}

void MenuBar::installShortcutsOn(QWidget& window) {
    for (QAction* action : items_) {
        if (kindOf(action) == ItemKind::Quit)
            window.addAction(action);
    }
}

void MenuBar::updateEnabled() {
    Window* front = frontWindow();
    QWidget* focus = focusedControl();
    for (QAction* action : items_) {
        const ItemKind kind = kindOf(action);
        if (kind == ItemKind::Separator)
            continue;
        const QString name = action->objectName();
        const bool enabled = (front && front->hasMenuHandler(name)) ||
                             editItemEnabled(kind, focus) || kind == ItemKind::Quit;
        action->setEnabled(enabled);
    }
}

void MenuBar::trigger(const QAction& action) {
    if (Window* front = frontWindow(); front && front->handleMenuItem(action.objectName()))
        return;
    const ItemKind kind = kindOf(&action);
    if (runEditItem(kind, focusedControl()))
        return;
    if (kind == ItemKind::Quit)
        quit(0);
}

QWidget* MenuBar::focusedControl() const {
    const Window* front = frontWindow();
    for (const QPointer<QWidget>& control : lastFocus_) {
        if (control && control->window() == front)
            return control;
    }
    return nullptr;
}

void MenuBar::focusChanged(QWidget* now) {
    // The menu bar takes the focus while it is worked from the keyboard; the
    // control it took it from is still the one the edit items serve.
    if (now && !qobject_cast<QMenuBar*>(now)) {
        std::erase_if(lastFocus_, [now](const QPointer<QWidget>& control) {
            return !control || control->window() == now->window();
        });
        lastFocus_.emplace_back(now);
    }
    watch(focusedControl());
    updateEnabled();
}

void MenuBar::watch(QWidget* control) {
    if (control == watched_)
        return;
    watched_ = control;
    for (const QMetaObject::Connection& connection : focusConnections_)
        disconnect(connection);
    focusConnections_.clear();
    const auto refresh = [this] { updateEnabled(); };
    if (auto* field = qobject_cast<QLineEdit*>(control)) {
        focusConnections_.push_back(connect(field, &QLineEdit::selectionChanged, this, refresh));
        focusConnections_.push_back(connect(field, &QLineEdit::textChanged, this, refresh));
    } else if (auto* area = qobject_cast<QTextEdit*>(control)) {
        focusConnections_.push_back(connect(area, &QTextEdit::selectionChanged, this, refresh));
        focusConnections_.push_back(connect(area, &QTextEdit::textChanged, this, refresh));
        focusConnections_.push_back(connect(area, &QTextEdit::copyAvailable, this, refresh));
        focusConnections_.push_back(connect(area, &QTextEdit::undoAvailable, this, refresh));
    }
}

} // namespace tovarin::fw
