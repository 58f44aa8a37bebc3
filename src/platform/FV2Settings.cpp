// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Settings.h"

#include "base/Trimmed.h"
#include "base/Utf8.h"
#include "logging/SystemReport.h"
#include "platform/SmallFile.h"
#include "resources/FV2HelpAddress.h"

#include <cerrno>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fv2 {

namespace {

constexpr std::size_t kLongestSettings = 64 * 1024;

//! One file's settings; none if it has a mistake.
struct Said {
    std::optional<std::string> helpHost;
    std::optional<bool> rootOnly;
};

std::string quoted(std::string_view text) {
    return "\"" + readableText(text) + "\"";
}

//! Takes one setting; tells what is wrong with it, nothing if it is right.
std::string take(Said& said, const std::string& section, std::string_view key, std::string_view value) {
    if (section == "[help]" && key == "host") {
        if (said.helpHost)
            return "host stands there twice";
        if (!value.empty() && helpAddress(value, {}).empty())
            return quoted(value) + " is no host";
        said.helpHost = value;
    } else if (section == "[credentials]" && key == "rootOnly") {
        if (said.rootOnly)
            return "rootOnly stands there twice";
        if (value != "true" && value != "false")
            return quoted(value) + " is neither true nor false";
        said.rootOnly = value == "true";
    } else {
        return "unknown key " + quoted(key) + (section.empty() ? " before any section" : " in " + section);
    }
    return {};
}

std::string takeLine(Said& said, std::string& section, std::string_view line) {
    line = trimmed(line);
    if (line.empty() || line.front() == ';' || line.front() == '#')
        return {};
    if (line.front() == '[') {
        section = line;
        return section == "[help]" || section == "[credentials]" ? "" : "unknown section " + quoted(line);
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return quoted(line) + " is neither a section nor key=value";
    return take(said, section, trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
}

//! The first mistake of a file, with its line if it has one; empty if there is none.
std::string mistakeIn(const std::filesystem::path& path, Said& said) {
    struct stat facts {};
    struct stat folder {};
    const bool isKnown = ::stat(path.c_str(), &facts) == 0 && ::stat(path.parent_path().c_str(), &folder) == 0;
    if (isKnown && !S_ISREG(facts.st_mode))
        return "not a file";
    if (isKnown &&
        (((facts.st_mode | folder.st_mode) & S_IWOTH) != 0 || (facts.st_uid != 0 && facts.st_uid != ::getuid())))
        return "others can write to it";
    const std::optional<std::string> content = isKnown ? readSmallFile(path, kLongestSettings) : std::nullopt;
    if (!content)
        return std::generic_category().message(errno);
    if (content->size() == kLongestSettings)
        return "too long";
    std::istringstream lines(*content);
    std::string section;
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (const std::string mistake = takeLine(said, section, line); !mistake.empty())
            return "line " + std::to_string(number) + ": " + mistake;
    }
    return {};
}

bool isAbsent(const std::filesystem::path& path) {
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

bool leadsSomewhere(const std::filesystem::path& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0;
}

//! Empty only if there is no such file; a link that leads nowhere, and what can't be looked at, are mistakes.
std::optional<Said> readFile(const std::filesystem::path& path) {
    const std::filesystem::path folder = path.parent_path();
    if (isAbsent(path) && (isAbsent(folder) || leadsSomewhere(folder)))
        return std::nullopt;
    Said said;
    const std::string mistake = mistakeIn(path, said);
    if (mistake.empty())
        return said;
    const std::string report = "Settings not read, passwords go to root only: " + path.string() + ": " + mistake;
    reportOnce(report, report);
    return Said();
}

} // namespace

FV2Settings readSettings(const std::filesystem::path& computer) {
    const std::filesystem::path name = "fv2-agent/agent.conf";
    const std::optional<Said> ofComputer = readFile(computer / name);
    std::optional<Said> first;
    const char* const folders = std::getenv("XDG_CONFIG_DIRS");
    std::istringstream all(folders == nullptr ? "" : folders);
    for (std::string folder; !first && std::getline(all, folder, ':');)
        if (folder.starts_with('/'))
            first = folder == computer ? ofComputer : readFile(folder / name);
    if (!first)
        first = ofComputer;
    FV2Settings settings;
    if (!first)
        return settings;
    settings.helpHost = first->helpHost.value_or(settings.helpHost);
    const bool computerSaysSo = !ofComputer || ofComputer->rootOnly == false;
    settings.credentialsToRootOnly = first->rootOnly.value_or(true) || !computerSaysSo;
    return settings;
}

} // namespace fv2
