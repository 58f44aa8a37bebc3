// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxArrayMapper.h"
#include "toolkit/OxObjMultiplexer.h"

#include <gtest/gtest.h>

#include <string>

namespace fv2::test {
namespace {

using Object = std::shared_ptr<std::string>;
using Array = OxMutableArray<std::string>;

Object object(const std::string& text) {
    return std::make_shared<std::string>(text);
}

template <class List>
std::string textOf(const List& array) {
    std::string all;
    for (std::size_t index = 0; index < array.count(); ++index)
        all += *array.objectAtIndex(index);
    return all;
}

void fill(Array& array, const std::string& letters) {
    for (const char letter : letters)
        array.addObject(object({letter}));
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

TEST(Arrays, TellBeforeAndAfterEveryChange) {
    struct Case {
        std::function<void(Array&)> change;
        const char* told;
        const char* left;
    };
    const Case table[] = {
        {[](Array& a) { a.addObject(object("x")); }, "+?x4 +x4 ", "abcdx"},
        {[](Array& a) { a.insertObjectAtIndex(object("x"), 1); }, "+?x1 +x1 ", "axbcd"},
        {[](Array& a) { a.removeObjectAtIndex(2); }, "-?c2 -c2 ", "abd"},
        {[](Array& a) { a.removeObjectsInRange(1, 2); }, "-?b1 -?c2 -1 -2 ", "ad"},
        {[](Array& a) { a.removeObjectsInRange(4, 0); }, "", "abcd"},
        {[](Array& a) { EXPECT_THROW(a.removeObjectAtIndex(4), std::out_of_range); }, "", "abcd"},
        {[](Array& a) { EXPECT_THROW(a.insertObjectAtIndex(object("x"), 5), std::out_of_range); }, "", "abcd"},
        {[](Array& a) { EXPECT_THROW(a.removeObjectsInRange(3, SIZE_MAX), std::out_of_range); }, "", "abcd"},
    };
    for (const Case& each : table) {
        const auto array = std::make_shared<Array>();
        fill(*array, "abcd");
        const NxArrayMapper<std::string, std::string> mapper(array, [](const Object& o) { return object(*o + "'"); });
        Recorder recorder;
        array->addContentObserver(recorder);
        array->addContentObserver(recorder);
        each.change(*array);
        EXPECT_EQ(recorder.told, each.told);
        EXPECT_EQ(textOf(*array), each.left);
        std::string derived;
        for (const char letter : std::string(each.left))
            derived += {letter, '\''};
        EXPECT_EQ(textOf(*mapper.destArray()), derived);
    }
}

TEST(Arrays, AreChangedByThoseWhoAreToldAndStillTellEveryoneTheSame) {
    struct Case {
        const char* when;
        std::function<void(Array&)> change;
        std::function<void(Array&)> answer;
        const char* left;
    };
    const auto insertFront = [](Array& a) { a.insertObjectAtIndex(object("y"), 0); };
    const auto removeAll = [](Array& a) { a.removeObjectsInRange(0, a.count()); };
    const auto addX = [](Array& a) { a.addObject(object("x")); };
    const auto removeRange = [](Array& a) { a.removeObjectsInRange(1, 2); };
    const Case table[] = {
        {"+?x4", addX, insertFront, "yabcdx"},
        {"+x4", addX, insertFront, "yabcdx"},
        {"+?x4", addX, removeAll, "x"},
        {"+x4", addX, removeAll, ""},
        {"-?b1", removeRange, insertFront, "yad"},
        {"-1", removeRange, insertFront, "yad"},
        {"-?c2", removeRange, removeAll, ""},
        {"-2", removeRange, removeAll, ""},
        {"-?b1", [](Array& a) { a.removeObjectAtIndex(1); }, insertFront, "yacd"},
    };
    for (const Case& each : table) {
        const auto array = std::make_shared<Array>();
        fill(*array, "abcd");
        Recorder first;
        Recorder last;
        first.then = [&](const std::string& what) {
            if (what == each.when)
                each.answer(*array);
        };
        array->addContentObserver(first);
        const NxArrayMapper<std::string, std::string> mapper(array, [](const Object& o) { return o; });
        array->addContentObserver(last);
        each.change(*array);
        EXPECT_EQ(textOf(*array), each.left) << each.when;
        EXPECT_EQ(textOf(*mapper.destArray()), each.left) << each.when;
        EXPECT_EQ(first.told, last.told);
    }
}

TEST(Arrays, LetObserversComeGoAndDieWhileTheyAreTold) {
    Array array;
    Recorder first;
    Recorder leaving;
    Recorder joining;
    auto dying = std::make_unique<Recorder>();
    first.then = [&](const std::string&) {
        array.removeContentObserver(leaving);
        array.addContentObserver(joining);
        dying.reset();
    };
    for (Recorder* each : {&first, &leaving, dying.get()})
        array.addContentObserver(*each);
    array.addObject(object("x"));
    EXPECT_EQ(first.told, "+?x0 +x0 ");
    EXPECT_EQ(leaving.told, "");
    EXPECT_EQ(joining.told, "+x0 ");
}

TEST(ObjMultiplexer, TellsOfItsOutputForTheControlAndTheInputThatShows) {
    OxObjMultiplexer<std::string> multiplexer(object("t"), object("f"));
    std::string told;
    const auto note = [&](const char* when) {
        return [&told, &multiplexer, when] { told += when + *multiplexer.output() + " "; };
    };
    QObject::connect(&multiplexer, &OxObjMultiplexerSignals::outputWillChange, note("?"));
    QObject::connect(&multiplexer, &OxObjMultiplexerSignals::outputDidChange, note(""));
    multiplexer.setInputTrue(object("T"));
    multiplexer.setInputFalse(object("F"));
    multiplexer.setInputControl(true);
    multiplexer.setInputFalse(object("f"));
    multiplexer.setInputTrue(object("t"));
    EXPECT_EQ(told, "?f F ?F T ?T t ");
}

} // namespace
} // namespace fv2::test
