// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace fv2 {

//! A text that must leave nothing behind. Its bytes lie in pages of their own, which are kept out of core dumps and of
//! children, never moved, wiped and given back with the last byte. Where the kernel has secret pages they are such,
//! which no other process reads by any way; elsewhere they are locked into memory as far as the system lets us. While
//! any such text has a byte, the process is not dumpable: other processes of the user can't open its memory. Throws
//! std::bad_alloc when the system has no page for a first byte. One thread an object.
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

    //! Puts `text` in place of `count` bytes at `position`, both at most up to the end. False, and nothing has changed,
    //! when the room does not suffice.
    bool replace(std::size_t position, std::size_t count, std::string_view text);
    bool append(std::string_view text) { return replace(size(), 0, text); }

    //! Empties the text, in memory too.
    void wipe();

private:
    struct Pages;

    std::unique_ptr<Pages> m_pages; //!< none once moved from
};

} // namespace fv2
