// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0

// Prints what the platform's classes make of a process's environment, signals and session bus.
#include "platform/FV2MediumDate.h"
#include "platform/FV2QtStrings.h"
#include "platform/FV2TrayWatcher.h"
#include "platform/FV2UnixSignals.h"
#include "support/QtLoop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QGuiApplication>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <sys/wait.h>

namespace fv2::test {
namespace {

void languages(const QString& tables) {
    std::cout << FV2QtStrings(FV2QtStrings::preferredLanguages(), tables).language().toStdString() << '\n';
}

void signalsBecomeOneCall() {
    FV2UnixSignals signals;
    ::raise(SIGTERM);
    int calls = 0;
    signals.onTerminate([&calls] { ++calls; });
    std::cout << calls << " before the loop\n";
    runLoopUntil([&calls] { return calls > 0; });
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGPIPE})
        ::raise(number);
    runLoopFor(std::chrono::milliseconds(50));
    std::cout << calls << " afterwards\n";
}

void signalsReachTheLoop(int number) {
    FV2UnixSignals signals;
    int calls = 0;
    signals.onTerminate([&calls] { ++calls; });
    ::raise(SIGPIPE);
    runLoopFor(std::chrono::milliseconds(50));
    std::cout << calls << " after SIGPIPE\n";
    ::raise(number);
    runLoopUntil([&calls] { return calls > 0; });
    const int status = std::system("kill -PIPE $$"); // NOLINT(cert-env33-c): a program that we start
    std::cout << calls << " after the signal, a child ended by " << WTERMSIG(status) << '\n';
}

//! The tray's side of the bus, on a connection of its own.
class Watcher final : public QDBusVirtualObject {
public:
    Watcher()
        : m_bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                              QStringLiteral("watcher"))) {
        m_bus.registerVirtualObject(m_path, this);
    }

    void takeName() { m_bus.registerService(m_name); }
    void registerHost() {
        m_hasHost = true;
        m_bus.send(QDBusMessage::createSignal(m_path, m_name, QStringLiteral("StatusNotifierHostRegistered")));
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(m_hasHost))));
    }
    [[nodiscard]] QString introspect(const QString&) const override { return {}; }

private:
    const QString m_name = QStringLiteral("org.kde.StatusNotifierWatcher");
    const QString m_path = QStringLiteral("/StatusNotifierWatcher");
    QDBusConnection m_bus;
    bool m_hasHost = false;
};

void trayComesLate() {
    int calls = 0;
    Watcher watcher;
    const FV2TrayWatcher tray([&calls] { ++calls; }, std::chrono::milliseconds(1));
    const auto told = [&calls](const char* moment) {
        runLoopFor(std::chrono::milliseconds(200));
        std::cout << calls << ' ' << moment << '\n';
    };
    told("without watcher");
    watcher.takeName();
    told("without host");
    watcher.registerHost();
    told("with host");
    watcher.registerHost();
    told("with a second host");
}

void trayIsThere() {
    int calls = 0;
    Watcher watcher;
    watcher.registerHost();
    watcher.takeName();
    {
        const FV2TrayWatcher gone([&calls] { calls += 10; });
    }
    const FV2TrayWatcher tray([&calls] { ++calls; });
    runLoopFor(std::chrono::milliseconds(200));
    std::cout << calls << " at once\n";
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
    else if (what == "signals")
        fv2::test::signalsBecomeOneCall();
    else if (what == "signal")
        fv2::test::signalsReachTheLoop(std::stoi(value));
    else if (what == "late-tray")
        fv2::test::trayComesLate();
    else if (what == "tray")
        fv2::test::trayIsThere();
    else if (what == "no-tray")
        fv2::test::trayNeverComes();
    return 0;
}
