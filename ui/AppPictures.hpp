#pragma once

#include <QPixmap>

namespace tovarin {

// The application's pictures, read from its resources at the first call that
// finds them and shared from then on. A null picture when the file is absent;
// the next call looks again.
QPixmap Icon256();
QPixmap Tovarinbanner();

} // namespace tovarin
