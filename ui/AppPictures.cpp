#include "ui/AppPictures.hpp"

#include "framework/PictureFile.hpp"

namespace tovarin {
namespace {

QPixmap cachedPicture(QPixmap& cache, const QString& fileName) {
    if (cache.isNull())
        cache = fw::openPictureFromApp(fileName);
    return cache;
}

// Released with the process, never before: the static lives on the heap so it
// does not outlive the application object it was decoded for.
QPixmap& slot(QPixmap*& cache) {
    if (!cache)
        cache = new QPixmap();
    return *cache;
}

} // namespace

QPixmap Icon256() {
    static QPixmap* cache = nullptr;
    return cachedPicture(slot(cache), QStringLiteral("Icon256.png"));
}

QPixmap Tovarinbanner() {
    static QPixmap* cache = nullptr;
    return cachedPicture(slot(cache), QStringLiteral("Tovarinbanner.png"));
}

} // namespace tovarin
