// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <cstdio>

namespace fv2::test {
namespace {

TEST(Appearance, FollowsThePortalAndThePaletteAndNeverWaitsForTheBus) {
    std::FILE* const probe = ::popen("dbus-run-session -- " APPEARANCE_PROBE, "r");
    ASSERT_NE(probe, nullptr);
    std::array<char, 512> said{};
    std::fgets(said.data(), said.size(), probe);
    EXPECT_EQ(::pclose(probe), 0);
    EXPECT_STREQ(said.data(), "at once, changed, changed, dark");
}

} // namespace
} // namespace fv2::test
