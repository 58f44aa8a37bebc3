// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
//
// Shows every window in every state, appearance, language, direction, style and size of letters, and measures what is
// to be seen; with --quick in a sixth of these combinations. Prints tables of contrast, edges and focus, and every fault; ends with 1 if there is any. QT_SCALE_FACTOR
// and QT_QPA_PLATFORM are the caller's.

#include "Measures.h"
#include "ShownWindows.h"
#include "resources/NxAppearance.h"
#include "resources/NxDesign.h"
#include "toolkit/NxSecureTextField.h"

#include <QApplication>
#include <QFile>
#include <QStyleFactory>
#include <QTest>

namespace fv2::looks {

namespace {

constexpr int kFontSizes[] = {9, 11, 14};

void measure(Measures& measures, const QString& language, bool dark, bool focus, const QString& where) {
    const FV2SupportContact support{.name = "Helpdesk of the university's computing centre, building 12",
                                    .phone = "+49 30 1234567-890",
                                    .url = "https://help.example.org/disk-encryption"};
    for (const bool supported : {false, true}) {
        ShownWindows windows(language, dark, supported ? support : FV2SupportContact());
        windows.tell(6);
        FV2Window& main = windows.mainWindow();
        struct State {
            int number;
            const char* more;
        };
        for (const State& state :
             {State{6, ""}, {10, ""}, {5, R"(,"encryption_progress":42)"}, {3, R"(,"sync_ok":0)"}, {12, ""}}) {
            windows.tell(state.number, state.more);
            for (const auto page :
                 {eMainWindowContentSubViewType::ProtectionStatus, eMainWindowContentSubViewType::About}) {
                windows.pages().selectPage(page);
                ShownWindows::layOut();
                const QString what = QString("%1, state %2, page %3").arg(where).arg(state.number).arg(int(page));
                measures.take(main, what);
                if (focus)
                    measures.takeFocus(main, what);
            }
        }
    }
    ShownWindows windows(language, dark, support);
    windows.tell(3);
    FV2Window& dialog = windows.passwordDialog();
    measures.take(dialog, where + ", dialog");
    auto* const field = dialog.findChild<NxSecureTextField*>();
    QTest::keyClicks(field, "secret");
    measures.take(dialog, where + ", dialog with a password");
    if (focus)
        measures.takeFocus(dialog, where + ", dialog");
    QTest::keyClicks(field, QString(600, 'x'));
    ShownWindows::layOut();
    measures.take(dialog, where + ", dialog with too long a password");
    QWidget& alert = windows.alert();
    measures.take(alert, where + ", alert");
    if (focus)
        measures.takeFocus(alert, where + ", alert");
}

std::string designPropertyList() {
    QFile file(QStringLiteral(":/design/design.plist"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

int run(bool quick) {
    NxDesign::setResource(designPropertyList);
    Measures measures;
    const QStringList styles = quick ? QStringList{"Fusion"} : QStyleFactory::keys();
    const QString family = QApplication::font().family();
    for (const QString& style : styles) {
        QApplication::setStyle(style);
        for (const int points : kFontSizes) {
            if (quick && points == kFontSizes[1])
                continue;
            QApplication::setFont(QFont(family, points));
            for (const bool dark : {false, true}) {
                NxAppearance::setCurrent(dark ? NxAppearance::dark : NxAppearance::aqua);
                for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                    QApplication::setLayoutDirection(direction);
                    for (const QString language : {"en", "de"}) {
                        if (quick && (direction == Qt::RightToLeft) != (language == "de"))
                            continue;
                        const QString where = QString("%1, %2 pt, %3, %4, %5")
                                                  .arg(style)
                                                  .arg(points)
                                                  .arg(dark ? "dark" : "light")
                                                  .arg(direction == Qt::LeftToRight ? "to the right" : "to the left")
                                                  .arg(language);
                        measure(measures, language, dark, points == 9 && language == "en", where);
                    }
                }
            }
        }
    }
    return measures.print() ? 0 : 1;
}

} // namespace

} // namespace fv2::looks

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return fv2::looks::run(application.arguments().contains("--quick"));
}
