#include "text/Fields.hpp"

namespace tovarin {

std::string ReplaceAll(std::string_view source, std::string_view find,
                       std::string_view replacement) {
    if (find.empty()) {
        return std::string(source);
    }
    std::string result;
    result.reserve(source.size());
    std::size_t from = 0;
    for (std::size_t hit = source.find(find); hit != std::string_view::npos;
         hit = source.find(find, from)) {
        result.append(source, from, hit - from);
        result.append(replacement);
        from = hit + find.size();
    }
    result.append(source, from);
    return result;
}

std::string_view NthField(std::string_view source, std::string_view separator,
                          std::int64_t number) {
    if (number < 1) {
        return {};
    }
    if (separator.empty()) {
        return number == 1 ? source : std::string_view();
    }
    std::size_t start = 0;
    for (std::int64_t field = 1; field < number; ++field) {
        const std::size_t hit = source.find(separator, start);
        if (hit == std::string_view::npos) {
            return {};
        }
        start = hit + separator.size();
    }
    const std::size_t end = source.find(separator, start);
    return source.substr(start, end == std::string_view::npos ? end : end - start);
}

} // namespace tovarin
