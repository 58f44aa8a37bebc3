// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "platform/FV2Images.h"

#include <QBitmap>
#include <QRegion>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

TEST(Images, CanBeToldApartInAPanelWithoutColours) {
    FV2Images images;
    const char* const names[] = {"orm_menu_icon", "orm_menu_icon_warning", "orm_menu_icon_alert", "orm_menu_icon_sync"};
    const auto outline = [&images](const char* name) {
        return QRegion(images.imageNamed(QString::fromUtf8(name)).pixmap(16).mask());
    };
    for (const char* const* one = std::begin(names); one != std::end(names); ++one)
        for (const char* const* other = std::begin(names); other != one; ++other) {
            int difference = 0;
            for (const QRect& part : outline(*one).xored(outline(*other)))
                difference += part.width() * part.height();
            EXPECT_GE(difference, 16 * 16 * 8 / 100) << *one << " " << *other;
        }
}

} // namespace
} // namespace fv2::test
