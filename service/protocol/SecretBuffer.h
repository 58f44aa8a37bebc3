// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

namespace fv2::service {

//! Bytes that may hold a password: of a fixed size, so that growing leaves no copy behind, and wiped when they go.
class SecretBuffer {
public:
    explicit SecretBuffer(std::size_t capacity)
        : m_bytes(std::make_unique_for_overwrite<char[]>(capacity))
        , m_capacity(capacity) {}
    explicit SecretBuffer(std::string_view text)
        : SecretBuffer(text.size()) {
        text.copy(m_bytes.get(), text.size());
        m_size = text.size();
    }
    SecretBuffer(SecretBuffer&& other) noexcept
        : m_bytes(std::move(other.m_bytes))
        , m_capacity(std::exchange(other.m_capacity, 0))
        , m_size(std::exchange(other.m_size, 0)) {}
    SecretBuffer& operator=(SecretBuffer&& other) noexcept {
        wipe();
        m_bytes = std::move(other.m_bytes);
        m_capacity = std::exchange(other.m_capacity, 0);
        m_size = std::exchange(other.m_size, 0);
        return *this;
    }
    ~SecretBuffer() { wipe(); }

    //! Where the next bytes go; `taken` says how many of them came.
    [[nodiscard]] std::span<char> room() { return {m_bytes.get() + m_size, m_capacity - m_size}; }
    void taken(std::size_t count) { m_size += count; }

    [[nodiscard]] std::string_view text() const { return {m_bytes.get(), m_size}; }

    void wipe() {
        if (m_bytes)
            ::explicit_bzero(m_bytes.get(), m_size);
        m_size = 0;
    }

private:
    std::unique_ptr<char[]> m_bytes;
    std::size_t m_capacity;
    std::size_t m_size = 0;
};

} // namespace fv2::service
