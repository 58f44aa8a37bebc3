// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Require.h"
#include "comms/FV2NotificationCommand.h"
#include "comms/IncomingConnections.h"

#include <nlohmann/json.hpp>

#include <cstdint>

namespace fv2::test {
namespace {

//! The same by the JSON library's own means.
fv2JsonCommand kindOf(const std::string& text) {
    int deepest = 0;
    const auto value = nlohmann::json::parse(
        text,
        [&deepest](int depth, nlohmann::json::parse_event_t event, nlohmann::json&) {
            if (event == nlohmann::json::parse_event_t::object_start ||
                event == nlohmann::json::parse_event_t::array_start)
                deepest = std::max(deepest, depth + 1);
            return true;
        },
        false);
    if (!value.is_object() || deepest > 64)
        return fv2JsonCommand::None;
    const nlohmann::json command = value.value("command", nlohmann::json());
    if (!command.is_null() && !command.is_string())
        return fv2JsonCommand::None;
    return command == "show_ui" ? fv2JsonCommand::Show : fv2JsonCommand::GetStatus;
}

} // namespace
} // namespace fv2::test

//! The bytes of one connection up to what the listener tells the model.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace fv2;
    const std::string bytes(data, data + size);
    MessageReader reader(IncomingConnections::maxMessage);
    for (std::size_t at = 0; at < size; at += MessageReader::chunkSize)
        if (reader.take(std::string_view(bytes).substr(at, MessageReader::chunkSize)) != MessageReader::State::Reading)
            break;
    const std::string text = reader.takeText();
    test::require(commandKind(text) == test::kindOf(text));
    return 0;
}
