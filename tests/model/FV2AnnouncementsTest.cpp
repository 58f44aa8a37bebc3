// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "model/FV2Announcements.h"

#include <gtest/gtest.h>

namespace fv2::test {
namespace {

//! What a whole day of one user is told, line by line: what happens, and what follows from it.
TEST(Announcements, TellEachThingOnceWhileItHoldsAndNobodySeesIt) {
    using enum fv2Announcement;
    struct Step {
        const char* what;
        std::function<void(FV2Announcements&, FV2Announcements::Situation&)> happens;
        std::optional<fv2Announcement> told;
        int seconds = 11;
        bool isQuiet = false;
    };
    constexpr auto Nothing = std::nullopt;
    const Step steps[] = {
        {"red at the start", [](auto&, auto& now) { now = {.serviceState = 12, .light = fv2StatusStateType::Red}; },
         Nothing},
        {"green", [](auto&, auto& now) { now = {.serviceState = 6}; }, Nothing},
        {"the service restarts", [](auto&, auto& now) { now.light = fv2StatusStateType::Red; }, Nothing, 3},
        {"and is back", [](auto&, auto& now) { now.light = fv2StatusStateType::Green; }, Nothing},
        {"red", [](auto&, auto& now) { now.light = fv2StatusStateType::Red; }, Nothing},
        {"still", [](auto&, auto&) {}, Red, 0},
        {"still", [](auto&, auto&) {}, Nothing},
        {"better", [](auto&, auto& now) { now.light = fv2StatusStateType::Yellow; }, None, 3},
        {"and red again", [](auto&, auto& now) { now.light = fv2StatusStateType::Red; }, Nothing, 3},
        {"green", [](auto&, auto& now) { now.light = fv2StatusStateType::Green; }, Nothing},
        {"still", [](auto&, auto&) {}, Nothing},
        {"yellow", [](auto&, auto& now) { now.light = fv2StatusStateType::Yellow; }, Nothing, 3},
        {"to red", [](auto&, auto& now) { now.light = fv2StatusStateType::Red; }, Nothing, 3},
        {"and back in quiet times", [](auto&, auto& now) { now.light = fv2StatusStateType::Yellow; }, Nothing, 3, true},
        {"which end", [](auto&, auto&) {}, Yellow, 0},
        {"green", [](auto&, auto& now) { now.light = fv2StatusStateType::Green; }, None},
        {"a synchronisation", [](auto&, auto& now) { now.isSyncActive = true; }, Nothing},
        {"fails", [](auto&, auto& now) { now.isSyncActive = now.isSyncOK = false; }, SyncFailed},
        {"once more by itself", [](auto&, auto& now) { now.isSyncActive = true; }, Nothing},
        {"fails", [](auto&, auto& now) { now.isSyncActive = false; }, Nothing},
        {"for the user",
         [](auto& told, auto& now) {
             told.userSynchronises();
             now.isSyncActive = true;
         },
         Nothing},
        {"fails", [](auto&, auto& now) { now.isSyncActive = false; }, SyncFailed},
        {"a window", [](auto&, auto& now) { now.isWatched = true; }, None},
        {"yellow in the window",
         [](auto&, auto& now) { now = {.serviceState = 1, .light = fv2StatusStateType::Yellow, .isWatched = true}; },
         Nothing},
        {"no window", [](auto&, auto& now) { now.isWatched = false; }, Nothing},
        {"refused for the user",
         [](auto& told, auto&) {
             told.userSynchronises();
             told.userSyncFailed();
         },
         SyncFailed},
        {"a password, whose window opens",
         [](auto&, auto& now) {
             now = {.serviceState = 3, .light = fv2StatusStateType::Red, .action = fv2AppCommand::EnterEncPassword};
         },
         Nothing},
        {"kept shut in quiet times",
         [](auto& told, auto&) { told.passwordWindowKeptShut(fv2Window::Password_Encrypt); }, Nothing, 11, true},
        {"quiet is over", [](auto&, auto&) {}, PasswordToEncrypt},
        {"kept shut again", [](auto& told, auto&) { told.passwordWindowKeptShut(fv2Window::Password_Encrypt); },
         Nothing},
        {"less important", [](auto& told, auto&) { told.setTrayMissing(true); }, Nothing},
        {"later",
         [](auto& told, auto& now) {
             told.postponed();
             now.isPostponed = now.isPromptShut = true;
         },
         NoTray},
        {"its time is over, and a minimised window keeps it shut", [](auto&, auto& now) { now.isPostponed = false; },
         PasswordToEncrypt},
        {"seen in the window", [](auto&, auto& now) { now.isWatched = true; }, None},
        {"and minimised again", [](auto&, auto& now) { now.isWatched = false; }, Nothing},
        {"not wanted", [](auto&, auto& now) { now.action = fv2AppCommand::NoAction; }, Nothing},
        {"wanted anew", [](auto&, auto& now) { now.action = fv2AppCommand::EnterEncPassword; }, PasswordToEncrypt},
        {"entered", [](auto&, auto& now) { now = {.serviceState = 4, .light = fv2StatusStateType::Yellow}; }, None},
        {"the service is away", [](auto&, auto& now) { now.serviceState = -1; }, Nothing},
        {"encrypted", [](auto&, auto& now) { now = {.serviceState = 6}; }, EncryptionFinished},
        {"decrypting", [](auto&, auto& now) { now = {.serviceState = 9, .light = fv2StatusStateType::Yellow}; }, None},
        {"decrypted", [](auto&, auto& now) { now.serviceState = 1; }, DecryptionFinished},
    };
    FV2Announcements announcements;
    FV2Announcements::Situation now;
    FV2Announcements::Time time{};
    int line = 0;
    for (const Step& step : steps) {
        time += std::chrono::seconds(step.seconds);
        step.happens(announcements, now);
        EXPECT_EQ(announcements.look(now, time, [&step] { return step.isQuiet; }), step.told) << ++line << step.what;
        time += std::chrono::seconds(step.seconds);
    }
}

} // namespace
} // namespace fv2::test
