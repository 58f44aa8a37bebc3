// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace fv2 {

//! Hands work to other threads and results back.
class FV2Dispatch {
public:
    virtual ~FV2Dispatch() = default;

    //! Any thread. Runs a job on the main thread, later.
    virtual void toMain(std::function<void()> job) = 0;
    //! Any thread. Runs a job on a worker thread.
    virtual void toWorker(std::function<void()> job) = 0;

    //! Any thread. Runs `job` on a worker and `done` with its value on the main thread, unless `owner` has died by
    //! then.
    template <class Job, class Done>
    void run(std::weak_ptr<const void> owner, Job job, Done done) {
        toWorker([this, owner = std::move(owner), job = std::move(job), done = std::move(done)] {
            toMain([result = job(), owner, done] {
                if (!owner.expired())
                    done(result);
            });
        });
    }
};

//! The job, for a time at which `owner` may have died: then it does nothing.
[[nodiscard]] inline std::function<void()> whileAlive(std::weak_ptr<const void> owner, std::function<void()> job) {
    return [owner = std::move(owner), job = std::move(job)] {
        if (!owner.expired())
            job();
    };
}

} // namespace fv2
