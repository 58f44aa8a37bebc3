// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace fv2 {

//! A string table in the user's language. Any thread.
class OxStringBundle {
public:
    virtual ~OxStringBundle() = default;

    //! The text of an identifier; the identifier itself when the table has none.
    [[nodiscard]] virtual std::string localizedString(const std::string& identifier) const = 0;
};

//! A resolved text: the resolver returns it unchanged. Copies share one storage. UTF-8; lengths and positions count
//! bytes.
class OxTranslatedString {
public:
    OxTranslatedString()
        : OxTranslatedString(std::string()) {}
    explicit OxTranslatedString(std::string text)
        : _storage(std::make_shared<const std::string>(std::move(text))) {}

    // Copied, never moved from: every text has a storage.
    OxTranslatedString(const OxTranslatedString&) = default;
    OxTranslatedString& operator=(const OxTranslatedString&) = default;
    ~OxTranslatedString() = default;

    //! Resolves an identifier (a text that begins with "IDUS_" or "IDCUS_") through the bundle. One without a text, and
    //! any literal, is returned with a leading "!" to stand out; a missing one also goes to the system log.
    [[nodiscard]] static OxTranslatedString translateOrMarkID(std::string_view text, const OxStringBundle& bundle);
    [[nodiscard]] static OxTranslatedString translateOrMarkID(const OxTranslatedString& text, const OxStringBundle&) {
        return text;
    }

    //! The same with the application's own bundle.
    [[nodiscard]] static OxTranslatedString translateOrMarkID(std::string_view text);
    [[nodiscard]] static OxTranslatedString translateOrMarkID(const OxTranslatedString& text) { return text; }

    //! Names the application's own bundle; once, before a second thread starts. It must outlive its use.
    static void setApplicationBundle(const OxStringBundle& bundle);

    [[nodiscard]] std::size_t length() const { return _storage->size(); }
    [[nodiscard]] char characterAtIndex(std::size_t index) const { return _storage->at(index); }
    [[nodiscard]] const std::string& string() const { return *_storage; }

private:
    std::shared_ptr<const std::string> _storage;
};

//! The text of an identifier, resolved or marked as translateOrMarkID() does it. Where Qt shows it: NxTranslated.h.
[[nodiscard]] inline std::string translatedText(std::string_view identifier, const OxStringBundle& bundle) {
    return OxTranslatedString::translateOrMarkID(identifier, bundle).string();
}
[[nodiscard]] inline std::string translatedText(std::string_view identifier) {
    return OxTranslatedString::translateOrMarkID(identifier).string();
}

} // namespace fv2
