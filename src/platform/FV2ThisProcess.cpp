// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2ThisProcess.h"

#include "platform/SmallFile.h"

#include <QGuiApplication>

#include <algorithm>

namespace fv2 {

namespace {

//! A process's name as the kernel has it: cut to 15 bytes.
constexpr std::size_t kLongestName = 15;
constexpr std::string_view kFileManagers[] = {"nautilus", "dolphin",    "thunar",    "Thunar",   "nemo",     "caja",
                                              "pcmanfm",  "pcmanfm-qt", "konqueror", "krusader", "doublecmd"};
static_assert(std::ranges::all_of(kFileManagers, [](std::string_view name) { return name.size() <= kLongestName; }));

} // namespace

bool launchedByFileManager(pid_t parent, const std::filesystem::path& proc) {
    std::string name = readSmallFile(proc / std::to_string(parent) / "comm", kLongestName + 1).value_or(std::string());
    if (name.ends_with('\n'))
        name.pop_back();
    return std::ranges::find(kFileManagers, name) != std::ranges::end(kFileManagers);
}

bool isWaylandSession() {
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
}

bool isWaylandClient() {
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace fv2
