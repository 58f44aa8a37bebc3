// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "commands/FV2Commands.h"

#include "base/UniqueFd.h"
#include "commands/Diagnosis.h"
#include "commands/ExaminedSettings.h"
#include "commands/ExitStatus.h"
#include "commands/RunningCopy.h"
#include "commands/ServiceStatus.h"
#include "commands/StatusJson.h"
#include "commands/StatusText.h"
#include "logging/LogEscape.h"

#include <QCoreApplication>

#include <cerrno>
#include <fcntl.h>
#include <iostream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fv2 {

namespace {

int printed(std::string_view text, int status) {
    std::cout << text << std::flush;
    if (std::cout)
        return status;
    std::cerr << "fv2-agent: can't write to standard output\n";
    return kExitUnreachable;
}

int complaint(std::string_view text, int status) {
    std::cerr << "fv2-agent: " << text << '\n';
    return status;
}

int toldStatus(bool asJson) {
    const std::string reply = askedStatus();
    return printed(asJson ? statusJson(reply) : statusText(reply), exitStatusOf(reply));
}

int checkedConfig() {
    std::string text;
    const ExaminedSettings settings = examinedSettings();
    for (const std::string& mistake : settings.mistakes)
        text += mistake + "\n";
    return printed(text, settings.mistakes.empty() ? kExitDone : kExitFailed);
}

//! Makes a file that only the user can read. What is there already, also as a link, stays as it is. The errno, 0 if it
//! was written.
int writeNew(const std::string& path, std::string_view text) {
    const UniqueFd file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file || ::fchmod(file.get(), S_IRUSR | S_IWUSR) != 0)
        return errno;
    while (!text.empty()) {
        const ssize_t written = ::write(file.get(), text.data(), text.size());
        if (written < 0 && errno != EINTR)
            return errno;
        text.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return ::fsync(file.get()) == 0 || errno == EINVAL ? 0 : errno;
}

int diagnosed(const std::string& path) {
    const std::string report = diagnosis();
    if (path.empty())
        return printed(report, kExitDone);
    if (const int error = writeNew(path, report); error != 0)
        return complaint(escapedForLog(path) + ": " + std::generic_category().message(error), kExitFailed);
    return printed("Written to " + escapedForLog(path) + ". Please read it before you send it.\n", kExitDone);
}

int told(const Outcome& outcome) {
    return outcome.complaint.empty() ? outcome.status : complaint(outcome.complaint, outcome.status);
}

} // namespace

std::optional<int> answeredCommand(const FV2CommandLine& line, int argc, char* argv[]) {
    if (!line.mistake.empty())
        return complaint(line.mistake, kExitMisused);
    switch (line.command) {
    case FV2Command::Help:
        return printed(helpText(), kExitDone);
    case FV2Command::Version:
        return printed("fv2-agent " FV2_VERSION "\n", kExitDone);
    case FV2Command::Status:
        return toldStatus(line.asJson);
    case FV2Command::CheckConfig:
        return checkedConfig();
    case FV2Command::Run:
    case FV2Command::RunWithWindow:
    case FV2Command::RunInBackground:
        return std::nullopt;
    case FV2Command::Diagnose:
    case FV2Command::Synchronise:
    case FV2Command::Quit:
        break;
    }
    const QCoreApplication application(argc, argv); // for the session bus
    if (line.command == FV2Command::Diagnose)
        return diagnosed(line.file);
    return told(line.command == FV2Command::Quit ? endedRunningCopy() : synchronisedRunningCopy());
}

} // namespace fv2
