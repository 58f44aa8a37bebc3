// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2SupportContact.h"

#include "resources/FormatText.h"

#include <algorithm>
#include <string_view>

namespace fv2 {

namespace {

std::string withEntities(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else
            out += c;
    }
    return out;
}

//! "tel:" with the digits and a leading plus; empty for what nobody can dial.
std::string telephoneAddress(std::string_view phone) {
    std::string digits;
    for (const char c : phone)
        if ((c >= '0' && c <= '9') || (c == '+' && digits.empty()))
            digits += c;
    return std::ranges::count_if(digits, [](char c) { return c != '+'; }) < 3 ? std::string() : "tel:" + digits;
}

} // namespace

FV2SupportContact::Line FV2SupportContact::line(const OxStringBundle* strings, bool isMarkup) const {
    Line line;
    const auto add = [&line, isMarkup](const std::string& text, const std::string& address) {
        if (text.empty())
            return;
        if (!line.text.empty())
            line.text += ", ";
        if (isMarkup && !address.empty()) {
            line.text += "<A>" + withEntities(text) + "</A>";
            line.addresses.push_back(address);
        } else {
            line.text += isMarkup ? withEntities(text) : text;
        }
    };
    add(name, {});
    add(phone, telephoneAddress(phone));
    add(url, url.starts_with("https://") ? url : std::string());
    constexpr std::string_view kText = "IDUS_SUPPORT_CONTACT";
    if (!line.text.empty())
        line.text =
            formatText(strings == nullptr ? translatedText(kText) : translatedText(kText, *strings), {line.text});
    return line;
}

} // namespace fv2
