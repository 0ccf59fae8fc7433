#include "ui/main/MenuBar1.hpp"

namespace tovarin {

fw::MenuBar& MenuBar1() {
    static fw::MenuBar* bar = new fw::MenuBar();
    return *bar;
}

} // namespace tovarin
