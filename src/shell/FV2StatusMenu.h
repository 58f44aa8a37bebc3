// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/OxTranslatedString.h"

#include <QAction>
#include <QElapsedTimer>
#include <QMenu>
#include <QObject>
#include <QPoint>

#include <memory>

namespace fv2 {

//! The tray item's menu. Its entries are always current: the tray's host may show a copy that it made before the menu
//! was opened. Main thread only.
class FV2StatusMenu final : public QObject {
    Q_OBJECT
public:
    explicit FV2StatusMenu(const OxStringBundle& strings);

    //! For the tray's host. Never popped up by us: a host and we showing the same menu would close each other's.
    [[nodiscard]] QMenu& menu() { return m_menu; }
    //! Shows the same entries at a place of the screen, in a menu of our own. A click there while that menu is shown
    //! only closes it.
    void popUp(const QPoint& place);

    //! Changes only what is different: the host fetches the entries anew after every change.
    void update(bool windowShown, bool proxySyncPossible);

    //! What the first entry does now.
    void triggerFirst() { m_window->trigger(); }

Q_SIGNALS:
    void opened();
    void closed();
    void showMainWindow();
    void hideMainWindow();
    void proxySync();

protected:
    //! Of the menu that we pop up.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QString titleOf(const char* identifier) const;

    const OxStringBundle& m_strings;
    QMenu m_menu;
    std::unique_ptr<QMenu> m_popUp;
    QElapsedTimer m_pressBeside; //!< since the press that closed it, if one beside it did
    QPoint m_pressPlace;
    QAction* m_window;
    QAction* m_proxySync;
    bool m_windowShown = false;
};

} // namespace fv2
