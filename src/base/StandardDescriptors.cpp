// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "base/StandardDescriptors.h"

#include <fcntl.h>
#include <tuple>
#include <unistd.h>

namespace fv2 {

void fillStandardDescriptors() {
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
        // open() takes the lowest free number: this one.
        if (::fcntl(fd, F_GETFD) == -1)
            std::ignore = ::open("/dev/null", O_RDWR);
    }
}

} // namespace fv2
