// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace fv2 {

//! A set of log levels, one bit each. A line's own level is a set too: it passes when all its bits are let through.
class FV2LoggingLevel {
public:
    constexpr FV2LoggingLevel() = default;
    constexpr explicit FV2LoggingLevel(std::int64_t rawValue)
        : m_rawValue(rawValue) {}
    constexpr FV2LoggingLevel(std::initializer_list<FV2LoggingLevel> members) {
        for (const FV2LoggingLevel member : members)
            insert(member);
    }

    static const FV2LoggingLevel trace;
    static const FV2LoggingLevel ui;
    static const FV2LoggingLevel error;
    static const FV2LoggingLevel release;

    [[nodiscard]] constexpr std::int64_t rawValue() const { return m_rawValue; }
    [[nodiscard]] constexpr bool isEmpty() const { return m_rawValue == 0; }
    [[nodiscard]] constexpr bool contains(FV2LoggingLevel other) const { return other.isSubset(*this); }
    [[nodiscard]] constexpr bool isSubset(FV2LoggingLevel other) const {
        return (other.m_rawValue & m_rawValue) == m_rawValue;
    }
    [[nodiscard]] constexpr bool isSuperset(FV2LoggingLevel other) const { return other.isSubset(*this); }
    [[nodiscard]] constexpr bool isDisjoint(FV2LoggingLevel other) const {
        return (m_rawValue & other.m_rawValue) == 0;
    }

    [[nodiscard]] constexpr FV2LoggingLevel unionWith(FV2LoggingLevel other) const {
        return FV2LoggingLevel(m_rawValue | other.m_rawValue);
    }
    [[nodiscard]] constexpr FV2LoggingLevel intersection(FV2LoggingLevel other) const {
        return FV2LoggingLevel(m_rawValue & other.m_rawValue);
    }
    [[nodiscard]] constexpr FV2LoggingLevel symmetricDifference(FV2LoggingLevel other) const {
        return FV2LoggingLevel(m_rawValue ^ other.m_rawValue);
    }
    constexpr void insert(FV2LoggingLevel other) { m_rawValue |= other.m_rawValue; }
    constexpr void remove(FV2LoggingLevel other) { m_rawValue &= ~other.m_rawValue; }

    //! What a line of this level prints: the member's name, "unknown" for anything but a single member.
    [[nodiscard]] std::string_view text() const;

    friend constexpr bool operator==(FV2LoggingLevel, FV2LoggingLevel) = default;

private:
    std::int64_t m_rawValue = 0;
};

inline constexpr FV2LoggingLevel FV2LoggingLevel::trace{1};
inline constexpr FV2LoggingLevel FV2LoggingLevel::ui{2};
inline constexpr FV2LoggingLevel FV2LoggingLevel::error{4};
inline constexpr FV2LoggingLevel FV2LoggingLevel::release{8};

struct ParsedLogLevels {
    FV2LoggingLevel levels;
    std::vector<std::string> unknownWords;
};

//! Reads a comma list of member names or "all"; blanks around a word and empty words are ignored.
[[nodiscard]] ParsedLogLevels parseLogLevels(std::string_view list);

} // namespace fv2
