// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/extras/NxViewController.h"

#include <QString>

#include <atomic>

namespace fv2 {

//! What the product is, as far as views ask.
struct ProductViewModel {
    bool isHomeEdition = false;
    bool isBusinessEdition = false;
    QString typeString;
};

//! A controller that is made for one element of a model array. Main thread only, but for modelData and its setter: any
//! thread.
template <class Model>
class NxAutoViewController : public NxViewController {
public:
    using ModelData = Model;

    [[nodiscard]] std::shared_ptr<Model> modelData() const { return m_modelData.load(); }
    void setModelData(std::shared_ptr<Model> modelData) { m_modelData.store(std::move(modelData)); }

    [[nodiscard]] std::shared_ptr<const ProductViewModel> productViewModel() const { return m_productViewModel; }
    void setProductViewModel(std::shared_ptr<const ProductViewModel> model) { m_productViewModel = std::move(model); }

private:
    std::atomic<std::shared_ptr<Model>> m_modelData;
    std::shared_ptr<const ProductViewModel> m_productViewModel;
};

} // namespace fv2
