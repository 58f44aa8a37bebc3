// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

#include <map>
#include <set>
#include <utility>

namespace fv2::looks {

//! What is to be seen in windows, kept by the part's name over all combinations, and what is not as it should be.
class Measures {
public:
    //! Texts, signs and controls of a window that is shown; `where` names the combination in a fault.
    void take(QWidget& window, const QString& where);
    //! Gives each control the keyboard, one after the other, and compares the pictures.
    void takeFocus(QWidget& window, const QString& where);

    //! Prints all tables; whether there was no fault.
    [[nodiscard]] bool print() const;

private:
    struct Range {
        double least = 1e9;
        double most = -1e9;
        void add(double value) {
            least = std::min(least, value);
            most = std::max(most, value);
        }
    };
    void takeContrast(const QImage& shown, const QWidget& window, const QWidget& part, double least,
                      const QString& where);
    void takeRoom(const QWidget& window, const QWidget& part, const QString& where);
    void takeEdges(const QWidget& window, const QWidget& part, const QString& where);
    void fault(const QString& where, const QWidget& part, const QString& what);

    std::map<QString, std::pair<double, Range>> m_contrasts; //!< with the least that there may be
    std::map<QString, Range> m_edges;
    std::map<QString, Range> m_focus; //!< contrast of what changes
    std::set<QString> m_faults;
    int m_parts = 0;
};

} // namespace fv2::looks
