// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxHtmlText.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

#include <vector>

namespace fv2 {

namespace {

//! Loads no external resources.
class ClosedDocument final : public QTextDocument {
protected:
    QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return {}; }
};

} // namespace

NxAttributedString attributedStringFromHtml(const QString& html, const QFont& font, const QColor& colour) {
    ClosedDocument document;
    document.setDefaultFont(font);
    document.setHtml(QStringLiteral("<html><body>") + html + QStringLiteral("</body></html>"));

    QString text;
    std::vector<std::pair<qsizetype, QTextCharFormat>> ends;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block != document.begin())
            text += u'\n';
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            QString letters = part.fragment().text();
            letters.remove(QChar::ObjectReplacementCharacter).replace(QChar::LineSeparator, u'\n');
            text += letters;
            ends.emplace_back(text.size(), part.fragment().charFormat());
        }
    }

    NxAttributedString styled(text);
    int start = 0;
    for (const auto& [end, format] : ends) {
        styled.change(start, static_cast<int>(end), [&, &style = format](NxAttributedString::Attributes& attributes) {
            const bool ownColour = style.hasProperty(QTextFormat::ForegroundBrush) && !style.isAnchor();
            attributes.font = style.font();
            if (style.isAnchor())
                attributes.font->setUnderline(false);
            attributes.textColor = ownColour ? style.foreground().color() : colour.isValid() ? colour : Qt::black;
        });
        start = static_cast<int>(end);
    }
    return styled;
}

} // namespace fv2
