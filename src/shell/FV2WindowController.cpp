// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2WindowController.h"

#include "platform/FV2WindowFrame.h"
#include "shell/FV2Palette.h"

#include <QWindow>

#include <array>
#include <cstdio>

namespace fv2 {

std::string description(const QObject& object) {
    const std::string name = object.metaObject()->className();
    const std::size_t scope = name.rfind(':');
    std::array<char, 2 + 2 * sizeof(void*) + 1> address{};
    std::snprintf(address.data(), address.size(), "%p", static_cast<const void*>(&object));
    return "<" + (scope == std::string::npos ? name : name.substr(scope + 1)) + ": " + address.data() + ">";
}

FV2WindowController::FV2WindowController(FV2AppStateModel& model, std::unique_ptr<FV2Window> window)
    : appModel(model)
    , m_window(std::move(window)) {
    connect(m_window.get(), &FV2Window::willClose, this, &FV2WindowController::windowWillClose);
}

int FV2WindowController::titlebarHeight() const {
    return m_window->frameGeometry().height() - m_window->geometry().height();
}

void FV2WindowController::showWindow(bool userInitiated) {
    if (userInitiated)
        m_window->makeKeyAndOrderFront();
    else
        m_window->orderFrontRegardless();
}

void FV2WindowController::setAppearance(bool dark) {
    m_window->setPalette(windowPalette(dark));
    m_window->winId(); // makes the handle
    askForFrame(*m_window->windowHandle(), dark);
}

void FV2WindowController::windowWillClose() {
    m_window->disconnect(this);
    Q_EMIT closing(*this);
}

} // namespace fv2
