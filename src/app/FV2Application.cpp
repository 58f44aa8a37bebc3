// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "app/FV2Application.h"

#include <QEvent>

namespace fv2 {

FV2Application::FV2Application(int& argc, char** argv)
    : QApplication(argc, argv) {
    setDesktopFileName(QStringLiteral("org.fv2agent.Agent"));
    setApplicationVersion(QStringLiteral(FV2_VERSION));
    setQuitOnLastWindowClosed(false);
}

bool FV2Application::event(QEvent* event) {
    if (event->type() != QEvent::Quit || !m_quit)
        return QApplication::event(event);
    event->accept();
    m_quit();
    return true;
}

} // namespace fv2
