// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "app/FV2Application.h"

#include <QEvent>
#include <QPixmapCache>
#include <QSessionManager>

#include <malloc.h>

namespace fv2 {

namespace {

//! KiB of cached pictures, a tenth of Qt's own limit: what the style paints is small.
constexpr int kKeptPictures = 1024;

} // namespace

FV2Application::FV2Application(int& argc, char** argv)
    : QApplication(argc, argv) {
    setDesktopFileName(QStringLiteral("org.fv2agent.Agent"));
    setApplicationVersion(QStringLiteral(FV2_VERSION));
    setQuitOnLastWindowClosed(false);
    QPixmapCache::setCacheLimit(kKeptPictures);
    // Memory freed by windows lies between blocks in use, where the allocator would not trim it. Queued, as the window
    // itself goes in the event loop's next turn.
    connect(
        this, &QGuiApplication::lastWindowClosed, this, [] { ::malloc_trim(0); }, Qt::QueuedConnection);
    // Autostart starts the agent; a copy that a saved session brought back as well would show the first one's window.
    const auto dontBringBack = [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); };
    connect(this, &QGuiApplication::commitDataRequest, this, dontBringBack, Qt::DirectConnection);
    connect(this, &QGuiApplication::saveStateRequest, this, dontBringBack, Qt::DirectConnection);
}

bool FV2Application::event(QEvent* event) {
    if (event->type() != QEvent::Quit || !m_quit)
        return QApplication::event(event);
    event->accept();
    m_quit();
    return true;
}

} // namespace fv2
