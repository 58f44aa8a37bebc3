// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "shell/FV2Palette.h"

#include "platform/FV2ThisProcess.h"
#include "toolkit/NxQtColor.h"

#include <QGuiApplication>
#include <QWindow>

namespace fv2 {

namespace {

//! Of Qt's own controls: windows, buttons, fields, texts in them. Pages and menu have FV2AppConfigModel's.
struct Tones {
    QRgb window, base, alternateBase, button, text, disabledText, placeholder, highlight, link;
};

constexpr Tones kLight{0xffefefef, 0xffffffff, 0xfff5f5f5, 0xfff0f0f0, 0xff1b1d20,
                       0xff8a8a8a, 0xff6b6b6b, 0xff2a6fb5, 0xff1a5fa8};
constexpr Tones kDark{0xff2b2e32, 0xff1f2123, 0xff26292d, 0xff3a3f45, 0xfff2f2f2,
                      0xff85888c, 0xffa7a7a7, 0xff3d82c4, 0xff7db8ef};

QPalette made(const Tones& tones) {
    QPalette palette(QColor::fromRgb(tones.button), QColor::fromRgb(tones.window));
    palette.setColor(QPalette::Base, QColor::fromRgb(tones.base));
    palette.setColor(QPalette::AlternateBase, QColor::fromRgb(tones.alternateBase));
    palette.setColor(QPalette::ToolTipBase, QColor::fromRgb(tones.base));
    palette.setColor(QPalette::ToolTipText, QColor::fromRgb(tones.text));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor::fromRgb(tones.text));
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(tones.disabledText));
    }
    palette.setColor(QPalette::PlaceholderText, QColor::fromRgb(tones.placeholder));
    palette.setColor(QPalette::Highlight, QColor::fromRgb(tones.highlight));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor::fromRgb(tones.link));
    return palette;
}

} // namespace

QPalette windowPalette(bool dark) {
    const QPalette own = QGuiApplication::palette();
    QPalette palette = isDark(own) == dark ? own : made(dark ? kDark : kLight);
    // Every role is this palette's own: the application's may turn to the other kind while the window is open.
    palette.setResolveMask(~QPalette::ResolveMask(0));
    return palette;
}

void renewFrames() {
    if (!isWaylandClient())
        return;
    for (QWindow* const window : QGuiApplication::topLevelWindows())
        if (window->isVisible() && !(window->flags() & Qt::FramelessWindowHint)) {
            window->setFlag(Qt::FramelessWindowHint, true);
            window->setFlag(Qt::FramelessWindowHint, false);
        }
}

} // namespace fv2
