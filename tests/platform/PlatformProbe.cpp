// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0

// Prints what the platform's classes make of a process's environment.
#include "platform/FV2MediumDate.h"
#include "platform/FV2QtStrings.h"
#include "platform/FV2TrayWatcher.h"
#include "support/QtLoop.h"

#include <QGuiApplication>

#include <iostream>

namespace fv2::test {
namespace {

void languages(const QString& tables) {
    std::cout << FV2QtStrings(FV2QtStrings::preferredLanguages(), tables).language().toStdString() << '\n';
}

void trayNeverComes() {
    int calls = 0;
    const FV2TrayWatcher tray([&calls] { ++calls; }, std::chrono::milliseconds(1));
    runLoopFor(std::chrono::milliseconds(50));
    std::cout << calls << " so far\n";
}

} // namespace
} // namespace fv2::test

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    const std::string what = argc > 1 ? argv[1] : "";
    const std::string value = argc > 2 ? argv[2] : "";
    if (what == "languages")
        fv2::test::languages(QString::fromStdString(value));
    else if (what == "date")
        std::cout << fv2::mediumDate(std::stoll(value)) << '\n';
    else if (what == "no-tray")
        fv2::test::trayNeverComes();
    return 0;
}
