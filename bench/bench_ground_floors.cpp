// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "comms/MessageReader.h"
#include "logging/FV2Logging.h"
#include "logging/LogFile.h"
#include "model/FV2JsonParserORM.h"
#include "resources/FV2TagScanner.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <malloc.h>
#include <string>
#include <unistd.h>

using namespace fv2;

namespace {

//! A home folder of its own, with the logs folder, for the time of one benchmark.
class TemporaryHome {
public:
    TemporaryHome() {
        char name[] = "/tmp/fv2-bench-XXXXXX";
        m_folder = ::mkdtemp(name);
        std::filesystem::create_directory(m_folder / "logs");
        ::setenv("HOME", m_folder.c_str(), 1);
        rememberLogFilePath();
    }
    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;
    ~TemporaryHome() { std::filesystem::remove_all(m_folder); }

private:
    std::filesystem::path m_folder;
};

const std::string kStatus =
    R"({"result": true, "error_code": 0, "status": {"state": 5, "progress": 42, "uuid": "8A7C0D52-3B1E", )"
    R"("version": "5.1.0", "sync_active": 0, "sync_ok": 1, "sync_last": 1764500000}, )"
    R"("policy": {"postponecredentialmins": 60}})";

void LogLineFilteredOut(benchmark::State& state) {
    FV2Logging logger({});
    for (auto _ : state)
        logger.log(FV2LoggingLevel::trace, {"Send socket:", 17}, " ", "\n");
}

//! To the file alone: standard output is the benchmark's report.
void LogLineWritten(benchmark::State& state) {
    const TemporaryHome home;
    for (auto _ : state)
        appendToLogFile(logFilePath(), "1) 09:41:07.093 [trace] Send socket: 17 \n");
}

void BareOpenAppendClose(benchmark::State& state) {
    const TemporaryHome home;
    const std::string path = logFilePath();
    const std::string line = "1) 09:41:07.093 [trace] Send socket: 17 \n";
    for (auto _ : state) {
        const int file = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
        benchmark::DoNotOptimize(::write(file, line.data(), line.size()));
        ::close(file);
    }
}

void StatusReplyDecoded(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(FV2JsonParserORM::decodeStatus(kStatus));
}

void MessageOfOneMebibyteJoined(benchmark::State& state) {
    const std::string chunk(MessageReader::chunkSize, 'x');
    constexpr std::size_t size = 1024 * 1024;
    for (auto _ : state) {
        MessageReader reader(size);
        for (std::size_t taken = 0; taken < size; taken += chunk.size())
            benchmark::DoNotOptimize(reader.take(chunk));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

//! A piece of mark-up over and over, until the text is so long.
void scanned(benchmark::State& state, std::string_view piece) {
    // Keeps freed memory in the process; by default that depends on what ran before.
    ::mallopt(M_MMAP_THRESHOLD, 32 * 1024 * 1024);
    ::mallopt(M_TRIM_THRESHOLD, 64 * 1024 * 1024);
    const auto size = static_cast<std::size_t>(state.range());
    std::string markup;
    while (markup.size() + piece.size() <= size)
        markup += piece;
    for (auto _ : state)
        benchmark::DoNotOptimize(scanTags(markup));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(markup.size()));
}

void MessagesScanned(benchmark::State& state) {
    scanned(state, "The last synchronization with the management server did not succeed. <A TYPE=\"COMMAND\" "
                   "COMMAND=\"RETRY-SYNC\" TITLE\">Try again</A>. If that does not help, check your network connection "
                   "&amp; contact your administrator.");
}

//! Texts that would cost most if each tag or entity looked at all of the others.
void OpeningTagsScanned(benchmark::State& state) {
    scanned(state, "<A>a");
}

void ClosingTagsScanned(benchmark::State& state) {
    scanned(state, "a</A>");
}

void EntitiesScanned(benchmark::State& state) {
    scanned(state, "<I>&lt;&amp;</I>");
}

} // namespace

BENCHMARK(LogLineFilteredOut);
BENCHMARK(LogLineWritten);
BENCHMARK(BareOpenAppendClose);
BENCHMARK(StatusReplyDecoded);
BENCHMARK(MessageOfOneMebibyteJoined);
BENCHMARK(MessagesScanned)->Arg(4096)->Arg(65534);
BENCHMARK(OpeningTagsScanned)->Arg(4096)->Arg(65534);
BENCHMARK(ClosingTagsScanned)->Arg(4096)->Arg(65534);
BENCHMARK(EntitiesScanned)->Arg(4096)->Arg(65534);
BENCHMARK_MAIN();
