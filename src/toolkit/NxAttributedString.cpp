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
        m_runs.try_emplace(0);
}

const NxAttributedString::Attributes& NxAttributedString::attributesAt(int index) const {
    return std::prev(m_runs.upper_bound(index))->second;
}

void NxAttributedString::split(int at) {
    if (at < length())
        m_runs.try_emplace(at, attributesAt(at));
}

void NxAttributedString::change(int start, int end, const std::function<void(Attributes&)>& change) {
    const int from = std::max(start, 0);
    const int to = std::min(end, length());
    if (from >= to)
        return;
    split(from);
    split(to);
    for (auto run = m_runs.find(from); run != m_runs.end() && run->first < to; ++run)
        change(run->second);
}

void NxAttributedString::changeLinks(const std::function<void(Attributes&)>& change) {
    for (auto& [start, attributes] : m_runs)
        if (attributes.link)
            change(attributes);
}

std::vector<NxAttributedString::LinkRange> NxAttributedString::links() const {
    std::vector<LinkRange> all;
    const std::optional<Link>* before = nullptr;
    for (auto run = m_runs.begin(); run != m_runs.end(); ++run) {
        const auto next = std::next(run);
        const int end = next == m_runs.end() ? length() : next->first;
        const std::optional<Link>& link = run->second.link;
        if (link && before != nullptr && *before == link)
            all.back().end = end;
        else if (link)
            all.push_back({run->first, end, link->value});
        before = &link;
    }
    return all;
}

QList<QTextLayout::FormatRange> NxAttributedString::formats() const {
    QList<QTextLayout::FormatRange> all;
    for (auto run = m_runs.begin(); run != m_runs.end(); ++run) {
        const auto next = std::next(run);
        const int end = next == m_runs.end() ? length() : next->first;
        all.push_back({run->first, end - run->first, formatOf(run->second)});
    }
    return all;
}

} // namespace fv2
