// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "service/Harness.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <sys/wait.h>

namespace fv2::service::test {

namespace {

//! The real program as a child, with a pipe to its input and its output in a file.
struct ProgramTest : testing::Test {
    TemporaryFolder folder;
    const std::string path = folder / "service.sock";
    const std::string output = folder / "output";
    UniqueFd input;
    pid_t child = -1;

    void start(std::vector<std::string> options, bool mute = false) {
        std::filesystem::remove(output);
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
        input.reset(pipe[1]);
        const UniqueFd theirs(pipe[0]);
        options.insert(options.begin(), {DEMO_SERVICE, "--socket", path, "--agent-socket-dir", folder.path()});
        std::vector<char*> arguments;
        arguments.reserve(options.size() + 1);
        for (std::string& option : options)
            arguments.push_back(option.data());
        arguments.push_back(nullptr);
        child = ::fork();
        if (child == 0) {
            const int out = ::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
            ::dup2(theirs.get(), STDIN_FILENO);
            ::dup2(out, STDOUT_FILENO);
            ::dup2(out, STDERR_FILENO);
            for (int fd = STDOUT_FILENO; mute && fd <= STDERR_FILENO; ++fd)
                ::close(fd);
            ::execv(DEMO_SERVICE, arguments.data());
            ::_exit(127);
        }
    }

    std::string printed() const {
        std::ostringstream text;
        text << std::ifstream(output).rdbuf();
        return text.str();
    }

    bool prints(const std::string& line) const {
        const StopSignal never;
        for (const Deadline deadline(std::chrono::seconds(20)); !deadline.passed();) {
            if (printed().find(line + '\n') != std::string::npos)
                return true;
            std::ignore = never.waitFor(-1, 0, Deadline(std::chrono::milliseconds(5)));
        }
        return false;
    }

    void type(const std::string& line) const {
        const std::string text = line + '\n';
        EXPECT_EQ(::write(input.get(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    int exitStatus() {
        int status = 0;
        EXPECT_GT(::waitpid(std::exchange(child, -1), &status, 0), 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string ask(const std::string& request) const {
        const UniqueFd socket = makeUnixSocket();
        EXPECT_EQ(connectNow(socket.get(), path), 0);
        EXPECT_GT(::send(socket.get(), request.data(), request.size(), MSG_NOSIGNAL), 0);
        const StopSignal never;
        EXPECT_EQ(never.waitFor(socket.get(), POLLIN, Deadline(std::chrono::seconds(20))), fv2Wait::Ready);
        std::string reply(4096, '\0');
        reply.resize(static_cast<std::size_t>(std::max<ssize_t>(0, ::recv(socket.get(), reply.data(), 4096, 0))));
        return reply;
    }

    void TearDown() override {
        if (child > 0)
            ::kill(child, SIGKILL);
        if (child > 0)
            exitStatus();
    }
};

TEST_F(ProgramTest, OutlivesItsInputAndGoesWithASignalAndItsSocketToo) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        start({});
        ASSERT_TRUE(prints("listening on " + path));
        type("state 5");
        ASSERT_TRUE(prints("state 5"));
        input.reset();
        ::kill(child, SIGPIPE);
        EXPECT_NE(ask(R"({"command":"get_status","uid":)" + std::to_string(::getuid()) + '}').find("\"state\":5"),
                  std::string::npos);
        ::kill(child, signal);
        EXPECT_EQ(exitStatus(), 0);
        EXPECT_TRUE(prints("stopped"));
        EXPECT_FALSE(std::filesystem::exists(path));
    }
}

TEST_F(ProgramTest, WorksWithoutStandardOutput) {
    start({}, true);
    const StopSignal never;
    const auto listens = [this] { return connectNow(makeUnixSocket().get(), path) == 0; };
    for (const Deadline deadline(std::chrono::seconds(20)); !listens() && !deadline.passed();)
        std::ignore = never.waitFor(-1, 0, Deadline(std::chrono::milliseconds(5)));
    EXPECT_NE(ask("hello"), "");
    EXPECT_EQ(std::filesystem::read_symlink("/proc/" + std::to_string(child) + "/fd/1"), "/dev/null")
        << "lines must never go into a socket that took the output's number";
    ::kill(child, SIGTERM);
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ProgramTest, RefusesToStartWithOneClearLine) {
    std::ofstream(folder / "bad.json") << R"({"steps": [{"wait": 5}]})";
    ListeningSocket other;
    ASSERT_EQ(other.open(folder / "taken"), "");
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{"--socket", folder / "taken"}, folder / "taken is served by another process"},
        {{"--scenario", folder / "bad.json"}, folder.path() + ": bad.steps[0]: unknown key \"wait\""},
        {{"--scenario", "nosuch"}, "nosuch: no such scenario"},
        {{"--scenario"}, "--scenario needs a value (see --help)"},
        {{"--fast"}, "unknown option --fast (see --help)"},
    };
    for (const auto& [options, line] : cases) {
        start(options);
        EXPECT_EQ(exitStatus(), 2);
        EXPECT_EQ(printed(), "fv2-demo-service: " + line + '\n');
    }
    EXPECT_TRUE(std::filesystem::exists(folder / "taken"));
}

TEST_F(ProgramTest, KeepsNoCopyOfAPassword) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizers' heap keeps what was freed";
#endif
    const std::string secret = "correct-horse-battery-staple-0123456789-correct-horse-battery-staple";
    start({"--scenario", "encrypt"});
    type("next");
    ASSERT_TRUE(prints("state 3"));
    const std::string user = R"("uid":)" + std::to_string(::getuid());
    const std::string token = ask("{\"command\":\"get_token\"," + user + '}');
    const std::size_t start = token.find(R"("token":")") + 9;
    type("fault slow 3600");
    ASSERT_TRUE(prints("fault slow 3600"));
    const UniqueFd connection = makeUnixSocket();
    ASSERT_EQ(connectNow(connection.get(), path), 0);
    const std::string request = "{\"command\":\"set_user_credentials\"," + user + R"(,"token":")" +
                                token.substr(start, 32) + R"(","parameters":{"username":"ann","password":")" + secret +
                                "\"}}";
    ASSERT_GT(::send(connection.get(), request.data(), request.size(), MSG_NOSIGNAL), 0);
    ASSERT_TRUE(prints("state 4"));

    std::ifstream maps("/proc/" + std::to_string(child) + "/maps");
    std::ifstream memory("/proc/" + std::to_string(child) + "/mem", std::ios::binary);
    std::size_t looked = 0;
    for (std::string line; std::getline(maps, line);) {
        if (line.find(" rw-p ") == std::string::npos)
            continue;
        const std::size_t from = std::stoull(line, nullptr, 16);
        std::string bytes(std::stoull(line.substr(line.find('-') + 1), nullptr, 16) - from, '\0');
        memory.seekg(static_cast<std::streamoff>(from));
        memory.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        looked += static_cast<std::size_t>(memory.gcount());
        EXPECT_EQ(bytes.find(secret.substr(0, 24)), std::string::npos) << line;
        memory.clear();
    }
    if (looked == 0)
        GTEST_SKIP() << "this system lets nobody look into a child's memory";
    EXPECT_EQ(printed().find("horse"), std::string::npos);
}

TEST_F(ProgramTest, PlaysAScenarioAndQuitsAtItsEnd) {
    std::ofstream(folder / "short.json")
        << R"({"steps": [{"set": ["state 5"], "for": 0.1}, {"set": ["state 6"]}], "quit": true})";
    start({"--scenario", folder / "short.json"});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_EQ(printed(), "listening on " + path +
                             "\nscenario short: step 1 of 2\nstate 5\nscenario short: step 2 of 2\nstate 6\n"
                             "scenario short: done\nstopped\n");
}

} // namespace

} // namespace fv2::service::test
