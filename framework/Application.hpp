#pragma once

#include <QApplication>

namespace tovarin::fw {

class MenuBar;

// The application object's base. Any failure that escapes an event handler is
// shown to the user with its reason and the application keeps running.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv);
    // Takes down the windows that are still open, hidden ones included.
    ~Application() override;
    bool notify(QObject* receiver, QEvent* event) override;

    // Version data of the application. The program itself reads none of it
    // back: it is for whatever asks the application from outside, which in Qt
    // means its name and version (the desktop, assistive technology).
    struct Version {
        qint64 major = 0, minor = 0, bug = 0, nonRelease = 0, stageCode = 0;
        QString longVersion, shortVersion, packageInfo;
    };
    void setVersionData(const Version& version);

    // The menu bar of the application, shown by windows that have none of their own.
    void setMenuBar(MenuBar* bar) { menuBar_ = bar; }
    MenuBar* menuBar() const { return menuBar_; }

private:
    MenuBar* menuBar_ = nullptr;
};

} // namespace tovarin::fw
