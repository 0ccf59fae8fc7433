#pragma once

#include <QPixmap>
#include <QString>

namespace tovarin::fw {

// Reads a picture by file name from the application's resources folder,
// found beside the executable or in the installed data folder; a null
// pixmap if it is absent.
QPixmap openPictureFromApp(const QString& fileName);
// Overrides where pictures are looked for; for tests.
void setPictureFolder(const QString& folder);

} // namespace tovarin::fw
