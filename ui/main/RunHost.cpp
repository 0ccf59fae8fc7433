#include "ui/main/RunHost.hpp"

#include "engine/report/LocalDateTime.hpp"
#include "framework/Dialogs.hpp"
#include "ui/main/ControlWnd.hpp"

#include <QFile>

namespace tovarin {

namespace {

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string toUtf8(const QString& text) {
    return text.toUtf8().toStdString();
}

// Some messages end in the report's line end; an alert shows no empty last line.
QString withoutTrailingLineEnd(QString text) {
    if (text.endsWith(QLatin1String("\r\n")))
        text.chop(2);
    else if (text.endsWith(u'\n') || text.endsWith(u'\r'))
        text.chop(1);
    return text;
}

} // namespace

RunHost::~RunHost() {
    endBatch();
}

void RunHost::beginBatch() {
    if (batch_)
        return;
    batch_.emplace(window_.ResultsFld()->document());
    batch_->beginEditBlock();
}

void RunHost::endBatch() {
    if (!batch_)
        return;
    batch_->endEditBlock();
    batch_.reset();
}

std::string RunHost::countText() const {
    return toUtf8(window_.pFld()->text());
}

void RunHost::showMessage(const std::string& text) {
    fw::messageBox(withoutTrailingLineEnd(fromUtf8(text)));
}

void RunHost::focusCountField() {
    window_.pFld()->setFocus();
}

std::optional<std::filesystem::path> RunHost::chooseDataFile() {
    const std::optional<QString> chosen = fw::chooseExistingFile(&window_);
    if (!chosen)
        return std::nullopt;
#ifdef Q_OS_WIN
    // The UTF-16 name the system's wide calls take: the bytes of encodeName
    // would go through the ANSI code page there and lose what lies outside it.
    return std::filesystem::path(chosen->toStdWString());
#else
    // The file system's own bytes, so a name in any encoding opens as chosen.
    return std::filesystem::path(QFile::encodeName(*chosen).toStdString());
#endif
}

void RunHost::showResults() {
    window_.ResultsFld()->setVisible(true);
}

void RunHost::appendResults(std::string_view piece) {
    beginBatch();
    window_.ResultsFld()->appendPlain(fromUtf8(piece));
}

void RunHost::setResultsBold(std::int64_t start, std::int64_t length) {
    endBatch();
    window_.ResultsFld()->setBold(start, length);
}

// The same forms as the command-line tool, from the C library's locale, which
// QApplication set from the user's environment: the same file gives the same
// report in both.
DateTimeText RunHost::currentDateTime() {
    return currentLocalDateTime();
}

} // namespace tovarin
