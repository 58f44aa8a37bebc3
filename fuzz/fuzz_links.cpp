// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Require.h"
#include "model/Fakes.h"
#include "screens/status/StatusMessageItemTextAndLink.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMouseEvent>

#include <cstdint>

//! Replaces Qt's: no text may open anything.
bool QDesktopServices::openUrl(const QUrl& /*url*/) {
    std::abort();
}

//! The font library keeps what it has loaded.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

namespace fv2::test {
namespace {

//! The model among fakes.
struct Desk final : Model {
    void TestBody() override {}
    //! What the windows and the workers have been asked to do since the last time.
    std::string asked() {
        std::string all = std::exchange(interface.calls, {}) + std::to_string(dispatch.workers.size());
        settled();
        return all;
    }
};

//! Whether a tag of the mark-up makes the character a link.
bool saysLink(const QString& markup, int index) {
    return std::ranges::any_of(scanTags(markup.toStdString()).tags, [index](const FV2Tag& tag) {
        const auto at = static_cast<std::size_t>(index);
        return tag.text.starts_with("<A") && tag.start <= at && at < tag.end.value_or(0);
    });
}

} // namespace
} // namespace fv2::test

//! A byte for the message's command, two for the place of a click, one for the way; the rest is the message.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace fv2;
    static int count = 1;
    static std::array<char*, 1> arguments{};
    static const auto* const application = new QApplication(count, arguments.data()); // outlives the fuzzer's exit()
    test::Desk desk;                      // a new one: refreshes of one model merge
    constexpr std::size_t longest = 1024; // as the application's own texts
    if (size < 4 || size > longest || application == nullptr)
        return 0;
    const QString markup = QString::fromUtf8(reinterpret_cast<const char*>(data) + 4, static_cast<qsizetype>(size - 4));
    StatusMessageItemTextAndLink view(*desk.model, fv2AppCommand(data[0] % 7));
    view.resize(300, 200);
    view.setHtmlCode(markup);

    const QPoint place(data[1], data[2]);
    std::optional<int> index = view.characterIndexAt(place);
    if (data[3] % 2 == 0) {
        QMouseEvent press(QEvent::MouseButtonPress, place, place, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&view, &press);
    } else if (!view.links().empty()) {
        const std::size_t link = data[3] / 2U % view.links().size();
        index = view.links()[link].start;
        view.runLink(link);
    } else {
        index.reset();
    }
    constexpr std::array<const char*, 7> deeds{"0", "1", "open 2 for user; 0", "open 3 for user; 0", "1", "1", "0"};
    test::require(desk.asked() == (index && test::saysLink(markup, *index) ? deeds.at(data[0] % 7) : "0"));
    return 0;
}
