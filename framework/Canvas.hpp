#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace tovarin::fw {

// Gives the picture for a screen of the given device pixel ratio; a null
// picture when there is none.
using PictureSource = std::function<QPixmap(qreal devicePixelRatio)>;

// A plain area that shows a backdrop picture with its top left corner at the
// canvas's top left corner. A null picture shows nothing.
class Canvas : public QWidget {
    Q_OBJECT
public:
    explicit Canvas(QWidget* parent = nullptr);
    // The backdrop is what `source` gives for the screen the canvas is on,
    // asked when the canvas is first painted, or its backdrop first asked
    // for, and again only on a screen of another ratio. Reading and decoding
    // a picture then waits until the window is on screen, and the first frame
    // shows it.
    void setBackdrop(PictureSource source);
    QPixmap backdrop() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PictureSource source_;
    mutable QPixmap backdrop_;
    mutable qreal askedFor_ = 0.0; // the ratio backdrop_ was asked for; 0 before the first
};

} // namespace tovarin::fw
