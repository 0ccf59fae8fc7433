#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QString>

#include <vector>

class QMenuBar;

namespace tovarin::fw {

class Window;

// The kinds of menu item: a plain item, the quit item and the about item
// (both of which have built-in actions), a separator, and the edit items,
// which the focused text control serves when no window answers them.
enum class ItemKind { Plain, Quit, About, Separator, Undo, Cut, Copy, Paste, Delete, SelectAll };

// One menu bar tree, built once and shown on every window that installs it.
// The tree is named actions; the menu widgets are made when a window first
// installs the bar, so a program can start without them. Triggering an item runs the handler that
// the frontmost window registered under the item's name; without one, an edit item acts on the
// text control that last had the focus in that window and the quit item quits. An item is enabled
// exactly when something can act on it at that moment. A text control is the one that last had the
// focus in its window even while the menu bar has it, as a bar opened from the keyboard does.
class MenuBar : public QObject {
    Q_OBJECT
public:
    explicit MenuBar(QObject* parent = nullptr);
    ~MenuBar() override;

    // Adds a menu to the bar. `caption` may hold "&" before the mnemonic.
    void addMenu(const QString& name, const QString& caption);
    // Adds an item to the menu of that name. `shortcut` is a QKeySequence
    // (for example QKeySequence::Copy) or empty.
    QAction* addItem(const QString& menuName, const QString& name, const QString& caption,
                     const QKeySequence& shortcut = {}, ItemKind kind = ItemKind::Plain);

    // The menu widget of that name, made now if no window has installed the bar yet.
    QMenu* menu(const QString& name);
    // The item of that name, or the action of the menu of that name.
    QAction* item(const QString& name);

    // Shows this tree on the window: the same menus and items on every window.
    void installOn(Window& window);
    // The context menu of the text controls: the edit items themselves, so that they are enabled
    // and act as in the menu bar. Null when the tree has no edit items.
    QMenu* textMenu();
    // Makes the quit shortcut work on a window that shows no menu bar.
    void installShortcutsOn(QWidget& window);

    // Recomputes which items are enabled for the frontmost window and focus.
    void updateEnabled();

private:
    struct Menu {
        QString name;
        QString caption;
        std::vector<QAction*> items;
        QMenu* widget = nullptr;
    };
    Menu* findMenu(const QString& name);
    QMenu* widgetOf(Menu& menu);
    void trigger(const QAction& action);
    // The control that last had the focus in the frontmost window, or null.
    QWidget* focusedControl() const;
    void focusChanged(QWidget* now);
    // Follows the text control the edit items act on, whose state enables them.
    void watch(QWidget* control);
    std::vector<Menu> menus_;
    std::vector<QAction*> items_;
    QMenu* textMenu_ = nullptr;
    // For each window, the control that last had the focus in it.
    std::vector<QPointer<QWidget>> lastFocus_;
    QPointer<QWidget> watched_;
    std::vector<QMetaObject::Connection> focusConnections_;
};

} // namespace tovarin::fw
