// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "app/FV2Agent.h"
#include "app/FV2Application.h"
#include "app/LogLevelSwitch.h"
#include "base/StandardDescriptors.h"
#include "commands/FV2Commands.h"
#include "logging/FV2Logging.h"
#include "logging/LogFile.h"
#include "platform/FV2DesktopActivation.h"
#include "platform/FV2Settings.h"
#include "platform/FV2ThisProcess.h"
#include "platform/FV2UnixSignals.h"
#include "shell/AppDelegate.h"
#include "shell/FV2DuplicateInstance.h"

#include <cstdlib>
#include <iostream>
#include <malloc.h>
#include <string_view>

namespace {

//! By default the allocator raises its thresholds to the largest block ever freed and gives each thread a heap that
//! hardly shrinks: one peer that sends too much would cost megabytes for good.
void giveMemoryBack() {
    ::mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    ::mallopt(M_ARENA_MAX, 1);
}

QStringList arguments(int argc, char* argv[]) {
    QStringList texts;
    for (int i = 1; i < argc; ++i)
        texts += QString::fromLocal8Bit(argv[i]);
    return texts;
}

//! A Wayland compositor lets the running copy's window come to the front only with the token that was given to us. A
//! copy whose socket's file has been removed is reached by the session bus alone.
void passOnActivation(int argc, char* argv[], bool isUnreachable) {
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    if (token.isEmpty() && !isUnreachable)
        return;
    const QCoreApplication application(argc, argv);
    fv2::FV2DesktopActivation::passOn(token);
}

constexpr int kNoDisplay = 5;

//! Qt's own end of a program without a display is a crash, with a core dump.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type != QtFatalMsg) {
        std::cerr << qFormatLogMessage(type, context, text).toStdString() << '\n';
        return;
    }
    constexpr std::string_view kText = "there is no display to show anything on";
    fv2::log(fv2::FV2LoggingLevel::error, {kText});
    std::cerr << "fv2-agent: " << kText << '\n';
    std::_Exit(kNoDisplay);
}

//! All that others see has ended by now. Destructors would wait for Qt's D-Bus thread, which anybody who may send us a
//! message there can block. The sanitizers check that nothing is left.
int ended(int status) {
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    std::_Exit(status);
#endif
    return status;
}

} // namespace

int main(int argc, char* argv[]) {
    giveMemoryBack();
    fv2::fillStandardDescriptors();
    const fv2::FV2CommandLine line = fv2::parsedCommandLine(arguments(argc, argv));
    if (const std::optional<int> status = fv2::answeredCommand(line, argc, argv))
        return ended(*status);
    fv2::FV2UnixSignals signals;
    fv2::outliveFileSizeLimit();
    fv2::rememberLogFilePath();
    const fv2::FV2ExaminedSettings examined = fv2::examineSettings();
    fv2::applyLogLevelSwitch(examined.settings.logLevels, examined.settings.logTarget);
    fv2::AppDelegate::logBanner();

    const bool inBackground = line.command == fv2::FV2Command::RunInBackground;
    fv2::FV2DuplicateInstance duplicate(fv2::FV2UnixSignals::raised(),
                                        inBackground ? fv2::FV2HandOver::Silent : fv2::FV2HandOver::ShowsWindow);
    if (duplicate.handleDuplicateInstance()) {
        if (!inBackground && !duplicate.isElsewhere())
            passOnActivation(argc, argv, duplicate.isUnreachable());
        fv2::log(fv2::FV2LoggingLevel::release, {"exitApplication called"});
        return duplicate.isElsewhere() && !inBackground ? 1 : 0;
    }
    fv2::FV2Logging::deleteLogFile();

    const bool showWindow =
        line.command == fv2::FV2Command::RunWithWindow || (!inBackground && fv2::launchedByFileManager());
    const QtMessageHandler usual = qInstallMessageHandler(endWithoutDisplay);
    fv2::FV2Application application(argc, argv);
    qInstallMessageHandler(usual);
    fv2::reportMistakes(examined);
    fv2::FV2Agent agent(application, signals, examined.settings);
    return ended(agent.run(showWindow));
}
