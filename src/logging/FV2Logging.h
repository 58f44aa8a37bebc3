// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/CountingSemaphore.h"
#include "logging/Console.h"
#include "logging/FV2LogTarget.h"
#include "logging/FV2LoggingLevel.h"
#include "logging/SystemLog.h"

#include <atomic>
#include <concepts>
#include <ctime>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace fv2 {

//! One value of a log line. Borrows texts: it lives no longer than the call it is an argument of.
class FV2LogItem {
public:
    FV2LogItem(std::string_view text)
        : m_value(text) {}
    FV2LogItem(const char* text)
        : m_value(std::string_view(text)) {}
    FV2LogItem(const std::string& text)
        : m_value(std::string_view(text)) {}
    FV2LogItem(std::same_as<bool> auto value)
        : m_value(value) {}
    FV2LogItem(std::signed_integral auto value)
        : m_value(static_cast<long long>(value)) {}
    FV2LogItem(std::unsigned_integral auto value) requires(!std::same_as<decltype(value), bool>)
        : m_value(static_cast<unsigned long long>(value)) {}
    FV2LogItem(std::floating_point auto value)
        : m_value(static_cast<double>(value)) {}

    void appendTo(std::string& out) const;

private:
    std::variant<std::string_view, bool, long long, unsigned long long, double> m_value;
};

//! Filters, formats and writes log lines, one at a time: a semaphore serialises whole operations, except for lines that
//! are filtered out at once. Any thread. A line that can't be written is dropped without telling the caller.
class FV2Logging {
public:
    explicit FV2Logging(FV2LoggingLevel levels);

    //! The process-wide logger, made on first use with the empty set: it writes nothing until setLevels() widens it.
    static FV2Logging& shared();

    void setLevels(FV2LoggingLevel levels);
    void setTarget(FV2LogTarget target);

    //! Writes one line to standard output and the target, at first the log file, when all bits of `level` are let
    //! through.
    void log(FV2LoggingLevel level, std::initializer_list<FV2LogItem> items, std::string_view separator,
             std::string_view terminator);

    //! The same for parts that are joined without a separator, which cost next to nothing when the line is filtered
    //! out.
    void logJoined(FV2LoggingLevel level, std::initializer_list<FV2LogItem> parts);

    //! Sends `content` behind the prefix of the line built last to the system log, with that line's type.
    void logToSystem(std::string content);

    //! Deletes the log file; a failure is ignored.
    static void deleteLogFile();

    //! The local time of day of a moment, "hh:mm:ss.mmm", milliseconds cut off.
    [[nodiscard]] static std::string timeStamp(const timespec& now);

private:
    [[nodiscard]] bool filtersOutAtOnce(FV2LoggingLevel level);
    bool checkLevel(FV2LoggingLevel level);
    void buildLine(std::initializer_list<FV2LogItem> items, std::string_view separator, std::string_view terminator);
    void writeLine();
    void setContent(std::string content) { _logString_content = std::move(content); }

    std::atomic<FV2LoggingLevel> _levels; //!< changed with the semaphore held
    std::string _logString_prefix;
    std::string _logString_filectx;
    std::string _logString_content;
    FV2LogTarget m_target = FV2LogTarget::File;
    FV2LoggingLevel _logFileLevel = FV2LoggingLevel::release;
    std::atomic<fv2SystemLogType> _logConsoleLevel = fv2SystemLogType::info;
    std::string _terminatorString;
    bool _showTime = true;
    bool _showThread = true;
    bool _showLevel = true;
    CountingSemaphore _semaphore{1};
    Console m_console;
};

//! Write one line through the shared logger, of several values at a level or of parts that are joined without a
//! separator. Any thread.
void log(FV2LoggingLevel level, std::initializer_list<FV2LogItem> items, std::string_view separator = " ",
         std::string_view terminator = "\n");
inline void logRelease(const auto&... parts) {
    FV2Logging::shared().logJoined(FV2LoggingLevel::release, {parts...});
}
inline void logTrace(const auto&... parts) {
    FV2Logging::shared().logJoined(FV2LoggingLevel::trace, {parts...});
}
inline void logUi(const auto&... parts) {
    FV2Logging::shared().logJoined(FV2LoggingLevel::ui, {parts...});
}

} // namespace fv2
