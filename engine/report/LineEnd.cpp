#include "engine/report/LineEnd.hpp"

namespace tovarin {

const std::string& reportLineEnd() {
#if defined(_WIN32)
    static const std::string lineEnd = "\r\n";
#elif defined(__APPLE__)
    static const std::string lineEnd = "\n";
#else
    static const std::string lineEnd = "\r";
#endif
    return lineEnd;
}

const std::string& defaultTextLineEnd() {
#if defined(_WIN32)
    static const std::string lineEnd = "\r\n";
#else
    static const std::string lineEnd = "\n";
#endif
    return lineEnd;
}

} // namespace tovarin
