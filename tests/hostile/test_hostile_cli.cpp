// Every hostile data file through the real tovarin-report: exit status,
// report and messages, within a time and memory bound.
#include "ChildProcess.hpp"
#include "HostileCases.hpp"

#include <gtest/gtest.h>

#include <cctype>
#include <unistd.h>

namespace tovarin::test {
namespace {

// Far beyond what any of these files needs, sanitizers included; only a hang
// or a run away allocation gets there.
constexpr std::chrono::seconds kDeadline{120};
constexpr long kMemoryBoundKiB = 1024L * 1024L;

class HostileCliTest : public testing::TestWithParam<HostileCase> {};

TEST_P(HostileCliTest, DefinedOutcome) {
    const HostileCase& hostile = GetParam();
    const HostileFolder folder;
    const std::filesystem::path file = hostile.make(folder.path());
    const int asUser =
        hostile.asOrdinaryUser && ::geteuid() == 0 ? static_cast<int>(kOrdinaryUserId) : -1;
    const ChildResult run =
        runChild(TOVARIN_REPORT_PROGRAM, {hostile.count, file.string()}, kDeadline, asUser);
    if (!run.switchedUser)
        GTEST_SKIP() << "cannot run as an ordinary user here, and the superuser reads every file";
    ASSERT_TRUE(run.finished) << "still running after " << kDeadline.count() << " s";
    EXPECT_LT(run.maxResidentKiB, kMemoryBoundKiB);

    if (hostile.outcome == Outcome::FileError || hostile.outcome == Outcome::Missing) {
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_NE(run.err.find(file.string()), std::string::npos) << run.err;
        const std::string reason =
            hostile.outcome == Outcome::Missing ? "No such file" : hostile.reason;
        EXPECT_NE(run.err.find(reason), std::string::npos) << run.err;
        return;
    }
    std::string messages;
    for (const std::string& message : hostile.messages)
        messages += message + "\n";
    EXPECT_EQ(run.err, messages);
    if (hostile.outcome == Outcome::NoLowBic) {
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.out, "");
        return;
    }
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("File: " + file.filename().string() + "\n"), std::string::npos);
    EXPECT_EQ(reportRowCount(run.out), std::stoi(hostile.count));
    for (const std::string& text : hostile.reportHas)
        EXPECT_NE(run.out.find(text), std::string::npos) << "no \"" << text << "\" in:\n"
                                                         << run.out;
}

std::string caseName(const testing::TestParamInfo<HostileCase>& info) {
    std::string name = info.param.name;
    for (char& c : name)
        c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(Files, HostileCliTest, testing::ValuesIn(hostileCases()), caseName);

} // namespace
} // namespace tovarin::test
