// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace fv2 {

//! Home directory ($HOME, else the password database) + "/logs/mac-fv2-ui.log", as it was when it was remembered, or
//! when it was first asked for.
[[nodiscard]] std::string logFilePath();

//! Works the path out from the environment, which may be changed afterwards while other threads log.
void rememberLogFilePath();

//! A line that a limit on the size of files forbids is dropped; otherwise it would end the process. Programs that are
//! started later have the limit's usual effect. Once, at the start.
void outliveFileSizeLimit();

//! Appends one whole text in one go: opens, writes, closes. A new file gets mode 0600; a link is not followed, and
//! anything but a regular file of ours with this one name is refused. When the disk takes only a part, that part is
//! taken back. False when the text is not in the file; the folder is never created.
bool appendToLogFile(const std::string& path, std::string_view text);

//! False when there was nothing that could be removed.
bool deleteLogFile(const std::string& path);

} // namespace fv2
