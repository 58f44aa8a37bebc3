// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2PamPassword.h"

#include "logging/FV2Logging.h"
#include "logging/SystemReport.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <security/pam_appl.h>
#include <string.h>

namespace fv2 {

namespace {

constexpr const char* kServiceFile = "fv2-agent";

//! What PAM's modules may ask and be told during one check.
struct Conversation {
    const SecretText& password;
    const StopSignal& stopWaiting;
    bool answered = false;
    bool askedForMore = false;
};

struct FreeResponses {
    std::size_t count;
    void operator()(pam_response* responses) const {
        for (std::size_t i = 0; i < count; ++i)
            if (char* const text = responses[i].resp) {
                ::explicit_bzero(text, ::strlen(text));
                std::free(text);
            }
        std::free(responses);
    }
};

//! PAM owns what it is given: it overwrites and frees the text.
char* copyForPam(std::string_view text) {
    auto* const copy = static_cast<char*>(std::calloc(text.size() + 1, 1));
    if (copy != nullptr)
        text.copy(copy, text.size());
    return copy;
}

bool isPrompt(const pam_message& message) {
    return message.msg_style != PAM_TEXT_INFO && message.msg_style != PAM_ERROR_MSG;
}

//! The password for the first hidden prompt; mere messages are passed over, every other question is refused.
int converse(int count, const pam_message** messages, pam_response** answers, void* data) {
    auto& conversation = *static_cast<Conversation*>(data);
    if (count <= 0 || count > PAM_MAX_NUM_MSG)
        return PAM_CONV_ERR;
    const auto many = static_cast<std::size_t>(count);
    std::unique_ptr<pam_response[], FreeResponses> responses(
        static_cast<pam_response*>(std::calloc(many, sizeof(pam_response))), FreeResponses{many});
    if (!responses)
        return PAM_BUF_ERR;
    for (std::size_t i = 0; i < many; ++i) {
        if (!isPrompt(*messages[i]))
            continue;
        if (messages[i]->msg_style != PAM_PROMPT_ECHO_OFF || conversation.answered) {
            conversation.askedForMore = true;
            return PAM_CONV_ERR;
        }
        responses[i].resp = copyForPam(conversation.password.text());
        conversation.answered = true;
    }
    if (answers != nullptr) // a module that only informs may want no reply
        *answers = responses.release();
    return PAM_SUCCESS;
}

//! Replaces PAM's own delay, which nothing could cut short.
void waitAfterFailure(int result, unsigned microseconds, void* data) {
    if (result == PAM_SUCCESS)
        return;
    const Deadline end(std::chrono::ceil<std::chrono::milliseconds>(std::chrono::microseconds(microseconds)));
    static_cast<void>(static_cast<Conversation*>(data)->stopWaiting.waitFor(-1, 0, end));
}

constexpr const char* kNotAllowed = "account may not log in now";

struct Words {
    int result;
    const char* words;
};

//! The rest has to do with PAM, not with the account.
constexpr std::array kWords{
    Words{PAM_AUTH_ERR, "wrong password"},          Words{PAM_USER_UNKNOWN, "account unknown"},
    Words{PAM_MAXTRIES, "account locked"},          Words{PAM_PERM_DENIED, kNotAllowed},
    Words{PAM_ACCT_EXPIRED, "account expired"},     Words{PAM_NEW_AUTHTOK_REQD, "password expired"},
    Words{PAM_AUTHTOK_EXPIRED, "password expired"},
};

struct Outcome {
    fv2PasswordCheck check;
    std::string failure; //!< empty for a right password
};

Outcome outcomeOf(int result, bool passwordWasRight) {
    if (passwordWasRight && result == PAM_AUTH_ERR)
        return {fv2PasswordCheck::Wrong, kNotAllowed};
    const auto* const found =
        std::find_if(kWords.begin(), kWords.end(), [result](const Words& each) { return each.result == result; });
    if (found != kWords.end())
        return {fv2PasswordCheck::Wrong, found->words};
    return {fv2PasswordCheck::CannotCheck, "PAM not available (module error " + std::to_string(result) + ")"};
}

//! One handle's life.
class Check {
public:
    Check(const std::string& userName, const char* folder, Conversation& conversation)
        : m_conversation(conversation)
        , m_functions{converse, &conversation} {
        m_result = ::pam_start_confdir(kServiceFile, userName.c_str(), &m_functions, folder, &m_pam);
        if (m_result == PAM_SUCCESS) // takes no other kind of pointer
            m_result = ::pam_set_item(m_pam, PAM_FAIL_DELAY, reinterpret_cast<const void*>(waitAfterFailure));
    }
    Check(const Check&) = delete;
    Check& operator=(const Check&) = delete;
    ~Check() {
        if (m_pam != nullptr)
            ::pam_end(m_pam, m_result);
    }

    [[nodiscard]] Outcome run() {
        constexpr int flags = PAM_SILENT | PAM_DISALLOW_NULL_AUTHTOK;
        if (m_result == PAM_SUCCESS)
            m_result = ::pam_authenticate(m_pam, flags);
        const bool passwordWasRight = m_result == PAM_SUCCESS && m_conversation.answered;
        if (passwordWasRight)
            m_result = ::pam_acct_mgmt(m_pam, flags);
        if (m_conversation.askedForMore)
            return {fv2PasswordCheck::CannotCheck, "PAM asks for more than a password"};
        // What PAM answers to rules that it can't read or that include a file which is not there.
        if (m_result == PAM_PERM_DENIED && !m_conversation.answered)
            return {fv2PasswordCheck::CannotCheck, "PAM refuses without asking for the password"};
        if (m_result != PAM_SUCCESS)
            return outcomeOf(m_result, passwordWasRight);
        if (!passwordWasRight) // another factor sufficed
            return {fv2PasswordCheck::CannotCheck, "PAM does not ask for the password"};
        return {fv2PasswordCheck::Right, {}};
    }

private:
    Conversation& m_conversation;
    const pam_conv m_functions;
    pam_handle_t* m_pam = nullptr;
    int m_result = PAM_SUCCESS;
};

bool hasServiceFile(const std::filesystem::path& folder) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(folder / kServiceFile, ignored);
}

} // namespace

FV2PamPassword::FV2PamPassword(Path folder, std::vector<Path> systemFolders)
    : m_folder(std::move(folder))
    , m_systemFolders(std::move(systemFolders)) {
}

fv2PasswordCheck FV2PamPassword::verifyPassword(const std::string& userName, const SecretText& password) const {
    const bool isOwn = hasServiceFile(m_folder);
    Outcome outcome{fv2PasswordCheck::Wrong, "no text that can be a password"};
    if (m_stopWaiting.isRaised()) {
        outcome.failure = "the agent ends";
    } else if (!isOwn && std::none_of(m_systemFolders.begin(), m_systemFolders.end(), hasServiceFile)) {
        // PAM would silently take the rules of "other".
        outcome = {fv2PasswordCheck::CannotCheck, "PAM not available (no service file)"};
    } else if (!password.empty() && password.text().find('\0') == std::string_view::npos) {
        Conversation conversation{password, m_stopWaiting};
        outcome = Check(userName, isOwn ? m_folder.c_str() : nullptr, conversation).run();
    }
    if (outcome.check == fv2PasswordCheck::CannotCheck)
        reportOnce(outcome.failure, "The user's password can't be checked: " + outcome.failure);
    if (!outcome.failure.empty())
        log(FV2LoggingLevel::error, {"verifyPassword failed:", outcome.failure});
    return outcome.check;
}

} // namespace fv2
