// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0

// Says what the desktop's appearance is while its portal and its palette change and the bus hangs.
#include "platform/FV2Appearance.h"
#include "platform/FV2TrayWatcher.h"
#include "support/QtLoop.h"

#include <QDBusConnectionInterface>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QPalette>

#include <csignal>
#include <iostream>

namespace fv2::test {
namespace {

class Portal final : public QDBusVirtualObject {
    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& question, const QDBusConnection& bus) override {
        return bus.send(question.createReply(QVariant::fromValue(QDBusVariant(1U)))); // dark
    }
} portal;

void appearance() {
    auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));
    auto* const names = QDBusConnection::sessionBus().interface();
    const auto daemon = static_cast<pid_t>(names->servicePid(names->service()).value());
    ::kill(daemon, SIGSTOP);
    const Deadline patience(std::chrono::seconds(5));
    FV2Appearance appearance;
    const FV2TrayWatcher tray([] {});
    std::cout << (patience.passed() ? "waited, " : "at once, ");
    ::kill(daemon, SIGCONT);
    QObject::connect(&appearance, &FV2Appearance::changed, [] { std::cout << "changed, "; });
    bus.registerVirtualObject(QStringLiteral("/org"), &portal, QDBusConnection::SubPath);
    bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    runLoopFor(std::chrono::milliseconds(300));
    bus.unregisterObject(QStringLiteral("/org"));
    appearance.askPortal(); // which fails
    QGuiApplication::setPalette(QPalette(Qt::white));
    runLoopFor(std::chrono::milliseconds(300));
    std::cout << (appearance.isDark() ? "dark" : "light");
}

} // namespace
} // namespace fv2::test

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    fv2::test::appearance();
}
