// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/OxTranslatedString.h"

#include <string>
#include <vector>

namespace fv2 {

//! Who helps the users of this computer, as the administrator has set it; what is empty is not set.
struct FV2SupportContact {
    std::string name = {};
    std::string phone = {}; //!< as people write it
    std::string url = {};   //!< a page of the support's; no link unless it begins with "https://"

    //! Text, or mark-up for scanTags() with a link for each address.
    struct Line {
        std::string text;
        std::vector<std::string> addresses; //!< of the links, in their order; none in plain text
    };

    //! One line that names all that is set; empty when nothing is.
    [[nodiscard]] std::string plainText(const OxStringBundle& strings) const { return line(&strings, false).text; }
    //! In the application's language.
    [[nodiscard]] Line markup() const { return line(nullptr, true); }

private:
    [[nodiscard]] Line line(const OxStringBundle* strings, bool isMarkup) const;
};

} // namespace fv2
