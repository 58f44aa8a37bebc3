// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "protocol/Server.h"
#include "protocol/UnixSocket.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace fv2::service::test {

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "fv2_service_XXXXXX").string();
        m_path = ::mkdtemp(name.data());
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string operator/(const std::string& name) const { return m_path + '/' + name; }
    [[nodiscard]] const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

//! Answers as it is told and notes what it was asked.
class FakeEngine final : public Engine {
public:
    EngineStatus status() const override { return answer; }
    EngineOutcome startSync() override {
        asked.emplace_back("sync");
        return outcome;
    }
    EngineOutcome takeCredentials(uid_t uid, std::string_view username, std::string_view password) override {
        asked.push_back(std::to_string(uid) + ' ' + std::string(username) + ' ' + std::string(password));
        return outcome;
    }

    EngineStatus answer;
    EngineOutcome outcome;
    std::vector<std::string> asked;
};

//! The protocol room with short patience, in a folder of its own; everything runs on the test's thread.
class ProtocolTest : public testing::Test {
protected:
    using ms = std::chrono::milliseconds;

    //! Lets the service work until `done` holds; false when it does not within `patience`.
    template <class Done>
    bool workUntil(Done done, ms patience = ms(5'000)) {
        struct Tick final : PollClient {
            void prepare(PollSet& set) const override { set.wakeBy(Deadline(ms(5))); }
            void handle(const PollSet& /*set*/) override {}
        } tick;
        const std::array<PollClient*, 3> clients{&server, &notifier, &tick};
        for (const Deadline deadline(patience); !done();) {
            if (deadline.passed() || !pollOnce(clients))
                return false;
        }
        return true;
    }

    bool reported(std::string_view line) const { return std::ranges::find(lines, line) != lines.end(); }

    UniqueFd connectTo(const std::string& there) {
        UniqueFd socket = makeUnixSocket();
        EXPECT_EQ(connectNow(socket.get(), there), 0);
        return socket;
    }

    static void say(const UniqueFd& socket, std::string_view text) {
        EXPECT_EQ(::send(socket.get(), text.data(), text.size(), MSG_NOSIGNAL), static_cast<ssize_t>(text.size()));
    }

    //! Whatever comes until the service closes, or `limit` bytes, or `patience` is over (then `ended` is false).
    std::string hear(const UniqueFd& socket, ms patience = ms(5'000), std::size_t limit = 200'000) {
        std::string heard;
        ended = workUntil(
            [&] {
                std::array<char, 4096> chunk{};
                ssize_t count = 0;
                while ((count = ::recv(socket.get(), chunk.data(), chunk.size(), 0)) > 0)
                    heard.append(chunk.data(), static_cast<std::size_t>(count));
                wasReset = count < 0 && errno == ECONNRESET;
                return count == 0 || wasReset || heard.size() >= limit;
            },
            patience);
        return heard;
    }

    std::string ask(std::string_view request) {
        const UniqueFd socket = connectTo(path);
        say(socket, request);
        std::string reply = hear(socket);
        EXPECT_TRUE(ended && !wasReset) << request.substr(0, 100);
        return reply;
    }

    std::string request(std::string_view command, const std::string& fields = "") const {
        return "{ \"command\": \"" + std::string(command) + "\", \"uid\" : " + uid + fields + "  }";
    }

    std::string token() {
        const std::string reply = ask(request("get_token"));
        const std::size_t start = reply.find(R"("token":")") + 9;
        return reply.substr(start, reply.find('"', start) - start);
    }

    TemporaryFolder folder;
    const std::string path = folder / "service.sock";
    const std::string uid = std::to_string(::getuid());
    std::vector<std::string> lines;
    const Report report = [this](std::string_view line) { lines.emplace_back(line); };
    FakeEngine engine;
    ReplyFault fault;
    Limits limits{
        .exchange = ms(500), .misbehaviour = ms(700), .linger = ms(60'000), .push = ms(500), .connections = 4};
    Notifier notifier{folder.path(), limits, report};
    RequestHandler handler{engine, notifier, report};
    Server server{handler, [this] { return fault; }, limits, report};
    bool ended = false;
    bool wasReset = false;
};

} // namespace fv2::service::test
