// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Settings.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace fv2::test {
namespace {

const std::string kLax = "[credentials]\nrootOnly=false\n";

struct Settings : testing::Test {
    std::string file(const std::string& name) const {
        const std::filesystem::path path = folder / name;
        std::filesystem::create_directories(path.parent_path());
        return path;
    }
    void write(const std::string& name, const std::string& content) const { std::ofstream(file(name)) << content; }
    //! "host root" or "host", then each mistake as "file:line", without its folder.
    std::string read() const {
        const FV2ExaminedSettings found = examineSettings(folder / "");
        std::string all = found.settings.helpHost + (found.settings.credentialsToRootOnly ? " root" : "");
        for (const FV2SettingsMistake& mistake : found.mistakes)
            all += " " + mistake.file.filename().string() + ":" + std::to_string(mistake.line);
        return all;
    }

    const TemporaryFolder folder;
    const std::string etc = "etc/fv2-agent/agent.conf";
};

TEST_F(Settings, AreStrictAtEveryMistakeAndSayWhereItIs) {
    const std::string strict = "help.example.com root";
    EXPECT_EQ(read(), strict);
    const auto reads = [this](const std::string& content) {
        write(etc, content);
        return read();
    };
    EXPECT_EQ(reads("; a\n#b\n\n [help]\r\nhost = h.example.org:81\n" + kLax), "h.example.org:81");
    EXPECT_EQ(reads("[help]\nhost=\n[credentials]\nrootOnly=true"), " root");
    const std::string good = "[help]\nhost=h\n[credentials]\n"; // three lines
    EXPECT_EQ(reads(good), "h root");
    for (const std::string mistake : {"[help",
                                      "[other]",
                                      "[Credentials]\nrootOnly=false",
                                      "host=h",
                                      "[help]\nhost=i",
                                      "[help]\nHost=h",
                                      "rootOnly=false\nrootOnly=true",
                                      "rootonly=true",
                                      "rootOnly=True",
                                      "rootOnly=0",
                                      "rootOnly=no",
                                      "rootOnly=",
                                      "rootOnly",
                                      "rootOnly: false",
                                      "=",
                                      "rootOnly=false\n true",
                                      "rootOnly=false ; true",
                                      "[help] # true",
                                      "[help]\nurl=https://h/#i",
                                      "[help] x",
                                      "[help]\nurl=http://h",
                                      "[support]\nurl=https://a b",
                                      "[log]\nlevels=loud",
                                      "[log]\ntarget=disk",
                                      "[ui]\nlanguage=../de",
                                      "[notifications]\nenabled=yes"}) {
        const std::string found = reads(good + mistake);
        EXPECT_TRUE(found.starts_with(strict + " agent.conf:4") || found.starts_with(strict + " agent.conf:5"))
            << mistake << ": " << found;
    }
    EXPECT_EQ(reads("\xEF\xBB\xBF[help]\nhost=h\n" + kLax), strict + " agent.conf:1 agent.conf:2");
    EXPECT_EQ(reads("a=b\n" + kLax), strict + " agent.conf:1");
    EXPECT_EQ(reads(kLax + std::string(64 * 1024, ';')), strict + " agent.conf:0");

    EXPECT_EQ(reads(kLax), "help.example.com");
    std::filesystem::permissions(file(etc), std::filesystem::perms(0606));
    EXPECT_EQ(read(), strict + " agent.conf:0") << "anybody can write it";
    std::filesystem::remove(file(etc));
    ASSERT_EQ(::mkfifo(file(etc).c_str(), 0600), 0);
    EXPECT_EQ(read(), strict + " agent.conf:0") << "a pipe";
    std::filesystem::remove(file(etc));
    std::filesystem::create_symlink(folder / "gone", file(etc));
    EXPECT_EQ(read(), strict + " agent.conf:0") << "a link that leads nowhere";
    std::filesystem::remove_all(folder / "etc");
    write("etc/fv2-agent/agent.conf.d", kLax);
    EXPECT_EQ(read(), strict + " agent.conf.d:0") << "a file in the folder's place";
    std::filesystem::remove_all(folder / "etc/fv2-agent");
    std::filesystem::create_symlink(folder / "gone", folder / "etc/fv2-agent");
    EXPECT_EQ(read(), strict + " agent.conf.d:0") << "a folder that leads nowhere";
    if (::getuid() != 0)
        return; // what follows gives a file away
    std::filesystem::remove(folder / "etc/fv2-agent");
    write(etc, kLax);
    ASSERT_EQ(::chown(file(etc).c_str(), 1, 1), 0);
    EXPECT_EQ(read(), strict + " agent.conf:0") << "another user's";
}

TEST_F(Settings, OfSeveralFilesTheMoreParticularOneCountsAndOnlyTheAdministratorsLoosens) {
    write("usr/lib/fv2-agent/agent.conf", "[help]\nhost=usr\n[ui]\nlanguage=de\n");
    EXPECT_EQ(read(), "usr root");
    write("run/fv2-agent/agent.conf", "[help]\nhost=run\n");
    EXPECT_EQ(read(), "run root");
    write("usr/lib/fv2-agent/agent.conf.d/20-a.conf", "[help]\nhost=twenty\n");
    write("run/fv2-agent/agent.conf.d/10-a.conf", "[help]\nhost=ten\n");
    EXPECT_EQ(read(), "twenty root") << "by the order of the names";
    write("etc/fv2-agent/agent.conf.d/20-a.conf", kLax);
    EXPECT_EQ(read(), "ten") << "the administrator's takes the place of the one with its name";
    write("run/fv2-agent/agent.conf.d/30-a.conf", kLax);
    EXPECT_EQ(read(), "ten root 30-a.conf:2");
    write("run/fv2-agent/agent.conf.d/30-a.conf", "[support]\nname=Help desk\n");
    const FV2ExaminedSettings found = examineSettings(folder / "");
    EXPECT_EQ(found.settings.supportName, "Help desk");
    EXPECT_EQ(found.origins.front().from, folder / "etc/fv2-agent/agent.conf.d/20-a.conf");
    EXPECT_EQ(found.origins.back().from, "default") << "ui.language: its file is hidden by another";
    write("etc/xdg/fv2-agent/agent.conf", "");
    EXPECT_EQ(read(), "ten root agent.conf:0") << "where it was once";
}

} // namespace
} // namespace fv2::test
