#pragma once

#include <QString>

#include <vector>

namespace tovarin {

class FileType;

// What the application has registered of a file type, in the order the
// platform takes the values.
struct RegisteredFileType {
    const FileType* type = nullptr;
    QString name, macCreator, macType, extensions, uti;
};

// The file types the application stands registered for, oldest first.
const std::vector<RegisteredFileType>& registeredFileTypes();
void registerFileType(const FileType& type);
void deregisterFileType(const FileType& type);

} // namespace tovarin
