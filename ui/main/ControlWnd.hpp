#pragma once

#include "framework/Window.hpp"

namespace tovarin {

// The main window: the count field, the results area, the banner and the three buttons.
class ControlWnd : public fw::Window {
    Q_OBJECT
public:
    ControlWnd();
};

} // namespace tovarin
