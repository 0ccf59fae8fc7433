#pragma once

#include <QLocale>
#include <QTest>

// The main of every Qt test: Qt's own dialogs (so tests can find and close
// them) and one fixed locale, then `start` (which makes the application object
// and may run more of the start-up), the test object, and `stop`.
#define TOVARIN_QT_TEST_MAIN(TestObject, start, stop)                                              \
    int main(int argc, char** argv) {                                                              \
        qputenv("LC_ALL", "en_US.UTF-8");                                                          \
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);                               \
        start;                                                                                     \
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));                     \
        const int status = [&] {                                                                   \
            TestObject test;                                                                       \
            return QTest::qExec(&test, argc, argv);                                                \
        }();                                                                                       \
        return stop, status;                                                                       \
    }
