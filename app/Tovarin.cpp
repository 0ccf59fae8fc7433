#include "app/Tovarin.hpp"

namespace tovarin {

Tovarin::Tovarin(int& argc, char** argv) : fw::Application(argc, argv) {}

} // namespace tovarin
