// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/GnomeBanners.h"

#include <QLibrary>

#include <cstdlib>
#include <gio/gio.h>
#include <memory>
#include <sstream>
#include <string>

namespace fv2 {

namespace {

constexpr const char* kSchema = "org.gnome.desktop.notifications";
constexpr const char* kKey = "show-banners";

//! GIO, loaded by the first who asks: no session but GNOME's pays for it and for the libraries that it brings.
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
    //! Any function, until it is put where its type is known.
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

bool isGnomeSession() {
    const char* const names = std::getenv("XDG_CURRENT_DESKTOP");
    std::istringstream list(names == nullptr ? "" : names);
    for (std::string name; std::getline(list, name, ':');)
        if (name == "GNOME")
            return true;
    return false;
}

} // namespace

bool gnomeBannersAreOff() {
    if (!isGnomeSession())
        return false;
    const Gio* const gio = Gio::load();
    if (gio == nullptr)
        return false;
    // A schema or key that is missing would end the process when the settings are made or read.
    GSettingsSchemaSource* const source = gio->defaultSource();
    if (source == nullptr)
        return false;
    const std::unique_ptr<GSettingsSchema, decltype(gio->unrefSchema)> schema(gio->lookUp(source, kSchema, TRUE),
                                                                              gio->unrefSchema);
    if (!schema || gio->hasKey(schema.get(), kKey) == FALSE)
        return false;
    const std::unique_ptr<GSettings, decltype(gio->unref)> settings(gio->newSettings(schema.get(), nullptr, nullptr),
                                                                    gio->unref);
    return gio->boolean(settings.get(), kKey) == FALSE;
}

} // namespace fv2
