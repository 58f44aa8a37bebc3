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
        text +=
            QStringLiteral("The last synchronization with the management server did not succeed. <A TYPE=\"COMMAND\" "
                           "COMMAND=\"RETRY-SYNC\" TITLE\">Try again</A>. If that does not help, check your network "
                           "connection or contact your administrator.");
    while (text.size() < length);
    return text;
}

void StyledText(benchmark::State& state) {
    const QString markup = message(state.range());
    const QFont font;
    for (auto _ : state)
        benchmark::DoNotOptimize(prepareAttrStrWithHtml(markup, font, Qt::black, Qt::blue));
}

//! Qt's own way from the same text to a styled one.
void QtHtmlImport(benchmark::State& state) {
    const QString markup = message(state.range());
    const QFont font;
    for (auto _ : state) {
        QTextDocument document;
        document.setDefaultFont(font);
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
