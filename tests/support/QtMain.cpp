// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0

// The main function of test programs that need an application object. Nothing of the user's own session is reached.
#include "support/TemporaryFolder.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    const fv2::test::TemporaryFolder runtime;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", runtime.path().c_str());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
