#pragma once

#include "framework/Dialogs.hpp"
#include "ui/main/ControlWnd.hpp"

#include <QStringList>
#include <QTest>

#include <functional>
#include <optional>

namespace tovarin::testing {

// Answers the platform's dialogs instead of a person and counts the alert sounds.
struct PlatformRecorder {
    QStringList messages;
    QStringList failures;
    int beeps = 0;
    int choices = 0;
    std::function<std::optional<QString>()> answerChoice = [] { return std::nullopt; };

    void install() {
        fw::setMessageBoxHandler([this](const QString& text) { messages.append(text); });
        fw::setUnhandledFailureHandler([this](const QString& why) { failures.append(why); });
        fw::setBeepHandler([this] { ++beeps; });
        fw::setFileChooserHandler([this] {
            ++choices;
            return answerChoice();
        });
    }
};

// A main window made afresh, shown and active, so focus and menus behave as on screen.
inline ControlWnd& freshControlWnd() {
    if (auto* old = fw::openInstance<ControlWnd>())
        delete old;
    ControlWnd& window = fw::instance<ControlWnd>();
    window.showWindow();
    if (!QTest::qWaitForWindowActive(&window))
        qWarning("the main window did not become active");
    return window;
}

} // namespace tovarin::testing
