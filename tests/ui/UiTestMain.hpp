#pragma once

#include "framework/Application.hpp"
#include "framework/PictureFile.hpp"

#include <QLocale>
#include <QTest>

// Runs a Qt Test object inside the program's own application object, so that a
// failure thrown out of a handler takes the same road as in the program, with
// the file dialogs of Qt, the pictures of the source tree and one fixed
// locale whatever the machine has.
#define TOVARIN_UI_TEST_MAIN(TestObject)                                                           \
    int main(int argc, char** argv) {                                                              \
        qputenv("LC_ALL", "en_US.UTF-8");                                                          \
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);                               \
        tovarin::fw::Application app(argc, argv);                                                  \
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));                     \
        tovarin::fw::setPictureFolder(QStringLiteral(TOVARIN_TEST_PICTURES));                      \
        TestObject test;                                                                           \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
