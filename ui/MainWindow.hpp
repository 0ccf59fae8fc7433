#pragma once

namespace tovarin::fw {
class Window;
}

namespace tovarin {

// The main window as the splash and the Information window reach it, through
// its accessor, without building on its class (defined with ControlWnd).

// The open main window, or a new one, made visible and brought to the front.
void showMainWindow();
// The open main window when it is on screen, else nullptr; never makes one.
const fw::Window* visibleMainWindow();

} // namespace tovarin
