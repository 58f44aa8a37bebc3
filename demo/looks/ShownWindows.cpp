// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "ShownWindows.h"

#include <QApplication>
#include <QTest>

namespace fv2::looks {

ShownWindows::ShownWindows(const QString& language, bool dark, const FV2SupportContact& support)
    : m_strings({language})
    , m_model(makeModel())
    , m_config([dark] { return dark; }, "Debian GNU/Linux 12 (bookworm)",
               "Intel(R) Xeon(R) Platinum 8481C CPU @ 2.70GHz (64-bit)", {"Business", "business", "", support})
    , m_screens(*m_model, m_config, "anna")
    , m_registry(*m_model, m_config, m_screens) {
    OxTranslatedString::setApplicationBundle(m_strings);
    m_model->setAppDelegate(m_interface);
    m_model->setWndDelegate(&m_registry);
    m_interface.windows = [this](const FV2AppState& state) { m_registry.stateChanged(state); };
}

ShownWindows::~ShownWindows() {
    m_registry.closeAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::shared_ptr<FV2AppStateModel> ShownWindows::makeModel() {
    return std::make_shared<FV2AppStateModel>(
        FV2ModelPorts{.dispatch = m_dispatch,
                      .timers = m_timers,
                      .service = m_link,
                      .strings = m_strings,
                      .mediumDate = [](std::int64_t) { return "Nov 23, 2026, 16:03:13"; },
                      .computerName = "a-computer-with-a-rather-long-name.example.org",
                      .makeAppSocket = [this] { return std::make_unique<test::TestEndpoint>(m_folder / "agent.sock"); },
                      .bindAgainAfter = std::chrono::milliseconds(20),
                      .doNotDisturb = [] { return false; },
                      .whenQuietIsKnown = [](auto job) { job(); },
                      .passwords = &m_passwords,
                      .timeFromNow = [](std::int64_t) { return "in 60 minutes"; }},
        501);
}

void ShownWindows::settle() {
    m_dispatch.settle();
    layOut();
}

void ShownWindows::layOut() {
    constexpr int kRounds = 30;
    for (int round = 0; round < kRounds; ++round)
        QTest::qWait(1);
}

void ShownWindows::tell(std::int64_t state, const std::string& more) {
    m_link.status =
        test::statusAnswer(state, R"(,"uuid":"6f1d2c58-90ab-4e37-b1c4-5d0e7a8f9b26","version":"1.0.0")" + more);
    m_timers.advance(FV2RefreshGate::spacing);
    m_model->syncCommsAsync(false, fv2SyncSource::Moved, false);
    settle();
}

FV2Window& ShownWindows::mainWindow() {
    m_registry.openWindow(fv2Window::Main, true);
    settle();
    return m_registry.registeredController(fv2Window::Main)->window();
}

MainWindowViewController& ShownWindows::pages() {
    return *std::dynamic_pointer_cast<MainWindowWindowController>(m_registry.registeredController(fv2Window::Main))
                ->viewController();
}

FV2Window& ShownWindows::passwordDialog() {
    m_registry.openWindow(fv2Window::Password_Encrypt, true);
    settle();
    return m_registry.registeredController(fv2Window::Password_Encrypt)->window();
}

QWidget& ShownWindows::alert() {
    m_model->doAlert(fv2Window::Password_Encrypt, 0, fv2Alert::PostponeEncWarning);
    settle();
    return *passwordDialog().findChild<QDialog*>();
}

} // namespace fv2::looks
