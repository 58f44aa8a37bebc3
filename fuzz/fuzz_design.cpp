// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Require.h"
#include "resources/NxDesign.h"

#include <cstdint>
#include <string>

namespace fv2::test {
namespace {

//! Reads digits one after the other, however many.
NxRgba colourOf(std::string text) {
    text.erase(0, text.find_first_not_of(" \t\r\n"));
    if (text.starts_with("0x") || text.starts_with("0X"))
        text.erase(0, 2);
    text.erase(std::min(text.find_first_not_of("0123456789abcdefABCDEF"), text.size()));
    text.erase(0, std::min(text.find_first_not_of('0'), text.size()));
    const unsigned long number = text.empty() ? 0 : text.size() > 8 ? 0xFFFFFFFF : std::stoul(text, nullptr, 16);
    const auto part = [number](unsigned shift) { return static_cast<int>((number >> shift) & 255U); };
    return NxRgba::from255(part(16), part(8), part(0));
}

void check(NxDesign design, const std::string& list) {
    // Behind a comment that is left open, what is added would close it.
    const bool open = list.rfind("<!--") != list.npos && list.find("-->", list.rfind("<!--")) == list.npos;
    NxDesign again(open ? list : list + "\n<!-- the same -->\n");
    for (int kind = 0; kind < 7; ++kind)
        for (std::size_t type = 0; type < 4; ++type) {
            const NxRgba colour = design.getDesignColor(NxDesignColor(kind), type);
            for (const double part : {colour.red, colour.green, colour.blue})
                require(part >= 0 && part <= 1);
            require(colour.alpha == 1 && design.getDesignColor(NxDesignColor(kind), type) == colour);
            require(kind < 5 || colour == NxRgba::from255(0, 0, 0));
            require(again.getDesignColor(NxDesignColor(kind), type) == colour || list.empty());
        }
}

} // namespace
} // namespace fv2::test

//! Any list, and one whose second entry is any text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace fv2;
    const std::string text(data, data + size);
    test::check(NxDesign(text), text);
    if (text.find_first_of(std::string("<&>\0", 4)) != text.npos)
        return 0;
    NxDesign made("<plist><dict><key>Colors</key><dict><key>Blue</key><array><data/><string>" + text +
                  "</string></array></dict></dict></plist>");
    test::require(made.getDesignColor(NxDesignColor::Blue, 1) == test::colourOf(text));
    return 0;
}
