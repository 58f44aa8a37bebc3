// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "support/RawSocket.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>

namespace fv2::service::test {

using namespace fv2::test;

//! Starts the real program in `folder` for 20 s at most, its input at an end, its output in a file.
pid_t start(const TemporaryFolder& folder, const std::string& options) {
    const pid_t child = ::fork();
    if (child == 0) {
        const std::string command = "exec " DEMO_SERVICE " --socket service.sock --agent-socket-dir . " + options;
        const std::string script = "cd " + folder.path() + " && " + command + " > output 2>&1 < /dev/null";
        ::alarm(20);
        ::execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
    }
    return child;
}

int exitStatus(pid_t child) {
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Program, RefusesToStartWithOneClearLineOrPlaysItsScenarioAndQuits) {
    const TemporaryFolder folder;
    std::ofstream(folder / "bad.json") << R"({"steps": [{"wait": 5}]})";
    std::ofstream(folder / "short.json") << R"({"steps": [{"set": ["state 5"], "for": 0.1}], "quit": true})";
    const UniqueFd other = listenAt(folder / "taken");
    const std::vector<std::tuple<std::string, int, std::string>> table{
        {"--socket taken", 2, "fv2-demo-service: taken is served by another process\n"},
        {"--scenario ./bad.json", 2, "fv2-demo-service: .: bad.steps[0]: unknown key \"wait\"\n"},
        {"--fast", 2, "fv2-demo-service: unknown option --fast (see --help)\n"},
        {"--scenario ./short.json", 0,
         "listening on service.sock\nscenario short: step 1 of 1\nstate 5\nscenario short: done\nstopped\n"}};
    for (const auto& [options, status, printed] : table) {
        EXPECT_EQ(exitStatus(start(folder, options)), status);
        EXPECT_EQ(contentOf(folder / "output"), printed);
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "service.sock"));
}

TEST(Program, GoesWithASignal) {
    const TemporaryFolder folder;
    const pid_t child = start(folder, "");
    EXPECT_TRUE(connectTo(folder / "service.sock"));
    ::kill(child, SIGTERM);
    EXPECT_EQ(exitStatus(child), 0);
}

} // namespace fv2::service::test
