#include "framework/FileChooser.hpp"

#include <QAbstractItemView>
#include <QCompleter>
#include <QEvent>
#include <QLineEdit>

namespace tovarin::fw {
namespace {

const QLatin1String kChooserName("tovarinFileChooser");

QLineEdit* nameField(const QFileDialog& dialog) {
    return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

} // namespace

FileChooser::FileChooser(QWidget* window) : QFileDialog(window) {
    setObjectName(kChooserName);
    setFileMode(QFileDialog::ExistingFile);
    setAcceptMode(QFileDialog::AcceptOpen);
    if (QWidget* list = completionList())
        list->installEventFilter(this);
}

FileChooser& FileChooser::of(QWidget* window) {
    if (window) {
        if (auto* kept = window->findChild<FileChooser*>(kChooserName, Qt::FindDirectChildrenOnly))
            return *kept;
    }
    // Without a window nothing keeps the chooser: choose() lets it go after its one use.
    return *new FileChooser(window);
}

std::optional<QString> FileChooser::choose() {
    // setText empties the name field and also its undo steps, which would
    // otherwise pile up name by name.
    if (QLineEdit* name = nameField(*this))
        name->setText(QString());
    const bool chosen = exec() == QDialog::Accepted && !selectedFiles().isEmpty();
    if (QWidget* list = completionList())
        list->hide();
    if (!parent())
        deleteLater();
    if (!chosen)
        return std::nullopt;
    return selectedFiles().constFirst();
}

QWidget* FileChooser::completionList() const {
    QLineEdit* name = nameField(*this);
    return name && name->completer() ? name->completer()->popup() : nullptr;
}

bool FileChooser::eventFilter(QObject* watched, QEvent* event) {
    // The list of names that complete the typed one comes up when the folder
    // it lists has been read, which can be after the dialog has closed; it
    // must not then stand alone on screen and take the next click.
    if (event->type() == QEvent::Show && !isVisible() && watched == completionList()) {
        QMetaObject::invokeMethod(completionList(), &QWidget::hide, Qt::QueuedConnection);
        return false;
    }
    return QFileDialog::eventFilter(watched, event);
}

} // namespace tovarin::fw
