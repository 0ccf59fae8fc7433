#pragma once

#include <QString>

namespace tovarin {

// A kind of document the application knows. Changing a field takes the type
// out of the registry; reading the type as text puts it back in.
class FileType {
public:
    FileType() = default;
    FileType(const FileType&) = delete;
    FileType& operator=(const FileType&) = delete;
    ~FileType();

    const QString& name() const { return name_; }
    const QString& mimeType() const { return mimeType_; }
    const QString& macType() const { return macType_; }
    const QString& macCreator() const { return macCreator_; }
    const QString& uti() const { return uti_; }
    const QString& conformsTo() const { return conformsTo_; }
    const QString& extensions() const { return extensions_; }
    bool imported() const { return imported_; }
    bool isRegistered() const { return registered_; }

    void setName(const QString& value);
    void setMimeType(const QString& value);
    void setMacType(const QString& value);
    void setMacCreator(const QString& value);
    void setUti(const QString& value);
    void setConformsTo(const QString& value);
    void setExtensions(const QString& value);
    void setImported(bool value);

    // The type as text (its name); registers the type if it is not registered.
    QString toString();

private:
    void deregister();

    QString name_, mimeType_, macType_, macCreator_, uti_, conformsTo_, extensions_;
    bool imported_ = false;
    bool registered_ = false;
};

} // namespace tovarin
