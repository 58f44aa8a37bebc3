// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Appearance.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScopedValueRollback>

namespace fv2 {

namespace {

const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kSchemeKey = QStringLiteral("color-scheme");

//! The portal's values of the setting; any other means that the user has no wish.
constexpr unsigned kPreferDark = 1;
constexpr unsigned kPreferLight = 2;

bool isDarkPalette() {
    const QPalette palette = QGuiApplication::palette();
    return qGray(palette.color(QPalette::Window).rgb()) < qGray(palette.color(QPalette::WindowText).rgb());
}

} // namespace

FV2Appearance::FV2Appearance()
    : m_scheme(QDBusConnection::sessionBus(), {kPortal,
                                               kPortalPath,
                                               kInterface,
                                               QStringLiteral("Read"),
                                               {kGroup, kSchemeKey},
                                               {QStringLiteral("SettingChanged")},
                                               {kGroup, kSchemeKey}})
    , m_desktopIsDark(isDarkPalette())
    , m_isDark(m_desktopIsDark) {
    connect(&m_scheme, &FV2BusValue::learnt, this, &FV2Appearance::update);
    qGuiApp->installEventFilter(this);
}

void FV2Appearance::askPortal() {
    if (!std::exchange(m_hasAsked, true))
        m_scheme.ask(FV2BusValue::Start::Allowed);
}

bool FV2Appearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qGuiApp && !m_isDressing) {
        m_desktopIsDark = isDarkPalette();
        m_isDark = looksDark();
        Q_EMIT changed();
    }
    return QObject::eventFilter(watched, event);
}

bool FV2Appearance::looksDark() const {
    const QVariant& scheme = m_scheme.value();
    const unsigned wish = scheme.typeId() == QMetaType::UInt ? scheme.toUInt() : 0;
    if (wish == kPreferDark || wish == kPreferLight)
        return wish == kPreferDark;
    return m_desktopIsDark;
}

void FV2Appearance::dressApplication(QPalette (*paletteFor)(bool dark)) {
    const QScopedValueRollback dressing(m_isDressing, true);
    QGuiApplication::setPalette(QPalette()); // the desktop's own again
    m_desktopIsDark = isDarkPalette();
    m_isDark = looksDark();
    if (m_isDark != m_desktopIsDark)
        QGuiApplication::setPalette(paletteFor(m_isDark));
}

void FV2Appearance::update() {
    const bool wasDark = std::exchange(m_isDark, looksDark());
    if (wasDark != m_isDark)
        Q_EMIT changed();
}

} // namespace fv2
