// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2ThisComputer.h"

#include "base/Trimmed.h"
#include "base/Utf8.h"
#include "platform/Assignment.h"
#include "platform/SmallFile.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <optional>
#include <sstream>
#include <unistd.h>

namespace fv2 {

namespace {

constexpr std::size_t kMaxFileSize = 64 * 1024;
constexpr std::string_view kModelName = "model name";

SysctlError failure(int code, const std::filesystem::path& cpuinfo) {
    return {"POSIX", code, {{"name", std::string(kModelName)}, {"path", cpuinfo.string()}}};
}

//! What one os-release file says; empty when it says nothing.
std::string describedBy(const std::filesystem::path& path) {
    std::map<std::string, std::string> values;
    std::istringstream lines(readSmallFile(path, kMaxFileSize).value_or(std::string()));
    for (std::string line; std::getline(lines, line);)
        if (const std::size_t equals = line.find('='); equals != std::string::npos)
            values[line.substr(0, equals)] =
                readableText(unquotedValue(trimmed(std::string_view(line).substr(equals + 1))));
    if (const std::string& pretty = values["PRETTY_NAME"]; !pretty.empty())
        return pretty;
    const std::string& name = values["NAME"];
    const std::string& version = values["VERSION"];
    return name.empty() || version.empty() ? name : name + " " + version;
}

} // namespace

std::string computerName(const std::string& machineInfoPath) {
    constexpr std::string_view key = "PRETTY_HOSTNAME=";
    std::ifstream info(machineInfoPath);
    for (std::string line; std::getline(info, line);) {
        std::string name =
            line.starts_with(key) ? unquotedValue(std::string_view(line).substr(key.size())) : std::string();
        if (!name.empty())
            return name;
    }
    std::array<char, 256> host{};
    return ::gethostname(host.data(), host.size() - 1) == 0 ? host.data() : std::string();
}

std::variant<std::string, SysctlError> machineDescription(const std::filesystem::path& cpuinfo) {
    const std::optional<std::string> content = readSmallFile(cpuinfo, kMaxFileSize);
    if (!content)
        return failure(errno, cpuinfo);
    std::istringstream lines(*content);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t colon = line.find(':');
        if (colon == std::string::npos || trimmed(std::string_view(line).substr(0, colon)) != kModelName)
            continue;
        if (const std::string name = readableText(trimmed(std::string_view(line).substr(colon + 1))); !name.empty())
            return name + (sizeof(void*) == 8 ? " (64-bit)" : " (32-bit)");
    }
    return failure(ENOENT, cpuinfo);
}

std::string osDescription(const std::vector<std::filesystem::path>& paths) {
    for (const std::filesystem::path& path : paths)
        if (std::string description = describedBy(path); !description.empty())
            return description;
    return "Linux";
}

} // namespace fv2
