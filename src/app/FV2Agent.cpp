// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "app/FV2Agent.h"

#include "comms/FV2AppSocketComms.h"
#include "logging/FV2Logging.h"
#include "platform/FV2ThisComputer.h"
#include "platform/FV2ThisProcess.h"
#include "platform/FV2ThisUser.h"
#include "resources/FV2HelpAddress.h"
#include "resources/NxAppearance.h"
#include "resources/NxDesign.h"
#include "shell/FV2Palette.h"
#include "toolkit/NxTranslated.h"

#include <QFile>

#include <cstdlib>
#include <filesystem>
#include <unistd.h>
#include <variant>

namespace fv2 {

namespace {

constexpr std::chrono::milliseconds kLongestEnd{700};

std::string designPropertyList() {
    QFile file(QStringLiteral(":/design/design.plist"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

//! Where the build puts what an installed agent has in the system's folders.
std::filesystem::path besideProgram(const char* folder) {
    return std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()) / folder;
}

//! Does what brings a window to the front, which a Wayland compositor allows for the token.
void withActivationToken(const QString& token, const std::function<void()>& deed) {
    // Read by Qt when it next asks the compositor.
    if (!token.isEmpty() && isWaylandClient())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    deed();
    qunsetenv("XDG_ACTIVATION_TOKEN"); // an unused one is of no use later
}

} // namespace

FV2Agent::FV2Agent(FV2Application& application, FV2UnixSignals& signals, FV2Settings settings)
    : m_application(application)
    , m_settings(std::move(settings))
    , m_support{m_settings.supportName, m_settings.supportPhone, m_settings.supportUrl}
    , m_strings(FV2QtStrings::preferredLanguages(m_settings.uiLanguage))
    , m_trayItem(m_images, m_strings)
    , m_menu(m_strings)
    , m_passwords(besideProgram("pam.d"))
    , m_appModel(makeModel())
    , m_appConfigModel(makeAppConfigModel())
    , m_screens(*m_appModel, m_appConfigModel, accountName())
    , m_wndDelegate(*m_appModel, m_appConfigModel, m_screens)
    , m_delegate({.appModel = *m_appModel,
                  .wndDelegate = m_wndDelegate,
                  .menuBarStatusItem = m_trayItem,
                  .menu = m_menu,
                  .quit = [] { QCoreApplication::exit(); }})
    , m_announcer({.appModel = *m_appModel,
                   .wndDelegate = m_wndDelegate,
                   .notifier = m_notifications,
                   .strings = m_strings,
                   .isQuiet = [this] { return !m_session.isInFront() || m_doNotDisturb.isOn(); },
                   .support = m_support,
                   .isEnabled = m_settings.notificationsEnabled}) {
    // Panels show the application's name where they list their items; window titles end with the other one.
    QCoreApplication::setApplicationName(translated(QStringLiteral("IDUS_PRODUCT_DISPLAY_NAME")));
    QGuiApplication::setApplicationDisplayName(QCoreApplication::applicationName());
    m_appModel->setWndDelegate(&m_wndDelegate);
    onAppearanceChanged();
    followDesktop(signals);
    announce();
}

std::unique_ptr<FV2AppStateModel> FV2Agent::makeModel() {
    OxTranslatedString::setApplicationBundle(m_strings);
    NxDesign::setResource(designPropertyList);
    return std::make_unique<FV2AppStateModel>(
        FV2ModelPorts{
            .dispatch = m_dispatch,
            .timers = m_timers,
            .service = m_service,
            .strings = m_strings,
            .mediumDate = mediumDate,
            .computerName = computerName(),
            .makeAppSocket = [] { return std::make_unique<FV2AppSocketComms>(); },
            .doNotDisturb = [this] { return m_doNotDisturb.isOn(); },
            .whenQuietIsKnown = [this](auto job) { m_doNotDisturb.whenKnown(std::move(job)); },
            .passwords = &m_passwords,
            .timeFromNow =
                [this](std::int64_t minutes) {
                    return timeFromNow(
                        minutes,
                        QString(m_strings.language()).replace(QLatin1Char('_'), QLatin1Char('-')).toStdString());
                },
            .support = m_support},
        ::getuid());
}

FV2AppConfigModel FV2Agent::makeAppConfigModel() const {
    const auto machine = machineDescription();
    const std::string* const name = std::get_if<std::string>(&machine);
    if (const auto* const error = std::get_if<SysctlError>(&machine))
        log(FV2LoggingLevel::error, {"machineDescription() failed:", error->domain, std::to_string(error->code)});
    return FV2AppConfigModel(
        [this] { return m_appearance.isDark(); }, osDescription(),
        name != nullptr ? *name : translatedText("IDUS_UNKNOWN"),
        ProductModel{.edition = "Business",
                     .typeString = "business",
                     .helpAddress = helpAddress(m_settings.helpUrl.empty() ? m_settings.helpHost : m_settings.helpUrl,
                                                m_strings.language().toStdString()),
                     .support = m_support});
}

void FV2Agent::followDesktop(FV2UnixSignals& signals) {
    signals.onTerminate([this] { m_delegate.exitApplication(); });
    m_application.onQuitRequest([this] { m_delegate.exitApplication(); });
    QObject::connect(&m_application, &QCoreApplication::aboutToQuit, &m_delegate,
                     &AppDelegate::applicationWillTerminate);
    QObject::connect(&m_appearance, &FV2Appearance::changed, &m_delegate, [this] { onAppearanceChanged(); });
    QObject::connect(&m_wndDelegate, &FV2WindowDelegate::firstWindow, &m_delegate, [this] {
        m_strings.installForWindows();
        QApplication::setWindowIcon(m_images.imageNamed(QStringLiteral("application_icon")));
        m_hasWindows = true;
        m_appearance.dressApplication(windowPalette);
        m_appearance.askPortal();
    });
    QObject::connect(&m_session, &FV2LoginSession::becameActive, &m_delegate, &AppDelegate::sessionBecameActive);
    QObject::connect(&m_session, &FV2LoginSession::resigned, &m_delegate, &AppDelegate::sessionResigned);
    for (const auto left : {&FV2LoginSession::resigned, &FV2LoginSession::locked})
        QObject::connect(&m_session, left, &m_wndDelegate, &FV2WindowDelegate::forgetPasswords);
    QObject::connect(&m_activation, &FV2DesktopActivation::activated, &m_delegate, [this](const QString& token) {
        withActivationToken(token,
                            [this] { m_delegate.applicationShouldHandleReopen(m_wndDelegate.isAnyWindowMain()); });
    });
    QObject::connect(&m_activation, &FV2DesktopActivation::synchroniseAsked, &m_delegate, &AppDelegate::menuProxySync);
    QObject::connect(&m_activation, &FV2DesktopActivation::quitAsked, &m_delegate, &AppDelegate::exitApplication);
}

void FV2Agent::announce() {
    QObject::connect(&m_delegate, &AppDelegate::stateShown, &m_announcer, [this](const FV2AppState& state) {
        m_launcherProgress.show(state.percent());
        m_announcer.look();
    });
    QObject::connect(&m_delegate, &AppDelegate::userSynchronises, &m_announcer, &FV2Announcer::userSynchronises);
    QObject::connect(&m_delegate, &AppDelegate::syncOfUserFailed, &m_announcer, &FV2Announcer::userSyncFailed);
    QObject::connect(&m_delegate, &AppDelegate::passwordKeptShut, &m_announcer, &FV2Announcer::passwordWindowKeptShut);
    QObject::connect(&m_delegate, &AppDelegate::trayMissing, &m_announcer, &FV2Announcer::setTrayMissing);
    m_doNotDisturb.onChange([this] { m_announcer.look(); });
    for (const auto back : {&FV2LoginSession::becameActive, &FV2LoginSession::unlocked})
        QObject::connect(&m_session, back, &m_announcer, &FV2Announcer::look);
    QObject::connect(&m_announcer, &FV2Announcer::windowWanted, &m_delegate, [this](const QString& token) {
        withActivationToken(token,
                            [this] { m_delegate.applicationShouldHandleReopen(m_wndDelegate.isAnyWindowMain()); });
    });
    QObject::connect(&m_announcer, &FV2Announcer::passwordWanted, &m_delegate,
                     [this](fv2AppCommand command, const QString& token) {
                         withActivationToken(token, [this, command] { m_delegate.enterPassword(command); });
                     });
}

void FV2Agent::onAppearanceChanged() {
    if (m_hasWindows)
        m_appearance.dressApplication(windowPalette);
    NxAppearance::setCurrent(m_appearance.isDark() ? NxAppearance::dark : NxAppearance::aqua);
    m_wndDelegate.refreshAppearance();
    renewFrames();
}

int FV2Agent::run(bool showWindow) {
    m_delegate.applicationDidFinishLaunching(showWindow);
    const int status = m_application.exec();
    m_passwords.stopWaiting();
    // Exchanges have been cut short; a module of PAM may block for as long as it likes.
    if (!m_dispatch.finish(Deadline(kLongestEnd))) {
        log(FV2LoggingLevel::error, {"The password check does not end; ending without it"});
        std::_Exit(status);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // windows that were closed last
    return status;
}

} // namespace fv2
