#pragma once

#include <QFileDialog>

#include <optional>

namespace tovarin::fw {

// The file dialog for one existing file, kept by its window between uses. A
// new dialog for every use makes new icons each time, whose scaled copies
// fill Qt's pixmap cache use by use; this one opens again where the last
// choice was made, with an empty name field.
class FileChooser : public QFileDialog {
    Q_OBJECT
public:
    // The window's chooser, made at its first use; for a null window, one
    // made for a single use.
    static FileChooser& of(QWidget* window);
    // The chosen file's path, or nullopt when the user cancels.
    std::optional<QString> choose();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit FileChooser(QWidget* window);
    QWidget* completionList() const;
};

} // namespace tovarin::fw
