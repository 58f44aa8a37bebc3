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

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // their heap keeps what was freed
TEST(Program, KeepsNoCopyOfAPasswordAndGoesWithASignal) {
    const TemporaryFolder folder;
    const std::string user = R"({"uid":)" + std::to_string(::getuid());
    const pid_t child = start(folder, "--scenario encrypt");
    const auto connection = [&](const std::string& request) {
        UniqueFd socket = connectTo(folder / "service.sock");
        sendAll(socket, request);
        return socket;
    };
    const std::string token = receiveAll(connection(user + R"(,"command":"get_token"})"));
    std::vector<UniqueFd> open;
    for (const std::string secret : {"correct-horse-battery-staple-0123456789-correct-horse-battery", "short-horse"}) {
        open.push_back(connection(user + R"(,"command":"set_user_credentials","token":")" +
                                  token.substr(token.find(R"("token":")") + 9, 32) +
                                  R"(","parameters":{"username":"ann","password":")" + secret + "\"}}"));
        EXPECT_EQ(receiveAll(open.back()), R"({"result":true,"success":true,"error_code":0})");
    }

    std::ifstream maps("/proc/" + std::to_string(child) + "/maps");
    std::ifstream memory("/proc/" + std::to_string(child) + "/mem", std::ios::binary);
    std::streamsize looked = 0;
    for (std::string line; std::getline(maps, line);) {
        const std::size_t from = std::stoull(line, nullptr, 16);
        std::string bytes(std::stoull(line.substr(line.find('-') + 1), nullptr, 16) - from, '\0');
        memory.seekg(static_cast<std::streamoff>(from));
        memory.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        looked += memory.gcount();
        EXPECT_EQ(bytes.find("-horse"), bytes.npos) << line;
        memory.clear();
    }
    EXPECT_GT(looked, 0);
    ::kill(child, SIGTERM);
    EXPECT_EQ(exitStatus(child), 0);
    EXPECT_EQ(contentOf(folder / "output").find("horse"), std::string::npos);
}
#endif

} // namespace fv2::service::test
