// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "logging/FV2Logging.h"
#include "logging/LogFile.h"
#include "support/TemporaryFolder.h"

#include <sstream>
#include <vector>

namespace fv2::test {

//! A home directory with a folder for the log; the shared logger lets `levels` through for the scope. What logs behind
//! it finds no such home any more.
class LogScope {
public:
    explicit LogScope(FV2LoggingLevel levels = {}) {
        std::filesystem::create_directory(m_home / "logs");
        ::setenv("HOME", m_home.path().c_str(), 1);
        rememberLogFilePath();
        FV2Logging::shared().setLevels(levels);
    }
    ~LogScope() { FV2Logging::shared().setLevels({}); }

    [[nodiscard]] std::string text() const { return contentOf(logFilePath()); }

    //! The messages without prefix, level and trailing blank, in order.
    [[nodiscard]] std::vector<std::string> messages() const {
        std::vector<std::string> all;
        std::istringstream lines(text());
        for (std::string line; std::getline(lines, line); all.back().pop_back())
            all.push_back(line.substr(line.find("] ") + 2));
        return all;
    }

private:
    TemporaryFolder m_home;
};

} // namespace fv2::test
