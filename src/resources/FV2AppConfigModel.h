// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/FV2SupportContact.h"
#include "resources/FV2WindowColours.h"
#include "resources/FV2WindowSizes.h"
#include "resources/NxDesign.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace fv2 {

//! Which product this is: its edition, the text of its type, and where its help is.
struct ProductModel {
    std::string edition;
    std::string typeString;
    std::string helpAddress = {}; //!< of the online help; empty when there is none
    FV2SupportContact support = {};
};

//! Colours, sizes and images of the windows and their pages, and what the About page says about this computer. Every
//! configured colour of a screen comes from here; Qt's own controls are painted by shell/FV2Palette. Main thread only;
//! lives as long as the windows.
class FV2AppConfigModel {
public:
    struct ImageEntry {
        std::string_view name;
        std::string_view path;
    };

    FV2AppConfigModel(std::function<bool()> isDarkMode, std::string os, std::string machine, ProductModel product);

    [[nodiscard]] static std::span<const FV2WindowColour> colourDictionary() { return windowColourTable(); }
    [[nodiscard]] static constexpr std::span<const FV2WindowSize> integerDictionary() { return kWindowSizes; }
    //! Paths of the program's own resources.
    [[nodiscard]] static std::span<const ImageEntry> imageDictionary();

    //! windowColour() of the whole table.
    [[nodiscard]] static NxRgba colour(std::string_view key) { return windowColour(colourDictionary(), key); }

    //! Asks for the appearance and takes the colours anew; to be called whenever the appearance has changed.
    void refreshAppearance();
    [[nodiscard]] bool isDarkMode() const { return m_isDarkMode; }
    //! Those of the appearance at the last refresh.
    [[nodiscard]] const FV2WindowColours& colours() const { return m_colours; }
    //! NxColor's, for the product's edition.
    [[nodiscard]] NxRgba taglineTint() const;
    //! NxDesign's, for the surfaces of the appearance at the last refresh.
    [[nodiscard]] NxRgba designColour(NxDesignColor kind) const;

    [[nodiscard]] const std::string& os() const { return m_os; }
    [[nodiscard]] const std::string& machine() const { return m_machine; }
    [[nodiscard]] const ProductModel& productModel() const { return m_productModel; }

private:
    std::function<bool()> m_askIsDarkMode;
    ProductModel m_productModel;
    FV2WindowColours m_colours;
    std::string m_os;
    std::string m_machine;
    bool m_isDarkMode = false;
};

} // namespace fv2
