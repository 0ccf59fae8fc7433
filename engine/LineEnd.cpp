#include "engine/AnalysisRun.hpp"

namespace tovarin {

const std::string& platformLineEnd() {
#if defined(_WIN32)
    static const std::string lineEnd = "\r\n";
#elif defined(__APPLE__)
    static const std::string lineEnd = "\n";
#else
    static const std::string lineEnd = "\r";
#endif
    return lineEnd;
}

} // namespace tovarin
