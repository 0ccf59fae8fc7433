#pragma once

#include "app/FileTypeRegistry.hpp"
#include "app/Startup.hpp"
#include "framework/PictureFile.hpp"

#include <QLocale>
#include <QTest>

namespace tovarin::testing {

// What stood before the start-up sequence ran.
struct BeforeStartup {
    std::size_t registeredTypes = 0;
    bool hadApplication = false;
};
inline BeforeStartup beforeStartup;

} // namespace tovarin::testing

// Runs the program's own early start-up, as main() does, then the Qt Test object.
// `pictureFolder` is where the pictures are looked for.
#define TOVARIN_APP_TEST_MAIN(TestObject, pictureFolder)                                           \
    int main(int argc, char** argv) {                                                              \
        qputenv("LC_ALL", "C.UTF-8");                                                              \
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);                               \
        tovarin::testing::beforeStartup = {tovarin::registeredFileTypes().size(),                  \
                                           QCoreApplication::instance() != nullptr};               \
        tovarin::fw::setPictureFolder(pictureFolder);                                              \
        tovarin::EarlyStartup();                                                                   \
        QLocale::setDefault(QLocale::c());                                                         \
        int status = 0;                                                                            \
        {                                                                                          \
            TestObject test;                                                                       \
            status = QTest::qExec(&test, argc, argv);                                              \
        }                                                                                          \
        tovarin::ShutDown();                                                                       \
        return status;                                                                             \
    }
