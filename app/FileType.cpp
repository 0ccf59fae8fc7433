#include "app/FileType.hpp"

#include "app/FileTypeRegistry.hpp"

namespace tovarin {

FileType::~FileType() {
    deregister();
}

void FileType::deregister() {
    if (!registered_)
        return;
    deregisterFileType(*this);
    registered_ = false;
}

void FileType::setName(const QString& value) {
    deregister();
    name_ = value;
}

void FileType::setMimeType(const QString& value) {
    deregister();
    mimeType_ = value;
}

void FileType::setMacType(const QString& value) {
    deregister();
    macType_ = value;
}

void FileType::setMacCreator(const QString& value) {
    deregister();
    macCreator_ = value;
}

void FileType::setUti(const QString& value) {
    deregister();
    uti_ = value;
}

void FileType::setConformsTo(const QString& value) {
    deregister();
    conformsTo_ = value;
}

void FileType::setExtensions(const QString& value) {
    deregister();
    extensions_ = value;
}

void FileType::setImported(bool value) {
    deregister();
    imported_ = value;
}

QString FileType::toString() {
    if (!registered_) {
        registerFileType(*this);
        registered_ = true;
    }
    return name_;
}

} // namespace tovarin
