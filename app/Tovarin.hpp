#pragma once

#include "framework/Application.hpp"

namespace tovarin {

// The application object. It adds nothing to the framework's: the program's
// logic lives in its windows.
class Tovarin : public fw::Application {
    Q_OBJECT
public:
    Tovarin(int& argc, char** argv);
};

} // namespace tovarin
