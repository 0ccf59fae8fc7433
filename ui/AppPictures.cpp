#include "ui/AppPictures.hpp"

#include "framework/PictureFile.hpp"

#include <array>

namespace tovarin {
namespace {

// The plain version and the @2x one, each released with the process, never
// before: they live on the heap so they do not outlive the application object
// they were decoded for.
using Versions = std::array<QPixmap*, 2>;

QPixmap cachedPicture(Versions& versions, const QString& fileName, qreal devicePixelRatio) {
    QPixmap*& cache = versions[devicePixelRatio > 1.0 ? 1 : 0];
    if (!cache)
        cache = new QPixmap();
    if (cache->isNull())
        *cache = fw::openPictureFromApp(fileName, devicePixelRatio);
    return *cache;
}

} // namespace

QPixmap Icon256(qreal devicePixelRatio) {
    static Versions versions{};
    return cachedPicture(versions, QStringLiteral("Icon256.png"), devicePixelRatio);
}

QPixmap Tovarinbanner(qreal devicePixelRatio) {
    static Versions versions{};
    return cachedPicture(versions, QStringLiteral("Tovarinbanner.png"), devicePixelRatio);
}

} // namespace tovarin
