#pragma once

#include <QPixmap>
#include <QString>

namespace tovarin::fw {

// Reads a picture by file name from the application's resources folder,
// found beside the executable or in the installed data folder. For a screen
// with more than one device pixel to the unit, the file's @2x version
// ("Name@2x.png") is taken where there is one, and drawn at the plain
// picture's size. A null pixmap if neither is found.
QPixmap openPictureFromApp(const QString& fileName, qreal devicePixelRatio = 1.0);
// Overrides where pictures are looked for; for tests.
void setPictureFolder(const QString& folder);

} // namespace tovarin::fw
