#pragma once

#include "framework/Application.hpp"

#include <QLocale>
#include <QTest>

// Runs a Qt Test object inside the framework's application object, with Qt's
// own dialogs (so tests can find and close them) and one fixed locale.
#define TOVARIN_FRAMEWORK_TEST_MAIN(TestObject)                                                    \
    int main(int argc, char** argv) {                                                              \
        qputenv("LC_ALL", "C.UTF-8");                                                              \
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);                               \
        tovarin::fw::Application app(argc, argv);                                                  \
        QLocale::setDefault(QLocale::c());                                                         \
        TestObject test;                                                                           \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
