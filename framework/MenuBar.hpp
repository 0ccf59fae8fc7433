#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QString>

#include <vector>

class QMenuBar;

namespace tovarin::fw {

class Window;

// The kinds of menu item: a plain item, the quit item and the about item
// (both of which have built-in actions), and a separator.
enum class ItemKind { Plain, Quit, About, Separator };

// One menu bar tree, built once and shown on every window that installs it.
// Triggering an item runs the handler that the frontmost window registered
// under the item's name; without one, the Edit items act on the focused text
// control and the quit item quits. An item is enabled exactly when something
// can act on it at that moment.
class MenuBar : public QObject {
    Q_OBJECT
public:
    explicit MenuBar(QObject* parent = nullptr);
    ~MenuBar() override;

    // Adds a menu to the bar. `caption` may hold "&" before the mnemonic.
    QMenu* addMenu(const QString& name, const QString& caption);
    // Adds an item to the menu of that name. `shortcut` is a QKeySequence
    // (for example QKeySequence::Copy) or empty.
    QAction* addItem(const QString& menuName, const QString& name, const QString& caption,
                     const QKeySequence& shortcut = {}, ItemKind kind = ItemKind::Plain);

    QMenu* menu(const QString& name) const;
    QAction* item(const QString& name) const;

    // Shows this tree on the window: the same menus and items on every window.
    void installOn(Window& window);
    // Makes the quit shortcut work on a window that shows no menu bar.
    void installShortcutsOn(QWidget& window);

    // Recomputes which items are enabled for the frontmost window and focus.
    void updateEnabled();

private:
    void trigger(const QString& name);
    // Follows the focused text control, whose state enables the Edit items.
    void watchFocus(QWidget* focus);
    std::vector<QMenu*> menus_;
    std::vector<QAction*> items_;
    std::vector<QMetaObject::Connection> focusConnections_;
};

} // namespace tovarin::fw
