// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/StopSignal.h"
#include "model/FV2Ports.h"

#include <filesystem>

namespace fv2 {

//! Checks passwords through PAM, as the service "fv2-agent". Why one was not accepted is told by a line of the log. Any
//! thread.
class FV2PamPassword final : public FV2UserAndPasswordModel {
public:
    //! Takes the service file of `folder` if there is one, else the system's.
    explicit FV2PamPassword(std::filesystem::path folder);

    [[nodiscard]] bool verifyPassword(const std::string& userName, const SecretText& password) const override;

    //! Leaves out, from now on, the seconds of waiting that PAM puts behind a wrong password.
    void hurry() { m_hurry.raise(); }

private:
    const std::filesystem::path m_folder;
    StopSignal m_hurry;
};

} // namespace fv2
