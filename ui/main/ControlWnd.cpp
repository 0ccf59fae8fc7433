#include "ui/main/ControlWnd.hpp"

namespace tovarin {

ControlWnd::ControlWnd() : fw::Window(700, 600) {}

} // namespace tovarin
