// Every hostile data file through the real tovarin-report: exit status,
// report and messages, within a time and memory bound.
#include "ChildProcess.hpp"
#include "HostileCases.hpp"

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <random>
#include <unistd.h>

namespace tovarin::test {
namespace {

namespace fs = std::filesystem;

// Far beyond what any of these files needs, sanitizers included; only a hang
// or a run away allocation gets there.
constexpr std::chrono::seconds kDeadline{120};
constexpr long kMemoryBoundKiB = 1024L * 1024L;

class HostileCliTest : public testing::TestWithParam<HostileCase> {
protected:
    void SetUp() override {
        std::random_device seed;
        folder_ = fs::temp_directory_path() /
                  ("tovarin-hostile-" + std::to_string(seed()) + std::to_string(seed()));
        fs::create_directories(folder_);
        // Open to everyone, so that the ordinary user of the permission case
        // is stopped by the file's own bits and nothing else.
        fs::permissions(folder_, fs::perms::owner_all | fs::perms::group_read |
                                     fs::perms::group_exec | fs::perms::others_read |
                                     fs::perms::others_exec);
    }
    void TearDown() override {
        std::error_code ec;
        fs::remove_all(folder_, ec);
    }

    fs::path folder_;
};

TEST_P(HostileCliTest, DefinedOutcome) {
    const HostileCase& hostile = GetParam();
    const fs::path file = hostile.make(folder_);
    int asUser = -1;
    if (hostile.asOrdinaryUser && ::geteuid() == 0) {
        asUser = static_cast<int>(kOrdinaryUserId);
    }

    const ChildResult run =
        runChild(TOVARIN_REPORT_PROGRAM, {hostile.count, file.string()}, kDeadline, asUser);

    if (!run.switchedUser) {
        GTEST_SKIP() << "cannot run as an ordinary user here, and the superuser reads every file";
    }
    ASSERT_TRUE(run.finished) << "still running after " << kDeadline.count() << " s";
    EXPECT_LT(run.maxResidentKiB, kMemoryBoundKiB);

    std::string messages;
    for (const std::string& message : hostile.messages) {
        messages += message + "\n";
    }
    switch (hostile.outcome) {
    case Outcome::Report:
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, messages);
        EXPECT_NE(run.out.find("File: " + file.filename().string() + "\n"), std::string::npos);
        EXPECT_EQ(reportRowCount(run.out), std::stoi(hostile.count));
        for (const std::string& text : hostile.reportHas) {
            EXPECT_NE(run.out.find(text), std::string::npos) << "no \"" << text << "\" in:\n"
                                                             << run.out;
        }
        break;
    case Outcome::NoLowBic:
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err, messages);
        EXPECT_EQ(run.out, "");
        break;
    case Outcome::FileError:
    case Outcome::Missing:
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_NE(run.err.find(file.string()), std::string::npos) << run.err;
        EXPECT_NE(
            run.err.find(hostile.outcome == Outcome::Missing ? "No such file" : hostile.reason),
            std::string::npos)
            << run.err;
        break;
    }
}

std::string caseName(const testing::TestParamInfo<HostileCase>& info) {
    std::string name;
    for (const char c : info.param.name) {
        name += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(Files, HostileCliTest, testing::ValuesIn(hostileCases()), caseName);

} // namespace
} // namespace tovarin::test
