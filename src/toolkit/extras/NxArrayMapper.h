// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/extras/OxMutableArray.h"

#include <functional>

namespace fv2 {

//! Keeps an array of derived objects in step with a source array, which it keeps alive. Main thread only.
template <class Source, class Derived>
class NxArrayMapper final : public OxArrayObserver<Source> {
public:
    using SourceObject = std::shared_ptr<Source>;
    using DerivedObject = std::shared_ptr<Derived>;
    using Block = std::function<DerivedObject(const SourceObject&)>;

    NxArrayMapper(std::shared_ptr<OxObservableArray<Source>> sourceArray, Block block)
        : m_sourceArray(std::move(sourceArray))
        , m_block(std::move(block)) {
        for (std::size_t index = 0; index < m_sourceArray->count(); ++index)
            m_destArray->addObject(m_block(m_sourceArray->objectAtIndex(index)));
        m_sourceArray->addContentObserver(*this);
    }
    ~NxArrayMapper() override { m_sourceArray->removeContentObserver(*this); }
    NxArrayMapper(const NxArrayMapper&) = delete;
    NxArrayMapper& operator=(const NxArrayMapper&) = delete;

    [[nodiscard]] std::shared_ptr<OxObservableArray<Source>> sourceArray() const { return m_sourceArray; }
    //! Changed by the mapper alone.
    [[nodiscard]] std::shared_ptr<OxObservableArray<Derived>> destArray() const { return m_destArray; }

private:
    void willAddObject(const SourceObject&, std::size_t) override { m_goneOfRange = 0; }
    void didAddObject(const SourceObject& object, std::size_t index) override {
        m_destArray->insertObjectAtIndex(m_block(object), index);
    }
    void willRemoveObject(const SourceObject&, std::size_t) override { m_goneOfRange = 0; }
    void didRemoveObject(const SourceObject& object, std::size_t index) override {
        // The indices of a range are those before any of it went; here its objects go one by one.
        m_destArray->removeObjectAtIndex(object != nullptr ? index : index - m_goneOfRange++);
    }

    std::shared_ptr<OxObservableArray<Source>> m_sourceArray;
    std::shared_ptr<OxMutableArray<Derived>> m_destArray = std::make_shared<OxMutableArray<Derived>>();
    Block m_block;
    std::size_t m_goneOfRange = 0; //!< how many of the range that is being told have been removed
};

} // namespace fv2
