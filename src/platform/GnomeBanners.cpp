// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/GnomeBanners.h"

#include <cstdlib>
#include <gio/gio.h>
#include <memory>
#include <sstream>
#include <string>

namespace fv2 {

namespace {

constexpr const char* kSchema = "org.gnome.desktop.notifications";
constexpr const char* kKey = "show-banners";

struct Unref {
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
    void operator()(GSettings* settings) const { g_object_unref(settings); }
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
    // A schema or key that is missing would end the process in g_settings_new() and g_settings_get_boolean().
    GSettingsSchemaSource* const source = g_settings_schema_source_get_default();
    if (source == nullptr)
        return false;
    const std::unique_ptr<GSettingsSchema, Unref> schema(g_settings_schema_source_lookup(source, kSchema, TRUE));
    if (!schema || g_settings_schema_has_key(schema.get(), kKey) == FALSE)
        return false;
    const std::unique_ptr<GSettings, Unref> settings(g_settings_new_full(schema.get(), nullptr, nullptr));
    return g_settings_get_boolean(settings.get(), kKey) == FALSE;
}

} // namespace fv2
