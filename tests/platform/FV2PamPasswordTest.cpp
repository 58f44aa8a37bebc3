// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2PamPassword.h"

#include "platform/FV2AccountName.h"
#include "support/LogScope.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <pwd.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace fv2::test {
namespace {

//! A service file and one account, anna's.
struct PamPassword : testing::Test {
    void useRules(const std::string& rules) const { std::ofstream(folder / "fv2-agent") << rules; }
    void useAccount(const std::string& password, const std::string& options = "",
                    const std::string& account = "account required pam_permit.so\n") const {
        const std::string accounts = folder / "accounts";
        std::ofstream(accounts) << "anna:" << password << ":fv2-agent\n";
        useRules("auth required " PAM_MATRIX " passdb=" + accounts + " " + options + "\n" + account);
    }
    //! What the log says of a check: nothing when it was passed.
    [[nodiscard]] std::string refusal(std::string_view password) const {
        const LogScope log{{FV2LoggingLevel::error}};
        const bool isRight = model.verifyPassword("anna", SecretText(password));
        const auto lines = log.messages();
        EXPECT_EQ(isRight, lines.empty());
        EXPECT_EQ(log.text().find("geheim"), std::string::npos);
        return lines.empty() ? "" : lines.front();
    }

    const TemporaryFolder folder;
    FV2PamPassword model{folder.path(), {folder / "system"}};
};

TEST_F(PamPassword, ReachesPamAsItIs) {
    for (const std::string& password :
         {std::string("x"), std::string("a  b"), std::string("süß🔑\t%s\\\"'"), std::string(511, 'm') + "n"}) {
        useAccount(password);
        EXPECT_EQ(refusal(password), "");
        EXPECT_EQ(refusal(password.substr(0, password.size() - 1) + "o"), "verifyPassword failed: wrong password");
    }
}

TEST_F(PamPassword, TellsInTheLogWhyItWasNotAccepted) {
    const auto account = [this](const std::string& result) {
        return [=, this] { useAccount("geheim", "", "account required pam_debug.so acct=" + result + "\n"); };
    };
    const auto auth = [this](const std::string& module) {
        return [=, this] { useRules("auth required " + module + "\naccount required pam_permit.so\n"); };
    };
    struct Case {
        std::function<void()> rules;
        std::string refusal;
    };
    const std::vector<Case> table{
        {account("acct_expired"), "account expired"},
        {account("perm_denied"), "account locked"},
        {account("new_authtok_reqd"), "password expired"},
        {auth("pam_debug.so auth=maxtries"), "account locked"},
        {auth("pam_debug.so auth=user_unknown"), "account unknown"},
        {auth("pam_debug.so auth=authinfo_unavail"), "PAM not available (module error 9)"},
        {auth("pam_no_such_module.so"), "PAM not available (module error 28)"},
        {[this] { useAccount("geheim", "echo"); }, "PAM asks for more than a password"},
        {[this] { std::filesystem::remove(folder / "fv2-agent"); }, "PAM not available (no service file)"},
    };
    for (const Case& each : table) {
        each.rules();
        EXPECT_EQ(refusal("geheim"), "verifyPassword failed: " + each.refusal);
    }
    useAccount("geheim", "verbose"); // says something besides
    EXPECT_EQ(refusal("geheim"), "");
    EXPECT_EQ(refusal("falsch"), "verifyPassword failed: wrong password");
    useRules("auth required pam_permit.so\naccount required pam_permit.so\n");
    EXPECT_EQ(refusal("any"), "");
    for (const std::string_view impossible : {std::string_view(), std::string_view("a\0b", 3)})
        EXPECT_EQ(refusal(impossible), "verifyPassword failed: no text that can be a password");
}

TEST_F(PamPassword, WaitsAsPamWantsUnlessThereIsAHurry) {
    useAccount("right", "\nauth optional pam_faildelay.so delay=400000");
    const Deadline least(std::chrono::milliseconds(200));
    EXPECT_NE(refusal("wrong"), "");
    EXPECT_TRUE(least.passed());
    useAccount("right", "\nauth optional pam_faildelay.so delay=60000000");
    const std::jthread other([this] { model.hurry(); });
    EXPECT_NE(refusal("wrong"), "");
    EXPECT_NE(refusal("wrong"), "");
}

TEST_F(PamPassword, IsCheckedOnSeveralThreadsAtOnce) {
    useAccount("right");
    std::atomic<int> accepted = 0;
    {
        std::vector<std::jthread> threads;
        for (int number = 0; number < 8; ++number)
            threads.emplace_back([this, number, &accepted] {
                accepted += model.verifyPassword("anna", SecretText(number % 2 == 0 ? "right" : "wrong"));
            });
    }
    EXPECT_EQ(accepted, 4);
}

TEST(AccountName, IsThatOfTheProcessWhateverTheEnvironmentSays) {
    ::setenv("USER", "somebody", 1);
    ::setenv("LOGNAME", "somebody", 1);
    const passwd* const entry = ::getpwuid(::getuid());
    EXPECT_EQ(accountName(), entry == nullptr ? "" : entry->pw_name);
}

} // namespace
} // namespace fv2::test
