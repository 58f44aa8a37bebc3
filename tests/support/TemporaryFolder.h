// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace fv2::test {

//! A new folder of one's own that goes with all its content at the end of the scope.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "fv2-test-XXXXXX";
        m_path = ::mkdtemp(name.data());
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(TemporaryFolder&&) = delete;

    [[nodiscard]] std::string path() const { return m_path; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace fv2::test
