#include "framework/Dialogs.hpp"

#include "framework/FileChooser.hpp"

#include <QApplication>
#include <QMessageBox>

namespace tovarin::fw {
namespace {

std::function<void(const QString&)>& messageBoxHandler() {
    static std::function<void(const QString&)> handler;
    return handler;
}

std::function<std::optional<QString>()>& fileChooserHandler() {
    static std::function<std::optional<QString>()> handler;
    return handler;
}

std::function<void()>& beepHandler() {
    static std::function<void()> handler;
    return handler;
}

std::function<void(const QString&)>& failureHandler() {
    static std::function<void(const QString&)> handler;
    return handler;
}

} // namespace

void messageBox(const QString& text) {
    if (auto& handler = messageBoxHandler()) {
        handler(text);
        return;
    }
    QMessageBox box(QApplication::activeWindow());
    box.setText(text);
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

void setMessageBoxHandler(std::function<void(const QString&)> handler) {
    messageBoxHandler() = std::move(handler);
}

std::optional<QString> chooseExistingFile(QWidget* parent) {
    if (auto& handler = fileChooserHandler())
        return handler();
    return FileChooser::of(parent ? parent->window() : QApplication::activeWindow()).choose();
}

void setFileChooserHandler(std::function<std::optional<QString>()> handler) {
    fileChooserHandler() = std::move(handler);
}

void beep() {
    if (auto& handler = beepHandler()) {
        handler();
        return;
    }
    QApplication::beep();
}

void setBeepHandler(std::function<void()> handler) {
    beepHandler() = std::move(handler);
}

void reportUnhandledFailure(const QString& reason) {
    if (auto& handler = failureHandler()) {
        handler(reason);
        return;
    }
    QMessageBox box(QApplication::activeWindow());
    box.setIcon(QMessageBox::Critical);
    box.setText(QStringLiteral("An error occurred that the program could not handle."));
    box.setInformativeText(reason);
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

void setUnhandledFailureHandler(std::function<void(const QString&)> handler) {
    failureHandler() = std::move(handler);
}

} // namespace tovarin::fw
