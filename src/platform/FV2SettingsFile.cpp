// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2SettingsFile.h"

#include "base/Trimmed.h"
#include "base/Utf8.h"
#include "platform/SmallFile.h"

#include <algorithm>
#include <cerrno>
#include <libeconf.h>
#include <libeconf_ext.h>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fv2 {

namespace {

constexpr std::size_t kLongestSettings = 64 * 1024;

using KeyFile = std::unique_ptr<econf_file, decltype([](econf_file* file) { econf_freeFile(file); })>;
using ExtValue = std::unique_ptr<econf_ext_value, decltype([](econf_ext_value* value) { econf_freeExtValue(value); })>;

std::vector<std::string> taken(char** names, std::size_t count) {
    std::vector<std::string> texts(names, names + count);
    econf_freeArray(names);
    return texts;
}

//! Why it can't be read at all; empty if it can.
std::string obstacle(const std::filesystem::path& path, std::string& content) {
    struct stat facts {};
    struct stat folder {};
    if (::stat(path.c_str(), &facts) != 0 || ::stat(path.parent_path().c_str(), &folder) != 0)
        return std::generic_category().message(errno);
    if (!S_ISREG(facts.st_mode))
        return "not a file";
    if (((facts.st_mode | folder.st_mode) & S_IWOTH) != 0 || (facts.st_uid != 0 && facts.st_uid != ::getuid()))
        return "others can write to it";
    auto read = readSmallFile(path, kLongestSettings);
    if (!read)
        return std::generic_category().message(errno);
    content = std::move(*read);
    return content.size() == kLongestSettings ? "too long" : "";
}

void takeSection(econf_file* file, const char* section, FV2SettingsFile& found) {
    std::size_t count = 0;
    char** names = nullptr;
    if (econf_getKeys(file, section, &count, &names) != ECONF_SUCCESS)
        return;
    for (const std::string& key : taken(names, count)) {
        econf_ext_value* raw = nullptr;
        if (econf_getExtValue(file, section, key.c_str(), &raw) != ECONF_SUCCESS)
            continue;
        const ExtValue value(raw);
        FV2SettingsLine line{section == nullptr ? "" : section, key, "", value->line_number};
        for (char** each = value->values; each != nullptr && *each != nullptr; ++each)
            line.value += (line.value.empty() ? "" : "\n") + std::string(*each);
        found.lines.push_back(std::move(line));
    }
}

//! What the library passes over without a word: a key's second line in its section, and one that has no key.
void reportUnread(const std::string& content, const std::filesystem::path& path, FV2SettingsFile& found) {
    std::set<std::uint64_t> read;
    for (const FV2SettingsLine& line : found.lines)
        read.insert(line.number);
    std::istringstream lines(content);
    std::uint64_t number = 0;
    for (std::string text; std::getline(lines, text);) {
        ++number;
        const std::string_view bare = trimmed(text);
        if (!bare.empty() && bare.find_first_of("#;[") != 0 && !read.contains(number))
            found.mistakes.push_back({path, number, "\"" + readableText(bare) + "\" stands there twice or has no key"});
    }
}

bool isThere(const std::filesystem::path& path) {
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

} // namespace

std::string FV2SettingsMistake::description() const {
    return file.string() + ":" + std::to_string(line) + ": " + text;
}

FV2SettingsFile readSettingsFile(const std::filesystem::path& path) {
    FV2SettingsFile found;
    std::string content;
    if (std::string why = obstacle(path, content); !why.empty()) {
        found.mistakes.push_back({path, 0, std::move(why)});
        return found;
    }
    econf_file* raw = nullptr;
    const econf_err error = econf_readFile(&raw, path.c_str(), "=", "#;");
    const KeyFile file(raw);
    if (error != ECONF_SUCCESS) {
        char* name = nullptr;
        std::uint64_t line = 0;
        econf_errLocation(&name, &line);
        std::free(name);
        found.mistakes.push_back({path, line, econf_errString(error)});
        return found;
    }
    takeSection(file.get(), nullptr, found);
    std::size_t count = 0;
    char** names = nullptr;
    if (econf_getGroups(file.get(), &count, &names) == ECONF_SUCCESS) {
        const std::vector<std::string> all = taken(names, count);
        for (const std::string& section : std::set<std::string>(all.begin(), all.end()))
            takeSection(file.get(), section.c_str(), found);
    }
    std::ranges::sort(found.lines, {}, &FV2SettingsLine::number);
    reportUnread(content, path, found);
    return found;
}

std::vector<std::filesystem::path> settingsFiles(const std::filesystem::path& root) {
    std::vector<std::filesystem::path> files;
    std::map<std::string, std::filesystem::path> dropIns;
    for (const char* const place : {"etc", "run", "usr/lib"}) {
        const std::filesystem::path folder = root / place / "fv2-agent";
        if (files.empty() && isThere(folder / "agent.conf"))
            files.push_back(folder / "agent.conf");
        std::error_code unreadable;
        for (std::filesystem::directory_iterator each(folder / "agent.conf.d", unreadable), end; each != end;
             each.increment(unreadable))
            if (each->path().extension() == ".conf")
                dropIns.emplace(each->path().filename(), each->path());
        if (unreadable && unreadable != std::errc::no_such_file_or_directory)
            files.push_back(folder / "agent.conf.d");
    }
    for (const auto& [name, path] : dropIns)
        files.push_back(path);
    return files;
}

} // namespace fv2
