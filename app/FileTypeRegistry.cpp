#include "app/FileTypeRegistry.hpp"

#include "app/FileType.hpp"

#include <algorithm>

namespace tovarin {
namespace {

// Never destroyed: file types held in static slots leave the registry at exit.
std::vector<RegisteredFileType>& registry() {
    static auto* types = new std::vector<RegisteredFileType>();
    return *types;
}

} // namespace

const std::vector<RegisteredFileType>& registeredFileTypes() {
    return registry();
}

void registerFileType(const FileType& type) {
    deregisterFileType(type);
    registry().push_back(
        {&type, type.name(), type.macCreator(), type.macType(), type.extensions(), type.uti()});
}

void deregisterFileType(const FileType& type) {
    auto& types = registry();
    types.erase(
        std::remove_if(types.begin(), types.end(),
                       [&](const RegisteredFileType& entry) { return entry.type == &type; }),
        types.end());
}

} // namespace tovarin
