// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
// Wipes every block of the heap as it is given back: the JSON reader keeps copies of what it reads, and one of them may
// be a password.

#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <new>

// NOLINTNEXTLINE(misc-new-delete-overloads): the library's new takes its blocks from malloc
void operator delete(void* block) noexcept {
    if (block != nullptr)
        ::explicit_bzero(block, ::malloc_usable_size(block));
    std::free(block); // NOLINT(cppcoreguidelines-no-malloc)
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}
