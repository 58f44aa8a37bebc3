// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QApplication>

#include <functional>

namespace fv2 {

//! The application object of an agent without a main window: closing the last window does not end it, and no request to
//! end it is refused because a window can't be closed. Main thread only.
class FV2Application final : public QApplication {
    Q_OBJECT
public:
    FV2Application(int& argc, char** argv);

    //! What happens when the desktop or the user's session asks the program to end.
    void onQuitRequest(std::function<void()> quit) { m_quit = std::move(quit); }

protected:
    bool event(QEvent* event) override;

private:
    std::function<void()> m_quit;
};

} // namespace fv2
