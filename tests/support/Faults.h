// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace fv2::test {

//! One way in which the system can fail a call.
struct Fault {
    static constexpr int kShort = 0; //!< in place of an error: takes two bytes

    std::string call;
    int error;
    int nth = 1;   //!< of the calls of that name in the scope, beginning with 1
    int times = 1; //!< one after the other
    int seen = 0;
};

std::ostream& operator<<(std::ostream& out, const Fault& fault);

//! Lets calls of this thread fail for a scope, in a program that is linked with fv2_faults(). Other threads notice
//! nothing. A close() that fails has closed all the same.
class Faults {
public:
    explicit Faults(std::vector<Fault> plan);
    ~Faults();
    Faults(Faults&&) = delete;

    //! Every fault of the plan has happened.
    [[nodiscard]] bool happened() const;

private:
    std::vector<Fault> m_plan;
};

} // namespace fv2::test
