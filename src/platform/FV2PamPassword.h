// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/StopSignal.h"
#include "model/ports/FV2UserAndPasswordModel.h"

#include <filesystem>
#include <vector>

namespace fv2 {

//! Checks passwords through PAM, as the service "fv2-agent". A log line says why one was not accepted; if PAM's set-up
//! is to blame, so does the system log, once for each cause. Any thread.
class FV2PamPassword final : public FV2UserAndPasswordModel {
public:
    using Path = std::filesystem::path;

    //! Takes the service file of `folder` if there is one, else that of one of the folders in which PAM itself looks.
    explicit FV2PamPassword(Path folder, std::vector<Path> systemFolders = {"/etc/pam.d", "/usr/lib/pam.d"});

    [[nodiscard]] fv2PasswordCheck verifyPassword(const std::string& userName,
                                                  const SecretText& password) const override;

    //! Leaves out, from now on, the seconds of waiting that PAM puts behind a wrong password, and all further checks.
    void stopWaiting() { m_stopWaiting.raise(); }

private:
    const Path m_folder;
    const std::vector<Path> m_systemFolders;
    StopSignal m_stopWaiting;
};

} // namespace fv2
