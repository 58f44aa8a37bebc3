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
//! The library takes what follows for another line.
constexpr std::size_t kLongestLine = 8000;
constexpr std::string_view kNotInALine("#;\0", 3);

using KeyFile = std::unique_ptr<econf_file, decltype([](econf_file* file) { econf_freeFile(file); })>;
using ExtValue = std::unique_ptr<econf_ext_value, decltype([](econf_ext_value* value) { econf_freeExtValue(value); })>;

std::vector<std::string> taken(char** names, std::size_t count) {
    std::vector<std::string> texts(names, names + count);
    econf_freeArray(names);
    return texts;
}

bool isOthers(const struct stat& facts, uid_t administrator) {
    return (facts.st_mode & S_IWOTH) != 0 || (facts.st_uid != 0 && facts.st_uid != administrator);
}

//! Why it can't be read at all; empty if it can.
std::string obstacle(const std::filesystem::path& path, uid_t administrator, std::string& content) {
    struct stat facts {};
    struct stat folder {};
    if (::stat(path.c_str(), &facts) != 0 || ::stat(path.parent_path().c_str(), &folder) != 0)
        return std::generic_category().message(errno);
    if (!S_ISREG(facts.st_mode))
        return "not a file";
    if (isOthers(facts, administrator) || isOthers(folder, administrator))
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

std::string_view withoutBracket(std::string_view section) {
    return section.substr(1, section.find(']') - 1);
}

//! What the library passes over without a word: sections, a key's second line, a line without a key, and the rest of a
//! line behind a comment's sign, which an address may have in it.
void readPassedOver(const std::string& content, const std::filesystem::path& path, FV2SettingsFile& found) {
    std::set<std::uint64_t> read;
    for (const FV2SettingsLine& line : found.lines)
        read.insert(line.number);
    std::istringstream lines(content);
    std::uint64_t number = 0;
    for (std::string text; std::getline(lines, text);) {
        ++number;
        const std::string_view bare = trimmed(text);
        if (text.size() > kLongestLine)
            found.mistakes.push_back({path, number, "too long"});
        else if (bare.empty() || bare.front() == '#' || bare.front() == ';')
            continue;
        else if (bare.find_first_of(kNotInALine) != std::string_view::npos)
            found.mistakes.push_back({path, number, "has a # or ; behind something else, or a zero byte"});
        else if (bare.front() == '[')
            found.lines.push_back({std::string(withoutBracket(bare)), "", "", number});
        else if (!read.contains(number))
            found.mistakes.push_back({path, number, "\"" + readableText(bare) + "\" stands there twice or has no key"});
    }
}

bool isThere(const std::filesystem::path& path) {
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

bool leadsNowhere(const std::filesystem::path& path) {
    struct stat facts {};
    return isThere(path) && ::stat(path.c_str(), &facts) != 0;
}

using DropIns = std::map<std::string, std::filesystem::path>;

//! Adds those whose names are new.
void addDropIns(const std::filesystem::path& folder, DropIns& dropIns, std::vector<FV2SettingsMistake>& mistakes) {
    std::error_code error;
    for (std::filesystem::directory_iterator each(folder, error), end; each != end; each.increment(error))
        if (each->path().extension() == ".conf")
            dropIns.emplace(each->path().filename(), each->path());
    const bool isAbsent =
        error == std::errc::no_such_file_or_directory && !isThere(folder) && !leadsNowhere(folder.parent_path());
    if (error && !isAbsent)
        mistakes.push_back({folder, 0, error.message()});
}

} // namespace

std::string FV2SettingsMistake::description() const {
    return file.string() + (line == 0 ? "" : ":" + std::to_string(line)) + ": " + text;
}

FV2SettingsFile readSettingsFile(const std::filesystem::path& path, uid_t administrator) {
    FV2SettingsFile found;
    std::string content;
    if (std::string why = obstacle(path, administrator, content); !why.empty()) {
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
    readPassedOver(content, path, found);
    std::ranges::sort(found.lines, {}, &FV2SettingsLine::number);
    return found;
}

std::vector<std::filesystem::path> settingsFiles(const std::filesystem::path& root,
                                                 std::vector<FV2SettingsMistake>& mistakes) {
    std::vector<std::filesystem::path> files;
    DropIns dropIns;
    for (const char* const place : {"etc", "run", "usr/lib"}) {
        const std::filesystem::path folder = root / place / "fv2-agent";
        if (files.empty() && isThere(folder / "agent.conf"))
            files.push_back(folder / "agent.conf");
        addDropIns(folder / "agent.conf.d", dropIns, mistakes);
    }
    for (const auto& [name, path] : dropIns)
        files.push_back(path);
    return files;
}

} // namespace fv2
