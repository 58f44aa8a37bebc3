// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FV2BusValue.h"

#include <memory>
#include <optional>

namespace fv2 {

//! Whether our login session is the one that its seat shows and when it is locked, as logind reports. Silent without
//! logind. Main thread only.
class FV2LoginSession : public QObject {
    Q_OBJECT
public:
    FV2LoginSession();

    //! Whether the user can be in front of it, as far as logind knows.
    [[nodiscard]] bool isInFront() const {
        return m_isActive.value_or(true) && !(m_lockedHint && m_lockedHint->isTrue());
    }

Q_SIGNALS:
    // Only changes: the state at the start is not signalled.
    void becameActive();
    void resigned();
    //! The screen is being locked, or has been; often told more than once.
    void locked();
    //! It is not, or no longer. Lockers that set no hint are not heard of.
    void unlocked();

private:
    void resolve();
    //! Asks for our session in the given way, and in the next one if that fails.
    void resolve(std::size_t way, unsigned round);
    void follow(const QString& owner, const QString& path);
    void onActiveLearnt();
    void onHintLearnt();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    std::unique_ptr<FV2BusProperty> m_property;
    std::unique_ptr<FV2BusProperty> m_lockedHint;
    QString m_owner; //!< whose signals on which path we get
    QString m_path;
    std::optional<bool> m_isActive;
    unsigned m_round = 0;
};

} // namespace fv2
