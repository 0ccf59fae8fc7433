// Measures how long a program takes from fork/exec to its first top-level
// window being mapped on an X display, the processor time its threads used
// until then, and its peak resident memory at that moment. The program is
// killed once measured; the run is repeated and the medians printed.
// Processor time is the steadier figure on a busy machine: waiting for a
// processor counts in the wall time, not in it.
//
//   window-map-timer [--display :N] [--runs N] [--timeout-ms N] -- PROGRAM [ARGS...]
//
// Output: one line per run ("run I ms=... cpu_ms=... peak_kib=...") and a last
// line "median ms=... cpu_ms=... peak_kib=... runs=N" for scripts to read.
#include <X11/Xlib.h>

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

struct Options {
    std::string display;
    int runs = 20;
    int timeoutMs = 20000;
    std::vector<char*> command; // null-terminated, ready for execvp
};

struct Sample {
    double ms = 0;
    double cpuMs = 0;
    long peakKib = 0;
};

[[noreturn]] void usage(const char* why) {
    std::fprintf(stderr,
                 "window-map-timer: %s\n"
                 "usage: window-map-timer [--display :N] [--runs N] [--timeout-ms N] -- PROGRAM "
                 "[ARGS...]\n",
                 why);
    std::exit(2);
}

int positiveNumber(const char* text, const char* what) {
    char* end = nullptr;
    const long value = std::strtol(text, &end, 10);
    if (end == text || *end != '\0' || value <= 0 || value > 1000000)
        usage((std::string(what) + " needs a positive whole number").c_str());
    return static_cast<int>(value);
}

Options parseOptions(int argc, char** argv) {
    Options options;
    if (const char* env = std::getenv("DISPLAY"))
        options.display = env;
    int i = 1;
    for (; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--") {
            ++i;
            break;
        }
        if (i + 1 >= argc)
            usage(("missing value after " + arg).c_str());
        if (arg == "--display")
            options.display = argv[++i];
        else if (arg == "--runs")
            options.runs = positiveNumber(argv[++i], "--runs");
        else if (arg == "--timeout-ms")
            options.timeoutMs = positiveNumber(argv[++i], "--timeout-ms");
        else
            usage(("unknown option " + arg).c_str());
    }
    if (i >= argc)
        usage("no program given");
    if (options.display.empty())
        usage("no display: pass --display or set DISPLAY");
    options.command.assign(argv + i, argv + argc);
    options.command.push_back(nullptr);
    return options;
}

// VmHWM is the process's high-water mark of resident memory, in KiB.
long peakResidentKib(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmHWM:", 0) == 0)
            return std::strtol(line.c_str() + 6, nullptr, 10);
    return -1;
}

// The first field of a thread's schedstat is its time on a processor, in ns;
// the process's time is the sum over its threads.
double processorMs(pid_t pid) {
    std::error_code error;
    double ns = 0;
    const std::filesystem::path tasks = "/proc/" + std::to_string(pid) + "/task";
    for (const auto& task : std::filesystem::directory_iterator(tasks, error)) {
        std::ifstream schedstat(task.path() / "schedstat");
        double taskNs = 0;
        if (schedstat >> taskNs)
            ns += taskNs;
    }
    return ns / 1e6;
}

void stopChild(pid_t pid) {
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

// Drops events left over from an earlier run, so that only windows of the
// program started next can end the wait.
void drainEvents(Display* display) {
    XSync(display, False);
    XEvent event;
    while (XPending(display) > 0)
        XNextEvent(display, &event);
}

std::optional<Sample> measureOnce(Display* display, const Options& options) {
    const Window root = DefaultRootWindow(display);
    drainEvents(display);

    const auto start = Clock::now();
    const pid_t pid = fork();
    if (pid < 0) {
        std::perror("window-map-timer: fork");
        return std::nullopt;
    }
    if (pid == 0) {
        setenv("DISPLAY", options.display.c_str(), 1);
        execvp(options.command[0], options.command.data());
        std::perror("window-map-timer: exec");
        _exit(127);
    }

    const auto deadline = start + std::chrono::milliseconds(options.timeoutMs);
    pollfd connection{ConnectionNumber(display), POLLIN, 0};
    for (;;) {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            // A MapNotify seen through the root's substructure mask with the
            // root as its event window is a top-level window coming on screen.
            if (event.type == MapNotify && event.xmap.event == root) {
                const auto mapped = Clock::now();
                Sample sample;
                sample.peakKib = peakResidentKib(pid);
                sample.cpuMs = processorMs(pid);
                sample.ms = std::chrono::duration<double, std::milli>(mapped - start).count();
                stopChild(pid);
                return sample;
            }
        }
        int status = 0;
        if (waitpid(pid, &status, WNOHANG) == pid) {
            std::fprintf(stderr, "window-map-timer: %s ended before mapping a window\n",
                         options.command[0]);
            return std::nullopt;
        }
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) {
            std::fprintf(stderr, "window-map-timer: no window within %d ms\n", options.timeoutMs);
            stopChild(pid);
            return std::nullopt;
        }
        // Short slices, so that a child that dies early is noticed promptly.
        poll(&connection, 1, static_cast<int>(std::min<long long>(left, 50)));
    }
}

template <typename T> T median(std::vector<T> values) {
    std::sort(values.begin(), values.end());
    const std::size_t mid = values.size() / 2;
    return values.size() % 2 == 1 ? values[mid] : (values[mid - 1] + values[mid]) / 2;
}

} // namespace

int main(int argc, char** argv) {
    const Options options = parseOptions(argc, argv);

    Display* display = XOpenDisplay(options.display.c_str());
    if (display == nullptr) {
        std::fprintf(stderr, "window-map-timer: cannot open display %s\n", options.display.c_str());
        return 1;
    }
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);

    std::vector<double> times;
    std::vector<double> cpuTimes;
    std::vector<long> peaks;
    for (int run = 1; run <= options.runs; ++run) {
        const std::optional<Sample> sample = measureOnce(display, options);
        if (!sample) {
            XCloseDisplay(display);
            return 1;
        }
        std::printf("run %d ms=%.1f cpu_ms=%.1f peak_kib=%ld\n", run, sample->ms, sample->cpuMs,
                    sample->peakKib);
        times.push_back(sample->ms);
        cpuTimes.push_back(sample->cpuMs);
        peaks.push_back(sample->peakKib);
    }
    std::printf("median ms=%.1f cpu_ms=%.1f peak_kib=%ld runs=%d\n", median(times),
                median(cpuTimes), median(peaks), options.runs);
    XCloseDisplay(display);
    return 0;
}
