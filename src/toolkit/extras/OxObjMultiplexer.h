// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

#include <memory>
#include <utility>

namespace fv2 {

//! The signals of a multiplexer, whatever it switches.
class OxObjMultiplexerSignals : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void outputWillChange();
    void outputDidChange();
};

//! A switch between two objects. Tells of its output before and after a change of the control, whether or not another
//! value results, and of the input that is switched through. Main thread only.
template <class T>
class OxObjMultiplexer final : public OxObjMultiplexerSignals {
public:
    using Object = std::shared_ptr<T>;

    explicit OxObjMultiplexer(Object trueObject = nullptr, Object falseObject = nullptr)
        : m_inputTrue(std::move(trueObject))
        , m_inputFalse(std::move(falseObject)) {}

    [[nodiscard]] Object inputTrue() const { return m_inputTrue; }
    [[nodiscard]] Object inputFalse() const { return m_inputFalse; }
    [[nodiscard]] bool inputControl() const { return m_inputControl; }
    [[nodiscard]] Object output() const { return m_inputControl ? m_inputTrue : m_inputFalse; }

    void setInputTrue(Object object) { set(m_inputTrue, std::move(object), m_inputControl); }
    void setInputFalse(Object object) { set(m_inputFalse, std::move(object), !m_inputControl); }
    void setInputControl(bool control) { set(m_inputControl, control, true); }

private:
    template <class Value>
    void set(Value& field, Value value, bool isAnnounced) {
        if (isAnnounced)
            Q_EMIT outputWillChange();
        field = std::move(value);
        if (isAnnounced)
            Q_EMIT outputDidChange();
    }

    Object m_inputTrue;
    Object m_inputFalse;
    bool m_inputControl = false;
};

} // namespace fv2
