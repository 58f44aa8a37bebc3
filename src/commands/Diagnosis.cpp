// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/Diagnosis.h"

#include "commands/DesktopFacts.h"
#include "commands/ExaminedSettings.h"
#include "commands/ServiceStatus.h"
#include "commands/StatusJson.h"
#include "comms/FV2AppSocketComms.h"
#include "comms/FV2ServiceSocketComms.h"
#include "logging/LogEscape.h"
#include "platform/FV2InstanceLock.h"
#include "platform/FV2ThisComputer.h"

#include <QString>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <system_error>
#include <unistd.h>

namespace fv2 {

namespace {

constexpr std::size_t kShownOfId = 4;
constexpr const char* kNote =
    "# This report has no password, no token, and no name of the user or the computer. Please read it before you send "
    "it.\n";

std::string line(std::string_view name, std::string_view value) {
    return std::string(name) + " = " + escapedForLog(value) + "\n";
}

std::string fromEnvironment(const char* name) {
    const char* const value = std::getenv(name);
    return line(name, value == nullptr ? "not set" : value);
}

//! Displays are named after computers where they are remote.
std::string isInEnvironment(const char* name) {
    return line(name, std::getenv(name) == nullptr ? "not set" : "set");
}

std::string ownerName(uid_t uid) {
    if (uid == ::getuid())
        return uid == 0 ? "root, who is this user" : "this user";
    return uid == 0 ? "root" : "another user";
}

std::string kindName(mode_t mode) {
    return S_ISREG(mode) ? "file" : S_ISSOCK(mode) ? "socket" : S_ISLNK(mode) ? "link" : "neither file nor socket";
}

//! What is there, without following a link.
std::string fileLine(std::string_view name, const std::string& path) {
    struct stat facts {};
    if (::lstat(path.c_str(), &facts) != 0)
        return line(name, path + ": " + std::generic_category().message(errno));
    std::array<char, 16> mode{};
    std::snprintf(mode.data(), mode.size(), "%04o", facts.st_mode & 07777U);
    return line(name,
                path + ": " + kindName(facts.st_mode) + ", owner " + ownerName(facts.st_uid) + ", mode " + mode.data());
}

std::string socketLines(std::string_view name, FV2SocketCommsBase&& comms) {
    return fileLine(name, comms.path()) + line(std::string(name) + " answers", comms.createConnection() ? "yes" : "no");
}

std::string programLines() {
    utsname system{};
    ::uname(&system);
    return line("version", FV2_VERSION) + line("Qt", ::qVersion()) +
           line("running copy", FV2InstanceLock().isHeldByOther() ? "yes" : "no") +
           line("operating system", osDescription()) +
           line("kernel", std::string(system.sysname) + " " + system.release + " " + system.machine);
}

std::string desktopLines() {
    std::string text;
    for (const char* const name : {"XDG_CURRENT_DESKTOP", "XDG_SESSION_TYPE", "LANGUAGE", "LANG"})
        text += fromEnvironment(name);
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR"})
        text += isInEnvironment(name);
    for (const auto& [name, value] : desktopFacts())
        text += line(name, value);
    return text;
}

std::string settingsLines() {
    std::string text;
    const ExaminedSettings settings = examinedSettings();
    for (const auto& [key, origin] : settings.origins)
        text += line(key, origin);
    for (const std::string& mistake : settings.mistakes)
        text += line("mistake", mistake);
    return text;
}

std::string statusLines() {
    const std::string reply = askedStatus();
    const std::string id = interpretedStatus(reply, identifierTexts(), isoTime).state.uuid;
    return line("identifier", id == kNotTold ? "not told" : id.substr(0, kShownOfId) + "…") + statusJson(reply);
}

//! The home folder's path may have the user's name in it.
std::string withoutHome(std::string text) {
    const char* const home = std::getenv("HOME");
    const std::string path = home == nullptr ? "" : home;
    if (path.size() > 1)
        for (std::size_t at = 0; (at = text.find(path, at)) != std::string::npos;)
            text.replace(at, path.size(), "~");
    return text;
}

} // namespace

std::string diagnosis() {
    return withoutHome(std::string(kNote) + line("time", isoTime(std::time(nullptr))) + "\n[program]\n" +
                       programLines() + "\n[desktop]\n" + desktopLines() + "\n[password check]\n" +
                       fileLine("rules", "/etc/pam.d/fv2-agent") + fileLine("or", "/usr/lib/pam.d/fv2-agent") +
                       "\n[settings]\n" + settingsLines() + "\n[sockets]\n" +
                       socketLines("service", FV2ServiceSocketComms(std::make_shared<const StopSignal>())) +
                       socketLines("agent", FV2AppSocketComms()) + "\n[status]\n" + statusLines());
}

} // namespace fv2
