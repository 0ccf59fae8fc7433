#include "framework/Application.hpp"

#include "framework/HandlerGuard.hpp"
#include "framework/Window.hpp"

#include <QList>
#include <QPixmapCache>
#include <QPointer>

namespace tovarin::fw {
namespace {

constexpr int kPixmapCacheKiB = 4096;

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    // The program ends only by an explicit quit; hiding the splash before the
    // main window is up must not end the run.
    setQuitOnLastWindowClosed(false);
    // Every message box brings new icons, whose scaled copies go into Qt's
    // pixmap cache under new keys; the cache keeps them up to its limit. The
    // windows' own cached drawing needs far less than Qt's 10 MB default.
    QPixmapCache::setCacheLimit(kPixmapCacheKiB);
}

Application::~Application() {
    // Nothing keeps a reference to a window (each use asks for the open
    // instance), so the windows still open when the run ends, such as the
    // hidden splash, are freed here while Qt can still take them down. Guarded
    // pointers, since taking one window down may take another with it.
    QList<QPointer<Window>> open;
    for (QWidget* widget : topLevelWidgets()) {
        if (auto* window = qobject_cast<Window*>(widget))
            open.append(window);
    }
    for (const QPointer<Window>& window : open)
        delete window.data();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    // The last line of defence: handlers are guarded where they are called,
    // and this catches whatever else escapes event delivery.
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        reportCurrentException();
    }
    return true;
}

void Application::setVersionData(const Version& version) {
    setApplicationName(version.packageInfo);
    setApplicationVersion(version.shortVersion);
}

} // namespace tovarin::fw
