// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

#include <cstdint>
#include <string>

namespace fv2 {

//! What a start is to do.
enum class FV2Command : std::uint8_t {
    Run,             //!< shows the window of a running copy, if there is one
    RunWithWindow,   //!< the same, and shows its own otherwise
    RunInBackground, //!< opens no window in any copy
    Help,
    Version,
    Status,
    CheckConfig,
    Diagnose,
    Synchronise,
    Quit,
};

struct FV2CommandLine {
    FV2Command command = FV2Command::Run;
    bool asJson = false; //!< of Status
    std::string file;    //!< of Diagnose; empty for standard output
    std::string mistake; //!< one line about what is wrong; then nothing else counts
};

//! Reads the arguments behind the program's name. Needs no application object. The few options that Qt takes itself are
//! left to it. A copy that a session manager restores runs in the background: nobody asked to see it.
[[nodiscard]] FV2CommandLine parsedCommandLine(QStringList arguments);

//! What --help prints.
[[nodiscard]] std::string helpText();

} // namespace fv2
