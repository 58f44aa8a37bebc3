// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
//! Answers notifications in the agent's place and does nothing else.
#include "bare_sockets.h"

int main() {
    const int listening = bare::listeningAt(bare::agentSocket());
    for (;;)
        bare::answerOne(listening);
}
