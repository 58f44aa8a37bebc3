// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "app/LogLevelSwitch.h"
#include "base/StandardDescriptors.h"
#include "comms/FV2AppSocketComms.h"
#include "logging/FV2Logging.h"
#include "model/FV2AppStateModel.h"
#include "model/FV2SocketServiceLink.h"
#include "platform/FV2ComputerName.h"
#include "platform/FV2DesktopDispatch.h"
#include "platform/FV2Images.h"
#include "platform/FV2MediumDate.h"
#include "platform/FV2QtStrings.h"
#include "platform/FV2QtTimerService.h"
#include "platform/FV2UnixSignals.h"
#include "shell/AppDelegate.h"
#include "shell/FV2DuplicateInstance.h"
#include "shell/FV2TrayItem.h"

#include <QApplication>

#include <unistd.h>

namespace {

//! Builds the agent's parts on one another and runs until it is told to end.
int runAgent(QApplication& application, fv2::FV2UnixSignals& signals) {
    using namespace fv2;

    const FV2QtStrings strings(FV2QtStrings::preferredLanguages());
    OxTranslatedString::setApplicationBundle(strings);
    // Panels show the application's name where they list their items.
    QCoreApplication::setApplicationName(
        QString::fromStdString(OxTranslatedString::translateOrMarkID("IDUS_PRODUCT_DISPLAY_NAME").string()));

    FV2Images images;
    FV2TrayItem trayItem(images, strings);
    FV2QtTimerService timers;
    FV2SocketServiceLink service;
    FV2DesktopDispatch dispatch;
    FV2AppStateModel appModel({.dispatch = dispatch,
                               .timers = timers,
                               .service = service,
                               .strings = strings,
                               .mediumDate = mediumDate,
                               .computerName = computerName(),
                               .makeAppSocket = [] { return std::make_unique<FV2AppSocketComms>(); }},
                              ::getuid());
    AppDelegate delegate(appModel, trayItem, [] { QCoreApplication::quit(); });
    signals.onTerminate([&delegate] { delegate.exitApplication(); });
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &application,
                     [&delegate] { delegate.applicationWillTerminate(); });
    delegate.applicationDidFinishLaunching();

    const int status = application.exec();
    dispatch.finish();
    return status;
}

} // namespace

int main(int argc, char* argv[]) {
    fv2::fillStandardDescriptors();
    fv2::FV2UnixSignals signals;
    fv2::applyLogLevelSwitch();
    fv2::AppDelegate::logBanner();

    fv2::FV2DuplicateInstance duplicate(fv2::FV2UnixSignals::raised());
    if (duplicate.handleDuplicateInstance()) {
        fv2::log(fv2::FV2LoggingLevel::release, {"exitApplication called"});
        return 0;
    }
    fv2::FV2Logging::deleteLogFile();

    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("fv2-agent"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FV2_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    return runAgent(application, signals);
}
