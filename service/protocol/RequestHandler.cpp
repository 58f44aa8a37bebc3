// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "protocol/RequestHandler.h"

#include <array>
#include <sys/random.h>
#include <utility>

namespace fv2::service {

namespace {

//! 128 random bits in hexadecimal; empty when the system has none.
std::string makeToken() {
    std::array<unsigned char, 16> bytes{};
    if (::getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
        return "";
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string token;
    for (const unsigned byte : bytes) {
        token += digits[byte >> 4U];
        token += digits[byte & 0xFU];
    }
    return token;
}

std::string userText(uid_t uid) {
    return "uid " + std::to_string(uid);
}

std::string outcomeText(const EngineOutcome& outcome) {
    return outcome.accepted ? "accepted" : "refused with error " + std::to_string(outcome.errorCode);
}

} // namespace

RequestHandler::RequestHandler(Engine& engine, Notifier& notifier, Report report)
    : m_engine(engine)
    , m_notifier(notifier)
    , m_report(std::move(report)) {
}

std::string RequestHandler::answer(std::string_view text, uid_t peer) {
    const auto request = decodeRequest(text);
    if (!request)
        return refuse(ServiceError::BadRequest, "not understood");
    if (peer != 0 && peer != request->uid)
        return refuse(ServiceError::OtherUser, userText(peer) + " asked for " + userText(request->uid));
    return answer(*request);
}

std::string RequestHandler::answer(const Request& request) {
    if (request.command == "get_token")
        return giveToken(request.uid);
    if (request.command == "get_status")
        return giveStatus(request.uid);

    using Guarded = std::string (RequestHandler::*)(const Request&);
    static constexpr std::array<std::pair<std::string_view, Guarded>, 3> guarded{{
        {"proxy_sync", &RequestHandler::startSync},
        {"unsubscribe", &RequestHandler::unsubscribe},
        {"set_user_credentials", &RequestHandler::takeCredentials},
    }};
    for (const auto& [command, act] : guarded) {
        if (request.command != command)
            continue;
        const auto token = m_tokens.find(request.uid);
        if (token == m_tokens.end() || token->second != request.token)
            return refuse(ServiceError::BadToken, "wrong token of " + userText(request.uid));
        return (this->*act)(request);
    }
    return refuse(ServiceError::UnknownCommand, "unknown command");
}

std::string RequestHandler::refuse(ServiceError error, std::string_view why) {
    m_report("request refused: " + std::string(why));
    return outcomeReply({false, static_cast<std::int64_t>(error)});
}

std::string RequestHandler::giveToken(uid_t uid) {
    std::string& token = m_tokens[uid];
    if (token.empty())
        token = makeToken();
    m_notifier.subscribe(uid);
    m_report("token for " + userText(uid));
    return tokenReply(token);
}

std::string RequestHandler::giveStatus(uid_t uid) {
    m_report("status for " + userText(uid));
    return statusReply(m_engine.status());
}

std::string RequestHandler::startSync(const Request& request) {
    const EngineOutcome outcome = m_engine.startSync();
    m_report("sync of " + userText(request.uid) + ": " + outcomeText(outcome));
    return outcomeReply(outcome);
}

std::string RequestHandler::unsubscribe(const Request& request) {
    m_tokens.erase(request.uid);
    m_notifier.unsubscribe(request.uid);
    m_report("unsubscribed " + userText(request.uid));
    return outcomeReply({});
}

std::string RequestHandler::takeCredentials(const Request& request) {
    if (!request.credentials)
        return refuse(ServiceError::BadRequest, "credentials not understood");
    const auto& [username, password] = *request.credentials;
    const EngineOutcome outcome = m_engine.takeCredentials(request.uid, username, password.text());
    m_report("credentials of " + userText(request.uid) + ": " + outcomeText(outcome));
    return outcomeReply(outcome);
}

} // namespace fv2::service
