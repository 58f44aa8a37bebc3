// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2HelpAddress.h"

#include <algorithm>
#include <array>

namespace fv2 {

namespace {

struct HelpLanguage {
    std::string_view localization;
    std::string_view code;
};

constexpr std::array<HelpLanguage, 25> kHelpLanguages{{
    {"cs", "1029"},      {"da", "1030"}, {"de", "1031"},    {"el", "1032"},      {"en", "1033"},
    {"es-419", "13322"}, {"es", "3082"}, {"fi", "1035"},    {"fr-CA", "3084"},   {"fr", "1036"},
    {"hr-HR", "1050"},   {"id", "1057"}, {"it", "1040"},    {"ja", "1041"},      {"ko", "1042"},
    {"nb", "1044"},      {"pl", "1045"}, {"pt-BR", "1046"}, {"ru", "1049"},      {"sk", "1051"},
    {"sv", "1053"},      {"tr", "1055"}, {"uk", "1058"},    {"zh-Hans", "2052"}, {"zh-Hant", "1028"},
}};

constexpr std::string_view kEnglish = "1033";

constexpr int kLargestPort = 65535;

bool isHost(std::string_view host) {
    constexpr std::string_view allowed = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-";
    constexpr std::string_view digits = "0123456789";
    const std::string_view name = host.substr(0, host.find(':'));
    const std::string_view port = host.substr(std::min(name.size() + 1, host.size()));
    const bool portIsGood = name.size() == host.size() ||
                            (!port.empty() && port.size() <= 5 && port.find_first_not_of(digits) == port.npos &&
                             std::stoi(std::string(port)) <= kLargestPort);
    return !name.empty() && name.front() != '-' && name.front() != '.' &&
           name.find_first_not_of(allowed) == name.npos && portIsGood;
}

} // namespace

std::string helpLanguageCode(std::string_view localization) {
    std::string name(localization);
    std::replace(name.begin(), name.end(), '_', '-');
    const auto* const found =
        std::find_if(kHelpLanguages.begin(), kHelpLanguages.end(),
                     [&name](const HelpLanguage& language) { return language.localization == name; });
    return std::string(found == kHelpLanguages.end() ? kEnglish : found->code);
}

std::string helpAddress(std::string_view host, std::string_view localization) {
    const bool isAddress = host.starts_with("https://");
    if (!isAddress && !isHost(host))
        return {};
    return (isAddress ? "" : "http://") + std::string(host) +
           "/getHelp?product=orm_client&version=5&lang=" + helpLanguageCode(localization) + "&topic=index";
}

} // namespace fv2
