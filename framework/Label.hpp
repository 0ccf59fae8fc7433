#pragma once

#include <QLabel>

namespace tovarin::fw {

// A static text; a class of its own so a window finds its labels by type and name.
class Label : public QLabel {
    Q_OBJECT
public:
    explicit Label(QWidget* parent = nullptr) : QLabel(parent) {}
};

} // namespace tovarin::fw
