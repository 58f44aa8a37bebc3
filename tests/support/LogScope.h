// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "logging/FV2Logging.h"
#include "logging/LogFile.h"
#include "support/TemporaryFolder.h"

#include <vector>

namespace fv2::test {

//! A home directory with a folder for the log, for a scope; the shared logger lets `levels` through meanwhile.
class LogScope {
public:
    explicit LogScope(FV2LoggingLevel levels = {}) {
        std::filesystem::create_directory(m_home / "logs");
        const char* home = std::getenv("HOME");
        m_previousHome = home == nullptr ? "" : home;
        ::setenv("HOME", m_home.path().c_str(), 1);
        FV2Logging::shared().setLevels(levels);
    }
    ~LogScope() {
        FV2Logging::shared().setLevels({});
        ::setenv("HOME", m_previousHome.c_str(), 1);
    }
    LogScope(const LogScope&) = delete;
    LogScope& operator=(const LogScope&) = delete;

    [[nodiscard]] std::string text() const { return contentOf(logFilePath()); }

    //! The messages without prefix, level and trailing blank, in order.
    [[nodiscard]] std::vector<std::string> messages() const {
        std::vector<std::string> all;
        std::istringstream lines(text());
        for (std::string line; std::getline(lines, line);) {
            const auto begin = line.find("] ") + 2;
            all.push_back(line.substr(begin, line.size() - begin - 1));
        }
        return all;
    }

private:
    TemporaryFolder m_home;
    std::string m_previousHome;
};

} // namespace fv2::test
