// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/extras/NxLeftMenuCounter.h"

#include "resources/NxDesign.h"
#include "toolkit/NxLeftMenuCellView.h"
#include "toolkit/NxQtColor.h"
#include "toolkit/NxTranslated.h"
#include "toolkit/SpokenStatus.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>

#include <array>

namespace fv2 {

namespace {

//! By the status.
constexpr std::array kColours{NxDesignColor::Green, NxDesignColor::Yellow, NxDesignColor::Red, NxDesignColor::Blue};

constexpr int kHeight = 18;
constexpr int kNarrowest = 22;
constexpr double kRimLuminance = 0.85;
constexpr QColor kDarkNumber(63, 68, 74);

//! Resolved when first used.
struct Texts {
    std::array<QString, kColours.size()> states{translated(QStringLiteral("IDUS_MGUI_LEFT_MENU_COUNTER_STATE_OK")),
                                                translated(QStringLiteral("IDUS_MGUI_LEFT_MENU_COUNTER_STATE_WARNING")),
                                                translated(QStringLiteral("IDUS_MGUI_LEFT_MENU_COUNTER_STATE_ERROR")),
                                                translated(QStringLiteral("IDUS_MGUI_LEFT_MENU_COUNTER_STATE_INFO"))};
    QString role = translated(QStringLiteral("IDUS_MGUI_LEFT_MENU_COUNTER_ACC_VALUE_DESC"));
};

const Texts& texts() {
    static const Texts all;
    return all;
}

QString nameOfStatus(unsigned status) {
    return status < texts().states.size() ? texts().states.at(status) : QString();
}

//! White or dark, whichever stands out more.
QColor numberColourOn(const QColor& badge) {
    return contrastOf(Qt::white, badge) > contrastOf(kDarkNumber, badge) ? QColor(Qt::white) : kDarkNumber;
}

//! Screen readers of this desktop get no texts as values, so the value is the description too.
class AccessibleCounter final : public QAccessibleWidget {
public:
    explicit AccessibleCounter(NxLeftMenuCounter& counter)
        : QAccessibleWidget(&counter, QAccessible::StaticText)
        , m_counter(counter) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value || kind == QAccessible::Description)
            return m_counter.accessibilityValueDescription();
        if (kind == QAccessible::Name && !m_counter.isAccLabelTranslated())
            return m_counter.accessibilityRoleDescription();
        return QAccessibleWidget::text(kind);
    }

private:
    NxLeftMenuCounter& m_counter;
};

QAccessibleInterface* makeAccessibleCounter(const QString&, QObject* object) {
    auto* counter = qobject_cast<NxLeftMenuCounter*>(object);
    return counter == nullptr ? nullptr : new AccessibleCounter(*counter);
}

} // namespace

NxLeftMenuCounter::NxLeftMenuCounter(QWidget* parent)
    : QPushButton(parent) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeAccessibleCounter), true);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    hide();
}

void NxLeftMenuCounter::setNumber(qlonglong number) {
    Q_EMIT numberWillChange();
    m_number = number;
    setText(QString::number(number));
    setVisible(number != 0);
    updateGeometry();
    tellAccessibility();
    Q_EMIT numberDidChange();
}

void NxLeftMenuCounter::setStatus(unsigned status) {
    Q_EMIT statusWillChange();
    m_status = status;
    if (status < kColours.size())
        setColor(toQColor(NxDesign::sharedDesign().getDesignColor(kColours.at(status))));
    tellAccessibility();
    Q_EMIT statusDidChange();
}

void NxLeftMenuCounter::setColor(std::optional<QColor> color) {
    Q_EMIT colorWillChange();
    m_color = color;
    update();
    Q_EMIT colorDidChange();
}

QString NxLeftMenuCounter::accessibilityValueDescription() const {
    return isHidden() ? QString() : spokenWithStatus(text(), nameOfStatus(m_status));
}

QString NxLeftMenuCounter::accessibilityState() const {
    return nameOfStatus(m_status);
}

QString NxLeftMenuCounter::accessibilityRoleDescription() const {
    return texts().role;
}

void NxLeftMenuCounter::setAccessibilityLabel(const QString& identifier) {
    setAccessibleName(translated(identifier));
    m_isAccLabelTranslated = true;
}

void NxLeftMenuCounter::tellAccessibility() {
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

QSize NxLeftMenuCounter::sizeHint() const {
    return {std::max(kNarrowest, fontMetrics().horizontalAdvance(text()) + kRoomBesideNumber), kHeight};
}

QColor NxLeftMenuCounter::tinted(double luminance) const {
    const QColor full = m_color.value_or(QColor(Qt::white));
    const auto part = [luminance](float value) { return static_cast<float>(value * luminance); };
    return QColor::fromRgbF(part(full.redF()), part(full.greenF()), part(full.blueF()));
}

void NxLeftMenuCounter::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const auto drawPill = [&](const QRectF& area, const QColor& colour) {
        painter.setBrush(colour);
        painter.drawRoundedRect(area, area.height() / 2, area.height() / 2);
    };
    drawPill(rect(), tinted(kRimLuminance));
    drawPill(QRectF(rect()).adjusted(1, 1, -1, -1), tinted(1));
    painter.setPen(numberColourOn(tinted(1)));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

void NxLeftMenuCounter::mousePressEvent(QMouseEvent* event) {
    event->ignore();
}

void NxLeftMenuCounter::mouseMoveEvent(QMouseEvent* event) {
    event->ignore();
}

void NxLeftMenuCounter::mouseReleaseEvent(QMouseEvent* event) {
    event->ignore();
}

} // namespace fv2
