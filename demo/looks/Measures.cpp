// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Measures.h"

#include "toolkit/NxButton.h"
#include "toolkit/NxImageButton.h"
#include "toolkit/NxImageView.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxScrollView.h"
#include "toolkit/NxTextAndLinksView.h"
#include "toolkit/NxTextField.h"

#include <QApplication>
#include <QFontInfo>
#include <QHash>
#include <QLineEdit>
#include <QTest>

#include <cstdio>

namespace fv2::looks {

namespace {

constexpr double kOfText = 4.5;
constexpr double kOfLargeText = 3; //!< bold ones from 14 points on
constexpr double kOfSigns = 3;
// Where titles and texts begin, and where signs have their middle, in the main window.
constexpr int kTextEdge = 282;
constexpr int kSignMiddle = 250;
constexpr int kLeastFocusPixels = 12;

const QStringList kTextsOnEdge{"statusLineText", "fieldTitle", "statusMessageTitle", "subview"};
const QStringList kSignsInMiddle{"statusLineIcon", "headerIcon", "sign"};

QString nameOf(const QWidget& part) {
    if (!part.objectName().isEmpty() && !part.objectName().startsWith("qt_"))
        return part.objectName();
    const QString own = QString(part.metaObject()->className()).section(':', -1);
    const QString around = part.parentWidget() == nullptr ? QString() : nameOf(*part.parentWidget());
    return around + '/' + own;
}

QRect placeIn(const QWidget& window, const QWidget& part) {
    return {part.mapTo(&window, QPoint()), part.size()};
}

//! The part of a place that nothing scrolls away.
QRect seen(const QWidget& window, const QWidget& part) {
    QRect place = placeIn(window, part);
    for (const QWidget* around = part.parentWidget(); around != nullptr && around != &window;
         around = around->parentWidget())
        place &= placeIn(window, *around);
    return place & window.rect();
}

QRgb commonest(const QImage& picture) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    return std::max_element(counts.keyValueBegin(), counts.keyValueEnd(),
                            [](const auto& one, const auto& other) { return one.second < other.second; })
        ->first;
}

bool scrolls(const QWidget& part) {
    for (const QWidget* around = part.parentWidget(); around != nullptr; around = around->parentWidget())
        if (qobject_cast<const NxScrollView*>(around) != nullptr)
            return true;
    return false;
}

} // namespace

void Measures::fault(const QString& where, const QWidget& part, const QString& what) {
    m_faults.insert(where + ": " + nameOf(part) + " " + what);
}

void Measures::take(QWidget& window, const QString& where) {
    const QImage shown = window.grab().toImage();
    for (const QWidget* const part : window.findChildren<QWidget*>()) {
        if (!part->isVisible() || seen(window, *part).isEmpty())
            continue;
        const auto* const field = qobject_cast<const NxTextField*>(part);
        const auto* const links = qobject_cast<const NxTextAndLinksView*>(part);
        const bool isText = (field != nullptr && !field->text().isEmpty()) ||
                            (links != nullptr && !links->string().isEmpty()) ||
                            qobject_cast<const NxButton*>(part) != nullptr;
        const bool isSign = qobject_cast<const NxImageView*>(part) != nullptr;
        if (!isText && !isSign)
            continue;
        ++m_parts;
        const bool isLarge = part->font().bold() && QFontInfo(part->font()).pointSizeF() >= 14;
        if (part->isEnabled() && (!isSign || part->parentWidget()->isEnabled()))
            takeContrast(shown, window, *part, isSign ? kOfSigns : isLarge ? kOfLargeText : kOfText, where);
        if (isText)
            takeRoom(window, *part, where);
        takeEdges(window, *part, where);
    }
}

//! The background is the commonest colour, the text the one that differs most from it.
void Measures::takeContrast(const QImage& shown, const QWidget& window, const QWidget& part, double least,
                            const QString& where) {
    const QRect place = seen(window, part);
    const double ratio = shown.devicePixelRatio();
    const QImage picture = shown.copy(
        QRectF(place.x() * ratio, place.y() * ratio, place.width() * ratio, place.height() * ratio).toAlignedRect());
    const QColor background(commonest(picture));
    double most = 1;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            most = std::max(most, contrastOf(QColor(picture.pixel(x, y)), background));
    auto& [wanted, range] = m_contrasts[nameOf(part)];
    wanted = least;
    range.add(most);
    if (most < least)
        fault(where, part, QString("has a contrast of %1 : 1, %2 are wanted").arg(most, 0, 'f', 2).arg(least));
}

void Measures::takeRoom(const QWidget& window, const QWidget& part, const QString& where) {
    if (part.hasHeightForWidth() && part.heightForWidth(part.width()) > part.height())
        fault(where, part,
              QString("is %1 px high and wants %2").arg(part.height()).arg(part.heightForWidth(part.width())));
    if (!part.hasHeightForWidth() && part.sizeHint().width() > part.width())
        fault(where, part, QString("is %1 px wide and wants %2").arg(part.width()).arg(part.sizeHint().width()));
    if (!scrolls(part) && seen(window, part) != placeIn(window, part))
        fault(where, part, "is partly outside what is around it");
}

void Measures::takeEdges(const QWidget& window, const QWidget& part, const QString& where) {
    if (window.layoutDirection() == Qt::RightToLeft || window.width() != 690)
        return;
    QRect place = placeIn(window, part);
    if (qobject_cast<const NxTextAndLinksView*>(&part) != nullptr)
        place.adjust(NxTextAndLinksView::kPadding, 0, 0, 0);
    const bool isSign = qobject_cast<const NxImageView*>(&part) != nullptr;
    const double x = isSign ? place.x() + place.width() / 2.0 : place.x();
    m_edges[nameOf(part) + (isSign ? " (middle)" : "")].add(x);
    if (kTextsOnEdge.contains(part.objectName()) && place.x() != kTextEdge)
        fault(where, part, QString("begins at x %1").arg(place.x()));
    if (kSignsInMiddle.contains(part.objectName()) && x != kSignMiddle)
        fault(where, part, QString("has its middle at x %1").arg(x));
}

void Measures::takeFocus(QWidget& window, const QString& where) {
    window.setAttribute(Qt::WA_KeyboardFocusChange);
    for (QWidget* const part : window.findChildren<QWidget*>()) {
        if (!part->isVisible() || !part->isEnabled() || (part->focusPolicy() & Qt::TabFocus) == 0 ||
            part->focusProxy() != nullptr)
            continue;
        window.setFocus();
        if (QWidget* const before = QApplication::focusWidget())
            before->clearFocus();
        const QImage without = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        part->setFocus(Qt::TabFocusReason);
        const QImage with = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        int changed = 0;
        double most = 1;
        for (int y = 0; y < with.height(); ++y)
            for (int x = 0; x < with.width(); ++x)
                if (with.pixel(x, y) != without.pixel(x, y)) {
                    const double contrast = contrastOf(QColor(with.pixel(x, y)), QColor(without.pixel(x, y)));
                    changed += contrast >= 1.5 ? 1 : 0;
                    most = std::max(most, contrast);
                }
        m_focus[nameOf(*part)].add(most);
        if (part->hasFocus() && (changed < kLeastFocusPixels || most < kOfSigns))
            fault(where, *part, QString("shows its focus by %1 pixels, %2 : 1").arg(changed).arg(most, 0, 'f', 2));
    }
}

bool Measures::print() const {
    std::printf("%d texts and signs measured\n\n%-46s %7s %7s %6s\n", m_parts, "contrast, x : 1", "least", "most",
                "wanted");
    for (const auto& [name, entry] : m_contrasts)
        std::printf("%-46s %7.2f %7.2f %6.1f\n", qPrintable(name), entry.second.least, entry.second.most, entry.first);
    std::printf("\n%-46s %7s %7s\n", "edges in the main window, x in px", "least", "most");
    for (const auto& [name, range] : m_edges)
        std::printf("%-46s %7.1f %7.1f\n", qPrintable(name), range.least, range.most);
    std::printf("\n%-46s %7s %7s\n", "focus, contrast of what changes, x : 1", "least", "most");
    for (const auto& [name, range] : m_focus)
        std::printf("%-46s %7.2f %7.2f\n", qPrintable(name), range.least, range.most);
    std::printf("\n%zu faults\n", m_faults.size());
    for (const QString& each : m_faults)
        std::printf("%s\n", qPrintable(each));
    return m_faults.empty();
}

} // namespace fv2::looks
