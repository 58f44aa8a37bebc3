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

TEST(Settings, AreThoseOfTheFirstFolderThatHasThem) {
    const TemporaryFolder folder;
    for (const std::string name : {"a", "b"})
        std::filesystem::create_directories(folder / (name + "/fv2-agent"));
    ::setenv("XDG_CONFIG_DIRS", (folder / "missing:" + (folder / "a") + ":" + (folder / "b")).c_str(), 1);
    const auto read = [&folder](const std::string& content) {
        std::ofstream(folder / "b/fv2-agent/agent.conf") << content;
        const FV2Settings settings = readSettings();
        return settings.helpHost + (settings.credentialsToRootOnly ? " root" : "");
    };
    EXPECT_EQ(read(""), "help.example.com");
    EXPECT_EQ(read("[help]\nhost=h.example.org:81\n[credentials]\nrootOnly=true\n"), "h.example.org:81 root");
    EXPECT_EQ(read("[help]\nhost=\n[credentials]\nrootOnly=0\n"), "");
    EXPECT_EQ(read("[help\nhost="), "help.example.com root") << "broken";
    std::ofstream(folder / "a/fv2-agent/agent.conf") << "\n";
    EXPECT_EQ(read("[help]\nhost=h.example.org\n"), "help.example.com");
    ::unsetenv("XDG_CONFIG_DIRS");
}

TEST(Launcher, IsAFileManagerByItsExactName) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "7");
    for (const auto& [comm, expected] : {std::pair{"nautilus\n", true},
                                         {"Thunar\n", true},
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
