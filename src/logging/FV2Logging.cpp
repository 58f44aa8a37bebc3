// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "logging/FV2Logging.h"

#include "logging/LogEscape.h"
#include "logging/LogFile.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace fv2 {

namespace {

//! 1 for the main thread, then 2, 3, … in the order in which threads log first.
int threadNumber() {
    static std::atomic<int> last{1};
    thread_local const int number = ::gettid() == ::getpid() ? 1 : ++last;
    return number;
}

} // namespace

void FV2LogItem::appendTo(std::string& out) const {
    if (const auto* text = std::get_if<std::string_view>(&m_value)) {
        out += *text;
    } else if (const auto* truth = std::get_if<bool>(&m_value)) {
        out += *truth ? "true" : "false";
    } else if (const auto* integer = std::get_if<long long>(&m_value)) {
        out += std::to_string(*integer);
    } else if (const auto* natural = std::get_if<unsigned long long>(&m_value)) {
        out += std::to_string(*natural);
    } else if (const auto* real = std::get_if<double>(&m_value)) {
        std::array<char, 32> digits{};
        std::snprintf(digits.data(), digits.size(), "%.15g", *real);
        out += digits.data();
    }
}

FV2Logging::FV2Logging(FV2LoggingLevel levels)
    : _levels(levels) {
}

FV2Logging& FV2Logging::shared() {
    // Never destroyed: threads and static destructors may log to the very end.
    static auto* const logger = new FV2Logging(FV2LoggingLevel());
    return *logger;
}

void FV2Logging::setLevels(FV2LoggingLevel levels) {
    const SemaphoreHold hold(_semaphore);
    _levels = levels;
}

void FV2Logging::setTarget(FV2LogTarget target) {
    const SemaphoreHold hold(_semaphore);
    m_target = target;
}

void FV2Logging::log(FV2LoggingLevel level, std::initializer_list<FV2LogItem> items, std::string_view separator,
                     std::string_view terminator) {
    if (filtersOutAtOnce(level))
        return;
    const SemaphoreHold hold(_semaphore);
    if (!checkLevel(level))
        return;
    buildLine(items, separator, terminator);
    writeLine();
}

void FV2Logging::logJoined(FV2LoggingLevel level, std::initializer_list<FV2LogItem> parts) {
    if (filtersOutAtOnce(level))
        return;
    std::string text;
    for (const FV2LogItem& part : parts)
        part.appendTo(text);
    log(level, {text}, " ", "\n");
}

//! Most lines end here, so they don't wait for the semaphore: all they change is one byte.
bool FV2Logging::filtersOutAtOnce(FV2LoggingLevel level) {
    if (_levels.load(std::memory_order_relaxed).contains(level))
        return false;
    _logConsoleLevel.store(fv2SystemLogType::info, std::memory_order_relaxed);
    return true;
}

bool FV2Logging::checkLevel(FV2LoggingLevel level) {
    _logFileLevel = level;
    const FV2LoggingLevel levels = _levels;
    const bool passes = levels.contains(level);
    // The type follows the configured set, not the line.
    if (!passes || levels.contains(FV2LoggingLevel::release))
        _logConsoleLevel = fv2SystemLogType::info;
    else if (levels.contains(FV2LoggingLevel::error))
        _logConsoleLevel = fv2SystemLogType::error;
    else if (!levels.isDisjoint({FV2LoggingLevel::trace, FV2LoggingLevel::ui}))
        _logConsoleLevel = fv2SystemLogType::debug;
    return passes;
}

void FV2Logging::buildLine(std::initializer_list<FV2LogItem> items, std::string_view separator,
                           std::string_view terminator) {
    _logString_prefix.clear();
    _logString_filectx.clear();
    _terminatorString = terminator;
    if (_showThread)
        _logString_prefix += std::to_string(threadNumber()) + ") ";
    if (_showTime) {
        timespec now{};
        ::clock_gettime(CLOCK_REALTIME, &now);
        _logString_prefix += timeStamp(now) + " ";
    }
    if (_showLevel)
        _logString_filectx.append("[").append(_logFileLevel.text()).append("] ");
    std::string message;
    for (const FV2LogItem& item : items) {
        if (&item != items.begin())
            message += separator;
        item.appendTo(message);
    }
    setContent(escapedForLog(message).append(separator));
}

void FV2Logging::writeLine() {
    const std::string line = _logString_prefix + _logString_filectx + _logString_content;
    m_console.write(line + "\n");
    if (m_target != FV2LogTarget::Journal)
        appendToLogFile(logFilePath(), line + _terminatorString);
    if (m_target != FV2LogTarget::File)
        systemLog(_logFileLevel == FV2LoggingLevel::error ? fv2SystemLogType::error : fv2SystemLogType::debug, line);
}

void FV2Logging::logToSystem(std::string content) {
    const SemaphoreHold hold(_semaphore);
    setContent(std::move(content));
    systemLog(_logConsoleLevel, _logString_prefix + escapedForLog(_logString_content));
}

void FV2Logging::deleteLogFile() {
    fv2::deleteLogFile(logFilePath());
}

std::string FV2Logging::timeStamp(const timespec& now) {
    tm local{};
    ::localtime_r(&now.tv_sec, &local);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d:%02d.%03ld", local.tm_hour, local.tm_min, local.tm_sec,
                  now.tv_nsec / 1'000'000);
    return text.data();
}

void log(FV2LoggingLevel level, std::initializer_list<FV2LogItem> items, std::string_view separator,
         std::string_view terminator) {
    FV2Logging::shared().log(level, items, separator, terminator);
}

} // namespace fv2
