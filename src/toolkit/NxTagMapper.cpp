// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxTagMapper.h"

#include "base/Utf8.h"

#include <QStringDecoder>

namespace fv2 {

namespace {

//! What stands in the first pair of double quotes behind "TITLE="; none without both.
std::optional<QString> toolTipOf(const QString& tag) {
    const qsizetype title = tag.indexOf(QLatin1String("TITLE="));
    if (title < 0)
        return std::nullopt;
    const qsizetype opening = tag.indexOf(u'"', title);
    const qsizetype closing = opening < 0 ? opening : tag.indexOf(u'"', opening + 1);
    return closing < 0 ? std::nullopt : std::optional(tag.mid(opening + 1, closing - opening - 1));
}

//! The font at the start of a range, with one trait more, goes over the whole range; what a range inside has got from
//! its own tag stays with it.
void addTrait(NxAttributedString& text, int start, int end, bool NxAttributedString::Attributes::*trait) {
    if (start >= end || start >= text.length())
        return;
    const NxAttributedString::Attributes first = text.attributesAt(start);
    text.change(start, end, [&](NxAttributedString::Attributes& each) {
        each.bold |= first.bold;
        each.italic |= first.italic;
        each.*trait = true;
    });
}

} // namespace

QStringList mapTags(const std::vector<FV2Tag>& tags, NxAttributedString& text, const QColor& linkColor) {
    using Attributes = NxAttributedString::Attributes;
    QStringList buttons;
    for (const FV2Tag& each : tags) {
        const QString tag = QString::fromStdString(each.text);
        if (tag.startsWith(QLatin1String("<BUTTON"))) {
            buttons.push_back(tag);
            continue;
        }
        const int start = static_cast<int>(each.start);
        const int end = static_cast<int>(each.end.value_or(each.start));
        if (const auto toolTip = toolTipOf(tag))
            text.change(start, end, [&](Attributes& attributes) { attributes.toolTip = *toolTip; });
        if (tag.startsWith(QLatin1String("<I")))
            addTrait(text, start, end, &Attributes::italic);
        if (tag.startsWith(QLatin1String("<B")))
            addTrait(text, start, end, &Attributes::bold);
        if (tag.startsWith(QLatin1String("<A")))
            text.change(start, end, [&](Attributes& attributes) {
                attributes.link = {tag, start};
                attributes.pointingHand = true;
                if (linkColor.isValid())
                    attributes.textColor = linkColor;
            });
    }
    return buttons;
}

QStringList setAttrStr(NxAttributedString& target, const QString& markup, const std::optional<QFont>& font,
                       const QColor& fontColor, const QColor& linkColor) {
    const FV2ScannedText scanned = scanTags(markup.toStdString());
    target = NxAttributedString(textFromScanner(scanned.text));
    target.change([&](NxAttributedString::Attributes& attributes) {
        attributes.font = font;
        attributes.textColor = fontColor;
    });
    return mapTags(scanned.tags, target, linkColor);
}

NxAttributedString prepareAttrStrWithHtml(const QString& markup, const std::optional<QFont>& font,
                                          const QColor& fontColor, const QColor& linkColor) {
    return prepareAttrStrAndButtonsWithHtml(markup, font, fontColor, linkColor).attributedString;
}

NxTextAndButtons prepareAttrStrAndButtonsWithHtml(const QString& markup, const std::optional<QFont>& font,
                                                  const QColor& fontColor, const QColor& linkColor) {
    NxTextAndButtons made;
    made.buttons = setAttrStr(made.attributedString, markup, font, fontColor, linkColor);
    return made;
}

QString textFromScanner(const std::string& bytes) {
    // A byte order mark at the beginning is a character like any other: the scanner has counted it.
    const auto decoded = [](QByteArrayView utf8) -> QString {
        return QStringDecoder(QStringDecoder::Utf8,
                              QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom)(utf8);
    };
    if (QByteArrayView(bytes).isValidUtf8())
        return decoded(bytes);
    QString text;
    for (std::size_t begin = 0, end = 0; begin < bytes.size(); begin = end) {
        for (end = begin + 1; end < bytes.size() && !beginsCharacter(bytes[end]);)
            ++end;
        const QByteArrayView character(bytes.data() + begin, static_cast<qsizetype>(end - begin));
        if (beginsCharacter(bytes[begin]))
            text += character.isValidUtf8() ? decoded(character) : QString(QChar::ReplacementCharacter);
    }
    return text;
}

} // namespace fv2
