// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/MainQueue.h"
#include "comms/FV2Requests.h"
#include "comms/TestEndpoint.h"
#include "model/FV2AppStateModel.h"
#include "support/RawSocket.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace fv2::test {

//! Every text is what follows "IDUS_", and a place: it shows which one it is and what was put into it.
struct MarkedStrings final : OxStringBundle {
    std::string localizedString(const std::string& identifier) const override { return identifier.substr(5) + " %1"; }
};

//! Keeps jobs until the test runs them, on the test's thread.
struct HandDispatch final : FV2Dispatch {
    void toMain(std::function<void()> job) override {
        ++posted;
        main.post(std::move(job));
    }
    void toWorker(std::function<void()> job) override { workers.push_back(std::move(job)); }

    //! Runs what waits and what comes of it, in order.
    void settle() {
        for (int round = 0; round < 100; ++round, main.drain())
            for (const auto& job : std::exchange(workers, {}))
                job();
    }

    MainQueue main;
    std::atomic<int> posted = 0;
    std::vector<std::function<void()>> workers;
};

//! A clock set by the test.
struct ToldTimers final : FV2TimerService {
    using Job = std::function<void()>;

    std::chrono::steady_clock::time_point now() const override { return m_now; }
    std::unique_ptr<FV2Timer> after(std::chrono::milliseconds delay, Job callback) override {
        auto timer = std::make_unique<Timer>();
        timer->job = std::make_shared<Job>(std::move(callback));
        m_due.emplace(m_now.load() + delay, timer->job);
        return timer;
    }

    //! Goes from one due call to the next.
    void advance(std::chrono::milliseconds by) {
        const auto end = m_now.load() + by;
        while (!m_due.empty() && m_due.begin()->first <= end) {
            const auto next = m_due.extract(m_due.begin());
            m_now = next.key();
            if (const auto job = next.mapped().lock()) // which may destroy its timer
                (*job)();
        }
        m_now = end;
    }

private:
    struct Timer final : FV2Timer {
        std::shared_ptr<Job> job;
    };

    std::atomic<std::chrono::steady_clock::time_point> m_now{};
    std::multimap<std::chrono::steady_clock::time_point, std::weak_ptr<Job>> m_due;
};

//! A service without a socket: notes each request, gives the answers that the test has set.
struct ScriptedLink final : FV2ServiceClient {
    std::string exchange(std::string_view request) override {
        asked.emplace_back(request);
        const auto isFor = [request](std::string_view command) { return request.find(command) != request.npos; };
        const std::string answer = isFor("get_token")    ? R"({"token":")" + token + R"("})"
                                   : isFor("get_status") ? status
                                                         : answerToOthers;
        if (isFor(heldUp))
            std::exchange(meanwhile, [] {})();
        return answer;
    }
    std::string exchangeSecret(const SecretText& request) override { return exchange(request.text()); }
    std::string farewell(std::string_view request) override { return exchange("farewell " + std::string(request)); }
    void cancel() override { asked.emplace_back("cancel"); }

    std::vector<std::string> asked;
    std::string token = "t1";
    std::string status;
    std::string answerToOthers;
    std::string heldUp; //!< between the answer to this command and its arrival, `meanwhile` happens once
    std::function<void()> meanwhile = [] {};
};

//! Application delegate and windows in one; notes in words what is asked of it.
struct FakeInterface : FV2ApplicationDelegate, FV2WindowRegistry {
    void stateChanged(const FV2AppState& state) override {
        icons.emplace_back(state.getMenuBarStatusIcon());
        windows(state);
    }
    void proxySyncSucceeded() override { calls += "menu; "; }
    void userSyncFailed() override { notes += "sync failed; "; }
    void passwordWindowKeptShut(fv2Window kind) override {
        notes += "kept shut " + std::to_string(static_cast<int>(kind)) + "; ";
    }
    void menuShowMainWindow() override { calls += "show main window; "; }
    bool isOpen(fv2Window kind) const override { return kind == open; }
    void openWindow(fv2Window kind, bool userInitiated) override {
        calls += "open " + std::to_string(static_cast<int>(kind)) + (userInitiated ? " for user; " : "; ");
        if (open == fv2Window::None && (userInitiated || !silence))
            open = kind;
    }
    void selectProtectionStatusPage() override { calls += "status page; "; }
    void showAlert(fv2Window kind, const FV2AlertContent& content, std::function<void()> onFirstButton) override {
        calls += "alert on " + std::to_string(static_cast<int>(kind)) + ": " + content.messageText + "|" +
                 content.informativeText + "|";
        for (const std::string& button : content.buttons)
            calls += button + "|";
        calls += content.note;
        chooseFirstButton = std::move(onFirstButton);
    }
    void confirmPostponement(fv2Window kind) override { calls += "postpone " + std::to_string(static_cast<int>(kind)); }

    fv2Window open = fv2Window::None;
    bool silence = false; //!< nothing may open by itself
    std::string calls;
    std::string notes; //!< for notifications
    std::vector<std::string> icons;
    std::function<void(const FV2AppState&)> windows = [](const FV2AppState&) {}; //!< real ones, which follow the state
    std::function<void()> chooseFirstButton;
};

//! A whole, good answer to "get_status".
inline std::string statusAnswer(std::int64_t state, const std::string& more = "") {
    return R"({"result":true,"error_code":0,"status":{"state":)" + std::to_string(state) + more + "}}";
}

//! Takes two passwords for right, whoever's they are.
struct OnePassword final : FV2UserAndPasswordModel {
    fv2PasswordCheck verifyPassword(const std::string& /*userName*/, const SecretText& password) const override {
        if (password.text() == "unreadable")
            return fv2PasswordCheck::CannotCheck;
        return password.text() == "right" || password.text() == "p\"ä" ? fv2PasswordCheck::Right
                                                                       : fv2PasswordCheck::Wrong;
    }
};

//! The model among fakes; only its listener's socket is real.
struct Model : testing::Test {
    std::shared_ptr<FV2AppStateModel> make(FV2Dispatch& jobs, FV2ServiceClient& service) {
        auto made = std::make_shared<FV2AppStateModel>(
            FV2ModelPorts{
                .dispatch = jobs,
                .timers = timers,
                .service = service,
                .strings = strings,
                .mediumDate = [](std::int64_t) { return "today"; },
                .computerName = "desk",
                .makeAppSocket = [this] { return std::make_unique<TestEndpoint>(path); },
                .bindAgainAfter = std::chrono::milliseconds(20),
                .doNotDisturb = [this] { return interface.silence; },
                .whenQuietIsKnown = [this](auto job) { quietIsKnown ? job() : whenQuietIsKnown.push_back(job); },
                .passwords = &passwords,
                .timeFromNow = [](std::int64_t minutes) { return "in " + std::to_string(minutes); }},
            501);
        made->setAppDelegate(interface);
        made->setWndDelegate(&interface);
        return made;
    }

    //! What the windows are asked to do by one refresh that brings `answer`.
    std::string refresh(const std::string& answer, fv2SyncSource source, bool checkAction = true, bool alert = false) {
        link.status = answer;
        timers.advance(FV2RefreshGate::spacing);
        model->syncCommsAsync(checkAction, source, alert);
        return settled();
    }
    //! What they are asked to do by what comes due meanwhile.
    std::string later(std::chrono::milliseconds time) {
        timers.advance(time);
        return settled();
    }
    std::string settled() {
        dispatch.settle();
        return std::exchange(interface.calls, {});
    }

    long asked(const std::string& request = getStatusRequest(501)) const {
        return std::count(link.asked.begin(), link.asked.end(), request);
    }

    //! The listener's answer to a message.
    std::string exchange(std::string_view text) const {
        const UniqueFd peer = connectTo(path);
        sendAll(peer, text);
        return receiveAll(peer);
    }

    TemporaryFolder folder;
    const std::string path = folder / "agent.sock";
    MarkedStrings strings;
    HandDispatch dispatch;
    ToldTimers timers;
    ScriptedLink link;
    FakeInterface interface;
    OnePassword passwords;
    bool quietIsKnown = true;
    std::vector<std::function<void()>> whenQuietIsKnown;
    std::shared_ptr<FV2AppStateModel> model = make(dispatch, link);
};

} // namespace fv2::test
