// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "logging/FV2LogTarget.h"
#include "platform/FV2SettingsFile.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace fv2 {

//! What the administrator of this computer can set; docs/man/agent.conf.5.scd says what each key means.
struct FV2Settings {
    bool credentialsToRootOnly = true; //!< a service that runs as the user gets no password
    std::string logLevels;             //!< as FV2_LOG_LEVELS has them
    FV2LogTarget logTarget = FV2LogTarget::File;
    std::string helpHost = "help.example.com"; //!< a reserved name, which nobody can own; empty: there is no help
    std::string helpUrl;                       //!< replaces "http://" and the host
    std::string supportName;
    std::string supportPhone;
    std::string supportUrl;
    std::string uiLanguage; //!< empty: the desktop's
    bool notificationsEnabled = true;
};

//! A key as it holds: "section.key", its value, and the file that says so, or "default".
struct FV2SettingsOrigin {
    std::string key;
    std::string value;
    std::string from;
};

struct FV2ExaminedSettings {
    FV2Settings settings;
    std::vector<FV2SettingsOrigin> origins; //!< of every key
    std::vector<FV2SettingsMistake> mistakes;
};

//! The root folder of the settings: the program's own folder if it has an "etc/fv2-agent", as a build that is tried
//! may, otherwise "/".
[[nodiscard]] std::filesystem::path settingsRoot();

//! Reads "agent.conf" of etc/fv2-agent, run/fv2-agent or usr/lib/fv2-agent below `root`, the first that there is, and
//! then the "*.conf" in the three folders' "agent.conf.d" in the order of their names, of which the later one counts;
//! of two with one name the one of the earlier folder alone is read. A file with a mistake counts for nothing. With any
//! mistake anywhere passwords go to root only; that they need not can be said below etc alone. All of it has to belong
//! to root or to the owner of `root`. Any thread; opens no
//! file that is not a regular one.
[[nodiscard]] FV2ExaminedSettings examineSettings(const std::filesystem::path& root = settingsRoot());

//! Tells the system log each mistake.
void reportMistakes(const FV2ExaminedSettings& examined);

} // namespace fv2
