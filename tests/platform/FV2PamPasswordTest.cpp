// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2PamPassword.h"

#include "support/LogScope.h"

#include <gtest/gtest.h>

#include <thread>

extern "C" { // of the leak checker, where there is one
[[gnu::weak]] void __lsan_disable();
[[gnu::weak]] void __lsan_enable();
}

namespace fv2::test {
namespace {

//! A service file and one account, anna's.
struct PamPassword : testing::Test {
    void useRules(const std::string& rules) const { std::ofstream(folder / "fv2-agent") << rules; }
    void usePassword(const std::string& password, const std::string& more = "\naccount required pam_permit.so") const {
        std::ofstream(folder / "accounts") << "anna:" << password << ":fv2-agent\n";
        useRules("auth required " PAM_MATRIX " passdb=" + folder / "accounts" + more + "\n");
    }
    //! What the log says of a check: nothing when it was passed, "set-up: " before what is not the password's fault.
    [[nodiscard]] std::string refusal(std::string_view password) const {
        const LogScope log{{FV2LoggingLevel::error}};
        const fv2PasswordCheck result = model.verifyPassword("anna", SecretText(password));
        const auto lines = log.messages();
        EXPECT_EQ(result == fv2PasswordCheck::Right, lines.empty());
        EXPECT_EQ(log.text().find("geheim"), std::string::npos);
        const std::string who = result == fv2PasswordCheck::CannotCheck ? "set-up: " : "";
        return lines.empty() ? "" : who + lines.front().substr(std::string("verifyPassword failed: ").size());
    }

    const TemporaryFolder folder;
    FV2PamPassword model{folder.path(), {folder / "system"}};
};

TEST_F(PamPassword, ReachesPamAsItIs) {
    for (const std::string& password : {std::string("x"), std::string("süß🔑\t%s \\\"'"), std::string(511, 'm') + "n"}) {
        usePassword(password);
        EXPECT_EQ(refusal(password), "");
        EXPECT_EQ(refusal(password.substr(0, password.size() - 1) + "o"), "wrong password");
    }
    useRules("auth required pam_permit.so\naccount required pam_permit.so\n");
    EXPECT_EQ(refusal("any"), "set-up: PAM does not ask for the password") << "so it may be any other";
    for (const std::string_view impossible : {std::string_view(), std::string_view("a\0b", 3)})
        EXPECT_EQ(refusal(impossible), "no text that can be a password");
}

TEST_F(PamPassword, TellsInTheLogWhyItWasNotAccepted) {
    EXPECT_EQ(refusal("geheim"), "set-up: PAM not available (no service file)");
    struct Case {
        const char* rules; //!< behind the rule that accepts the password, or instead of it
        const char* refusal;
    };
    const Case table[] = {
        {"\naccount required pam_debug.so acct=acct_expired", "account expired"},
        {"\naccount required pam_debug.so acct=perm_denied", "account may not log in now"},
        {"\naccount required pam_debug.so acct=auth_err", "account may not log in now"},
        {"\naccount required pam_debug.so acct=new_authtok_reqd", "password expired"},
        {" echo", "set-up: PAM asks for more than a password"},
        {" verbose\naccount required pam_permit.so", ""}, // says something besides
        {"auth required pam_debug.so auth=maxtries", "account locked"},
        {"auth required pam_debug.so auth=user_unknown", "account unknown"},
        {"auth required pam_debug.so auth=authinfo_unavail", "set-up: PAM not available (module error 9)"},
        {"auth required pam_no_such_module.so", "set-up: PAM not available (module error 28)"},
        {"auth include no-such-stack\naccount include no-such-stack",
         "set-up: PAM refuses without asking for the password"},
        {"auth @other-distribution common-auth", "set-up: PAM not available (module error 28)"},
        {"auth required pam_deny.so\n@include no-such-stack", "set-up: PAM not available (module error 26)"},
    };
    for (const Case& each : table) {
        usePassword("geheim", each.rules);
        if (std::string_view(each.rules).starts_with("auth"))
            useRules(each.rules);
        // PAM loses what it has read of rules before one that it can't read.
        const bool leaks = __lsan_disable && std::string_view(each.rules).find("no-such-stack") != std::string::npos;
        if (leaks)
            __lsan_disable();
        EXPECT_EQ(refusal("geheim"), each.refusal);
        if (leaks)
            __lsan_enable();
    }
}

TEST_F(PamPassword, WaitsAsPamWantsUnlessItIsToldNotToWait) {
    usePassword("right", "\nauth optional pam_faildelay.so delay=400000");
    const Deadline least(std::chrono::milliseconds(200));
    EXPECT_NE(refusal("wrong"), "");
    EXPECT_TRUE(least.passed());
    usePassword("right", "\nauth optional pam_faildelay.so delay=600000000\naccount required pam_permit.so");
    EXPECT_EQ(refusal("right"), "") << "only a wrong one waits";
    std::jthread waiting([this] { EXPECT_EQ(refusal("wrong"), "wrong password"); });
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    model.stopWaiting();
    waiting.join();
    EXPECT_EQ(refusal("right"), "the agent ends");
}

} // namespace
} // namespace fv2::test
