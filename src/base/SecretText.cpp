// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "base/SecretText.h"

#include "base/UniqueFd.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <new>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace fv2 {

namespace {

std::mutex g_holders;
int g_holderCount = 0;
int g_dumpableBefore = 0;

void holdUndumpable() {
    const std::lock_guard lock(g_holders);
    if (g_holderCount++ > 0)
        return;
    g_dumpableBefore = ::prctl(PR_GET_DUMPABLE);
    ::prctl(PR_SET_DUMPABLE, 0);
}

void releaseUndumpable() {
    const std::lock_guard lock(g_holders);
    // Only 1 can be set; any other value is not ours.
    if (--g_holderCount == 0 && g_dumpableBefore == 1)
        ::prctl(PR_SET_DUMPABLE, 1);
}

std::size_t wholePages(std::size_t bytes) {
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    return (std::max<std::size_t>(bytes, 1) + page - 1) / page * page;
}

#ifndef SYS_memfd_secret
constexpr long SYS_memfd_secret = 447; // on all architectures
#endif

//! Pages that only this process can read: the kernel itself gives them to nobody, not even through a /proc file opened
//! before. Older kernels have none, and limits may forbid them.
void* mapSecret(std::size_t bytes) {
    const UniqueFd file(static_cast<int>(::syscall(SYS_memfd_secret, O_CLOEXEC)));
    if (!file || ::ftruncate(file.get(), static_cast<off_t>(bytes)) != 0)
        return MAP_FAILED;
    return ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0);
}

void* mapLocked(std::size_t bytes) {
    void* const place = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (place == MAP_FAILED)
        return place;
    // Each may be refused, by a limit or an old kernel; the text is then still wiped.
    ::mlock(place, bytes);
    ::madvise(place, bytes, MADV_DONTDUMP);
    return place;
}

} // namespace

struct SecretText::Pages {
    explicit Pages(std::size_t bytes)
        : capacity(bytes)
        , mapped(wholePages(bytes)) {}
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;
    ~Pages() { resize(0); }

    //! Wipes what is no longer part of the text. Pages exist only while they hold a byte: with a secret one the
    //! computer can't hibernate.
    void resize(std::size_t bytes) {
        if (size == 0 && bytes > 0)
            take();
        const std::size_t before = std::exchange(size, bytes);
        if (bytes < before)
            ::explicit_bzero(start + bytes, before - bytes);
        if (before > 0 && bytes == 0)
            giveBack();
    }

    void take() {
        void* place = mapSecret(mapped);
        if (place == MAP_FAILED)
            place = mapLocked(mapped);
        if (place == MAP_FAILED)
            throw std::bad_alloc();
        ::madvise(place, mapped, MADV_DONTFORK);
        start = static_cast<char*>(place);
        holdUndumpable();
    }
    void giveBack() {
        ::munmap(start, mapped);
        start = nullptr;
        releaseUndumpable();
    }

    const std::size_t capacity;
    const std::size_t mapped;
    char* start = nullptr;
    std::size_t size = 0;
};

SecretText::SecretText(std::size_t capacity)
    : m_pages(std::make_unique<Pages>(capacity)) {
}

SecretText::SecretText(std::string_view text)
    : SecretText(text.size()) {
    append(text);
}

SecretText::SecretText(SecretText&& other) noexcept = default;
SecretText& SecretText::operator=(SecretText&& other) noexcept = default;
SecretText::~SecretText() = default;

std::string_view SecretText::text() const {
    return m_pages ? std::string_view(m_pages->start, m_pages->size) : std::string_view();
}

std::size_t SecretText::size() const {
    return m_pages ? m_pages->size : 0;
}

bool SecretText::replace(std::size_t position, std::size_t count, std::string_view text) {
    const std::size_t before = size();
    const std::size_t from = std::min(position, before);
    const std::size_t gone = std::min(count, before - from);
    const std::size_t after = before - gone + text.size();
    if (!m_pages || after > m_pages->capacity)
        return false;
    if (after == 0 && before == 0)
        return true;
    if (after > before)
        m_pages->resize(after); // not dumpable before the first byte is here
    char* const place = m_pages->start + from;
    std::memmove(place + text.size(), place + gone, before - from - gone);
    text.copy(place, text.size());
    if (after < before)
        m_pages->resize(after);
    return true;
}

void SecretText::wipe() {
    if (m_pages)
        m_pages->resize(0);
}

} // namespace fv2
