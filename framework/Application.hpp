#pragma once

#include <QApplication>

namespace tovarin::fw {

// The application object's base. Any failure that escapes an event handler is
// shown to the user with its reason and the application keeps running.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;

    // Version data of the application.
    struct Version {
        qint64 major = 0, minor = 0, bug = 0, nonRelease = 0, stageCode = 0;
        QString longVersion, shortVersion, packageInfo;
    };
    void setVersionData(const Version& version);
    const Version& version() const { return version_; }

private:
    Version version_;
};

} // namespace tovarin::fw
