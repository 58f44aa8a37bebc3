// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

#include <functional>

namespace fv2 {

//! Tells when a tray item may be made. Qt decides between its two kinds of tray at the first use and never again, so
//! nothing of the tray may be touched before there is a host. Main thread only.
class FV2TrayWatcher : public QObject {
    Q_OBJECT
public:
    //! Calls `available` once: as soon as a status notifier host has registered, however late; or after `patience` when
    //! there is a tray of the older kind instead. If there is none by then, `missing` is called, once and before any
    //! `available`.
    explicit FV2TrayWatcher(
        std::function<void()> available, std::function<void()> missing = [] {},
        std::chrono::milliseconds patience = std::chrono::seconds(10));

private:
    void askForHost();
    void acceptOlderTray();
    void becomeAvailable();

private Q_SLOTS:
    void onHostRegistered() { askForHost(); }

private:
    std::function<void()> m_available;
    std::function<void()> m_missing;
    QDBusServiceWatcher m_watcher;
    QTimer m_patience;
};

} // namespace fv2
