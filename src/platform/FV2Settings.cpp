// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Settings.h"

#include "base/Utf8.h"
#include "logging/FV2LoggingLevel.h"
#include "logging/SystemReport.h"
#include "resources/FV2HelpAddress.h"

#include <algorithm>
#include <array>
#include <functional>
#include <sys/stat.h>

namespace fv2 {

namespace {

constexpr std::string_view kFormerFile = "etc/xdg/fv2-agent/agent.conf";

std::string inQuotes(std::string_view text) {
    return "\"" + readableText(text) + "\"";
}

std::string takeBool(bool& setting, const std::string& value) {
    if (value != "true" && value != "false")
        return inQuotes(value) + " is neither true nor false";
    setting = value == "true";
    return {};
}

//! Empty, or an address that a browser opens without asking.
std::string takeHttps(std::string& setting, const std::string& value) {
    const bool isGood = value.empty() || (value.starts_with("https://") && value.size() > 8 &&
                                          std::ranges::all_of(value, [](char c) { return c > ' ' && c < '\x7f'; }));
    if (!isGood)
        return inQuotes(value) + " does not begin with https:// or has characters that no address has";
    setting = value;
    return {};
}

std::string takeText(std::string& setting, const std::string& value) {
    setting = readableText(value);
    return {};
}

std::string takeLevels(std::string& setting, const std::string& value) {
    if (!parseLogLevels(value).unknownWords.empty())
        return inQuotes(value) + " has an unknown level; known: trace, ui, error, release, all";
    setting = value;
    return {};
}

std::string takeTarget(FV2LogTarget& setting, const std::string& value) {
    for (const auto& [name, target] :
         {std::pair{"file", FV2LogTarget::File}, {"journal", FV2LogTarget::Journal}, {"both", FV2LogTarget::Both}})
        if (value == name) {
            setting = target;
            return {};
        }
    return inQuotes(value) + " is none of file, journal, both";
}

std::string takeHost(std::string& setting, const std::string& value) {
    if (!value.empty() && helpAddress(value, {}).empty())
        return inQuotes(value) + " is no host";
    setting = value;
    return {};
}

std::string takeLanguage(std::string& setting, const std::string& value) {
    const bool isTag = std::ranges::all_of(value, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    });
    if (!isTag)
        return inQuotes(value) + " is no language";
    setting = value;
    return {};
}

struct Key {
    std::string_view name;     //!< with its section
    std::string_view byItself; //!< what holds when nothing is said
    bool isForSecurity;
    //! Takes a value; tells what is wrong with it, nothing if it is right.
    std::string (*take)(FV2Settings& settings, const std::string& value);
};

constexpr std::array<Key, 10> kKeys{{
    {"credentials.rootOnly", "true", true, [](auto& s, const auto& v) { return takeBool(s.credentialsToRootOnly, v); }},
    {"help.host", "help.example.com", false, [](auto& s, const auto& v) { return takeHost(s.helpHost, v); }},
    {"help.url", "", false, [](auto& s, const auto& v) { return takeHttps(s.helpUrl, v); }},
    {"log.levels", "", false, [](auto& s, const auto& v) { return takeLevels(s.logLevels, v); }},
    {"log.target", "file", false, [](auto& s, const auto& v) { return takeTarget(s.logTarget, v); }},
    {"notifications.enabled", "true", false,
     [](auto& s, const auto& v) { return takeBool(s.notificationsEnabled, v); }},
    {"support.name", "", false, [](auto& s, const auto& v) { return takeText(s.supportName, v); }},
    {"support.phone", "", false, [](auto& s, const auto& v) { return takeText(s.supportPhone, v); }},
    {"support.url", "", false, [](auto& s, const auto& v) { return takeHttps(s.supportUrl, v); }},
    {"ui.language", "", false, [](auto& s, const auto& v) { return takeLanguage(s.uiLanguage, v); }},
}};

uid_t ownerOf(const std::filesystem::path& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0 ? facts.st_uid : 0;
}

bool isSection(const std::string& name) {
    return std::ranges::any_of(kKeys, [&](const Key& key) { return key.name.starts_with(name + "."); });
}

//! Takes one file's settings all together, or none of them.
void takeFile(const std::filesystem::path& path, const std::filesystem::path& root, FV2ExaminedSettings& found) {
    FV2SettingsFile file = readSettingsFile(path, ownerOf(root));
    const bool isOfAdministrator = path.string().starts_with((root / "etc/").string());
    FV2ExaminedSettings changed{found.settings, found.origins, {}};
    std::vector<FV2SettingsMistake> mistakes = std::move(file.mistakes);
    std::vector<std::string> seen;
    for (const FV2SettingsLine& line : file.lines) {
        if (line.key.empty() && isSection(line.section))
            continue;
        const std::string name = line.section + "." + line.key;
        const auto key = std::ranges::find(kKeys, name, &Key::name);
        std::string what;
        if (line.key.empty())
            what = "unknown section [" + readableText(line.section) + "]";
        else if (key == kKeys.end())
            what = line.section.empty()
                       ? "unknown key " + inQuotes(line.key) + " before any section"
                       : "unknown key " + inQuotes(line.key) + " in [" + readableText(line.section) + "]";
        else if (std::ranges::find(seen, name) != seen.end())
            what = line.key + " stands there twice";
        else if (key->isForSecurity && !isOfAdministrator)
            what = line.key + " counts below /etc alone";
        else
            what = key->take(changed.settings, line.value);
        seen.push_back(name);
        if (!what.empty()) {
            mistakes.push_back({path, line.number, std::move(what)});
        } else {
            FV2SettingsOrigin& origin = changed.origins.at(static_cast<std::size_t>(key - kKeys.begin()));
            origin = {name, readableText(line.value), path.string()};
        }
    }
    if (mistakes.empty()) {
        found.settings = std::move(changed.settings);
        found.origins = std::move(changed.origins);
    }
    std::ranges::move(mistakes, std::back_inserter(found.mistakes));
}

} // namespace

std::filesystem::path settingsRoot() {
    std::error_code unknown;
    const std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
    return !unknown && std::filesystem::exists(folder / "etc/fv2-agent", unknown) ? folder : "/";
}

FV2ExaminedSettings examineSettings(const std::filesystem::path& root) {
    FV2ExaminedSettings found;
    for (const Key& key : kKeys)
        found.origins.push_back({std::string(key.name), std::string(key.byItself), "default"});
    for (const std::filesystem::path& path : settingsFiles(root, found.mistakes))
        takeFile(path, root, found);
    std::error_code absent;
    if (std::filesystem::exists(root / kFormerFile, absent))
        found.mistakes.push_back({root / kFormerFile, 0, "not read any more: move it to /etc/fv2-agent/agent.conf"});
    if (!found.mistakes.empty() && !found.settings.credentialsToRootOnly) {
        found.settings.credentialsToRootOnly = true;
        found.origins.front() = {found.origins.front().key, "true", "the mistakes"};
    }
    return found;
}

void reportMistakes(const FV2ExaminedSettings& examined) {
    for (const FV2SettingsMistake& mistake : examined.mistakes) {
        const std::string report = "Settings: " + mistake.description();
        reportOnce(report, report);
    }
}

} // namespace fv2
