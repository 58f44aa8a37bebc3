// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxTagMapper.h"

#include "base/Utf8.h"

#include <QStringDecoder>

#include <string_view>

namespace fv2 {

namespace {

bool isAscii(QByteArrayView bytes) {
    unsigned char all = 0;
    for (const char each : bytes)
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(each));
    return all < 0x80;
}

//! A byte order mark at the beginning is a character like any other: the scanner has counted it.
QString decoded(QByteArrayView utf8) {
    if (isAscii(utf8))
        return QString::fromLatin1(utf8); // widens even the last few bytes all at once
    return QStringDecoder(QStringDecoder::Utf8,
                          QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom)(utf8);
}

//! What stands in the first pair of double quotes behind "TITLE="; none without both.
std::optional<QString> toolTipOf(std::string_view tag) {
    const std::size_t title = tag.find("TITLE=");
    const std::size_t opening = title == std::string_view::npos ? title : tag.find('"', title);
    const std::size_t closing = opening == std::string_view::npos ? opening : tag.find('"', opening + 1);
    if (closing == std::string_view::npos)
        return std::nullopt;
    return decoded(tag.substr(opening + 1, closing - opening - 1));
}

//! The font at the start of a range, with one trait more, goes over the whole range; what a range inside has got from
//! its own tag stays with it.
void addTrait(NxAttributedString& text, int start, int end, bool NxAttributedString::Attributes::*trait) {
    if (start >= end || start >= text.length())
        return;
    const NxAttributedString::Attributes& first = text.attributesAt(start);
    text.change(start, end, [bold = first.bold, italic = first.italic, trait](NxAttributedString::Attributes& each) {
        each.bold |= bold;
        each.italic |= italic;
        each.*trait = true;
    });
}

} // namespace

QStringList mapTags(const std::vector<FV2Tag>& tags, NxAttributedString& text, const QColor& linkColor) {
    using Attributes = NxAttributedString::Attributes;
    QStringList buttons;
    for (const FV2Tag& each : tags) {
        const std::string_view tag = each.text;
        if (tag.starts_with("<BUTTON")) {
            buttons.push_back(decoded(tag));
            continue;
        }
        const int start = static_cast<int>(each.start);
        const int end = static_cast<int>(each.end.value_or(each.start));
        if (const auto toolTip = toolTipOf(tag))
            text.change(start, end, [&](Attributes& attributes) { attributes.toolTip = *toolTip; });
        if (tag.starts_with("<I"))
            addTrait(text, start, end, &Attributes::italic);
        if (tag.starts_with("<B"))
            addTrait(text, start, end, &Attributes::bold);
        if (tag.starts_with("<A"))
            text.change(start, end, [&, link = NxAttributedString::Link{decoded(tag), start}](Attributes& attributes) {
                attributes.link = link;
                attributes.pointingHand = true;
                if (linkColor.isValid())
                    attributes.textColor = linkColor;
            });
    }
    return buttons;
}

QStringList setAttrStr(NxAttributedString& target, const QString& markup, const std::optional<QFont>& font,
                       const QColor& fontColor, const QColor& linkColor) {
    const QByteArray bytes = markup.toUtf8();
    const FV2ScannedText scanned = scanTags({bytes.data(), static_cast<std::size_t>(bytes.size())});
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
    if (isAscii(bytes) || QByteArrayView(bytes).isValidUtf8())
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
