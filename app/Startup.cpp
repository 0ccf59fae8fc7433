#include "app/Startup.hpp"

#include "app/FileTypes.hpp"
#include "app/Tovarin.hpp"
#include "engine/Credit.hpp"
#include "ui/main/MenuBar1.hpp"
#include "ui/secondary/AboutWnd.hpp"

#include <QGuiApplication>

#include <cstdlib>
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

bool environmentSet(const char* name) {
    const char* value = std::getenv(name);
    return value && *value;
}

} // namespace

bool hasDisplay() {
    return environmentSet("QT_QPA_PLATFORM") || environmentSet("DISPLAY") ||
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
    auto app = std::make_unique<Tovarin>(argumentCount, arguments);
    fw::Application::Version version;
    version.major = 1;
    version.minor = 1;
    version.bug = 0;
    version.nonRelease = 0;
    version.stageCode = 3; // final release
    version.longVersion = QString::fromUtf8(kCreditLine);
    version.shortVersion = QStringLiteral("1.1");
    version.packageInfo = QStringLiteral("Tovarin");
    app->setVersionData(version);
    QCoreApplication::setApplicationName(version.packageInfo);
    QCoreApplication::setApplicationVersion(version.shortVersion);
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
    EarlyStartup();
    LateStartup();
    const int exitValue = QCoreApplication::exec();
    ShutDown();
    return exitValue;
}

} // namespace tovarin
