#pragma once

#include "framework/MenuBar.hpp"

namespace tovarin {

// The one menu bar of the program, built at the first call and shared by every window.
fw::MenuBar& MenuBar1();

} // namespace tovarin
