// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/extras/NxArrayMapper.h"
#include "toolkit/extras/NxAutoViewController.h"

#include <cstdint>
#include <initializer_list>

class QLayout;
class QVBoxLayout;

namespace fv2 {

//! Lays the views of an array of controllers out from top to bottom, each as wide as the stack, and follows the array.
//! Nothing is laid out before the view is loaded. Main thread only.
class NxStackController final : public NxViewController, private OxArrayObserver<NxViewController> {
    Q_OBJECT
    Q_PROPERTY(int spacing READ spacing WRITE setSpacing)
    Q_PROPERTY(int paddingTop READ paddingTop WRITE setPaddingTop)
    Q_PROPERTY(int paddingBottom READ paddingBottom WRITE setPaddingBottom)
    Q_PROPERTY(int paddingLeft READ paddingLeft WRITE setPaddingLeft)
    Q_PROPERTY(int paddingRight READ paddingRight WRITE setPaddingRight)
    Q_PROPERTY(bool stretchTop MEMBER m_stretchTop)
    Q_PROPERTY(bool stretchBootom MEMBER m_stretchBootom)

public:
    using Controllers = OxObservableArray<NxViewController>;
    using MutableControllers = OxMutableArray<NxViewController>;
    template <class Model>
    using Mapper = NxArrayMapper<Model, NxViewController>;

    //! Empty, to be filled through mutableSubviewControllers().
    NxStackController();
    explicit NxStackController(std::shared_ptr<MutableControllers> controllers);
    explicit NxStackController(std::shared_ptr<Controllers> controllers);
    //! Shows what the mapper derives and keeps the mapper.
    template <class Model>
    explicit NxStackController(std::shared_ptr<Mapper<Model>> mapper)
        : NxStackController(mapper->destArray()) {
        m_mapper = std::move(mapper);
    }
    ~NxStackController() override;

    [[nodiscard]] static std::shared_ptr<NxStackController>
    stackWithControllers(std::initializer_list<std::shared_ptr<NxViewController>> controllers);

    //! A stack with one new Controller, a class derived from NxAutoViewController, for each element of the model array;
    //! `callForEachNewController` gets each before it is shown.
    template <class Controller>
    [[nodiscard]] static std::shared_ptr<NxStackController>
    stackWithControllerClass(std::shared_ptr<OxObservableArray<typename Controller::ModelData>> modelArray,
                             std::shared_ptr<const ProductViewModel> productViewModel,
                             std::function<void(Controller&)> callForEachNewController = {}) {
        using Model = typename Controller::ModelData;
        return std::make_shared<NxStackController>(
            std::make_shared<Mapper<Model>>(std::move(modelArray), [=](const std::shared_ptr<Model>& element) {
                auto controller = std::make_shared<Controller>();
                controller->setModelData(element);
                controller->setProductViewModel(productViewModel);
                if (callForEachNewController)
                    callForEachNewController(*controller);
                return controller;
            }));
    }

    [[nodiscard]] std::shared_ptr<Controllers> subviewControllers() const { return m_subviewControllers; }
    //! The same array if it was made by this stack or given to it as one that can be changed, otherwise null.
    [[nodiscard]] std::shared_ptr<MutableControllers> mutableSubviewControllers() const { return m_ownControllers; }

    // Pixels. What is negative is kept and laid out as 0.
    [[nodiscard]] std::int32_t spacing() const { return m_spacing; }
    [[nodiscard]] std::int32_t paddingTop() const { return m_paddingTop; }
    [[nodiscard]] std::int32_t paddingBottom() const { return m_paddingBottom; }
    [[nodiscard]] std::int32_t paddingLeft() const { return m_paddingLeft; }
    [[nodiscard]] std::int32_t paddingRight() const { return m_paddingRight; }
    //! Between the views; seen at the next updateViews().
    void setSpacing(std::int32_t spacing) { m_spacing = spacing; }
    void setPaddingTop(std::int32_t padding) { set(m_paddingTop, padding); }
    void setPaddingBottom(std::int32_t padding) { set(m_paddingBottom, padding); }
    void setPaddingLeft(std::int32_t padding) { set(m_paddingLeft, padding); }
    void setPaddingRight(std::int32_t padding) { set(m_paddingRight, padding); }
    //! All four.
    void setPadding(std::int32_t padding);

    //! Lays all views out anew.
    void updateViews();

protected:
    [[nodiscard]] std::unique_ptr<QWidget> loadView() override;
    void viewDidLoad() override;

private:
    void willAddObject(const std::shared_ptr<NxViewController>&, std::size_t) override {}
    void didAddObject(const std::shared_ptr<NxViewController>&, std::size_t) override { updateViews(); }
    void willRemoveObject(const std::shared_ptr<NxViewController>&, std::size_t) override {}
    void didRemoveObject(const std::shared_ptr<NxViewController>&, std::size_t) override { updateViews(); }

    void set(std::int32_t& padding, std::int32_t value);
    void applyPaddings();
    void layOutViews();

    std::shared_ptr<Controllers> m_subviewControllers;
    std::shared_ptr<MutableControllers> m_ownControllers;
    std::shared_ptr<const void> m_mapper;
    std::int32_t m_spacing = 0;
    std::int32_t m_paddingTop = 0;
    std::int32_t m_paddingBottom = 0;
    std::int32_t m_paddingLeft = 0;
    std::int32_t m_paddingRight = 0;
    bool m_stretchTop = false; //!< this and the next are kept for whoever sets them; the layout has no use for them
    bool m_stretchBootom = false;
    QPointer<QWidget> m_innerView;
    bool m_isUpdating = false;
    bool m_isOutdated = false;
};

} // namespace fv2
