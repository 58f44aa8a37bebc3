// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Images.h"

#include <QImage>
#include <QPixmap>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

const QStringList kNames{QStringLiteral("orm_menu_icon"), QStringLiteral("orm_menu_icon_warning"),
                         QStringLiteral("orm_menu_icon_alert"), QStringLiteral("orm_menu_icon_sync")};

//! The percentage of pixels that one of two images of the same size covers and the other doesn't.
int differenceOfOutlines(const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += (qAlpha(a.pixel(x, y)) > 127) != (qAlpha(b.pixel(x, y)) > 127) ? 1 : 0;
    return count * 100 / (a.width() * a.height());
}

TEST(Images, CanBeToldApartInAPanelWithoutColours) {
    FV2Images images;
    for (const QString& one : kNames)
        for (const QString& other : kNames)
            EXPECT_GE(differenceOfOutlines(images.imageNamed(one).pixmap(16).toImage(),
                                           images.imageNamed(other).pixmap(16).toImage()),
                      one == other ? 0 : 8)
                << one.toStdString() << " " << other.toStdString();
}

} // namespace
} // namespace fv2::test
