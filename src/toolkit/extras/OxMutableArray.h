// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "toolkit/extras/OxArrayObserverNotificator.h"

#include <stdexcept>

namespace fv2 {

//! An array of shared objects that tells its observers of every change, before and after. An index or range that isn't
//! there throws std::out_of_range and changes nothing.
//!
//! Observers may change it while they are told: that change is made at once and told after the one that runs. When an
//! observer of a will-notification has moved things, an object is added at the end if its place is gone, and removed
//! from where it is then; one that is no longer there is not told of again. The array must outlive its own
//! operations. Main thread only.
template <class T>
class OxMutableArray final : public OxObservableArray<T> {
public:
    using Object = std::shared_ptr<T>;

    OxMutableArray() = default;
    explicit OxMutableArray(std::size_t capacity) { m_array.reserve(capacity); }
    OxMutableArray(const OxMutableArray&) = delete;
    OxMutableArray& operator=(const OxMutableArray&) = delete;
    ~OxMutableArray() override = default;

    [[nodiscard]] std::size_t count() const override { return m_array.size(); }
    [[nodiscard]] Object objectAtIndex(std::size_t index) const override { return m_array.at(index); }

    void addContentObserver(OxArrayObserver<T>& observer) override { m_notificator.addObserver(observer); }
    void removeContentObserver(OxArrayObserver<T>& observer) override { m_notificator.removeObserver(observer); }

    void addObject(const Object& object) {
        m_notificator.willAddObject(object, count());
        m_array.push_back(object);
        m_notificator.didAddObject(object, count() - 1);
    }

    void insertObjectAtIndex(const Object& object, std::size_t index) {
        requireRange(index, 0);
        m_notificator.willAddObject(object, index);
        index = std::min(index, count());
        m_array.insert(at(index), object);
        m_notificator.didAddObject(object, index);
    }

    void removeObjectAtIndex(std::size_t index) {
        const Object object = objectAtIndex(index);
        m_notificator.willRemoveObject(object, index);
        if (const auto place = placeOf(object, index); place != m_array.end()) {
            const auto present = static_cast<std::size_t>(place - m_array.begin());
            m_array.erase(place);
            m_notificator.didRemoveObject(object, present);
        }
    }

    //! Tells of each object that it will go, removes all, then tells for each of the same indices, ascending and
    //! without an object, that it has gone.
    void removeObjectsInRange(std::size_t location, std::size_t length) {
        requireRange(location, length);
        std::vector<Object> leaving(at(location), at(location + length));
        std::vector<typename OxArrayObserverNotificator<T>::Notification> notifications;
        for (std::size_t index = location; index < location + length; ++index)
            notifications.push_back({&OxArrayObserver<T>::willRemoveObject, m_array[index], index});
        m_notificator.notify(notifications);

        notifications.clear();
        const bool isInPlace = location + length <= count() && std::equal(leaving.begin(), leaving.end(), at(location));
        for (std::size_t index = isInPlace ? location : 0; index < count(); ++index)
            if (const auto found = std::find(leaving.begin(), leaving.end(), m_array[index]); found != leaving.end()) {
                leaving.erase(found);
                notifications.push_back({&OxArrayObserver<T>::didRemoveObject, nullptr, index});
            }
        for (auto each = notifications.rbegin(); each != notifications.rend(); ++each)
            m_array.erase(at(each->index));
        m_notificator.notify(notifications);
    }

private:
    void requireRange(std::size_t location, std::size_t length) const {
        if (location > count() || length > count() - location)
            throw std::out_of_range("OxMutableArray");
    }
    [[nodiscard]] auto at(std::size_t index) { return m_array.begin() + static_cast<std::ptrdiff_t>(index); }
    //! Where the object is: at the index unless it has moved.
    [[nodiscard]] auto placeOf(const Object& object, std::size_t index) {
        return index < count() && m_array[index] == object ? at(index)
                                                           : std::find(m_array.begin(), m_array.end(), object);
    }

    std::vector<Object> m_array;
    OxArrayObserverNotificator<T> m_notificator;
};

} // namespace fv2
