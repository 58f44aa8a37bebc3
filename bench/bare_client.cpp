// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
//! Answers a notification, asks the service for token and status, and signals on the session bus what a tray item does
//! whose icon is new: the least that lies between a notification and the icon.
#include "bare_sockets.h"

#include <dbus/dbus.h>

namespace {

void signalNewIcon(DBusConnection* bus) {
    DBusMessage* const signal =
        ::dbus_message_new_signal("/StatusNotifierItem", "org.kde.StatusNotifierItem", "NewIcon");
    ::dbus_connection_send(bus, signal, nullptr);
    ::dbus_connection_flush(bus);
    ::dbus_message_unref(signal);
}

} // namespace

int main() {
    const std::string uid = std::to_string(::getuid());
    const std::string token = R"({ "command": "get_token", "uid" : )" + uid + "  }";
    const std::string status = R"({ "command": "get_status" , "uid" : )" + uid + " }";
    DBusConnection* const bus = ::dbus_bus_get(DBUS_BUS_SESSION, nullptr);
    if (bus == nullptr)
        return EXIT_FAILURE;
    const int listening = bare::listeningAt(bare::agentSocket());
    bare::exchange(token); // from now on the service notifies us
    for (;;) {
        bare::answerOne(listening);
        bare::exchange(token);
        bare::exchange(status);
        signalNewIcon(bus);
    }
}
