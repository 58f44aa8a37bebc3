// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "Options.h"
#include "base/StandardDescriptors.h"
#include "base/StopSignal.h"
#include "protocol/Server.h"
#include "simulation/Console.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <ctime>

namespace {

using namespace fv2::service;

enum ExitStatus { Done = 0, WaitFailed = 1, Refused = 2 };

fv2::StopSignal* stopOnSignal = nullptr;

void onStop(int /*signal*/) {
    stopOnSignal->raise();
}
void onBrokenPipe(int /*signal*/) {
}

void installSignals(fv2::StopSignal& stop) {
    stopOnSignal = &stop;
    struct sigaction action {};
    action.sa_handler = onStop;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        ::sigaction(signal, &action, nullptr);
    action.sa_handler = onBrokenPipe;
    ::sigaction(SIGPIPE, &action, nullptr);
}

void printLine(std::string_view line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

int refuse(const std::string& why) {
    std::fprintf(stderr, "fv2-demo-service: %s\n", why.c_str());
    return Refused;
}

std::vector<std::filesystem::path> scenarioFolders() {
    std::error_code error;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    return {folder / "scenarios", folder.parent_path() / "share/fv2-agent/scenarios"};
}

int serve(const Options& options) {
    static fv2::StopSignal stop; // outlives every signal
    installSignals(stop);
    const Limits limits;
    Notifier notifier(options.agentSocketFolder, limits, printLine);
    const auto notify = [&notifier] { notifier.notifyAll(); };
    const auto quit = [] { stop.raise(); };
    Simulation simulation({.now = fv2::Deadline::Clock::now,
                           .epochSeconds = [] { return std::int64_t{std::time(nullptr)}; },
                           .report = printLine,
                           .changed = notify,
                           .quit = quit});
    const auto folders = scenarioFolders();
    std::optional<Scenario> scenario;
    if (options.scenario) {
        auto loaded = loadScenario(*options.scenario, folders);
        if (const auto* problem = std::get_if<std::string>(&loaded))
            return refuse(*problem);
        scenario = std::get<Scenario>(std::move(loaded));
    }
    RequestHandler handler(simulation, notifier, printLine);
    Server server(
        handler, [&simulation] { return simulation.values().fault; }, limits, printLine);
    if (const std::string problem = server.listenOn(options.socket); !problem.empty())
        return refuse(problem);
    notifier.announce();
    if (scenario)
        simulation.play(std::move(*scenario));

    Commands commands(simulation, {.scenarioFolders = folders, .report = printLine, .notify = notify, .quit = quit});
    Console console(STDIN_FILENO, commands);
    SimulationTimer timer(simulation);
    const std::array<PollClient*, 4> clients{&console, &timer, &server, &notifier};
    const bool stopped = pollUntilStopped(stop, clients);
    printLine("stopped");
    return stopped ? Done : WaitFailed;
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): what escapes is a lack of memory, and then ending is right
int main(int argc, char** argv) {
    fv2::fillStandardDescriptors();
    const auto read = readOptions({argv + 1, argv + argc});
    if (const auto* problem = std::get_if<std::string>(&read))
        return refuse(*problem + " (see --help)");
    const auto& options = std::get<Options>(read);
    if (options.help) {
        std::fputs(usage().data(), stdout);
        return Done;
    }
    return serve(options);
}
