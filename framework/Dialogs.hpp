#pragma once

#include <QString>

#include <functional>
#include <optional>

class QWidget;

namespace tovarin::fw {

// A modal alert with the text and one dismiss button. Tests install a handler
// that answers instead of a person.
void messageBox(const QString& text);
void setMessageBoxHandler(std::function<void(const QString&)> handler);

// The system's file chooser for one existing file, no filter, title or start
// folder, over the window of `parent` (else the active window); it opens
// where the last choice was made. nullopt when the user cancels. Tests
// install a handler that answers.
std::optional<QString> chooseExistingFile(QWidget* parent = nullptr);
void setFileChooserHandler(std::function<std::optional<QString>()> handler);

// The system's alert sound, once. Tests can count the calls.
void beep();
void setBeepHandler(std::function<void()> handler);

// Shows a failure that nothing else handled, with its reason; the app goes on.
// Tests install a handler that records the reason instead of a dialog.
void reportUnhandledFailure(const QString& reason);
void setUnhandledFailureHandler(std::function<void(const QString&)> handler);

} // namespace tovarin::fw
