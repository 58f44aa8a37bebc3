// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Settings.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace fv2::test {
namespace {

TEST(Settings, AreThoseOfTheFirstFolderThatHasThemAndStrictAtEveryMistake) {
    const TemporaryFolder folder;
    const std::string name = "fv2-agent/agent.conf";
    const auto file = [&](const std::string& in) { return folder / (in + "/" + name); };
    for (const std::string in : {"a", "b", "computer"})
        std::filesystem::create_directories(folder / (in + "/fv2-agent"));
    const auto read = [&] {
        const FV2Settings settings = readSettings(folder / "computer");
        return settings.helpHost + (settings.credentialsToRootOnly ? " root" : "");
    };
    const auto reads = [&](const std::string& content) {
        std::ofstream(file("b")) << content;
        return read();
    };
    const std::string strict = "help.example.com root";
    const std::string lax = "[credentials]\nrootOnly=false\n";
    ::setenv("XDG_CONFIG_DIRS", (folder / "missing:b:" + (folder / "a") + ":" + (folder / "b")).c_str(), 1);
    EXPECT_EQ(read(), strict);
    EXPECT_EQ(reads("; a\n#b\n\n [help]\r\nhost = h.example.org:81\n" + lax), "h.example.org:81");
    EXPECT_EQ(reads("[help]\nhost=\n[credentials]\nrootOnly=true"), " root");
    const std::string good = "[help]\nhost=h\n[credentials]\n";
    EXPECT_EQ(reads(good), "h root");
    for (const std::string mistake :
         {"[help", "[Credentials]", "[other]", "host=h", "[help]\nhost=h", "[help]\nHost=h", "[help]\nrootOnly=false",
          "rootOnly=false\nrootOnly=false", "\xEF\xBB\xBF;", "rootonly=true", "rootOnly=True", "rootOnly=0",
          "rootOnly=no", "rootOnly=", "rootOnly", "rootOnly: false", "rootOnly=\"true\"", "=", "rootOnly=true ;"})
        EXPECT_EQ(reads(good + mistake), strict) << mistake;
    for (const std::string mistake : {"host=h\n", "[help]\nhost:h\n", "[help]\nhost=h/i\n"})
        EXPECT_EQ(reads(mistake + lax), strict) << mistake;
    EXPECT_EQ(reads(lax + std::string(64 * 1024, ';')), strict);

    EXPECT_EQ(reads(lax), "help.example.com");
    std::filesystem::permissions(file("b"), std::filesystem::perms(0606));
    EXPECT_EQ(read(), strict) << "anybody can write it";
    std::filesystem::permissions(file("b"), std::filesystem::perms(0600));
    EXPECT_EQ(read(), "help.example.com");
    std::ofstream(file("computer")) << "\n";
    EXPECT_EQ(read(), strict) << "the computer's file does not say so";
    std::ofstream(file("computer")) << lax;
    EXPECT_EQ(read(), "help.example.com");

    ASSERT_EQ(::mkfifo(file("a").c_str(), 0600), 0);
    EXPECT_EQ(read(), strict) << "a pipe";
    std::filesystem::remove(file("a"));
    std::filesystem::create_symlink(file("b"), file("a"));
    EXPECT_EQ(read(), "help.example.com") << "a link";
    std::filesystem::remove(file("b"));
    EXPECT_EQ(read(), strict) << "a link that leads nowhere";
    std::filesystem::remove_all(folder / "a/fv2-agent");
    EXPECT_EQ(read(), "help.example.com");
    std::filesystem::create_symlink(folder / "gone", folder / "a/fv2-agent");
    EXPECT_EQ(read(), strict) << "a folder that leads nowhere";
    std::filesystem::remove_all(folder / "a");
    std::ofstream(folder / "a") << "no folder";
    EXPECT_EQ(read(), "help.example.com");
    ::setenv("XDG_CONFIG_DIRS", ("/" + std::string(300, 'x')).c_str(), 1);
    EXPECT_EQ(read(), strict) << "can't be looked at";
    ::unsetenv("XDG_CONFIG_DIRS");
}

} // namespace
} // namespace fv2::test
