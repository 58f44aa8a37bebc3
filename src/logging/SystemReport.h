// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace fv2 {

//! Tells the administrator `text` through the system log, as an error and whatever levels the log lets through: the
//! first time that there is this `cause`, which is never shown. Any thread. Both may hold what a stranger has chosen:
//! the text is escaped and cut to a few hundred bytes, and after 64 causes nothing more is told.
void reportOnce(std::string_view cause, std::string_view text);

//! The same for causes that a stranger controls, at most 16 of the 64.
void reportStrangerOnce(std::string_view cause, std::string_view text);

} // namespace fv2
