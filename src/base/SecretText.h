// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace fv2 {

//! A text that leaves no copy behind. Its bytes are in pages of their own, which are kept out of core dumps and child
//! processes, never moved, and wiped and released with the last byte. Where the kernel has secret pages, which no other
//! process can read, those are used; elsewhere the pages are locked into memory if the system allows it. While any such
//! text has a byte, the process is not dumpable: other processes of the user can't open its memory. Throws
//! std::bad_alloc when the system has no page for a first byte. Not thread-safe.
class SecretText {
public:
    //! Room for `capacity` bytes.
    explicit SecretText(std::size_t capacity);
    explicit SecretText(std::string_view text);
    SecretText(SecretText&& other) noexcept;
    SecretText& operator=(SecretText&& other) noexcept;
    ~SecretText();

    [[nodiscard]] std::string_view text() const;
    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] bool empty() const { return size() == 0; }

    //! Puts `text` in place of `count` bytes at `position`, clamped to the end. False, and nothing has changed, when
    //! there is not enough room.
    bool replace(std::size_t position, std::size_t count, std::string_view text);
    bool append(std::string_view text) { return replace(size(), 0, text); }

    //! Empties the text, in memory too.
    void wipe();

private:
    struct Pages;

    std::unique_ptr<Pages> m_pages; //!< none once moved from
};

} // namespace fv2
