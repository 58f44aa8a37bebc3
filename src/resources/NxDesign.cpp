// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/NxDesign.h"

#include <charconv>
#include <limits>
#include <pugixml.hpp>

namespace fv2 {

namespace {

constexpr NxRgba kBlack = NxRgba::from255(0, 0, 0);
constexpr std::size_t kLongestList = 1024 * 1024;
//! In the order of NxDesignColor.
constexpr std::array<const char*, 5> kKinds{"Red", "Green", "Blue", "Yellow", "Link"};

std::function<std::string()>& resourceOfSharedDesign() {
    static std::function<std::string()> resource;
    return resource;
}

pugi::xml_node nextElement(pugi::xml_node node) {
    while (!node.empty() && node.type() != pugi::node_element)
        node = node.next_sibling();
    return node;
}

//! The value that follows a key of a "dict" element; an empty node when it is of another type.
pugi::xml_node valueOf(const pugi::xml_node& dictionary, std::string_view key, std::string_view type) {
    for (const pugi::xml_node each : dictionary.children("key"))
        if (key == each.text().get()) {
            const pugi::xml_node value = nextElement(each.next_sibling());
            return value.name() == type ? value : pugi::xml_node();
        }
    return {};
}

//! Leading blanks and one "0x" are skipped, the first other character ends the number, one too long is the largest.
//! Zero when there is no number.
std::uint32_t scanHexadecimal(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    if (text.starts_with("0x") || text.starts_with("0X"))
        text.remove_prefix(2);
    std::uint32_t number = 0;
    const auto scanned = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    return scanned.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint32_t>::max() : number;
}

NxRgba colourOf(std::uint32_t number) {
    const auto component = [number](unsigned shift) { return static_cast<int>((number >> shift) & 255U); };
    return NxRgba::from255(component(16), component(8), component(0));
}

} // namespace

NxDesign::NxDesign(std::string_view propertyList) {
    pugi::xml_document document;
    if (propertyList.size() > kLongestList || !document.load_buffer(propertyList.data(), propertyList.size()))
        return;
    const pugi::xml_node colours = valueOf(document.child("plist").child("dict"), "Colors", "dict");
    for (std::size_t kind = 0; kind < kKinds.size(); ++kind)
        for (pugi::xml_node entry = nextElement(valueOf(colours, kKinds.at(kind), "array").first_child());
             !entry.empty(); entry = nextElement(entry.next_sibling())) {
            // A non-text keeps its place, so that later ones keep theirs.
            const bool isText = std::string_view(entry.name()) == "string";
            m_colours.at(kind).push_back(isText ? Entry(entry.text().get()) : Entry(kBlack));
        }
}

NxDesign& NxDesign::sharedDesign() {
    static NxDesign design(resourceOfSharedDesign() ? resourceOfSharedDesign()() : std::string());
    return design;
}

void NxDesign::setResource(std::function<std::string()> resource) {
    resourceOfSharedDesign() = std::move(resource);
}

NxRgba NxDesign::getDesignColor(NxDesignColor kind, std::size_t type) {
    const auto index = static_cast<std::size_t>(kind);
    if (index >= m_colours.size() || type >= m_colours.at(index).size())
        return kBlack;
    Entry& entry = m_colours.at(index).at(type);
    if (const auto* text = std::get_if<std::string>(&entry))
        entry = colourOf(scanHexadecimal(*text));
    return std::get<NxRgba>(entry);
}

} // namespace fv2
