#include "app/Startup.hpp"

#include "app/FileTypes.hpp"
#include "app/Tovarin.hpp"
#include "engine/Version.hpp"
#include "framework/DisplayGuard.hpp"
#include "framework/HandlerGuard.hpp"
#include "ui/MenuBar1.hpp"
#include "ui/secondary/AboutWnd.hpp"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>

namespace tovarin {
namespace {

std::unique_ptr<Tovarin>& applicationSlot() {
    static std::unique_ptr<Tovarin> app;
    return app;
}

// The program takes no arguments: Qt sees only the program name, so nothing
// given on the command line changes what happens.
int argumentCount = 1;
char programName[] = "tovarin";
char* arguments[] = {programName, nullptr};

void reportToTerminal() {
    try {
        throw;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tovarin: %s\n", failure.what());
    } catch (...) {
        std::fputs("tovarin: an unknown failure occurred at start-up\n", stderr);
    }
}

bool environmentSet(const char* name) {
    const char* value = std::getenv(name);
    return value && *value;
}

} // namespace

bool hasDisplay() {
    // Windows and macOS have one window system, there for every program a
    // user starts; X11 and Wayland are found through the environment.
    constexpr bool kOneWindowSystem =
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
        true;
#else
        false;
#endif
    return kOneWindowSystem || environmentSet("QT_QPA_PLATFORM") || environmentSet("DISPLAY") ||
           environmentSet("WAYLAND_DISPLAY");
}

Tovarin* application() {
    return applicationSlot().get();
}

void ShutDown() {
    applicationSlot().reset();
}

void EarlyStartup() {
    // Qt 6 always scales for high-density screens; pass the screen's exact
    // factor through instead of rounding it, before anything can draw.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    InitFileTypes();
    NewAppInstance();
    ApplicationAddMenuHandlers();
}

void InitFileTypes() {
    FileTypes1::Initialize();
    FileTypeGroup1::Initialize();
}

void NewAppInstance() {
    std::unique_ptr<Tovarin> app;
    {
        const fw::DisplayGuard guard(programName);
        app = std::make_unique<Tovarin>(argumentCount, arguments);
    }
    fw::Application::Version version;
    version.major = kVersionMajor;
    version.minor = kVersionMinor;
    version.bug = kVersionPatch;
    version.nonRelease = 0;
    version.stageCode = 3; // final release
    version.longVersion = QString::fromUtf8(kCreditLine);
    version.shortVersion = QString::fromUtf8(kShortVersion);
    version.packageInfo = QStringLiteral("Tovarin");
    app->setVersionData(version);
    app->setMenuBar(&MenuBar1());
    applicationSlot() = std::move(app);
}

void ApplicationAddMenuHandlers() {
    // The application object answers no menu item itself.
}

void LateStartup() {
    MakeDefaultView();
}

void MakeDefaultView() {
    fw::instance<AboutWnd>();
}

int Main() {
    // A failure in a step skips the steps behind it and is shown to the user;
    // before the application object exists there is only the terminal.
    int exitValue = 1;
    try {
        EarlyStartup();
        LateStartup();
        exitValue = QCoreApplication::exec();
    } catch (...) {
        if (application())
            fw::reportCurrentException();
        else
            reportToTerminal();
    }
    ShutDown();
    return exitValue;
}

} // namespace tovarin
