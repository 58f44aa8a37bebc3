// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>

namespace fv2 {

template <class T>
class OxArrayObserverNotificator;

//! Who wants to be told what an array gains and loses. An array forgets an observer that has died. Main thread only.
template <class T>
class OxArrayObserver {
public:
    using Object = std::shared_ptr<T>;

    OxArrayObserver() = default;
    OxArrayObserver(const OxArrayObserver&) = delete;
    OxArrayObserver& operator=(const OxArrayObserver&) = delete;
    virtual ~OxArrayObserver() = default;

    virtual void willAddObject(const Object& object, std::size_t index) = 0;
    virtual void didAddObject(const Object& object, std::size_t index) = 0;
    virtual void willRemoveObject(const Object& object, std::size_t index) = 0;
    //! Of a range that was removed in one go: no object, and the index that it had before any of the range went.
    virtual void didRemoveObject(const Object& object, std::size_t index) = 0;

private:
    friend class OxArrayObserverNotificator<T>;
    std::shared_ptr<const void> m_alive = std::make_shared<char>();
};

//! An array that tells its observers of every object that comes and goes. Main thread only.
template <class T>
class OxObservableArray {
public:
    using Object = std::shared_ptr<T>;

    virtual ~OxObservableArray() = default;

    [[nodiscard]] virtual std::size_t count() const = 0;
    //! Throws std::out_of_range.
    [[nodiscard]] virtual Object objectAtIndex(std::size_t index) const = 0;

    //! Does nothing for an observer that is there already.
    virtual void addContentObserver(OxArrayObserver<T>& observer) = 0;
    virtual void removeContentObserver(OxArrayObserver<T>& observer) = 0;
};

} // namespace fv2
