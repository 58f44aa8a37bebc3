// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2TagScanner.h"

#include "base/Utf8.h"
#include "resources/LazyPrefixTree.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>

namespace fv2 {

namespace {

constexpr std::size_t kSegmentLimit = 4095;
constexpr std::size_t kLongestTag = 4094;
//! The newest tags, up to this many, are compared one by one before the tree.
constexpr std::size_t kLooksBeforeTree = 8;

struct Entity {
    char character;
    std::string_view name;
};

//! The first matching row counts; the second "&amp;" is never reached.
constexpr std::array<Entity, 6> kEntities{{
    {'<', "&lt;"},
    {'>', "&gt;"},
    {'&', "&amp;"},
    {'&', "&amp;"},
    {'"', "&quot;"},
    {'\'', "&apos;"},
}};

const Entity* entityAtBeginningOf(std::string_view text) {
    for (const Entity& each : kEntities)
        if (text.size() >= each.name.size() && text[1] == each.name[1] && text.starts_with(each.name))
            return &each;
    return nullptr;
}

//! An "&" that begins no entity writes nothing: its place keeps the byte that the segment had there, a different one
//! once an earlier entity has shortened the text.
void appendDecoded(std::string_view segment, std::string& text) {
    const std::size_t before = text.size();
    for (std::size_t read = 0; read < segment.size();) {
        if (segment[read] != '&') {
            const std::size_t mark = std::min(segment.find('&', read), segment.size());
            text.append(segment, read, mark - read);
            read = mark;
        } else if (const Entity* const entity = entityAtBeginningOf(segment.substr(read))) {
            text += entity->character;
            read += entity->name.size();
        } else {
            text += segment[text.size() - before];
            ++read;
        }
    }
}

struct OpenedTag {
    std::string_view text;
    std::size_t start;
    std::size_t byteOffset;
    std::optional<std::size_t> end;
};

class Scan {
public:
    Scan(std::string_view markup, std::size_t capacity)
        : m_rest(markup)
        , m_capacity(capacity) {
        m_text.reserve(std::min(markup.size(), capacity));
    }

    FV2ScannedText run() {
        const bool complete = readAll() && putUnclosedBack();
        return {std::move(m_text), complete ? closedTags() : std::vector<FV2Tag>()};
    }

private:
    bool readAll() {
        while (!m_rest.empty()) {
            const std::string_view tag = nextTag();
            if (!append(m_rest.substr(0, static_cast<std::size_t>(tag.data() - m_rest.data()))))
                return false;
            if (tag.empty())
                return true;
            if (tag.size() > kLongestTag)
                return false;
            if (tag[1] == '/')
                close(tag.substr(2, tag.size() - 3));
            else
                open(tag);
            m_rest.remove_prefix(static_cast<std::size_t>(tag.data() - m_rest.data()) + tag.size());
        }
        return true;
    }

    //! An empty one at the end of the text when there is none.
    [[nodiscard]] std::string_view nextTag() const {
        const std::size_t first = m_rest.find('<');
        const std::size_t last = first == std::string_view::npos ? first : m_rest.find('>', first);
        if (last == std::string_view::npos)
            return m_rest.substr(m_rest.size());
        const auto* const begin = static_cast<const char*>(::memrchr(m_rest.data() + first, '<', last - first));
        return {begin, m_rest.data() + last + 1};
    }

    bool append(std::string_view segment) {
        if (segment.size() >= kSegmentLimit)
            return false;
        const std::size_t before = m_text.size();
        appendDecoded(segment, m_text);
        if (m_text.size() + 1 > m_capacity) {
            m_text.resize(before);
            return false;
        }
        m_characters += charactersIn(std::string_view(m_text).substr(before));
        return true;
    }

    void open(std::string_view tag) { m_tags.push_back({tag, m_characters, m_text.size(), std::nullopt}); }

    void close(std::string_view name) {
        for (std::size_t back = 1; back <= std::min(m_tags.size(), kLooksBeforeTree); ++back)
            if (OpenedTag& tag = m_tags[m_tags.size() - back]; tag.text.substr(1).starts_with(name)) {
                tag.end = m_characters;
                return;
            }
        if (m_tags.size() <= kLooksBeforeTree)
            return;
        if (!m_tree)
            m_tree.emplace();
        for (; m_tagsInTree < m_tags.size(); ++m_tagsInTree)
            m_tree->add(m_tags[m_tagsInTree].text.substr(1));
        if (const auto found = m_tree->find(name))
            m_tags[*found].end = m_characters;
    }

    //! Newest first, each at its own place moved right by the bytes put back before it, which come from further right
    //! in the text: tags of one place stand in reverse, and an older one may even land inside a newer one.
    //! From right to left these places never turn back, so a text with a gap at the place takes each byte once.
    bool putUnclosedBack() {
        std::vector<std::size_t> putBack;
        std::size_t size = m_text.size();
        bool allFit = true;
        for (std::size_t index = m_tags.size(); index-- > 0 && allFit;) {
            if (m_tags[index].end)
                continue;
            allFit = size + m_tags[index].text.size() < m_capacity;
            if (allFit) {
                size += m_tags[index].text.size();
                putBack.push_back(index);
            }
        }
        if (!putBack.empty())
            insert(putBack, size);
        return allFit;
    }

    void insert(const std::vector<std::size_t>& putBack, std::size_t size) {
        const std::size_t textSize = m_text.size();
        std::string whole(size, '\0');
        std::size_t gapEnd = size;
        for (const std::size_t index : putBack) {
            const OpenedTag& tag = m_tags[index];
            const std::size_t behind = textSize - tag.byteOffset;
            const std::size_t moved = behind - (size - gapEnd);
            gapEnd -= moved;
            m_text.copy(whole.data() + gapEnd, moved, m_text.size() - moved);
            m_text.resize(m_text.size() - moved);
            m_text += tag.text;
        }
        m_text.copy(whole.data(), gapEnd);
        m_text = std::move(whole);
    }

    //! Each unclosed tag that began before a tag moves it to the right; one that began at the same place moves neither
    //! it nor its end.
    [[nodiscard]] std::vector<FV2Tag> closedTags() const {
        std::vector<FV2Tag> closed;
        closed.reserve(m_tags.size());
        std::size_t before = 0; // characters of unclosed tags that began before `place`
        std::size_t atPlace = 0;
        std::size_t place = 0;
        for (const OpenedTag& tag : m_tags) {
            if (tag.start != place) {
                before += atPlace;
                atPlace = 0;
                place = tag.start;
            }
            if (tag.end)
                closed.push_back({std::string(tag.text), tag.start + before, tag.byteOffset, *tag.end + before});
            else
                atPlace += charactersIn(tag.text);
        }
        std::ranges::reverse(closed);
        return closed;
    }

    std::string_view m_rest;
    std::size_t m_capacity;
    std::string m_text;
    std::size_t m_characters = 0;
    std::vector<OpenedTag> m_tags; //!< oldest first
    std::optional<LazyPrefixTree> m_tree;
    std::size_t m_tagsInTree = 0;
};

} // namespace

FV2ScannedText scanTags(std::string_view markup, std::size_t capacity) {
    if (capacity == 0)
        return {};
    return Scan(markup.substr(0, markup.find('\0')), capacity).run();
}

std::string textWithoutLinks(std::string_view markup) {
    const std::size_t line = markup.rfind('\n');
    if (line != std::string_view::npos && markup.substr(line + 1).starts_with("<A") && markup.ends_with("</A>"))
        markup = markup.substr(0, line);
    return scanTags(markup).text;
}

} // namespace fv2
