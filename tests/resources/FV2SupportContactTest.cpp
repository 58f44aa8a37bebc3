// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2SupportContact.h"

#include "resources/FV2TagScanner.h"

#include <gtest/gtest.h>

namespace fv2::test {
namespace {

struct PlaceForContact final : OxStringBundle {
    std::string localizedString(const std::string& /*identifier*/) const override { return "Ask %1"; }
};

TEST(SupportContact, LinksOnlyWhatCanBeOpenedAndLosesNoCharacter) {
    using Addresses = std::vector<std::string>;
    static const PlaceForContact strings; // named for good
    OxTranslatedString::setApplicationBundle(strings);
    for (const auto& [contact, text, addresses] :
         {std::tuple(FV2SupportContact{}, "", Addresses{}),
          {{"R&D <it>", "", ""}, "Ask R&D <it>", {}},
          {{"", "+49 (30) 12-3", "https://it.example/?a&b"},
           "Ask +49 (30) 12-3, https://it.example/?a&b",
           {"tel:+4930123", "https://it.example/?a&b"}},
          {{"Desk", "ask me", "http://it.example"}, "Ask Desk, ask me, http://it.example", {}},
          {{"%1", "12", "file:///etc"}, "Ask %1, 12, file:///etc", {}}}) {
        EXPECT_EQ(contact.plainText(strings), text);
        const auto [markup, links] = contact.markup();
        EXPECT_EQ(links, addresses);
        const FV2ScannedText scanned = scanTags(markup);
        EXPECT_EQ(scanned.text, text);
        EXPECT_EQ(scanned.tags.size(), addresses.size());
    }
}

} // namespace
} // namespace fv2::test
