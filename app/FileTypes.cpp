#include "app/FileTypes.hpp"

namespace tovarin {

namespace FileTypes1 {
namespace {
FileType* textSlot = nullptr;
std::vector<std::unique_ptr<FileType>> allTypes;
} // namespace

void Initialize() {
    auto type = std::make_unique<FileType>();
    textSlot = type.get();
    type->setName(QStringLiteral("text/plain"));
    type->setExtensions(QStringLiteral(".txt, dat"));
    type->setMacType(QStringLiteral("TEXT"));
    type->setMacCreator(QStringLiteral("????"));
    type->setMimeType(QString());
    type->setImported(true);
    type->setConformsTo(QStringLiteral("public.content"));
    type->setUti(QStringLiteral("public.text"));
    allTypes.push_back(std::move(type));
    // Reading the type as text is what registers it.
    Text()->toString();
}

FileType* Text() {
    return textSlot;
}

const std::vector<std::unique_ptr<FileType>>& pAllFileTypes() {
    return allTypes;
}
} // namespace FileTypes1

namespace FileTypeGroup1 {
namespace {
FileType* untitledSlot = nullptr;
std::vector<std::unique_ptr<FileType>> allTypes;
} // namespace

void Initialize() {
    auto type = std::make_unique<FileType>();
    untitledSlot = type.get();
    type->setName(QStringLiteral("Untitled"));
    type->setExtensions(QString());
    type->setMacType(QString());
    type->setMacCreator(QString());
    type->setMimeType(QString());
    type->setImported(true);
    type->setConformsTo(QString());
    allTypes.push_back(std::move(type));
    Untitled()->toString();
}

FileType* Untitled() {
    return untitledSlot;
}

const std::vector<std::unique_ptr<FileType>>& pAllFileTypes() {
    return allTypes;
}
} // namespace FileTypeGroup1

} // namespace tovarin
