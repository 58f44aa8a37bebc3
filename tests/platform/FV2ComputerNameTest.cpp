// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2ComputerName.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <unistd.h>
#include <vector>

namespace fv2::test {
namespace {

TEST(ComputerName, IsThePrettyHostNameOrElseTheHostName) {
    std::array<char, 256> name{};
    ASSERT_EQ(::gethostname(name.data(), name.size()), 0);
    const std::string host = name.data();
    struct Case {
        std::string content;
        std::string expected;
    };
    const std::vector<Case> table{
        {"PRETTY_HOSTNAME=\"Lena's B\u00fcro\"\n", "Lena's B\u00fcro"},
        {"ICON_NAME=x\nPRETTY_HOSTNAME=plain", "plain"},
        {R"(PRETTY_HOSTNAME="a \"b\" \\ \$c")", R"(a "b" \ $c)"},
        {"PRETTY_HOSTNAME=\"\n", "\""},
        {"PRETTY_HOSTNAME=\"\"\n", host},
        {"PRETTY_HOSTNAME=\n", host},
        {"#PRETTY_HOSTNAME=no\nNOT_PRETTY_HOSTNAME=no\nPRETTY_HOSTNAME_2=no\n", host},
        {"", host},
    };
    const TemporaryFolder folder;
    for (const Case& each : table) {
        std::ofstream(folder / "machine-info") << each.content;
        EXPECT_EQ(computerName(folder / "machine-info"), each.expected) << each.content;
    }
    EXPECT_EQ(computerName(folder / "missing"), host);
    EXPECT_EQ(computerName(folder.path()), host);
}

} // namespace
} // namespace fv2::test
