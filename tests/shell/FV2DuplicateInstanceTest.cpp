// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2DuplicateInstance.h"

#include "comms/FV2Requests.h"
#include "support/Process.h"
#include "support/RawSocket.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sched.h>

namespace fv2::test {
namespace {

using std::chrono::milliseconds;

//! Makes this process a user of its own, whose socket in /tmp and runtime folder are nobody else's.
bool becomeOwnUser(const std::string& runtime) {
    const uid_t outside = ::geteuid();
    const uid_t own = 700'000'000U + static_cast<uid_t>(::getpid());
    if (outside == 0) {
        if (::chown(runtime.c_str(), own, own) != 0 || ::setresuid(own, own, own) != 0)
            return false;
    } else {
        if (::unshare(CLONE_NEWUSER) != 0)
            return false;
        std::ofstream("/proc/self/uid_map") << own << ' ' << outside << " 1";
    }
    return ::getuid() == own && ::setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1) == 0;
}

std::string socketPath() {
    return "/tmp/ormfv2_ui_" + std::to_string(::getuid()) + ".sock";
}

//! Another copy, in a process of its own: begins to listen after `delay`, answers every connection until one hands
//! over, and notes what that one said. A service that runs on this machine may knock too.
pid_t copyThatListens(milliseconds delay, const std::string& heard) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(5);
        ::usleep(static_cast<useconds_t>(delay.count()) * 1000);
        const UniqueFd listening = listenAt(socketPath());
        for (std::string text; text.find("show_ui") == std::string::npos;) {
            const UniqueFd connection(::accept4(listening.get(), nullptr, nullptr, SOCK_CLOEXEC));
            text = receiveAll(connection, showUiRequest().size());
            if (sendAll(connection, R"("{ "result": 0 }")"))
                std::ofstream(heard) << text;
        }
        ::unlink(socketPath().c_str());
        ::_exit(0);
    }
    return child;
}

struct Surroundings {
    bool locked = false;
    milliseconds freeAfter{4000}; //!< when the lock is given back
    bool listens = false;
    milliseconds listensAfter{0};
    bool runtimeFolder = true;
    bool stopped = false;
};

//! Another copy that holds the lock without listening.
pid_t copyThatHolds(milliseconds time, const std::string& noted) {
    const pid_t child = ::fork();
    if (child == 0) {
        FV2InstanceLock lock;
        std::ofstream(noted) << (lock.tryTake() == FV2InstanceLock::Attempt::Taken);
        ::usleep(static_cast<useconds_t>(time.count()) * 1000);
        ::_exit(0);
    }
    while (contentOf(noted) != "1")
        ::usleep(1000);
    return child;
}

enum Verdict { another = 1, soon = 2, holds = 4, impossible = 8 };

//! Runs in a process of its own.
int secondCopy(const Surroundings& around, const TemporaryFolder& folder) {
    if (!becomeOwnUser(folder.path()))
        return impossible;
    if (!around.runtimeFolder)
        ::setenv("XDG_RUNTIME_DIR", (folder / "missing").c_str(), 1);
    const pid_t holder = around.locked ? copyThatHolds(around.freeAfter, folder / "locked") : -1;
    const pid_t listener = around.listens ? copyThatListens(around.listensAfter, folder / "heard") : -1;
    while (around.listens && around.listensAfter.count() == 0 && !std::filesystem::exists(socketPath()))
        ::usleep(1000);
    const auto stop = std::make_shared<const StopSignal>();
    if (around.stopped)
        stop->raise();

    FV2DuplicateInstance duplicate(stop, milliseconds(1000));
    const auto start = Deadline::Clock::now();
    int verdict = duplicate.handleDuplicateInstance() ? another : 0;
    if (Deadline::Clock::now() - start < milliseconds(700))
        verdict |= soon;
    if ((verdict & another) == 0 && FV2InstanceLock().tryTake() == FV2InstanceLock::Attempt::HeldByOther)
        verdict |= holds;
    if (listener > 0)
        ::waitpid(listener, nullptr, 0);
    if (holder > 0)
        ::kill(holder, SIGKILL);
    if (!around.runtimeFolder)
        ::unlink(FV2InstanceLock::defaultPath().c_str());
    return verdict;
}

//! What a second copy with a patience of a second finds: whether there is another one or it is alone and holds the
//! lock now, whether it took less than 0.7 s, and what the other one heard.
std::string found(const Surroundings& around) {
    const TemporaryFolder folder;
    const int verdict = inChild([&] { return secondCopy(around, folder); });
    if (verdict < 0 || verdict >= impossible)
        return "not found out: " + std::to_string(verdict);
    return std::string((verdict & another) != 0 ? "another" : "alone") + ((verdict & soon) != 0 ? " soon" : " late") +
           ((verdict & holds) != 0 ? " and holds" : "") + ", heard '" + contentOf(folder / "heard") + "'";
}

TEST(DuplicateInstance, HandsOverToACopyThatAnswersAndOtherwiseGoesByTheLock) {
    const std::string handedOver = R"(another soon, heard '{ "command": "show_ui" }')";
    EXPECT_EQ(found({}), "alone soon and holds, heard ''");
    EXPECT_EQ(found({.locked = true, .listens = true}), handedOver);
    EXPECT_EQ(found({.locked = true, .listens = true, .listensAfter = milliseconds(200)}), handedOver) << "starting";
    EXPECT_EQ(found({.locked = true, .freeAfter = milliseconds(200)}), "alone soon and holds, heard ''") << "ending";
    EXPECT_EQ(found({.locked = true}), "another late, heard ''") << "hanging";
    EXPECT_EQ(found({.listens = true}), handedOver) << "its lock file was removed";
    EXPECT_EQ(found({.locked = true, .stopped = true}), "another soon, heard ''") << "told to end while it waits";
    EXPECT_EQ(found({.runtimeFolder = false}), "alone soon and holds, heard ''");
}

} // namespace
} // namespace fv2::test
