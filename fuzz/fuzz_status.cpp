// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Require.h"
#include "model/FV2JsonParserORM.h"

#include <cstdint>
#include <tuple>

namespace fv2::test {
namespace {

struct Strings final : OxStringBundle {
    std::string localizedString(const std::string& identifier) const override { return identifier.substr(5) + " %1"; }
};

//! Messages are the program's own words whatever the service says, and nothing stays from one answer to the next.
void check(const std::string& text) {
    static const Strings strings;
    const auto asDate = [](std::int64_t at) { return std::to_string(at); };
    FV2JsonParserORM parser(strings, asDate);
    FV2JsonParserORM used(strings, asDate);
    FV2AppState state(strings, 501, "");
    FV2AppState another = state;
    used.ParseStatus(R"({"result":true,"error_code":0,"status":{"state":4,"progress":7,"sync_ok":0,"version":"v"}})",
                     another);
    const auto told = [](const FV2AppState& all) {
        return std::tie(all.statusMessageList, all.overallState, all.version, all.uuid, all.lastORMSync,
                        all.lastActionStored, all.syncORMBlocked, all.encryptionProgress, all.postponeTimeInMins);
    };
    require(parser.ParseStatus(text, state) == used.ParseStatus(text, another) && told(state) == told(another));
    auto worst = fv2StatusStateType::Green;
    for (const FV2StatusMesssageListItem& item : state.statusMessageList) {
        worst = std::max(worst, item.statusType);
        constexpr const char* own = "ABCDEFGHIJKLMNOPQRSTUVWXYZ_ %0123456789-";
        require((item.Title + item.Text + item.Link).find_first_not_of(own) == std::string::npos);
    }
    require(worst == state.overallState);
    state.isActionRequired = false;
    parser.ParseStatus(text, state);
    require(!state.isActionRequired); // the same answer asks for nothing anew
}

} // namespace
} // namespace fv2::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fv2::test::check(std::string(data, data + size));
    return 0;
}
