// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace fv2 {

//! Finds the newest of many texts that begins with given bytes. A prefix tree that is built lazily: each text is
//! inserted only as deep as a query needs, each of its bytes at most once. So all queries together cost no more than
//! the bytes of all texts and queries. The texts must outlive it.
class LazyPrefixTree {
public:
    using Index = std::uint32_t; //!< of a text, in the order in which they came

    void add(std::string_view text);
    [[nodiscard]] std::optional<Index> find(std::string_view beginning);

private:
    static constexpr Index kNone = ~Index(0);

    struct Text {
        std::string_view bytes;
        Index nextWaiting;
    };
    struct Node {
        Index newest = kNone;  //!< of the texts that came as far as here
        Index waiting = kNone; //!< the first of those that have not gone on yet
    };

    void arrive(Index node, Index text);
    void pushDown(Index node, std::size_t depth);

    std::vector<Text> m_texts;
    std::vector<Node> m_nodes{Node()};
    std::unordered_map<std::uint64_t, Index> m_children; //!< by parent and byte
};

} // namespace fv2
