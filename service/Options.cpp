// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Options.h"

namespace fv2::service {

std::variant<Options, std::string> readOptions(std::span<const char* const> arguments) {
    Options options;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string_view name = arguments[at];
        if (name == "--help") {
            options.help = true;
            continue;
        }
        const bool known = name == "--socket" || name == "--agent-socket-dir" || name == "--scenario";
        if (!known)
            return "unknown option " + std::string(name);
        if (++at == arguments.size())
            return std::string(name) + " needs a value";
        if (name == "--socket")
            options.socket = arguments[at];
        else if (name == "--agent-socket-dir")
            options.agentSocketFolder = arguments[at];
        else
            options.scenario = arguments[at];
    }
    return options;
}

std::string_view usage() {
    return "usage: fv2-demo-service [--socket PATH] [--agent-socket-dir DIR] [--scenario NAME|FILE]\n"
           "  --socket PATH           where agents ask (/tmp/orm_ui.sock)\n"
           "  --agent-socket-dir DIR  where agents listen (/tmp)\n"
           "  --scenario NAME|FILE    what to play; without it nothing happens until a line says so\n"
           "Lines on standard input change everything live; the line 'help' lists them.\n";
}

} // namespace fv2::service
