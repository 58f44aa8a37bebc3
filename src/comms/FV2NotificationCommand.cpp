// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/FV2NotificationCommand.h"

#include "comms/FV2Records.h"

namespace fv2 {

fv2JsonCommand commandKind(std::string_view text) {
    const std::optional<FV2AISCommand> command = FV2AISCommand::decode(text);
    if (!command)
        return fv2JsonCommand::None;
    return command->command == "show_ui" ? fv2JsonCommand::Show : fv2JsonCommand::GetStatus;
}

} // namespace fv2
