// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0

// Prints what the platform's classes make of a process's environment.
#include "platform/FV2Appearance.h"
#include "platform/FV2DoNotDisturb.h"
#include "platform/FV2MediumDate.h"
#include "platform/FV2QtStrings.h"
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

void languages(const QString& tables) {
    std::cout << FV2QtStrings(FV2QtStrings::preferredLanguages(), tables).language().toStdString() << '\n';
}

void trayNeverComes() {
    int calls = 0;
    const FV2TrayWatcher tray([&calls] { ++calls; }, std::chrono::milliseconds(1));
    runLoopFor(std::chrono::milliseconds(50));
    std::cout << calls << " so far\n";
}

//! A settings portal of which dark windows are wanted, while it answers at all.
class Portal final : public QDBusVirtualObject {
public:
    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& question, const QDBusConnection& bus) override {
        const QVariant dark = QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(1U))));
        ++asked;
        return bus.send(works ? question.createReply(dark) : question.createErrorReply(QDBusError::Failed, {}));
    }
    int asked = 0;
    bool works = true;
};

void appearance() {
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));
    QDBusConnection stranger = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("stranger"));
    const auto daemon = static_cast<pid_t>(bus.interface()->servicePid(QStringLiteral("org.freedesktop.DBus")).value());
    static_cast<void>(QDBusConnection::sessionBus());
    ::kill(daemon, SIGSTOP);
    const Deadline patience(std::chrono::seconds(2));
    FV2Appearance appearance;
    const FV2DoNotDisturb doNotDisturb;
    const FV2TrayWatcher tray([] {});
    std::cout << (patience.passed() ? "waited, " : "");
    ::kill(daemon, SIGCONT);

    int changes = 0;
    QObject::connect(&appearance, &FV2Appearance::changed, [&changes] { ++changes; });
    const auto tell = [&] {
        runLoopFor(std::chrono::milliseconds(100));
        std::cout << (appearance.isDark() ? "dark " : "light ") << std::exchange(changes, 0) << ", ";
    };
    const auto sendLight = [](const QDBusConnection& from, const char* key) {
        from.send(QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                             QStringLiteral("org.freedesktop.portal.Settings"),
                                             QStringLiteral("SettingChanged"))
                  << QStringLiteral("org.freedesktop.appearance") << QString::fromUtf8(key)
                  << QVariant::fromValue(QDBusVariant(2U)));
    };
    const QString name = QStringLiteral("org.freedesktop.portal.Desktop");
    Portal portal;
    bus.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"), &portal);
    bus.registerService(name);
    runLoopUntil([&] { return appearance.isDark(); });
    tell();
    portal.works = false;
    appearance.askPortal();
    runLoopUntil([&] { return portal.asked == 2; });
    tell();
    sendLight(stranger, "color-scheme");
    sendLight(bus, "contrast");
    tell();
    sendLight(bus, "color-scheme");
    tell();
    QGuiApplication::setPalette(QPalette(Qt::black));
    tell();
    bus.unregisterService(name);
    tell();
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
    else if (what == "appearance")
        fv2::test::appearance();
    return 0;
}
