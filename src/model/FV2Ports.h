// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/SecretText.h"
#include "model/FV2Types.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace fv2 {

// What the model needs from outside. Main thread only, where nothing else is said.

//! Hands work to other threads and results back.
class FV2Dispatch {
public:
    virtual ~FV2Dispatch() = default;

    //! Any thread. Runs a job on the main thread, later.
    virtual void toMain(std::function<void()> job) = 0;
    //! Any thread. Runs a job on a worker thread.
    virtual void toWorker(std::function<void()> job) = 0;

    //! Any thread. Runs `job` on a worker and `done` with its value on the main thread, unless `owner` has died by
    //! then.
    template <class Job, class Done>
    void run(std::weak_ptr<const void> owner, Job job, Done done) {
        toWorker([this, owner = std::move(owner), job = std::move(job), done = std::move(done)] {
            toMain([result = job(), owner, done] {
                if (!owner.expired())
                    done(result);
            });
        });
    }
};

//! One pending call; destroying it cancels the call.
class FV2Timer {
public:
    virtual ~FV2Timer() = default;
};

class FV2TimerService {
public:
    virtual ~FV2TimerService() = default;
    //! Any thread.
    [[nodiscard]] virtual std::chrono::steady_clock::time_point now() const = 0;
    //! Calls `callback` once after `delay`, unless the timer is destroyed before. The callback may destroy its timer.
    [[nodiscard]] virtual std::unique_ptr<FV2Timer> after(std::chrono::milliseconds delay,
                                                          std::function<void()> callback) = 0;
};

//! The way to the service. All but cancel() block and run on workers, several at once; cancel() on any thread.
class FV2ServiceClient {
public:
    virtual ~FV2ServiceClient() = default;

    //! One request with all its retries; the reply is empty when it failed.
    [[nodiscard]] virtual std::string exchange(std::string_view request) = 0;
    //! The same for a request with a password; fails when whoever listens may not have one.
    [[nodiscard]] virtual std::string exchangeSecret(const SecretText& request) = 0;
    //! One short attempt, which cancel() leaves alone: the last word before the agent ends.
    [[nodiscard]] virtual std::string farewell(std::string_view request) = 0;
    //! Ends the exchanges under way and lets later ones fail at once.
    virtual void cancel() = 0;
};

//! What is known of a password after a check.
enum class fv2PasswordCheck : std::uint8_t {
    Right,
    Wrong,
    CannotCheck, //!< nothing: this computer could not tell
};

//! Checks passwords of this computer's accounts.
class FV2UserAndPasswordModel {
public:
    virtual ~FV2UserAndPasswordModel() = default;
    //! Worker threads. Blocks: a wrong password takes seconds, a broken set-up may take for ever.
    [[nodiscard]] virtual fv2PasswordCheck verifyPassword(const std::string& userName,
                                                          const SecretText& password) const = 0;
};

//! The tray item.
class FV2StatusItem {
public:
    virtual ~FV2StatusItem() = default;
    //! Shows the image of that name; the state is for the text beside it.
    virtual void show(std::string_view imageName, fv2StatusStateType overallState) = 0;
};

class FV2ApplicationDelegate {
public:
    virtual ~FV2ApplicationDelegate() = default;
    [[nodiscard]] virtual FV2StatusItem& menuBarStatusItem() = 0;
    //! Opens the application window as the tray menu's entry does.
    virtual void menuShowMainWindow() = 0;
    //! Lets the tray menu's entries follow the state: a host may show a copy of them at any time.
    virtual void updateMenu() = 0;
};

//! An alert as it is shown: plain texts, the first button is the default one.
struct FV2AlertContent {
    std::string messageText;
    std::string informativeText;
    std::vector<std::string> buttons;

    friend bool operator==(const FV2AlertContent&, const FV2AlertContent&) = default;
};

//! What the model asks of the windows.
class FV2WindowRegistry {
public:
    virtual ~FV2WindowRegistry() = default;
    [[nodiscard]] virtual bool isOpen(fv2Window kind) const = 0;
    virtual void openWindow(fv2Window kind, bool userInitiated) = 0;
    //! What the open main window's controller calls itself, for log lines.
    [[nodiscard]] virtual std::string mainWindowDescription() const = 0;
    //! Lets the open main window read the model anew.
    virtual void updateMainWindow() = 0;
    virtual void selectProtectionStatusPage() = 0;
    virtual void closeUnneededPasswordWindows() = 0;
    //! Shows an alert on the open window of that kind and returns at once; `onFirstButton` runs if that one is chosen.
    virtual void showAlert(fv2Window kind, const FV2AlertContent& content, std::function<void()> onFirstButton) = 0;
    //! Tells the open password window of that kind that its user may postpone.
    virtual void confirmPostponement(fv2Window kind) = 0;
};

} // namespace fv2
