// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/NxRgba.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace fv2 {

enum class NxDesignColor : std::uint8_t { Red, Green, Blue, Yellow, Link };

//! The colours of badges and links, from a property list: "Colors" holds an array of hexadecimal texts for each kind.
//! Entry 0 suits dark surfaces, entry 1 light ones. Screens read the links' through FV2AppConfigModel, and none the
//! badges' (toolkit/extras). Made on any thread, read on the main thread only.
class NxDesign {
public:
    //! A list that can't be read, or is longer than 1 MiB, is one without colours.
    explicit NxDesign(std::string_view propertyList);

    //! The program's own, made from the resource at the first call. Any thread may make it.
    [[nodiscard]] static NxDesign& sharedDesign();
    //! Sets where sharedDesign() gets its property list; once, before a second thread starts.
    static void setResource(std::function<std::string()> resource);

    //! Entry `type` of a kind; black when there is none, or when it is no hexadecimal text.
    [[nodiscard]] NxRgba getDesignColor(NxDesignColor kind, std::size_t type = 0);

private:
    //! The text that the list holds, until it is first asked for.
    using Entry = std::variant<std::string, NxRgba>;
    std::array<std::vector<Entry>, 5> m_colours;
};

} // namespace fv2
