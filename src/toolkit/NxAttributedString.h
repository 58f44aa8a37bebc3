// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QTextLayout>

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace fv2 {

//! A text and what its ranges look like and stand for: a value, copied where it goes. Positions count 16-bit units.
//! Main thread only, as fonts are.
class NxAttributedString {
public:
    struct Link {
        QString value;
        int start = 0; //!< of the range that it was given for; tells neighbours of the same value apart

        friend bool operator==(const Link&, const Link&) = default;
    };
    //! What isn't set is left to who shows the text.
    struct Attributes {
        std::optional<QFont> font;
        bool bold = false;
        bool italic = false;
        QColor textColor;
        QString toolTip;
        std::optional<Link> link;
        bool pointingHand = false;

        friend bool operator==(const Attributes&, const Attributes&) = default;
    };
    struct LinkRange {
        int start;
        int end;
        QString value;
    };

    NxAttributedString() = default;
    explicit NxAttributedString(QString text);

    [[nodiscard]] const QString& string() const { return m_text; }
    [[nodiscard]] int length() const { return static_cast<int>(m_text.size()); }

    //! Of a place in the text.
    [[nodiscard]] const Attributes& attributesAt(int index) const;
    //! From `start` up to but without `end`; what lies outside of the text is left out.
    void change(int start, int end, const std::function<void(Attributes&)>& change);
    void change(const std::function<void(Attributes&)>& each) { change(0, length(), each); }
    //! The same for the ranges that have a link.
    void changeLinks(const std::function<void(Attributes&)>& change);

    //! From left to right.
    [[nodiscard]] std::vector<LinkRange> links() const;
    //! For a layout of the text; links are underlined.
    [[nodiscard]] QList<QTextLayout::FormatRange> formats() const;

    friend bool operator==(const NxAttributedString&, const NxAttributedString&) = default;

private:
    void split(int at);

    QString m_text;
    std::map<int, Attributes> m_runs; //!< by first place; each goes on up to the next one
};

} // namespace fv2
