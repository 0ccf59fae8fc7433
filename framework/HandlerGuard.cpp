#include "framework/HandlerGuard.hpp"

#include "framework/Dialogs.hpp"

#include <QString>

#include <exception>

namespace tovarin::fw {

void reportCurrentException() {
    try {
        throw;
    } catch (const std::exception& failure) {
        reportUnhandledFailure(QString::fromUtf8(failure.what()));
    } catch (...) {
        reportUnhandledFailure(QStringLiteral("An unknown failure occurred."));
    }
}

} // namespace tovarin::fw
