// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/FV2TagScanner.h"
#include "toolkit/NxAttributedString.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace fv2 {

//! A text made of mark-up, and its button declarations: whole opening tags, newest first.
struct NxTextAndButtons {
    NxAttributedString attributedString;
    QStringList buttons;
};

//! Gives the ranges of the tags what these stand for; main thread only, like all in this header. A tag counts in
//! characters and the text in 16-bit units: each character beyond the first 65,536 before a tag shifts its range to the
//! left by one place. An empty range gets nothing. The cost grows with the number of tags times that of ranges: 2,000
//! tags nested in one another take 0.1 s. So this is for the application's own texts; the scanner alone may read any.
QStringList mapTags(const std::vector<FV2Tag>& tags, NxAttributedString& text, const QColor& linkColor);

//! Replaces text and attributes by those of the mark-up; no font or an invalid colour stands for none.
QStringList setAttrStr(NxAttributedString& target, const QString& markup, const std::optional<QFont>& font,
                       const QColor& fontColor, const QColor& linkColor);

[[nodiscard]] NxAttributedString prepareAttrStrWithHtml(const QString& markup, const std::optional<QFont>& font = {},
                                                        const QColor& fontColor = {}, const QColor& linkColor = {});
[[nodiscard]] NxTextAndButtons prepareAttrStrAndButtonsWithHtml(const QString& markup,
                                                                const std::optional<QFont>& font = {},
                                                                const QColor& fontColor = {},
                                                                const QColor& linkColor = {});

//! A text of the scanner for the screen. What is no UTF-8 is shown as U+FFFD, one for each character that the scanner
//! has counted, so that its positions stay true.
[[nodiscard]] QString textFromScanner(const std::string& bytes);

} // namespace fv2
