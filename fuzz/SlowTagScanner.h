// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/FV2TagScanner.h"

#include <algorithm>
#include <list>

namespace fv2::test {

//! The tag scanner one rule after the other, each in the plainest way, however long it takes.
inline FV2ScannedText scanTagsSlowly(const std::string& input, std::size_t capacity) {
    const auto count = [](const std::string& text) {
        std::size_t characters = 0;
        for (const char byte : text)
            characters += (byte & 0xC0) != 0x80 ? 1U : 0U;
        return characters;
    };
    const auto decode = [](std::string segment) { // edited in place
        std::size_t read = 0;
        std::size_t write = 0;
        while (read < segment.size()) {
            std::size_t length = 1;
            if (segment[read] != '&')
                segment[write] = segment[read];
            else
                for (const auto& [name, character] :
                     {std::pair("&lt;", '<'), {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}})
                    if (segment.compare(read, std::string(name).size(), name) == 0) {
                        segment[write] = character;
                        length = std::string(name).size();
                        break;
                    }
            read += length;
            ++write;
        }
        return segment.substr(0, write);
    };

    FV2ScannedText result;
    std::string& buffer = result.text;
    if (capacity == 0)
        return result;
    const std::string markup = input.c_str();
    std::list<FV2Tag> tags; // newest first
    std::size_t position = 0;
    while (position < markup.size()) {
        std::size_t from = markup.find('<', position);
        const std::size_t to = from == std::string::npos ? from : markup.find('>', from);
        const bool hasTag = to != std::string::npos;
        for (std::size_t at = position; hasTag && at < to; ++at)
            if (markup[at] == '<')
                from = at;
        const std::string raw = markup.substr(position, hasTag ? from - position : std::string::npos);
        const std::string segment = decode(raw);
        if (raw.size() >= 4095 || buffer.size() + segment.size() + 1 > capacity)
            return result;
        buffer += segment;
        if (!hasTag)
            break;
        const std::string tag = markup.substr(from, to + 1 - from);
        if (tag.size() > 4094)
            return result;
        if (tag[1] == '/') {
            const std::string wanted = "<" + tag.substr(2, tag.size() - 3);
            const auto found =
                std::ranges::find_if(tags, [&](const FV2Tag& each) { return each.text.find(wanted) == 0; });
            if (found != tags.end())
                found->end = count(buffer);
        } else {
            tags.push_front({tag, count(buffer), buffer.size(), std::nullopt});
        }
        position = to + 1;
    }

    std::size_t putBack = 0;
    for (const FV2Tag& unclosed : tags) {
        if (unclosed.end)
            continue;
        if (buffer.size() + unclosed.text.size() >= capacity)
            return result;
        buffer.insert(unclosed.byteOffset + putBack, unclosed.text);
        putBack += unclosed.text.size();
        for (FV2Tag& each : tags)
            if (each.start > unclosed.start) {
                each.start += count(unclosed.text);
                if (each.end)
                    *each.end += count(unclosed.text);
            }
    }
    std::ranges::copy_if(tags, std::back_inserter(result.tags),
                         [](const FV2Tag& each) { return each.end.has_value(); });
    return result;
}

} // namespace fv2::test
