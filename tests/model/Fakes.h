// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FV2AppStateModel.h"

#include <algorithm>
#include <deque>
#include <mutex>
#include <set>
#include <vector>

namespace fv2::test {

//! Every text is "<IDENTIFIER %1>", so that it shows which one it is and what was put into it.
class MarkedStrings final : public OxStringBundle {
public:
    [[nodiscard]] std::string localizedString(const std::string& identifier) const override {
        return "<" + identifier + " %1>";
    }
};

//! Keeps jobs until the test runs them, on the test's thread.
class HandDispatch final : public FV2Dispatch {
public:
    using Jobs = std::deque<std::function<void()>>;

    void toMain(std::function<void()> job) override { add(m_main, std::move(job)); }
    void toWorker(std::function<void()> job) override { add(m_worker, std::move(job)); }

    [[nodiscard]] Jobs takeMain() { return take(m_main); }
    [[nodiscard]] Jobs takeWorker() { return take(m_worker); }

    //! Runs what waits and what comes of it, in order.
    void settle() {
        for (int round = 0; round < 100; ++round) {
            run(takeWorker());
            run(takeMain());
        }
    }
    static void run(const Jobs& jobs) {
        for (const auto& job : jobs)
            job();
    }

private:
    void add(Jobs& jobs, std::function<void()> job) {
        const std::lock_guard lock(m_mutex);
        jobs.push_back(std::move(job));
    }
    Jobs take(Jobs& jobs) {
        const std::lock_guard lock(m_mutex);
        return std::exchange(jobs, {});
    }

    std::mutex m_mutex;
    Jobs m_main;
    Jobs m_worker;
};

//! A clock that is told the time.
class ToldTimers final : public FV2TimerService {
public:
    using Time = std::chrono::steady_clock::time_point;

    [[nodiscard]] Time now() const override { return m_now; }
    [[nodiscard]] std::unique_ptr<FV2Timer> after(std::chrono::milliseconds delay,
                                                  std::function<void()> callback) override {
        return std::make_unique<Pending>(m_pending, m_now + delay, std::move(callback));
    }

    //! Goes from one due call to the next.
    void advanceTo(Time time) {
        for (;;) {
            const auto next = std::min_element(m_pending.begin(), m_pending.end(),
                                               [](const Pending* a, const Pending* b) { return a->due < b->due; });
            if (next == m_pending.end() || (*next)->due > time)
                break;
            m_now = std::max(m_now, std::exchange((*next)->due, Time::max()));
            const auto callback = (*next)->callback; // which may destroy its timer
            callback();
        }
        m_now = std::max(m_now, time);
    }
    void advance(std::chrono::milliseconds by) { advanceTo(m_now + by); }
    [[nodiscard]] std::size_t pending() const { return m_pending.size(); }

private:
    struct Pending final : FV2Timer {
        Pending(std::vector<Pending*>& timers, Time at, std::function<void()> job)
            : all(timers)
            , due(at)
            , callback(std::move(job)) {
            all.push_back(this);
        }
        ~Pending() override { std::erase(all, this); }
        Pending(const Pending&) = delete;
        Pending& operator=(const Pending&) = delete;

        std::vector<Pending*>& all;
        Time due;
        std::function<void()> callback;
    };

    Time m_now{};
    std::vector<Pending*> m_pending;
};

//! A service without a socket: notes each request, gives the answers that the test has set.
class ScriptedLink final : public FV2ServiceLink {
public:
    [[nodiscard]] std::string exchange(std::string_view request) override {
        asked.emplace_back(request);
        if (request.find("get_token") != request.npos) {
            const std::string answer = R"({"token":")" + token + R"("})";
            if (const auto hook = std::exchange(afterToken, nullptr))
                hook();
            return answer;
        }
        return request.find("get_status") != request.npos ? status : answerToOthers;
    }
    [[nodiscard]] std::string farewell(std::string_view request) override {
        asked.push_back("farewell " + std::string(request));
        return {};
    }
    void cancel() override { asked.emplace_back("cancel"); }

    std::vector<std::string> asked;
    std::string token = "t1";
    std::string status;
    std::string answerToOthers;
    std::function<void()> afterToken; //!< once, between the service's answer and its arrival
};

//! Tray item, application delegate and windows in one; notes in words what is asked of it.
class FakeInterface final : public FV2StatusItem, public FV2ApplicationDelegate, public FV2WindowRegistry {
public:
    void show(std::string_view imageName, fv2StatusStateType overallState) override {
        icon = std::string(imageName) + " " + std::string(caseName(overallState));
        ++shows;
    }
    [[nodiscard]] FV2StatusItem& menuBarStatusItem() override { return *this; }
    void menuShowMainWindow() override { calls.emplace_back("show main window"); }
    [[nodiscard]] bool isOpen(fv2Window kind) const override { return open.count(kind) > 0; }
    void openWindow(fv2Window kind, bool userInitiated) override {
        calls.push_back("open " + std::to_string(static_cast<int>(kind)) + (userInitiated ? " for user" : ""));
    }
    std::string updateMainWindow() override {
        ++mainUpdates;
        note();
        return "main";
    }
    void selectProtectionStatusPage() override { calls.emplace_back("status page"); }
    void closeUnneededPasswordWindows() override { note(); }
    void doAlert(fv2Window kind, std::uint64_t errorCode, fv2Alert alert) override {
        calls.push_back("alert on " + std::to_string(static_cast<int>(kind)) + ": " + std::to_string(errorCode) + " " +
                        std::to_string(static_cast<int>(alert)));
    }
    [[nodiscard]] std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    std::set<fv2Window> open;
    std::vector<std::string> calls;
    std::string icon;
    int shows = 0;
    int mainUpdates = 0;
    CountingSemaphore* updateSemaphore = nullptr;

private:
    void note() {
        if (updateSemaphore->count() != 0)
            calls.emplace_back("updated without the semaphore");
    }
};

//! A whole, good answer to "get_status".
inline std::string statusAnswer(std::int64_t state, const std::string& more = "") {
    return R"({"result":true,"error_code":0,"status":{"state":)" + std::to_string(state) + more + "}}";
}

} // namespace fv2::test
