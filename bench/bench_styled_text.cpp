// SPDX-FileCopyrightText: 2026 The fv2-agent authors
// SPDX-License-Identifier: Apache-2.0
#include "toolkit/NxTagMapper.h"

#include <QGuiApplication>
#include <QTextDocument>

#include <benchmark/benchmark.h>

using namespace fv2;

namespace {

//! A message of the status page, as often as it takes to be so long.
QString message(std::int64_t length) {
    QString text;
    do
        text += QStringLiteral("The last synchronization did not succeed. <A TYPE=\"COMMAND\" COMMAND=\"RETRY-SYNC\" "
                               "TITLE=\"Try again\">Try again</A>. <B>If that does not help</B>, check your network "
                               "connection &amp; contact your administrator.");
    while (text.size() < length);
    return text;
}

void StyledText(benchmark::State& state) {
    const QString markup = message(state.range());
    for (auto _ : state)
        benchmark::DoNotOptimize(prepareAttrStrWithHtml(markup, QFont(), Qt::black, Qt::blue));
}

//! Qt's own way from the same text to a styled one.
void QtHtmlImport(benchmark::State& state) {
    const QString markup = message(state.range());
    for (auto _ : state) {
        QTextDocument document;
        document.setHtml(markup);
        benchmark::DoNotOptimize(document.isEmpty());
    }
}

} // namespace

BENCHMARK(StyledText)->Arg(1)->Arg(4096);
BENCHMARK(QtHtmlImport)->Arg(1)->Arg(4096);

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
