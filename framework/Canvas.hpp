#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace tovarin::fw {

// Gives a picture when asked; a null picture when there is none.
using PictureSource = std::function<QPixmap()>;

// A plain area that shows a backdrop picture with its top left corner at the
// canvas's top left corner. A null picture shows nothing.
class Canvas : public QWidget {
    Q_OBJECT
public:
    explicit Canvas(QWidget* parent = nullptr);
    void setBackdrop(const QPixmap& picture);
    // The backdrop is what `source` gives, asked once: when the canvas is first
    // painted, or its backdrop first asked for. Reading and decoding a picture
    // then waits until the window is on screen, and the first frame shows it.
    void setBackdropSource(PictureSource source);
    const QPixmap& backdrop() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    mutable PictureSource source_;
    mutable QPixmap backdrop_;
};

} // namespace tovarin::fw
