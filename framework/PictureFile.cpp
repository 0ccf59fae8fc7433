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

// "Name.png" becomes "Name@2x.png".
QString sharperVersion(const QString& fileName) {
    const qsizetype dot = fileName.lastIndexOf(u'.');
    const qsizetype at = dot < 0 ? fileName.size() : dot;
    return fileName.left(at) + QStringLiteral("@2x") + fileName.mid(at);
}

QPixmap findPicture(const QString& fileName) {
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

} // namespace

QPixmap openPictureFromApp(const QString& fileName, qreal devicePixelRatio) {
    if (devicePixelRatio > 1.0) {
        QPixmap sharp = findPicture(sharperVersion(fileName));
        if (!sharp.isNull()) {
            sharp.setDevicePixelRatio(2.0);
            return sharp;
        }
    }
    return findPicture(fileName);
}

void setPictureFolder(const QString& folder) {
    pictureFolderOverride() = folder;
}

} // namespace tovarin::fw
