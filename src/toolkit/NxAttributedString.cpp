// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxAttributedString.h"

#include <algorithm>

namespace fv2 {

namespace {

QTextCharFormat formatOf(const NxAttributedString::Attributes& attributes) {
    QTextCharFormat format;
    if (attributes.font)
        format.setFont(*attributes.font, QTextCharFormat::FontPropertiesSpecifiedOnly);
    if (attributes.bold)
        format.setFontWeight(QFont::Bold);
    if (attributes.italic)
        format.setFontItalic(true);
    if (attributes.textColor.isValid())
        format.setForeground(attributes.textColor);
    if (attributes.link)
        format.setFontUnderline(true);
    return format;
}

} // namespace

NxAttributedString::NxAttributedString(QString text)
    : m_text(std::move(text)) {
    if (!m_text.isEmpty())
        m_runs.push_back({0, QSharedDataPointer(new Shared)});
}

const NxAttributedString::Attributes& NxAttributedString::attributesAt(int index) const {
    return std::ranges::partition_point(m_runs, [index](const Run& run) { return run.start > index; })->attributes();
}

std::span<NxAttributedString::Run> NxAttributedString::runsWithin(int start, int end) {
    const int from = std::max(start, 0);
    const int to = std::min(end, length());
    if (from >= to)
        return {};
    auto first = std::prev(m_runs.end());
    while (first != m_runs.begin() && std::prev(first)->start <= from)
        --first;
    if (first->start != from)
        first = m_runs.insert(first, {from, first->shared});
    auto last = first;
    while (last != m_runs.begin() && std::prev(last)->start < to)
        --last;
    const auto count = static_cast<std::size_t>(first - last) + 1;
    const int next = last == m_runs.begin() ? length() : std::prev(last)->start;
    if (next != to)
        last = std::next(m_runs.insert(last, {to, last->shared}));
    return {last, count};
}

std::vector<NxAttributedString::LinkRange> NxAttributedString::links() const {
    std::vector<LinkRange> all;
    const std::optional<Link>* before = nullptr;
    for (auto run = m_runs.rbegin(); run != m_runs.rend(); ++run) {
        const auto next = std::next(run);
        const int end = next == m_runs.rend() ? length() : next->start;
        const std::optional<Link>& link = run->attributes().link;
        if (link && before != nullptr && *before == link)
            all.back().end = end;
        else if (link)
            all.push_back({run->start, end, link->value});
        before = &link;
    }
    return all;
}

QList<QTextLayout::FormatRange> NxAttributedString::formats() const {
    QList<QTextLayout::FormatRange> all;
    for (auto run = m_runs.rbegin(); run != m_runs.rend(); ++run) {
        const auto next = std::next(run);
        const int end = next == m_runs.rend() ? length() : next->start;
        all.push_back({run->start, end - run->start, formatOf(run->attributes())});
    }
    return all;
}

} // namespace fv2
