// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/LazyPrefixTree.h"

namespace fv2 {

namespace {

std::uint64_t childKey(LazyPrefixTree::Index node, char byte) {
    return std::uint64_t(node) << 8U | static_cast<unsigned char>(byte);
}

} // namespace

void LazyPrefixTree::add(std::string_view text) {
    m_texts.push_back({text, kNone});
    arrive(0, static_cast<Index>(m_texts.size() - 1));
}

void LazyPrefixTree::arrive(Index node, Index text) {
    Node& place = m_nodes[node];
    if (place.newest == kNone || place.newest < text)
        place.newest = text;
    m_texts[text].nextWaiting = place.waiting;
    place.waiting = text;
}

void LazyPrefixTree::pushDown(Index node, std::size_t depth) {
    Index text = m_nodes[node].waiting;
    m_nodes[node].waiting = kNone;
    while (text != kNone) {
        const Text& going = m_texts[text];
        const Index next = going.nextWaiting;
        if (going.bytes.size() > depth) {
            const auto [child, isNew] =
                m_children.try_emplace(childKey(node, going.bytes[depth]), static_cast<Index>(m_nodes.size()));
            if (isNew)
                m_nodes.emplace_back();
            arrive(child->second, text);
        }
        text = next;
    }
}

std::optional<LazyPrefixTree::Index> LazyPrefixTree::find(std::string_view beginning) {
    Index node = 0;
    for (std::size_t depth = 0; depth < beginning.size(); ++depth) {
        pushDown(node, depth);
        const auto child = m_children.find(childKey(node, beginning[depth]));
        if (child == m_children.end())
            return std::nullopt;
        node = child->second;
    }
    const Index newest = m_nodes[node].newest;
    return newest == kNone ? std::nullopt : std::optional(newest);
}

} // namespace fv2
