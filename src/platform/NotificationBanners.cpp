// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/NotificationBanners.h"

#include <QLibrary>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <gio/gio.h>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

namespace fv2 {

namespace {

//! A desktop by its name in XDG_CURRENT_DESKTOP, and where it keeps whether banners are shown.
struct Switch {
    std::string_view desktop;
    const char* schema;
    const char* key;
};

constexpr std::array<Switch, 2> kSwitches{{
    {"GNOME", "org.gnome.desktop.notifications", "show-banners"},
    {"X-Cinnamon", "org.cinnamon.desktop.notifications", "display-notifications"},
}};

//! GIO, loaded at the first call: only these desktops pay for it and its libraries.
class Gio {
    bool m_isWhole = true; // before the functions, each of which may make it false

public:
    //! Null where it is not installed.
    static const Gio* load() {
        static const Gio gio;
        return gio.m_isWhole ? &gio : nullptr;
    }

    decltype(&g_settings_schema_source_get_default) defaultSource = find("g_settings_schema_source_get_default");
    decltype(&g_settings_schema_source_lookup) lookUp = find("g_settings_schema_source_lookup");
    decltype(&g_settings_schema_has_key) hasKey = find("g_settings_schema_has_key");
    decltype(&g_settings_schema_unref) unrefSchema = find("g_settings_schema_unref");
    decltype(&g_settings_new_full) newSettings = find("g_settings_new_full");
    decltype(&g_settings_get_boolean) boolean = find("g_settings_get_boolean");
    decltype(&g_object_unref) unref = find("g_object_unref");

private:
    //! Any function, until it is cast to its type.
    struct Function {
        QFunctionPointer address;
        template <class Type>
        operator Type() const {
            return reinterpret_cast<Type>(address);
        }
    };

    Gio() = default;
    Function find(const char* name) {
        const QFunctionPointer address = QLibrary::resolve(QStringLiteral("gio-2.0"), 0, name);
        m_isWhole = m_isWhole && address != nullptr;
        return {address};
    }
};

bool isSessionOf(std::string_view desktop) {
    const char* const names = std::getenv("XDG_CURRENT_DESKTOP");
    std::istringstream list(names == nullptr ? "" : names);
    for (std::string name; std::getline(list, name, ':');)
        if (name == desktop)
            return true;
    return false;
}

bool isOff(const Switch& banners) {
    const Gio* const gio = Gio::load();
    if (gio == nullptr)
        return false;
    // A schema or key that is missing would end the process when the settings are made or read.
    GSettingsSchemaSource* const source = gio->defaultSource();
    if (source == nullptr)
        return false;
    const std::unique_ptr<GSettingsSchema, decltype(gio->unrefSchema)> schema(gio->lookUp(source, banners.schema, TRUE),
                                                                              gio->unrefSchema);
    if (!schema || gio->hasKey(schema.get(), banners.key) == FALSE)
        return false;
    const std::unique_ptr<GSettings, decltype(gio->unref)> settings(gio->newSettings(schema.get(), nullptr, nullptr),
                                                                    gio->unref);
    return gio->boolean(settings.get(), banners.key) == FALSE;
}

} // namespace

bool notificationBannersAreOff() {
    return std::any_of(kSwitches.begin(), kSwitches.end(),
                       [](const Switch& banners) { return isSessionOf(banners.desktop) && isOff(banners); });
}

} // namespace fv2
