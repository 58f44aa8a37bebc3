// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Launcher.h"
#include "platform/FV2MachineDescription.h"
#include "platform/FV2Settings.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace fv2::test {
namespace {

TEST(OsDescription, IsThePrettyNameOrNameAndVersion) {
    struct Case {
        std::string content, expected;
    };
    const Case table[] = {
        {"NAME=\"A\"\nPRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\n", "Debian GNU/Linux 12 (bookworm)"},
        {R"(PRETTY_NAME="A \"b\" \$c")", R"(A "b" $c)"},
        {"PRETTY_NAME=Plain \r\n", "Plain"},
        {"PRETTY_NAME=\nNAME='Some Linux'\nVERSION=\"3 (x)\"\n", "Some Linux 3 (x)"},
        {"#PRETTY_NAME=no\nNAME=Arch\nno assignment\n", "Arch"},
        {"VERSION=3\n", "second"},
        {"NAME=\x1b\xff\u202e" + std::string(199, 'x') + "\u00fc\u00fc", std::string(199, 'x') + "\u00fc"},
        {"", "second"},
    };
    const TemporaryFolder folder;
    std::ofstream(folder / "second") << "PRETTY_NAME=second\n";
    for (const Case& each : table) {
        std::ofstream(folder / "first") << each.content;
        EXPECT_EQ(osDescription({folder / "first", folder / "second"}), each.expected) << each.content;
    }
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(osDescription({folder.path(), folder / "pipe", folder / "missing"}), "Linux");
}

TEST(MachineDescription, IsTheProcessorsNameAndTheWordSize) {
    const TemporaryFolder folder;
    const std::string bits = sizeof(void*) == 8 ? " (64-bit)" : " (32-bit)";
    std::ofstream(folder / "x86") << "processor\t: 0\nmodel\t\t: 85\nmodel name\t: Some CPU: fast @ 2.00GHz \n"
                                     "processor\t: 1\nmodel name\t: Another\n";
    EXPECT_EQ(std::get<std::string>(machineDescription(folder / "x86")), "Some CPU: fast @ 2.00GHz" + bits);

    std::ofstream(folder / "arm") << "processor\t: 0\nBogoMIPS\t: 48.00\nmodel name\t:\n";
    for (const auto& [path, code] :
         {std::pair{folder / "arm", ENOENT}, {folder / "missing", ENOENT}, {folder.path(), EISDIR}}) {
        const auto description = machineDescription(path);
        const auto* const error = std::get_if<SysctlError>(&description);
        ASSERT_NE(error, nullptr) << path;
        EXPECT_EQ(error->code, code) << path;
        EXPECT_EQ(error->userInfo.at("path"), path);
    }
}

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

TEST(Launcher, IsAFileManagerByItsExactName) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "7");
    for (const auto& [comm, expected] : {std::pair{"nautilus\n", true},
                                         {"pcmanfm-qt\n", true},
                                         {"pcmanfm-qt-old\n", false},
                                         {"Nautilus\n", false},
                                         {"nautilus\n\n", false},
                                         {"", false}}) {
        std::ofstream(folder / "7/comm") << comm;
        EXPECT_EQ(launchedByFileManager(7, folder.path()), expected) << comm;
    }
    EXPECT_FALSE(launchedByFileManager(8, folder.path()));
}

} // namespace
} // namespace fv2::test
