// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "resources/FV2TagScanner.h"

#include <gtest/gtest.h>

#include <vector>

namespace fv2::test {
namespace {

using namespace std::string_literals;

std::string times(std::size_t count, const std::string& text) {
    std::string all;
    for (; count > 0; --count)
        all += text;
    return all;
}

//! Each closed tag with its first and last position, newest first: "<B> 0-1, <A> 0-1".
std::string written(const std::vector<FV2Tag>& tags) {
    std::string all;
    for (const FV2Tag& tag : tags)
        all += (all.empty() ? "" : ", ") + tag.text + " " + std::to_string(tag.start) + "-" +
               std::to_string(tag.end.value_or(0));
    return all;
}

struct TagCase {
    std::string markup;
    std::string text;
    std::string tags;
    std::size_t capacity = kTagScannerCapacity;
};

TEST(TagScanner, TakesOutTagsAndDecodesEntities) {
    const std::vector<TagCase> table{
        {"a <B>b</B> c", "a b c", "<B> 2-3"},
        {"a\0<B>b</B>"s, "a", ""},
        // Where a tag begins and ends.
        {"a<b<c>d</c>", "a<bd", "<c> 3-4"},
        {"<<B>>x</B>>", "<>x>", "<B> 1-3"},
        {"<A x=\"&lt;\">y</A>", "y", "<A x=\"&lt;\"> 0-1"},
        // Closing tags: the newest that begins so, closed already or not; none leaves no trace.
        {"<B>x<BR>y</B>", "<B>xy", "<BR> 4-5"},
        {"<I>" + times(20, "<A>") + "x</I>" + times(20, "<U></A>"),
         "x" + times(19, "<U>") + "<U" + times(19, "<A>") + ">", "<A> 0-1, <I> 0-1"},
        // Unclosed tags go back: newest first, each moved right by the bytes of those before it.
        {"<\u00fc>a<B>b</B>", "<\u00fc>ab", "<B> 4-5"},
        // Characters, not bytes; also of what is cut or no UTF-8.
        {"\u00fc\U0001F512<B>\u00e9</B>", "\u00fc\U0001F512\u00e9", "<B> 2-3"},
        {"\x80\xC3<B>\xA9\xFF</B>", "\x80\xC3\xA9\xFF", "<B> 1-2"},
        // Entities; an "&" that begins none leaves the byte that the piece had there.
        {"&lt;&gt;&amp;&quot;&apos;", "<>&\"'", ""},
        {"&quot;&\u00fc&", "\"q\u00fct", ""},
        // Limits, and what is left after a failure.
        {times(4095, "x"), "", ""},
        {"<B>a</B>" + times(1023, "&lt;") + "xxx", "a", ""},
        {"a<A" + times(4091, "x") + ">b</A>", "ab", "<A" + times(4091, "x") + "> 1-2"},
        {"a<A" + times(4092, "x") + ">b</A>", "a", ""},
        {"a<B>b</B>", "a", "", 2},
        {"<B>b</B><X><Y>", "b<Y>", "", 7},
        {times(16, times(4094, "x") + "</B>") + times(31, "x"), times(16 * 4094, "x"), ""},
    };
    for (const TagCase& each : table) {
        const FV2ScannedText scanned = scanTags(each.markup, each.capacity);
        SCOPED_TRACE(each.markup.substr(0, 60));
        EXPECT_EQ(scanned.text, each.text);
        EXPECT_EQ(written(scanned.tags), each.tags);
    }
}

} // namespace
} // namespace fv2::test
