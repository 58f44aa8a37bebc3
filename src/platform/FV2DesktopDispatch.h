// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/MainQueue.h"
#include "base/WorkerPool.h"
#include "model/ports/FV2Dispatch.h"

#include <QSocketNotifier>
#include <QTimer>

#include <optional>

namespace fv2 {

//! Brings jobs to a small worker pool and to Qt's event loop on the thread that made this object. Nothing crosses
//! threads through Qt itself.
class FV2DesktopDispatch final : public FV2Dispatch {
public:
    FV2DesktopDispatch();

    void toMain(std::function<void()> job) override { m_mainQueue.post(std::move(job)); }
    void toWorker(std::function<void()> job) override;

    //! Runs what the workers still have to do and ends them; results for the main thread are no longer delivered. False
    //! when some still work after that time.
    [[nodiscard]] bool finish(const Deadline& deadline);

private:
    void makeWorkersLater();

    MainQueue m_mainQueue;
    std::optional<QSocketNotifier> m_notifier;
    QTimer m_drainAgain; //!< in place of the notifier where the system had no descriptor left for it
    QTimer m_makeWorkersAgain;
    WorkerPool m_workers;
};

} // namespace fv2
