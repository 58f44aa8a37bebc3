// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2StatusMenu.h"

#include "toolkit/NxTranslated.h"

#include <QApplication>
#include <QMouseEvent>

namespace fv2 {

namespace {

//! Milliseconds from the press, which closes a menu that is shown, to the click, which a panel tells us if it has seen
//! the button go up.
constexpr int kLongestClick = 500;

} // namespace

FV2StatusMenu::FV2StatusMenu(const OxStringBundle& strings)
    : m_strings(strings)
    , m_window(m_menu.addAction(titleOf("IDUS_MGUI_MENUBAR_OPEN_ORM")))
    , m_proxySync(m_menu.addAction(titleOf("IDUS_MGUI_MENUBAR_PROXYSYNC_ORM"))) {
    m_menu.insertSeparator(m_proxySync);
    connect(m_window, &QAction::triggered, this, [this] {
        if (m_windowShown)
            Q_EMIT hideMainWindow();
        else
            Q_EMIT showMainWindow();
    });
    connect(m_proxySync, &QAction::triggered, this, &FV2StatusMenu::proxySync);
    connect(&m_menu, &QMenu::aboutToShow, this, &FV2StatusMenu::opened);
    connect(&m_menu, &QMenu::aboutToHide, this, &FV2StatusMenu::closed);
}

QString FV2StatusMenu::titleOf(const char* identifier) const {
    QString title = translated(QString::fromUtf8(identifier), m_strings);
    return title.replace(QLatin1Char('&'), QLatin1String("&&")); // an entry has no key of its own
}

void FV2StatusMenu::popUp(const QPoint& place) {
    if (m_popUp && m_popUp->isVisible()) {
        m_popUp->close();
        return;
    }
    // The press of this very click has closed the menu already.
    const bool isSecondClick = m_pressBeside.isValid() && !m_pressBeside.hasExpired(kLongestClick) &&
                               (place - m_pressPlace).manhattanLength() <= QApplication::startDragDistance();
    m_pressBeside.invalidate();
    if (isSecondClick)
        return;
    m_popUp = std::make_unique<QMenu>();
    m_popUp->installEventFilter(this);
    m_popUp->addActions(m_menu.actions());
    connect(m_popUp.get(), &QMenu::aboutToHide, this, &FV2StatusMenu::closed);
    m_popUp->popup(place);
}

bool FV2StatusMenu::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const QPoint place = static_cast<const QMouseEvent*>(event)->globalPosition().toPoint();
        if (!m_popUp->geometry().contains(place)) {
            m_pressPlace = place;
            m_pressBeside.start();
        }
    }
    return QObject::eventFilter(watched, event);
}

void FV2StatusMenu::update(bool windowShown, bool proxySyncPossible) {
    if (std::exchange(m_windowShown, windowShown) != windowShown)
        m_window->setText(titleOf(windowShown ? "IDUS_MGUI_MENUBAR_HIDE_ORM" : "IDUS_MGUI_MENUBAR_OPEN_ORM"));
    m_proxySync->setEnabled(proxySyncPossible);
}

} // namespace fv2
