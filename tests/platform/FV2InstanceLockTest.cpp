// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2InstanceLock.h"

#include "support/Process.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace fv2::test {
namespace {

using Attempt = FV2InstanceLock::Attempt;

TEST(InstanceLock, IsHadByOneGoesWithItsObjectAndIsNotInherited) {
    const TemporaryFolder folder;
    const std::set<int> before = openDescriptors(true);
    for (int i = 0; i < 2; ++i) {
        FV2InstanceLock lock(folder / "lock");
        EXPECT_EQ(lock.tryTake(), Attempt::Taken);
        EXPECT_EQ(openDescriptors(true), before);
        const auto isHeld = [&] { return FV2InstanceLock(folder / "lock").tryTake() == Attempt::HeldByOther; };
        EXPECT_TRUE(isHeld());
        EXPECT_EQ(inChild([&] { return isHeld() ? 0 : 1; }), 0);
    }
    EXPECT_EQ(std::filesystem::status(folder / "lock").permissions(), std::filesystem::perms(0600));
}

TEST(InstanceLock, IsImpossibleWhereTheFileIsNotOurOwn) {
    const TemporaryFolder folder;
    std::ofstream(folder / "target") << "content";
    std::filesystem::create_symlink(folder / "target", folder / "link");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    std::filesystem::create_directory(folder / "folder");
    // Root can open everybody's files, everybody else can see one of root's.
    std::ofstream(folder / "strange") << "";
    const std::string strangers =
        ::chown((folder / "strange").c_str(), ::getuid() + 1, ::getgid()) == 0 ? folder / "strange" : "/etc/passwd";
    for (const std::string& path :
         {folder / "link", folder / "dangling", strangers, folder / "missing/lock", std::string()})
        EXPECT_EQ(FV2InstanceLock(path).tryTake(), Attempt::Impossible) << path;
    EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
    EXPECT_EQ(FV2InstanceLock(folder / "target").tryTake(), Attempt::Taken);
    EXPECT_EQ(contentOf(folder / "target"), "content");
    FV2InstanceLock first(folder / "folder");
    EXPECT_EQ(first.tryTake(), Attempt::Taken);
    EXPECT_EQ(FV2InstanceLock(folder / "folder").tryTake(), Attempt::HeldByOther) << "a folder of ours is as good";
}

TEST(InstanceLock, LivesWhereNobodyElseCanBeFirstIfThereIsSuchAPlace) {
    const std::string runtime = std::getenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(FV2InstanceLock::defaultPath(), runtime + "/fv2-agent.lock");
    const std::string number = std::to_string(::getuid());
    const bool isLoggedIn = std::filesystem::is_directory("/run/user/" + number);
    const std::string home = std::getenv("HOME");
    const TemporaryFolder folder;
    std::ofstream(folder / "file") << "";
    std::filesystem::create_directory(folder / "strange");
    const bool given = ::chown((folder / "strange").c_str(), ::getuid() + 1, ::getgid()) == 0;
    for (const std::string& unusable : {std::string(), std::string("."), folder / "missing", folder / "file",
                                        given ? folder / "strange" : std::string("/")})
        for (const std::string& ours : {folder.path(), unusable}) {
            ::setenv("XDG_RUNTIME_DIR", unusable.c_str(), 1);
            ::setenv("HOME", ours.c_str(), 1);
            const std::string next = ours == unusable ? "/tmp/ormfv2_ui_" + number + ".lock" : ours;
            EXPECT_EQ(FV2InstanceLock::defaultPath(), isLoggedIn ? "/run/user/" + number + "/fv2-agent.lock" : next)
                << unusable;
        }
    ::setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
    ::setenv("HOME", home.c_str(), 1);
}

} // namespace
} // namespace fv2::test
