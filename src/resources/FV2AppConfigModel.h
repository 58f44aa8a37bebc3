// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "resources/FV2WindowSizes.h"
#include "resources/NxRgba.h"

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
};

//! Colours, sizes and images of the windows and their pages, and what the About page says about this computer. Every
//! configured colour of a screen comes from here; Qt's own controls are painted by shell/FV2Palette. Main thread only;
//! lives as long as the windows.
class FV2AppConfigModel {
public:
    struct ColourEntry {
        std::string_view name;
        NxRgba colour;
    };
    struct ImageEntry {
        std::string_view name;
        std::string_view path;
    };
    //! The colours of the appearance at the last refresh.
    struct Colours {
        NxRgba colourWindowTitlebar;
        NxRgba colourLeftMenuBackground;
        NxRgba colourLeftMenuHighlight;
        NxRgba colourLeftMenuText;
        NxRgba colourLeftMenuTextGrayed;
        NxRgba colourSectionBackground;
        NxRgba colourStatusLineBackgroundGreen;
        NxRgba colourStatusLineBackgroundYellow;
        NxRgba colourStatusLineBackgroundRed;
        NxRgba colourStatusMessageBackgroundGreen;
        NxRgba colourStatusMessageBackgroundYellow;
        NxRgba colourStatusMessageBackgroundRed;
        NxRgba colourSeperator;
    };

    FV2AppConfigModel(std::function<bool()> isDarkMode, std::string os, std::string machine, ProductModel product);

    [[nodiscard]] static std::span<const ColourEntry> colourDictionary();
    [[nodiscard]] static constexpr std::span<const FV2WindowSize> integerDictionary() { return kWindowSizes; }
    //! Paths of the program's own resources.
    [[nodiscard]] static std::span<const ImageEntry> imageDictionary();

    //! The colour under a key, the entry "placeholder" for a missing one; ends the program when that is missing too.
    [[nodiscard]] static NxRgba colourIn(std::span<const ColourEntry> dictionary, std::string_view key);
    [[nodiscard]] NxRgba colour(std::string_view key) const { return colourIn(colourDictionary(), key); }

    //! Asks for the appearance and takes the colours anew; to be called whenever the appearance has changed.
    void refreshAppearance();
    [[nodiscard]] bool isDarkMode() const { return m_isDarkMode; }
    [[nodiscard]] const Colours& colours() const { return m_colours; }
    //! NxColor's, for the product's edition.
    [[nodiscard]] NxRgba taglineTint() const;
    //! NxDesign's, for the surfaces of the appearance at the last refresh.
    [[nodiscard]] NxRgba linkColour() const;

    [[nodiscard]] const std::string& os() const { return m_os; }
    [[nodiscard]] const std::string& machine() const { return m_machine; }
    [[nodiscard]] const ProductModel& productModel() const { return m_productModel; }

private:
    std::function<bool()> m_askIsDarkMode;
    ProductModel m_productModel;
    Colours m_colours;
    std::string m_os;
    std::string m_machine;
    bool m_isDarkMode = false;
};

} // namespace fv2
