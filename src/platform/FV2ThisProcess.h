// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <sys/types.h>
#include <unistd.h>

namespace fv2 {

//! Whether the process that started us is a file manager: then somebody has clicked the program and wants to see it.
[[nodiscard]] bool launchedByFileManager(pid_t parent = ::getppid(), const std::filesystem::path& proc = "/proc");

//! Whether the desktop is a Wayland one, also where this program reaches it through an X server.
[[nodiscard]] bool isWaylandSession();

//! Whether this program's own windows are those of a Wayland client.
[[nodiscard]] bool isWaylandClient();

} // namespace fv2
