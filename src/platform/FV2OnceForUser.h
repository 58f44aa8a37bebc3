// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace fv2 {

//! Something that happens once for each user, remembered by an empty file in "fv2-agent" of the user's folder for
//! states (XDG_STATE_HOME). Main thread.
class FV2OnceForUser {
public:
    //! `name`: the file's.
    explicit FV2OnceForUser(std::string name)
        : m_name(std::move(name)) {}

    //! True also where no file can be read.
    [[nodiscard]] bool isStillToCome() const;
    //! Where no file can be made it happens again in the next session.
    void remember() const;

private:
    const std::string m_name;
};

} // namespace fv2
