// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QFont>
#include <QSharedData>
#include <QString>
#include <QTextLayout>

#include <optional>
#include <span>
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
    //! What isn't set is up to the view.
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
    //! From `start` up to `end`, exclusive; clipped to the text.
    template <class Change>
    void change(int start, int end, Change change) {
        for (Run& each : runsWithin(start, end))
            change(each.shared->attributes);
    }
    template <class Change>
    void change(Change each) {
        change(0, length(), each);
    }
    //! The same for the ranges that have a link.
    template <class Change>
    void changeLinks(Change change) {
        for (Run& each : m_runs)
            if (each.attributes().link)
                change(each.shared->attributes);
    }

    //! From left to right.
    [[nodiscard]] std::vector<LinkRange> links() const;
    //! For a layout of the text; links are underlined.
    [[nodiscard]] QList<QTextLayout::FormatRange> formats() const;

    friend bool operator==(const NxAttributedString&, const NxAttributedString&) = default;

private:
    struct Shared : QSharedData {
        Attributes attributes;
    };
    //! Goes on up to the next one to its right. Shares its attributes with others until they are changed.
    struct Run {
        int start = 0;
        QSharedDataPointer<Shared> shared;

        [[nodiscard]] const Attributes& attributes() const { return shared.constData()->attributes; }
        friend bool operator==(const Run& left, const Run& right) {
            return left.start == right.start && left.attributes() == right.attributes();
        }
    };

    //! The runs of exactly this range, split from their neighbours.
    [[nodiscard]] std::span<Run> runsWithin(int start, int end);

    QString m_text;
    //! From right to left, as tags come, so that a cut moves few elements.
    std::vector<Run> m_runs;
};

} // namespace fv2
