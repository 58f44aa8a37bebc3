// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/extras/NxArrayMapper.h"

#include <gtest/gtest.h>

#include <string>

namespace fv2::test {
namespace {

using Object = std::shared_ptr<std::string>;
using Array = OxMutableArray<std::string>;
using Change = std::function<void(Array&)>;

Object object(const std::string& text) {
    return std::make_shared<std::string>(text);
}

std::string textOf(const OxObservableArray<std::string>& array) {
    std::string all;
    for (std::size_t index = 0; index < array.count(); ++index)
        all += *array.objectAtIndex(index);
    return all;
}

//! Writes down what it is told, then does `then` with it.
class Recorder : public OxArrayObserver<std::string> {
public:
    void willAddObject(const Object& object, std::size_t index) override { note("+?", object, index); }
    void didAddObject(const Object& object, std::size_t index) override { note("+", object, index); }
    void willRemoveObject(const Object& object, std::size_t index) override { note("-?", object, index); }
    void didRemoveObject(const Object& object, std::size_t index) override { note("-", object, index); }

    std::string told;
    std::function<void(const std::string& what)> then = [](const std::string&) {};

private:
    void note(const char* kind, const Object& object, std::size_t index) {
        const std::string what = kind + (object ? *object : "") + std::to_string(index);
        told += what + " ";
        then(what);
    }
};

TEST(Arrays, TellEveryoneOfEveryChangeInOrderAlsoOfThoseMadeByWhoIsTold) {
    const Change insert = [](Array& a) { a.insertObjectAtIndex(object("y"), 0); };
    struct Case {
        Change change;
        const char* told;
        const char* left;
        const char* when = ""; //!< when the first observer answers by putting "y" in front
    };
    const Case table[] = {
        {[](Array& a) { a.addObject(object("x")); }, "+?x4 +?y0 +y0 +x5 ", "yabcdx", "+?x4"},
        {[](Array& a) { a.removeObjectsInRange(1, 2); }, "-?b1 -?c2 +?y0 +y0 -2 -3 ", "yad", "-?b1"},
        {[](Array& a) { EXPECT_THROW(a.removeObjectsInRange(3, SIZE_MAX), std::out_of_range); }, "", "abcd"},
    };
    for (const Case& each : table) {
        const auto array = std::make_shared<Array>();
        for (const char* letter : {"a", "b", "c", "d"})
            array->addObject(object(letter));
        Recorder first;
        Recorder last;
        auto dying = std::make_unique<Recorder>();
        first.then = [&](const std::string& what) {
            dying.reset();
            if (what == each.when)
                insert(*array);
        };
        array->addContentObserver(first);
        array->addContentObserver(*dying);
        const NxArrayMapper<std::string, std::string> mapper(array, [](const Object& o) { return object(*o); });
        array->addContentObserver(last);
        each.change(*array);
        EXPECT_EQ(first.told, each.told);
        EXPECT_EQ(last.told, each.told);
        EXPECT_EQ(textOf(*array), each.left) << each.told;
        EXPECT_EQ(textOf(*mapper.destArray()), each.left) << each.told;
    }
}

} // namespace
} // namespace fv2::test
