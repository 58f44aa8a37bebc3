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

//! In runs from right to left: the one that holds the place.
auto runAt(auto& runs, int index) {
    return std::partition_point(runs.begin(), runs.end(), [index](const auto& run) { return run.start > index; });
}

} // namespace

NxAttributedString::NxAttributedString(QString text)
    : m_text(std::move(text)) {
    if (!m_text.isEmpty())
        m_runs.push_back({0, QSharedDataPointer(new Shared)});
}

const NxAttributedString::Attributes& NxAttributedString::attributesAt(int index) const {
    return runAt(m_runs, index)->attributes();
}

void NxAttributedString::split(int at) {
    if (const auto run = runAt(m_runs, at); run->start != at)
        m_runs.insert(run, {at, run->shared});
}

std::span<NxAttributedString::Run> NxAttributedString::runsWithin(int start, int end) {
    const int from = std::max(start, 0);
    const int to = std::min(end, length());
    if (from >= to)
        return {};
    if (to < length())
        split(to);
    split(from);
    return {runAt(m_runs, to - 1), std::next(runAt(m_runs, from))};
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
