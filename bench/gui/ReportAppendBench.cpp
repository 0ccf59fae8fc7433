// How long the main window takes to take in a 99-model report when its results
// area already holds 50 reports: through the window's own append path, and as
// a whole press of the Load Data File button.
#include "engine/report/AnalysisRun.hpp"
#include "framework/Application.hpp"
#include "framework/Dialogs.hpp"
#include "ui/main/ControlWnd.hpp"
#include "ui/main/RunHost.hpp"

#include <QFile>
#include <QTemporaryDir>
#include <QTextCursor>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

using namespace tovarin;

namespace {

constexpr int kModels = 99;
constexpr int kEarlierReports = 50;

// One call the engine made of its host while writing a report.
struct ReportStep {
    std::string piece;
    std::int64_t boldStart = 0;
    std::int64_t boldLength = 0;
};

// Takes down a report as the engine writes it, to replay it into the window.
class RecordingHost final : public AnalysisHost {
public:
    explicit RecordingHost(std::filesystem::path file) : file_(std::move(file)) {}
    std::vector<ReportStep> steps;

    std::string countText() const override { return std::to_string(kModels); }
    void showMessage(const std::string& text) override {
        std::fprintf(stderr, "unexpected message: %s\n", text.c_str());
    }
    void focusCountField() override {}
    std::optional<std::filesystem::path> chooseDataFile() override { return file_; }
    void showResults() override {}
    void appendResults(std::string_view piece) override {
        steps.push_back({std::string(piece), 0, 0});
    }
    void setResultsBold(std::int64_t start, std::int64_t length) override {
        steps.push_back({{}, start, length});
    }
    DateTimeText currentDateTime() override { return {"1/2/26", "9:41 AM"}; }

private:
    std::filesystem::path file_;
};

struct Setup {
    QTemporaryDir folder;
    QString dataFile;
    std::vector<ReportStep> report;
};

Setup& setup() {
    static Setup s;
    return s;
}

void replay(ControlWnd& window, const std::vector<ReportStep>& steps) {
    RunHost host(window);
    host.showResults();
    for (const ReportStep& step : steps) {
        if (step.boldLength > 0)
            host.setResultsBold(step.boldStart, step.boldLength);
        else
            host.appendResults(step.piece);
    }
}

ControlWnd& windowWithEarlierReports() {
    ControlWnd& window = fw::instance<ControlWnd>();
    window.showWindow();
    window.ResultsFld()->clear();
    for (int i = 0; i < kEarlierReports; ++i)
        replay(window, setup().report);
    QCoreApplication::processEvents();
    return window;
}

// Takes the newest report off again, so every iteration starts from 50 reports.
void dropTail(ControlWnd& window, int keepCharacters) {
    QTextCursor cursor(window.ResultsFld()->document());
    cursor.setPosition(keepCharacters);
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    window.ResultsFld()->document()->clearUndoRedoStacks();
    QCoreApplication::processEvents();
}

int endPosition(const ControlWnd& window) {
    return window.ResultsFld()->document()->characterCount() - 1;
}

void BM_AppendReport(benchmark::State& state) {
    ControlWnd& window = windowWithEarlierReports();
    const int keep = endPosition(window);
    for (auto _ : state) {
        replay(window, setup().report);
        // Until it is painted the user has seen nothing.
        QCoreApplication::processEvents();
        state.PauseTiming();
        dropTail(window, keep);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_AppendReport)->Unit(benchmark::kMillisecond);

void BM_LoadDataFilePress(benchmark::State& state) {
    ControlWnd& window = windowWithEarlierReports();
    const int keep = endPosition(window);
    window.pFld()->setText(QString::number(kModels));
    const QString file = setup().dataFile;
    fw::setFileChooserHandler([file] { return std::optional<QString>(file); });
    for (auto _ : state) {
        window.calcBtn_MouseDown(0, 0);
        QCoreApplication::processEvents();
        state.PauseTiming();
        dropTail(window, keep);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_LoadDataFilePress)->Unit(benchmark::kMillisecond);

bool prepare() {
    Setup& s = setup();
    if (!s.folder.isValid())
        return false;
    s.dataFile = s.folder.filePath(QStringLiteral("models.txt"));
    QFile file(s.dataFile);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    for (int i = 1; i <= kModels; ++i)
        file.write(
            QStringLiteral("Model%1\t%2.%3\n").arg(i).arg(1000 + 7 * i).arg(i % 10).toUtf8());
    file.close();

    RecordingHost recorder(QFile::encodeName(s.dataFile).toStdString());
    if (runAnalysis(recorder) != RunEnd::Report)
        return false;
    s.report = std::move(recorder.steps);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    fw::Application app(argc, argv);
    fw::setMessageBoxHandler([](const QString& text) {
        std::fprintf(stderr, "unexpected message: %s\n", qPrintable(text));
    });
    if (!prepare()) {
        std::fprintf(stderr, "cannot prepare the 99-model report\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
