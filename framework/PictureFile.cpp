#include "framework/PictureFile.hpp"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace tovarin::fw {
namespace {

QString& pictureFolderOverride() {
    static QString folder;
    return folder;
}

// Beside the executable in a build tree; ../share/tovarin once installed,
// wherever the installed tree was moved or unpacked; last the data folder the
// build was made for, for an executable put somewhere else.
QStringList pictureFolders() {
    if (!pictureFolderOverride().isEmpty())
        return {pictureFolderOverride()};
    const QDir exeDir(QCoreApplication::applicationDirPath());
    return {exeDir.path(), exeDir.filePath(QStringLiteral("../share/tovarin")),
            QStringLiteral(TOVARIN_DATADIR)};
}

} // namespace

QPixmap openPictureFromApp(const QString& fileName) {
    for (const QString& folder : pictureFolders()) {
        const QString path = QDir(folder).filePath(fileName);
        if (!QFileInfo(path).isFile())
            continue;
        QPixmap picture;
        if (picture.load(path))
            return picture;
    }
    return {};
}

void setPictureFolder(const QString& folder) {
    pictureFolderOverride() = folder;
}

} // namespace tovarin::fw
