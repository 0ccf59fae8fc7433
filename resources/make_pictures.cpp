// Draws the application's two pictures, the icon and the main window's banner,
// at their size and at twice it (the @2x files, for high-density screens): the
// same drawing in the same coordinates, so the two differ only in sharpness.
// Build and run with make-pictures.sh; the PNGs it writes are committed.

#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <cstdio>

namespace {

const QColor kDeepBlue(18, 38, 66);
const QColor kSlateBlue(36, 72, 112);
const QColor kBar(120, 170, 210);
const QColor kBest(253, 204, 101); // the lowest BIC stands out, in the banner's label colour

// A small bar chart: bar heights as fractions of `area`, the shortest one marked.
void drawBars(QPainter& painter, const QRectF& area, const std::initializer_list<double>& heights) {
    const double count = static_cast<double>(heights.size());
    const double slot = area.width() / count;
    const double width = slot * 0.62;
    double lowest = 1.0;
    for (double h : heights)
        lowest = std::min(lowest, h);
    int i = 0;
    for (double h : heights) {
        const double barHeight = area.height() * h;
        const QRectF bar(area.left() + i * slot + (slot - width) / 2, area.bottom() - barHeight,
                         width, barHeight);
        painter.setBrush(h == lowest ? kBest : kBar);
        painter.drawRoundedRect(bar, width * 0.12, width * 0.12);
        ++i;
    }
}

// An image of `size` drawing units with `scale` pixels to the unit.
QImage canvas(QSize size, int scale, QImage::Format format) {
    QImage image(size * scale, format);
    image.setDevicePixelRatio(scale);
    return image;
}

QImage icon(int scale) {
    QImage image = canvas(QSize(256, 256), scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient background(0, 0, 0, 256);
    background.setColorAt(0, kSlateBlue);
    background.setColorAt(1, kDeepBlue);
    painter.setPen(Qt::NoPen);
    painter.setBrush(background);
    painter.drawRoundedRect(QRectF(8, 8, 240, 240), 44, 44);
    drawBars(painter, QRectF(44, 60, 168, 130), {0.85, 0.55, 0.25, 0.7, 0.95});
    painter.setBrush(QColor(255, 255, 255, 200));
    painter.drawRect(QRectF(40, 194, 176, 4));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(28);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(8, 200, 240, 40), Qt::AlignCenter, QStringLiteral("BIC"));
    return image;
}

QImage banner(int scale) {
    QImage image = canvas(QSize(935, 90), scale, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient background(0, 0, 935, 0);
    background.setColorAt(0, kSlateBlue);
    background.setColorAt(0.45, kDeepBlue);
    background.setColorAt(1, QColor(24, 52, 84));
    painter.fillRect(QRect(0, 0, 935, 90), background);
    // A quiet line along the bottom edge.
    painter.fillRect(QRect(0, 86, 935, 4), QColor(253, 204, 101, 160));

    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(40);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRect(28, 0, 330, 86), Qt::AlignVCenter | Qt::AlignLeft,
                     QStringLiteral("Tovarin"));

    // The chart sits right of the credit label (x 401 to 528) and clear of it.
    painter.setPen(Qt::NoPen);
    drawBars(painter, QRectF(570, 18, 110, 60), {0.8, 0.45, 0.2, 0.6, 0.9});
    return image;
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".");
    for (const int scale : {1, 2}) {
        const QString suffix = scale == 1 ? QStringLiteral(".png") : QStringLiteral("@2x.png");
        if (!icon(scale).save(folder + QStringLiteral("/Icon256") + suffix) ||
            !banner(scale).save(folder + QStringLiteral("/Tovarinbanner") + suffix)) {
            std::fprintf(stderr, "make_pictures: cannot write the pictures to %s\n",
                         qPrintable(folder));
            return 1;
        }
    }
    return 0;
}
