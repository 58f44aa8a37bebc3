// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxStackController.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace fv2::test {
namespace {

//! A view of a height that its model tells.
class Block final : public NxAutoViewController<int> {
public:
    Block() = default;
    explicit Block(int height) { setModelData(std::make_shared<int>(height)); }

    int appearances = 0;

private:
    std::unique_ptr<QWidget> loadView() override {
        auto view = std::make_unique<QWidget>();
        view->setFixedHeight(*modelData());
        return view;
    }
    void viewDidLoad() override { ++appearances; }
};

//! The places of the views within the stack of 100 pixels' width, one under the other.
std::vector<QRect> placesIn(NxStackController& stack) {
    stack.view()->show();
    QCoreApplication::processEvents(); // shows views that have come
    stack.view()->resize(100, stack.view()->sizeHint().height());
    std::vector<QRect> places;
    for (const auto& each : stack.childViewControllers())
        places.emplace_back(each->view()->mapTo(stack.view(), QPoint(0, 0)), each->view()->size());
    return places;
}

TEST(Stack, LaysViewsOutWithSpacingAndPaddings) {
    const auto first = std::make_shared<Block>(10);
    const auto stack =
        NxStackController::stackWithControllers({first, std::make_shared<Block>(20), std::make_shared<Block>(30)});
    stack->setSpacing(8);
    stack->setPadding(-3);
    EXPECT_FALSE(first->isViewLoaded());
    EXPECT_EQ(placesIn(*stack), (std::vector<QRect>{{0, 0, 100, 10}, {0, 18, 100, 20}, {0, 46, 100, 30}}));
    EXPECT_EQ(stack->view()->height(), 76);

    stack->setPaddingTop(1);
    stack->setPaddingBottom(2);
    stack->setPaddingLeft(3);
    stack->setPaddingRight(4);
    EXPECT_EQ(placesIn(*stack), (std::vector<QRect>{{3, 1, 93, 10}, {3, 19, 93, 20}, {3, 47, 93, 30}}));
    EXPECT_EQ(stack->view()->height(), 79);
}

TEST(Stack, FollowsAModelArray) {
    const auto model = std::make_shared<OxMutableArray<int>>();
    const auto product = std::make_shared<ProductViewModel>();
    std::vector<int> made;
    std::shared_ptr<NxStackController> stack =
        NxStackController::stackWithControllerClass<Block>(model, product, [&](Block& block) {
            EXPECT_EQ(block.productViewModel(), product);
            made.push_back(*block.modelData());
        });
    model->addObject(std::make_shared<int>(10));
    EXPECT_TRUE(stack->childViewControllers().empty());
    EXPECT_EQ(placesIn(*stack), (std::vector<QRect>{{0, 0, 100, 10}}));

    model->insertObjectAtIndex(std::make_shared<int>(20), 0);
    model->addObject(std::make_shared<int>(30));
    EXPECT_EQ(placesIn(*stack), (std::vector<QRect>{{0, 0, 100, 20}, {0, 20, 100, 10}, {0, 30, 100, 30}}));
    const std::weak_ptr<NxViewController> gone = stack->childViewControllers()[1];
    model->removeObjectsInRange(1, 2);
    EXPECT_EQ(placesIn(*stack), (std::vector<QRect>{{0, 0, 100, 20}}));
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(static_cast<Block&>(*stack->childViewControllers()[0]).appearances, 1);

    stack.reset();
    model->addObject(std::make_shared<int>(40));
    EXPECT_EQ(made, (std::vector<int>{10, 20, 30}));
}

} // namespace
} // namespace fv2::test
