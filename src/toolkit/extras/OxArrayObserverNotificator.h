// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/extras/OxObservableArray.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <vector>

namespace fv2 {

//! Hands each notification on to a set of observers, in the order in which they joined.
//! Observers may join, leave, die, and cause notifications while being told. One that has left hears nothing more, one
//! that has joined hears what happens from then on. Changes made meanwhile are told afterwards, to all in one order.
//! Observers are not kept alive: one that keeps the array alive in turn would never die.
template <class T>
class OxArrayObserverNotificator final : public OxArrayObserver<T> {
public:
    using Object = std::shared_ptr<T>;
    using Told = void (OxArrayObserver<T>::*)(const Object&, std::size_t);
    struct Notification {
        Told told;
        Object object;
        std::size_t index;
    };

    void addObserver(OxArrayObserver<T>& observer) {
        std::erase_if(m_state->observers, [](const Entry& entry) { return entry.alive.expired(); });
        if (find(observer) == m_state->observers.end())
            m_state->observers.push_back({&observer, observer.m_alive, m_state->posted});
    }
    void removeObserver(OxArrayObserver<T>& observer) {
        if (const auto entry = find(observer); entry != m_state->observers.end())
            m_state->observers.erase(entry);
    }

    void willAddObject(const Object& object, std::size_t index) override {
        notify({{&OxArrayObserver<T>::willAddObject, object, index}});
    }
    void didAddObject(const Object& object, std::size_t index) override {
        notify({{&OxArrayObserver<T>::didAddObject, object, index}});
    }
    void willRemoveObject(const Object& object, std::size_t index) override {
        notify({{&OxArrayObserver<T>::willRemoveObject, object, index}});
    }
    void didRemoveObject(const Object& object, std::size_t index) override {
        notify({{&OxArrayObserver<T>::didRemoveObject, object, index}});
    }

    //! Several that nothing else may come between.
    void notify(const std::vector<Notification>& notifications) {
        // The state outlives this object, which an observer may destroy.
        const std::shared_ptr<State> state = m_state;
        for (const Notification& each : notifications)
            state->waiting.push_back({each, state->posted++});
        if (state->isTelling)
            return;
        const Telling telling(*state);
        for (; !state->waiting.empty(); state->waiting.pop_front())
            tell(*state, state->waiting.front());
    }

private:
    struct Entry {
        OxArrayObserver<T>* observer;
        std::weak_ptr<const void> alive;
        std::uint64_t since; //!< the first notification that it hears
    };
    struct Waiting {
        Notification notification;
        std::uint64_t number;
    };
    struct State {
        std::vector<Entry> observers;
        std::deque<Waiting> waiting;
        std::uint64_t posted = 0;
        bool isTelling = false;
    };
    //! Marks the state for the time in which observers are told; drops what is left when one of them throws.
    class Telling {
    public:
        explicit Telling(State& state)
            : m_state(state) {
            m_state.isTelling = true;
        }
        Telling(const Telling&) = delete;
        Telling& operator=(const Telling&) = delete;
        ~Telling() {
            m_state.isTelling = false;
            m_state.waiting.clear();
        }

    private:
        State& m_state;
    };

    static void tell(const State& state, const Waiting& waiting) {
        const auto hears = [&](const Entry& entry) { return !entry.alive.expired() && entry.since <= waiting.number; };
        const std::vector<Entry> round = state.observers;
        for (const Entry& entry : round) {
            const bool isStillThere =
                std::any_of(state.observers.begin(), state.observers.end(),
                            [&](const Entry& each) { return each.observer == entry.observer && hears(each); });
            if (isStillThere)
                (entry.observer->*waiting.notification.told)(waiting.notification.object, waiting.notification.index);
        }
    }

    [[nodiscard]] auto find(const OxArrayObserver<T>& observer) {
        return std::find_if(m_state->observers.begin(), m_state->observers.end(),
                            [&](const Entry& entry) { return entry.observer == &observer && !entry.alive.expired(); });
    }

    std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace fv2
